// Fuzz target for the text cleaner of feed texts: arbitrary bytes as UTF-8 text. Besides crashes it
// checks what the cleaner promises: the caller's text holds the result, no blank at the end, no line
// break at the start.

#include "feeds/StripHtmlTags.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString result = pd::StripHTMLTags(text);
    if (result != text) std::abort();
    if (!result.isEmpty()) {
        if (result.back() == QLatin1Char(' ')) std::abort();
        if (result.front() == QLatin1Char('\r') || result.front() == QLatin1Char('\n')) std::abort();
    }
    return 0;
}
