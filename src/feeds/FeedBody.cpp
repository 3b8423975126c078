#include "feeds/FeedBody.h"

#include <QStringDecoder>

#include <optional>

namespace pd {

namespace {

// The value of `key="..."` (or single quotes, or unquoted for a header) in `text`, case-insensitive key.
QByteArray ParamValue(const QByteArray& text, const QByteArray& key) {
    const QByteArray lower = text.toLower();
    qsizetype at = lower.indexOf(key);
    while (at >= 0) {
        // The key must stand alone: "charset=" and not "xcharset=".
        const bool alone = at == 0 || !QChar::isLetterOrNumber(static_cast<uchar>(lower.at(at - 1)));
        qsizetype i = at + key.size();
        while (i < text.size() && (text.at(i) == ' ' || text.at(i) == '\t')) ++i;
        if (alone && i < text.size() && text.at(i) == '=') {
            ++i;
            while (i < text.size() && (text.at(i) == ' ' || text.at(i) == '\t')) ++i;
            if (i >= text.size()) return {};
            const char quote = text.at(i);
            if (quote == '"' || quote == '\'') {
                const qsizetype end = text.indexOf(quote, i + 1);
                return end < 0 ? QByteArray() : text.mid(i + 1, end - i - 1).trimmed();
            }
            qsizetype end = i;
            while (end < text.size() && text.at(end) != ';' && text.at(end) != ' ' && text.at(end) != '?')
                ++end;
            return text.mid(i, end - i);
        }
        at = lower.indexOf(key, at + 1);
    }
    return {};
}

// The encoding named by an XML declaration at the very start of the body.
QByteArray DeclaredEncoding(const QByteArray& body) {
    if (!body.startsWith("<?xml")) return {};
    const qsizetype end = body.indexOf("?>");
    if (end < 0 || end > 512) return {};
    return ParamValue(body.left(end), "encoding");
}

std::optional<QString> DecodeAs(const QByteArray& body, const QByteArray& name) {
    if (name.isEmpty()) return std::nullopt;
    QStringDecoder decoder(name.constData());
    if (!decoder.isValid()) return std::nullopt;
    return decoder.decode(body);
}

} // namespace

QString DecodeFeedBody(const QByteArray& body, const QByteArray& contentType) {
    // A mark, or the UTF-16 and UTF-32 shapes of a first "<", decide before anything else.
    if (const auto bom = QStringConverter::encodingForData(body, u'<')) {
        QStringDecoder decoder(*bom);
        return decoder.decode(body);
    }
    if (auto text = DecodeAs(body, ParamValue(contentType, "charset"))) return *text;
    if (auto text = DecodeAs(body, DeclaredEncoding(body))) return *text;
    return QString::fromUtf8(body);
}

} // namespace pd
