// Removing shortcuts: emptying a slot, the delete commands, and sending a folder-link container's
// files to the trash.

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "shortcuts/Launch.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "window/AutoHide.h"
#include "shell/FileOperation.h"

#include <QFileInfo>

namespace pd {

namespace {

// The container whose grpBorder holds shortcut n, or -1 for one on the background.
int OwnerContainer(Workspace& ws, int n) {
    const Element* owner = ws.Link(n).Container();
    if (owner && owner->Name() == QLatin1String("grpBorder")) return owner->Index();
    return -1;
}

} // namespace

void RemoveLink(Workspace& ws, int n) {
    if (n < 0 || n >= static_cast<int>(ws.Links.size()) || !ws.Link.exists(n)) return;
    LinkRecord& r = ws.Links[n];
    r.LinkIcon.clear();
    r.LinkPath.clear();
    r.LinkParam.clear();
    r.Tags.clear();
    Element& label = ws.Link(n);
    label.Caption = QString();
    label.Visible = false;
    if (ws.PicIcon.exists(r.IconIndex)) {
        Element& icon = ws.PicIcon(r.IconIndex);
        icon.Picture = QString();
        icon.Visible = false;
    }
}

int DeleteFromDisk(Workspace& ws, const QString& Path) {
    const QFileInfo info(Path);
    if (!info.exists() && !info.isSymLink()) {
        ws.platform.messageBox(QStringLiteral("Error trying to read: ") + Path, MsgStyle::Exclamation);
        return 0;
    }
    const int answer = ws.platform.messageBox(QStringLiteral("Delete: '") + GetFileName(Path) +
                                                  QStringLiteral("' from disk?"),
                                              MsgStyle::YesNoCancelWarn, ParentFolder(Path));
    if (answer == MsgAnswer::No) return 1;
    if (answer != MsgAnswer::Yes) return 999;
    // The file goes to the desktop's trash, from where it can be restored.
    bool aborted = false;
    const int error =
        FileOperation(ws, {FileOp::Delete, {Path}, QString(), kDeleteFlags, QStringLiteral("Deleting...")}, aborted);
    if (error != 0)
        ws.platform.messageBox(QStringLiteral("Delete Failed: ") + QString::number(error), MsgStyle::CriticalBox);
    else if (aborted)
        ws.platform.messageBox(QStringLiteral("Delete Operation Failed"), MsgStyle::CriticalBox);
    // The shortcut goes even when the file stayed.
    return 0;
}

void mnuDeleteSelected_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    const bool go = !ws.ConfirmDelete ||
                    ws.platform.messageBox(QStringLiteral("Delete Selected Shortcuts?"), MsgStyle::YesNoWarning,
                                           QStringLiteral("Delete")) == MsgAnswer::Yes;
    if (go) {
        HideJumpTo(ws);
        // From the oldest selection to the newest; removed indexes stay listed until the next unselect.
        const std::vector<int16_t> selected = ws.SelectedLinks;
        for (auto it = selected.rbegin(); it != selected.rend(); ++it) {
            const int n = *it;
            if (n < 0 || n >= static_cast<int>(ws.Links.size()) || !ws.Link.exists(n)) continue;
            const int c = OwnerContainer(ws, n);
            if (c >= 0 && c < static_cast<int>(ws.Containers.size()) && !ws.Containers[c].CopyPath.isEmpty()) {
                const int result = DeleteFromDisk(ws, ws.Links[n].LinkPath);
                if (result == 999) break;
                if (result == 1) continue;
            }
            RemoveLink(ws, n);
        }
        HideLinkToolbar(ws);
    }
    SaveDesktop(ws, true, false);
    EnableDisableTimerHide(ws, true);
}

void mnuLinkDelete_Click(Workspace& ws) {
    if (ws.ContextIsContainer) {
        mnuDeleteContainer_Click(ws);
        return;
    }
    // The shortcut under the menu joins any other selection.
    if (!IsLinkSelected(ws, ws.SelectedLink)) SetLinkSelected(ws, ws.SelectedLink, true);
    mnuDeleteSelected_Click(ws);
}

} // namespace pd
