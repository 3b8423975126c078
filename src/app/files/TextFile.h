#pragma once
// Reading and writing the program's text files: lines ended by CR LF, written as UTF-8 and replaced
// atomically; read as UTF-8, or as Windows-1252 when the bytes are not valid UTF-8, so that files
// written by older versions load.

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace pd {

// Decodes file bytes: UTF-8 (a leading BOM is dropped), or Windows-1252 if they are not valid UTF-8.
QString DecodeText(const QByteArray& bytes);
// Splits text into lines at CR LF, CR or LF; a last line without an end counts, an empty tail does not.
QStringList SplitLines(const QString& text);
// A multi-line value as the files store it: every line break (CR LF, CR or LF) as CR LF.
QString WithCrLf(QString text);
// Reads a whole file as lines; nothing when it cannot be opened.
std::optional<QStringList> ReadTextLines(const QString& path);

// Takes lines one by one; past the end it gives nothing, so that a record cut short by the end of the
// file leaves the remaining values unread.
class LineReader {
public:
    explicit LineReader(QStringList lines) : lines_(std::move(lines)) {}
    bool atEnd() const { return pos_ >= lines_.size(); }
    std::optional<QString> next() {
        if (atEnd()) return std::nullopt;
        return lines_[pos_++];
    }
    // Skips a key line and returns the value line after it.
    std::optional<QString> pair() {
        next();
        return next();
    }

private:
    QStringList lines_;
    qsizetype pos_ = 0;
};

// Collects the lines of a file and writes them in one go.
class TextWriter {
public:
    void line(const QString& text) {
        text_ += text;
        text_ += QLatin1String("\r\n");
    }
    void pair(const QString& key, const QString& value) {
        line(key);
        line(value);
    }
    QByteArray bytes() const { return text_.toUtf8(); }
    // Writes to a temporary file beside `path`, flushes it to disk and renames it over `path`, so that a
    // crash or a full disk leaves the previous file whole. Returns false when nothing was replaced.
    bool commit(const QString& path) const;

private:
    QString text_;
};

// The same atomic replacement for bytes made elsewhere.
bool WriteFileAtomically(const QString& path, const QByteArray& bytes);

} // namespace pd
