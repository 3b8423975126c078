// Fuzz target for the Vietnamese text conversion: arbitrary bytes are read as text three ways (UTF-8 with
// replacement characters, the way the program reads its text files, and raw UTF-16 units, which reach
// lone surrogates) and go through VNIToUnicode and RemoveVietnameseMarks. Besides the sanitizers, the
// target checks what always holds:
//   - the conversion copies the first character (only a mark right behind it changes it), never
//     lengthens the text, and changes nothing in a text without a mark digit;
//   - converting twice gives what converting once gives;
//   - removing marks keeps the length, leaves no table letter behind, and a second removal changes
//     nothing.
// A broken rule aborts, so that libFuzzer keeps the input.

#include "app/files/TextFile.h"
#include "feeds/VietnameseText.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

void Fail(const char* what, const QString& text) {
    std::fprintf(stderr, "fuzz_vni_text: %s (input of %lld units)\n", what,
                 static_cast<long long>(text.size()));
    std::abort();
}

// Every letter of the tables, gathered once.
bool IsTableLetter(QChar c) {
    static const QString letters = [] {
        QString all;
        for (int t = 0; t < pd::kVniTableCount; ++t) {
            const auto table = static_cast<pd::VniTable>(t);
            for (int k = 0; k < pd::VniTableSize(table); ++k)
                all += pd::TableChar(table, k);
        }
        return all;
    }();
    return letters.contains(c);
}

void Check(const QString& text) {
    const QString converted = pd::VNIToUnicode(text);
    if (text.isEmpty() != converted.isEmpty()) Fail("empty in, empty out", text);
    // The first character is copied as it is; only a mark digit right behind it can change it.
    if (!text.isEmpty() && converted.front() != text.front() &&
        (text.size() < 2 || pd::FindMarkedLetter(pd::DigitValue(text.at(1)), text.front()) == 0))
        Fail("first character changed", text);
    if (converted.size() > text.size()) Fail("conversion lengthened the text", text);
    bool hasDigit = false;
    for (QChar c : text)
        hasDigit = hasDigit || pd::DigitValue(c) != 0;
    if (!hasDigit && converted != text) Fail("text without mark digits changed", text);
    if (pd::VNIToUnicode(converted) != converted) Fail("second conversion changed the text", text);

    for (const QString& s : {text, converted}) {
        const QString plain = pd::RemoveVietnameseMarks(s);
        if (plain.size() != s.size()) Fail("removing marks changed the length", text);
        for (QChar c : plain)
            if (IsTableLetter(c)) Fail("a marked letter is left", text);
        if (pd::RemoveVietnameseMarks(plain) != plain) Fail("second removal changed the text", text);
    }

    // The small helpers on every character.
    for (QChar c : text) {
        const int d = pd::DigitValue(c);
        if (d < 0 || d > 9) Fail("digit value out of range", text);
        for (int digit = 0; digit <= 10; ++digit) {
            static const auto sizes = [] {
                std::array<qsizetype, 11> n{};
                for (int k = 0; k <= 10; ++k)
                    n[static_cast<size_t>(k)] = pd::VniAcceptedLetters(k).size();
                return n;
            }();
            const int q = pd::FindMarkedLetter(digit, c);
            if (q < 0 || q > sizes[static_cast<size_t>(digit)]) Fail("marked letter position", text);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto* chars = reinterpret_cast<const char*>(data);
    const auto n = static_cast<qsizetype>(size);
    pd::BuildVniTables();
    Check(QString::fromUtf8(chars, n));
    Check(pd::DecodeText(QByteArray(chars, n)));
    QString units(n / 2, Qt::Uninitialized);
    std::memcpy(units.data(), data, static_cast<size_t>(n / 2) * 2);
    Check(units);
    return 0;
}
