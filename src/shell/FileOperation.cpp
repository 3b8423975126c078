#include "shell/FileOperation.h"

#include "app/workspace/Workspace.h"
#include "shortcuts/Shortcuts.h"
#include "window/AutoHide.h"

#include <QFileInfo>

namespace pd {

QString JoinPath(const QString& folder, const QString& name) {
    if (folder.endsWith(QLatin1Char('/')) || folder.endsWith(QLatin1Char('\\'))) return folder + name;
    return folder + QLatin1Char('/') + name;
}

int FileOperation(Workspace& ws, const FileOpRequest& op, bool& aborted) {
    // The window must not dock away under the progress window.
    EnableDisableTimerHide(ws, false);
    const FileOpResult r = ws.platform.fileOperation(op);
    EnableDisableTimerHide(ws, true);
    aborted = r.aborted;
    return r.result;
}

bool CopyIntoFolderLink(Workspace& ws, int n, const QString& file, const QString& folder, bool move) {
    const QString target = JoinPath(folder, GetFileName(file));
    // Hidden files are plain files here: one existence test covers them.
    const QFileInfo targetInfo(target);
    if (!QFileInfo(folder).isDir() || targetInfo.exists() || targetInfo.isSymLink()) return false;

    bool aborted = false;
    const int result = FileOperation(
        ws, {FileOp::Copy, {file}, folder, kCopyFlags, QStringLiteral("File Copy in Progress..")}, aborted);
    if (result != 0) {
        ws.platform.messageBox(QString::number(result), MsgStyle::CriticalBox);
        return false;
    }
    if (aborted) {
        ws.platform.messageBox(QStringLiteral("Copy Operation Failed"), MsgStyle::CriticalBox);
        return false;
    }
    if (n >= 0 && n < static_cast<int>(ws.Links.size())) ws.Links[static_cast<size_t>(n)].LinkPath = target;
    if (!move) return true;
    const int deleted = FileOperation(
        ws, {FileOp::Delete, {file}, QString(), kDeleteFlags, QStringLiteral("Moving...")}, aborted);
    if (deleted != 0)
        ws.platform.messageBox(QString::number(deleted), MsgStyle::CriticalBox);
    else if (aborted)
        ws.platform.messageBox(QStringLiteral("Move Operation Failed"), MsgStyle::CriticalBox);
    return true;
}

} // namespace pd
