#include "app/Recovery.h"

#include "app/MainWindow.h"
#include "app/WorkspaceFile.h"
#include "app/files/AtomicFile.h"
#include "app/workspace/Workspace.h"
#include "window/AutoHide.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <cstdio>

namespace pd {

void CheckRecoveryAtStart(Workspace& ws) {
    if (ws.DataPath.isEmpty()) return;
    // Temporary files of saves that a crash cut short: the files they were to replace are whole.
    static const QRegularExpression files(QStringLiteral("^Perchdock\\.(ini|REC)$"));
    RemoveLeftoverTemporaries(ws.DataPath, files);
    const QString rec = ws.dataFile(QString::fromLatin1(kRecoveryFile));
    if (!QFileInfo(rec).isFile()) return;
    const QString text = QStringLiteral("RECOVERY: Perchdock was not closed properly. Load the newer backed-up recovery "
                                        "file?\r\n\r\nThe file name is Perchdock.REC");
    const int answer =
        ws.platform.messageBox(text, MsgStyle::YesNoWarning, QStringLiteral("Perchdock - Recover Last Session"));
    if (answer == MsgAnswer::Yes) {
        const QString ini = ws.dataFile(QString::fromLatin1(kWorkspaceFile));
        // One step replaces the clean file, so that there is a whole workspace file at every moment.
        // When it fails the recovery file stays, and the question comes again at the next start.
        ::rename(QFile::encodeName(rec).constData(), QFile::encodeName(ini).constData());
        return;
    }
    QFile::remove(rec);
}

void mnuSave_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    SaveDesktop(ws, false, false);
    ws.platform.messageBox(QStringLiteral("Workspace Saved"), MsgStyle::InformationBox);
    EnableDisableTimerHide(ws, true);
}

void mnuReload_Click(Workspace& ws) {
    const QString helper = ws.programFile(QString::fromLatin1(kReloaderName));
    // A helper that cannot be run is as good as missing: the program would end and not come back.
    const QFileInfo info(helper);
    if (!info.isFile() || !info.isExecutable()) {
        ws.platform.messageBox(QStringLiteral("Can't find: ") + helper + QStringLiteral(". Please reinstall the program."),
                               MsgStyle::ExclamationBox);
        return;
    }
    EnableDisableTimerHide(ws, false);
    if (ws.platform.messageBox(QStringLiteral("Ignore all recent changes and restart the program?"),
                               MsgStyle::YesNoWarning) != MsgAnswer::Yes) {
        EnableDisableTimerHide(ws, true);
        return;
    }
    QFile::remove(ws.dataFile(QString::fromLatin1(kRecoveryFile)));
    // The helper waits for this process to end before it starts the program again, so that the
    // single-instance test does not stop the new one.
    if (!ws.platform.startDetached(helper, {QString::number(QCoreApplication::applicationPid()),
                                            ws.platform.programExecutable()})) {
        // A helper that cannot run would leave the user with no program at all: keep this one.
        ws.platform.messageBox(QStringLiteral("Can't find: ") + helper + QStringLiteral(". Please reinstall the program."),
                               MsgStyle::ExclamationBox);
        EnableDisableTimerHide(ws, true);
        return;
    }
    ws.NoSave = true;
    UnloadMainWindow(ws);
}

} // namespace pd
