#include "shell/FileCopy.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <vector>

namespace pd {

namespace {

constexpr qint64 ChunkSize = 1 << 20;

bool Cancelled(const std::atomic<bool>* cancel) {
    return cancel && cancel->load();
}

// errno of the failed call, or EIO when the call left none.
int LastError() {
    return errno != 0 ? errno : EIO;
}

qint64 TreeSize(const QString& path) {
    const QFileInfo info(path);
    if (!info.isDir() || info.isSymLink()) return info.size();
    qint64 n = 0;
    QDirIterator it(path, QDir::Files | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        it.next();
        n += it.fileInfo().size();
    }
    return n;
}

struct Copier {
    const std::atomic<bool>* cancel;
    const FileOpProgress& progress;
    qint64 done = 0;
    qint64 total = 0;
    bool aborted = false;

    // Copies one file in chunks; returns 0 or an error number. A cancel removes the part written.
    int copyFile(const QString& from, const QString& to) {
        QFile in(from);
        errno = 0;
        if (!in.open(QIODevice::ReadOnly)) return LastError();
        QFile out(to);
        errno = 0;
        if (!out.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return LastError();
        QByteArray buffer;
        for (;;) {
            if (Cancelled(cancel)) {
                aborted = true;
                out.close();
                out.remove();
                return 0;
            }
            errno = 0;
            buffer = in.read(ChunkSize);
            if (buffer.isEmpty()) {
                if (in.error() != QFileDevice::NoError) {
                    const int e = LastError();
                    out.close();
                    out.remove();
                    return e;
                }
                break;
            }
            errno = 0;
            if (out.write(buffer) != buffer.size()) {
                const int e = LastError();
                out.close();
                out.remove();
                return e;
            }
            done += buffer.size();
            if (progress) progress(done, total, from);
        }
        out.setPermissions(in.permissions());
        if (!out.flush()) return LastError();
        out.close();
        return 0;
    }

    // Copies a file or a whole folder to `to` (which must not exist).
    int copyTree(const QString& from, const QString& to) {
        const QFileInfo info(from);
        if (info.isSymLink()) {
            return QFile::link(info.symLinkTarget(), to) ? 0 : LastError();
        }
        if (!info.isDir()) return copyFile(from, to);
        errno = 0;
        if (!QDir().mkdir(to)) return LastError();
        const QDir dir(from);
        for (const QFileInfo& e : dir.entryInfoList(
                 QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name)) {
            const int r = copyTree(e.filePath(), to + QLatin1Char('/') + e.fileName());
            if (r != 0 || aborted) return r;
        }
        return 0;
    }
};

QString Join(const QString& folder, const QString& name) {
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

} // namespace

QString FreeCopyName(const QString& folder, const QString& name) {
    if (!QFileInfo::exists(Join(folder, name)) && !QFileInfo(Join(folder, name)).isSymLink()) return name;
    QString base = name;
    QString ext;
    const bool isDir = QFileInfo(Join(folder, name)).isDir();
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    if (!isDir && dot > 0) {
        base = name.left(dot);
        ext = name.mid(dot);
    }
    for (int n = 1;; ++n) {
        const QString candidate = n == 1 ? base + QStringLiteral(" (copy)") + ext
                                         : base + QStringLiteral(" (copy %1)").arg(n) + ext;
        const QFileInfo info(Join(folder, candidate));
        if (!info.exists() && !info.isSymLink()) return candidate;
    }
}

FileOpResult RunFileOperation(const FileOpRequest& op, const std::atomic<bool>* cancel,
                              const FileOpProgress& progress) {
    FileOpResult r;
    if (op.func == FileOp::Delete) {
        for (const QString& f : op.from) {
            if (Cancelled(cancel)) {
                r.aborted = true;
                return r;
            }
            if (progress) progress(0, 0, f);
            const QFileInfo info(f);
            if (!info.exists() && !info.isSymLink()) {
                r.result = ENOENT;
                return r;
            }
            errno = 0;
            bool ok;
            if (op.flags & FileOp::AllowUndo)
                ok = QFile::moveToTrash(f);
            else if (info.isDir() && !info.isSymLink())
                ok = QDir(f).removeRecursively();
            else
                ok = QFile::remove(f);
            if (!ok) {
                r.result = LastError();
                return r;
            }
        }
        return r;
    }
    if (op.func != FileOp::Copy) {
        r.result = EINVAL;
        return r;
    }
    const QFileInfo folder(op.to);
    if (!folder.isDir()) {
        r.result = ENOENT;
        return r;
    }
    Copier c{cancel, progress};
    for (const QString& f : op.from)
        c.total += TreeSize(f);
    for (const QString& f : op.from) {
        const QFileInfo info(f);
        if (!info.exists() && !info.isSymLink()) {
            r.result = ENOENT;
            return r;
        }
        QString name = info.fileName();
        const QString wanted = Join(op.to, name);
        if (QFileInfo::exists(wanted) || QFileInfo(wanted).isSymLink()) {
            if (!(op.flags & FileOp::RenameOnCollision)) {
                r.result = EEXIST;
                return r;
            }
            name = FreeCopyName(op.to, name);
        }
        const QString target = Join(op.to, name);
        r.result = c.copyTree(f, target);
        if (c.aborted) {
            // A folder copied in part goes as a whole.
            if (QFileInfo(target).isDir()) QDir(target).removeRecursively();
            r.aborted = true;
            return r;
        }
        if (r.result != 0) return r;
        r.made << target;
    }
    return r;
}

} // namespace pd
