// Fuzz target for the feed parser: arbitrary bytes are decoded as a fetched body would be (a mark, else
// the Content-Type header's charset, else the declared encoding, else UTF-8), loaded and parsed by a
// reader on the fake platform; every headline then goes through the text cleaner, as the panels will do.
// An input whose first line starts with "Content-Type:" gives the header's value in that line and the
// body after it; any other input is all body, fetched without a header.

#include "feeds/FeedBody.h"
#include "feeds/FeedReader.h"
#include "feeds/StripHtmlTags.h"
#include "support/FakePlatform.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QByteArray contentType;
    static const QByteArray header("Content-Type:");
    if (bytes.startsWith(header)) {
        const qsizetype end = bytes.indexOf('\n');
        contentType = bytes.mid(header.size(), end < 0 ? -1 : end - header.size()).trimmed();
        bytes = end < 0 ? QByteArray() : bytes.mid(end + 1);
    }
    pd::test::FakePlatform platform;
    pd::clsReader reader(platform);
    reader.LoadFromCache(pd::DecodeFeedBody(bytes, contentType));
    const auto feed = reader.NewsFeed();
    if (feed->Count() != reader.Count()) std::abort();
    for (const pd::clsHeadLine& h : *feed) {
        // The cleaner is quadratic in the number of distinct tags; short texts keep the runs fast.
        if (h.HeadLine.size() > 4096) continue;
        QString t = h.HeadLine;
        pd::StripHTMLTags(t);
    }
    return 0;
}
