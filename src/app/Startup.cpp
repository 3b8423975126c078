#include "app/Startup.h"

#include "app/workspace/Workspace.h"

#include <QDir>
#include <QFileInfo>

namespace pd {

QString VersionText() {
    return QStringLiteral("v%1.%2.0%3b").arg(kVersionMajor).arg(kVersionMinor).arg(kVersionRevision);
}

bool RootTest(Platform& platform, const QString& programDirectory) {
    if (QDir::cleanPath(programDirectory) != QLatin1String("/")) return true;
    platform.messageBox(QString::fromLatin1(kProgramTitle) +
                            QStringLiteral(" cannot run from root. Please reinstall and use the default installation path."),
                        MsgStyle::CriticalBox);
    return false;
}

void DetermineDataPath(Workspace& ws) {
    ws.ProgramDirectory = ws.platform.programDirectory();
    ws.UsesProgramDirectory = QFileInfo(QDir(ws.ProgramDirectory).filePath(QStringLiteral("LOCATIONROOT"))).isFile();
    if (ws.UsesProgramDirectory) {
        ws.DataPath = ws.ProgramDirectory;
        return;
    }
    const QString base = ws.platform.userDataDirectory();
    ws.DataPath = base.isEmpty() ? QString() : QDir(base).filePath(QStringLiteral("Perchdock"));
}

void ShowSplash(Workspace& ws) {
    SplashForm& s = ws.splash;
    s.loaded = true;
    s.lblVersion(0).Caption = VersionText();
    s.Label2(0).Visible = false;
    Element& form = s.frmSplash(0);
    // The splash's design: the program's name, the version and the status line on the desk colour.
    form.Caption = QString::fromLatin1(kProgramTitle);
    form.BackColor = 0x954815;
    form.ForeColor = 0xFFFFFF;
    form.Width = 6000;
    form.Height = 2700;
    s.lblVersion(0).Move(360, 1380, 3000, 300);
    s.lblLoad(0).Move(360, 2040, 5300, 300);
    s.ImgRSS(0).Move(5400, 2040, 240, 240);
    s.lblUpdate(0).Visible = false;
    for (ElementFamily* f : {&s.lblVersion, &s.lblLoad}) {
        (*f)(0).ForeColor = 0xFFFFFF;
        (*f)(0).FontSize = 9;
        (*f)(0).Visible = true;
    }
    form.Left = (ws.platform.screenWidth() - form.Width) / 2;
    form.Top = (ws.platform.screenHeight() - form.Height) / 2;
    form.Enabled = false;
    form.Visible = true;
}

void UnloadSplash(Workspace& ws) {
    ws.splash.loaded = false;
    ws.splash.frmSplash(0).Visible = false;
}

void CheckForUpdate(Workspace& ws) {
    const QString address = QString::fromLatin1(kUpdateAddress) + QLatin1Char('?') + QString::number(kVersionMajor) +
                            QString::number(kVersionMinor) + QLatin1Char('0') + QString::number(kVersionRevision);
    ws.platform.openUrl(address);
}

} // namespace pd
