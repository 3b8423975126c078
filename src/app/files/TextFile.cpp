#include "app/files/TextFile.h"

#include "app/files/AtomicFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStringDecoder>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <mutex>

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

namespace {

std::mutex& CallsMutex() {
    static std::mutex m;
    return m;
}

FileWriteCalls& Calls() {
    static FileWriteCalls calls;
    return calls;
}

ssize_t CallWrite(int fd, const void* data, size_t size) {
    std::function<ssize_t(int, const void*, size_t)> write;
    {
        const std::lock_guard lock(CallsMutex());
        write = Calls().write;
    }
    return write ? write(fd, data, size) : ::write(fd, data, size);
}

int CallSync(int fd) {
    std::function<int(int)> sync;
    {
        const std::lock_guard lock(CallsMutex());
        sync = Calls().sync;
    }
    return sync ? sync(fd) : ::fsync(fd);
}

// Writes every byte, going on after a short write; false (errno set) when the file takes no more.
bool WriteAll(int fd, const char* data, size_t size) {
    while (size > 0) {
        const ssize_t n = CallWrite(fd, data, size);
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        if (n == 0) {
            errno = ENOSPC;
            return false;
        }
        data += n;
        size -= static_cast<size_t>(n);
    }
    return true;
}

// Opens a new file named `target` plus a dot and six random letters or digits, beside the target.
int OpenTemporary(const QByteArray& target, QByteArray& name, mode_t mode) {
    static const char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    for (int attempt = 0; attempt < 100; ++attempt) {
        name = target + '.';
        for (int i = 0; i < 6; ++i) name += kLetters[QRandomGenerator::global()->bounded(62)];
        const int fd = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (fd >= 0 || errno != EEXIST) return fd;
    }
    errno = EEXIST;
    return -1;
}

// Flushes the folder's entry list, so that the rename itself survives a power cut. Best effort: some
// file systems cannot sync a folder, and the file is in place either way.
void SyncFolder(const QByteArray& file) {
    const qsizetype slash = file.lastIndexOf('/');
    const QByteArray dir = slash > 0 ? file.left(slash) : QByteArray(slash == 0 ? "/" : ".");
    const int fd = ::open(dir.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    CallSync(fd);
    ::close(fd);
}

} // namespace

FileWriteCalls SetFileWriteCalls(FileWriteCalls calls) {
    const std::lock_guard lock(CallsMutex());
    std::swap(Calls(), calls);
    return calls;
}

int RemoveLeftoverTemporaries(const QString& folder, const QRegularExpression& target) {
    static const QRegularExpression temporary(QStringLiteral("^(.+)\\.[A-Za-z0-9]{6}$"));
    int removed = 0;
    const QDir dir(folder);
    for (const QString& name : dir.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        const QRegularExpressionMatch m = temporary.match(name);
        if (!m.hasMatch() || !target.match(m.captured(1)).hasMatch()) continue;
        if (QFile::remove(dir.filePath(name))) ++removed;
    }
    return removed;
}

bool WriteFileAtomically(const QString& path, const QByteArray& bytes) {
    // A link is followed: the file it points to is replaced, and the link stays.
    QString finalPath = path;
    const QFileInfo info(path);
    if (info.isSymLink()) finalPath = info.symLinkTarget();
    const QByteArray target = QFile::encodeName(finalPath);

    // The new file takes the old one's permissions; a first file gets the usual ones (less the umask).
    mode_t mode = 0666;
    bool keepMode = false;
    struct stat old {};
    if (::stat(target.constData(), &old) == 0) {
        mode = old.st_mode & 07777;
        keepMode = true;
    }

    QByteArray temp;
    const int fd = OpenTemporary(target, temp, mode);
    if (fd < 0) return false;
    // Every step must succeed before the old file is touched; on any failure the temporary file goes
    // and the old file stays as it was.
    bool ok = WriteAll(fd, bytes.constData(), static_cast<size_t>(bytes.size()));
    if (ok && keepMode) ::fchmod(fd, mode);
    if (ok && CallSync(fd) != 0) {
        // A file system that cannot sync at all is no reason to give up; a failed sync is (a full
        // disk often shows only here, when the data is finally placed).
        ok = errno == EINVAL || errno == ENOTSUP;
    }
    if (::close(fd) != 0 && errno != EINTR) ok = false;
    if (ok) ok = ::rename(temp.constData(), target.constData()) == 0;
    if (!ok) {
        const int saved = errno;
        ::unlink(temp.constData());
        errno = saved;
        return false;
    }
    SyncFolder(target);
    return true;
}

bool TextWriter::commit(const QString& path) const { return WriteFileAtomically(path, bytes()); }

} // namespace pd
