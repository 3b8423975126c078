#include "app/files/TextFile.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>

namespace pd {

namespace {
// Windows-1252's characters for the bytes 0x80..0x9F; the other bytes are Latin-1. Unassigned bytes map
// to the C1 control of the same value, as the usual converters do.
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

QString DecodeCp1252(const QByteArray& bytes) {
    QString out(bytes.size(), Qt::Uninitialized);
    QChar* d = out.data();
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto b = static_cast<unsigned char>(bytes[i]);
        d[i] = (b >= 0x80 && b <= 0x9F) ? QChar(kCp1252High[b - 0x80]) : QChar(b);
    }
    return out;
}
} // namespace

QString DecodeText(const QByteArray& bytes) {
    QByteArrayView view(bytes);
    if (view.startsWith("\xEF\xBB\xBF")) view = view.sliced(3);
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(view);
    if (!utf8.hasError()) return text;
    return DecodeCp1252(bytes);
}

QStringList SplitLines(const QString& text) {
    QStringList lines;
    const qsizetype n = text.size();
    qsizetype start = 0;
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = text[i];
        if (c != QLatin1Char('\r') && c != QLatin1Char('\n')) continue;
        lines.append(text.mid(start, i - start));
        if (c == QLatin1Char('\r') && i + 1 < n && text[i + 1] == QLatin1Char('\n')) ++i;
        start = i + 1;
    }
    if (start < n) lines.append(text.mid(start));
    return lines;
}

QString WithCrLf(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    text.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    return text;
}

std::optional<QStringList> ReadTextLines(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return std::nullopt;
    return SplitLines(DecodeText(f.readAll()));
}

bool WriteFileAtomically(const QString& path, const QByteArray& bytes) {
    QSaveFile f(path);
    if (!f.open(QIODevice::WriteOnly)) return false;
    if (f.write(bytes) != bytes.size()) {
        f.cancelWriting();
        return false;
    }
    // commit() flushes, syncs the data to disk and renames the temporary file over the old one.
    return f.commit();
}

bool TextWriter::commit(const QString& path) const { return WriteFileAtomically(path, bytes()); }

} // namespace pd
