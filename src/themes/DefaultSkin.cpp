#include "themes/DefaultSkin.h"

#include "app/workspace/Workspace.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace pd {

void InstallDefaultSkin(Workspace& ws) {
    if (ws.UsesProgramDirectory || ws.DataPath.isEmpty()) return;
    const QDir source(ws.programFile(QStringLiteral("Skin")));
    const QDir target(ws.dataFile(QStringLiteral("Skin")));
    if (!source.exists() || target.exists()) return;
    QDirIterator it(source.path(), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString from = it.next();
        const QString to = target.filePath(source.relativeFilePath(from));
        QDir().mkpath(QFileInfo(to).path());
        if (!QFileInfo::exists(to)) QFile::copy(from, to);
    }
}

} // namespace pd
