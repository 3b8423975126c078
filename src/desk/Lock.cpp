#include "desk/Lock.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "desk/DeskState.h"
#include "shortcuts/LinkSelection.h"
#include "window/AutoHide.h"

namespace pd {

void LockWorkspace(Workspace& ws) {
    // Nothing stays selected under the lock.
    UnselectAllLinks(ws, true);
    UnselectAllGroups(ws);
    ws.PicUnLockToolbar(0).Visible = false;
    ws.PicLockToolbar(0).Visible = true;
    ws.menus["mnuLock"].setChecked(true);
}

void UnlockWorkspace(Workspace& ws) {
    ws.menus["mnuLock"].setChecked(false);
    ws.PicLockToolbar(0).Visible = false;
    ws.PicUnLockToolbar(0).Visible = true;
}

void mnuLock_Click(Workspace& ws) {
    if (ws.menus["mnuLock"].Checked())
        UnlockWorkspace(ws);
    else
        LockWorkspace(ws);
    SaveDesktop(ws, true, false);
}

void PicLockToolbar_Click(Workspace& ws) {
    UnlockWorkspace(ws);
}

void PicUnLockToolbar_Click(Workspace& ws) {
    LockWorkspace(ws);
}

void ImgLock_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    const int answer = ws.platform.messageBox(QStringLiteral("Allow Editing?"), MsgStyle::YesNoQuestion,
                                              QStringLiteral("Locked for Editing"));
    if (answer == MsgAnswer::Yes) {
        ws.menus["mnuLock"].setChecked(false);
        Element& lock = ws.ImgLock(0);
        lock.Visible = false;
        ShowLinkToolbar(ws, lock.Container() ? *lock.Container() : ws.picBack(0));
        UnlockWorkspace(ws);
    }
    EnableDisableTimerHide(ws, true);
}

void UnlockBriefly(Workspace& ws) {
    if (!ws.menus["mnuLock"].Checked()) return;
    UnlockWorkspace(ws);
    DeskState& d = Desk(ws);
    d.TimerBrieflyUnlock.setEnabled(false);
    d.TimerBrieflyUnlock.setEnabled(true);
}

void TimerBrieflyUnlock_Timer(Workspace& ws) {
    LockWorkspace(ws);
    Desk(ws).TimerBrieflyUnlock.setEnabled(false);
}

} // namespace pd
