#include "platform/qt/Launcher.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

namespace pd {

int LaunchTarget(const QString& file, const QString& params, const QString& dir) {
    const QFileInfo info(file);
    if (info.isFile() && info.isExecutable()) {
        QProcess p;
        p.setProgram(file);
        p.setArguments(QProcess::splitCommand(params));
        if (!dir.isEmpty()) p.setWorkingDirectory(dir);
        return p.startDetached() ? 42 : 5;
    }
    const QUrl url = QUrl::fromUserInput(file, dir, QUrl::AssumeLocalFile);
    return QDesktopServices::openUrl(url) ? 42 : 31;
}

} // namespace pd
