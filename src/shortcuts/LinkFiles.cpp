// Reading the targets of link files: the INI form of internet shortcuts (.url) and desktop entries
// (.desktop). Windows shell links (.lnk) are not read yet and give no target.

#include "app/files/TextFile.h"
#include "shortcuts/Shortcuts.h"

#include <QFileInfo>

namespace pd {

namespace {
// The value of `key` in `[section]` of an INI-like file; keys and sections compare without case.
QString IniValue(const QStringList& lines, const QString& section, const QString& key) {
    bool inSection = false;
    for (const QString& raw : lines) {
        const QString line = raw.trimmed();
        if (line.startsWith(QLatin1Char('['))) {
            inSection = line.compare(QLatin1Char('[') + section + QLatin1Char(']'), Qt::CaseInsensitive) == 0;
            continue;
        }
        if (!inSection) continue;
        const qsizetype eq = line.indexOf(QLatin1Char('='));
        if (eq > 0 && line.left(eq).trimmed().compare(key, Qt::CaseInsensitive) == 0) return line.mid(eq + 1).trimmed();
    }
    return {};
}
} // namespace

QString ResolveLinkTarget(const QString& Path) {
    const QFileInfo info(Path);
    // Link files are small; anything large is not one.
    if (!info.isFile() || info.size() > 1024 * 1024) return {};
    const auto lines = ReadTextLines(Path);
    if (!lines) return {};
    const QString ext = info.suffix().toLower();
    if (ext == QLatin1String("url")) return IniValue(*lines, QStringLiteral("InternetShortcut"), QStringLiteral("URL"));
    if (ext == QLatin1String("desktop")) {
        const QString group = QStringLiteral("Desktop Entry");
        if (IniValue(*lines, group, QStringLiteral("Type")) == QLatin1String("Link"))
            return IniValue(*lines, group, QStringLiteral("URL"));
    }
    return {};
}

} // namespace pd
