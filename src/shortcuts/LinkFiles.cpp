// Reading the targets of link files: Windows shell links (.lnk), the INI form of Internet shortcuts (.url)
// and desktop entries (.desktop). The readers themselves work on bytes (ShellLink.h); this file reads the
// file and chooses the reader by the file's extension.

#include "shortcuts/ShellLink.h"
#include "shortcuts/Shortcuts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace pd {

QString ResolveLinkTarget(const QString& Path) {
    const QFileInfo info(Path);
    // Link files are small; anything large is not one.
    constexpr qint64 kMaxLinkFileSize = 1024 * 1024;
    if (!info.isFile() || info.size() > kMaxLinkFileSize) return {};
    QFile file(Path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = file.read(kMaxLinkFileSize + 1);
    if (bytes.size() > kMaxLinkFileSize) return {};

    const QString ext = info.suffix().toLower();
    if (ext == QLatin1String("url")) return InternetShortcutTarget(bytes);
    if (ext == QLatin1String("desktop")) return DesktopEntryTarget(bytes);
    if (ext == QLatin1String("lnk")) {
        const auto link = ShellLink::Parse(bytes);
        if (!link) return {};
        ShellLink::TargetSource source = ShellLink::TargetSource::None;
        const QString target = link->Target(&source);
        // A relative path counts from the folder of the link file, which is a folder of this machine.
        if (source == ShellLink::TargetSource::RelativePath) {
            QString relative = target;
            relative.replace(QLatin1Char('\\'), QLatin1Char('/'));
            if (relative.startsWith(QLatin1Char('/'))) return {};
            // As on Windows, climbing above the root stays at the root.
            QString path = QDir::cleanPath(info.absoluteDir().filePath(relative));
            while (path.startsWith(QLatin1String("/../")))
                path.remove(0, 3);
            if (path == QLatin1String("/..")) path = QStringLiteral("/");
            return path;
        }
        return target;
    }
    return {};
}

} // namespace pd
