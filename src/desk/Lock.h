#pragma once
// The editing lock of the workspace ("Lock Editing", Ctrl+L): while it is on, titles do not drag, rims
// do not size, and a right press shows the padlock instead of a menu. The two toolbar buttons show the
// state; the padlock asks to unlock; a brief unlock ends by itself after ten seconds.

namespace pd {

class Workspace;

void LockWorkspace(Workspace& ws);
void UnlockWorkspace(Workspace& ws);
// The menu entry: flips the lock and saves.
void mnuLock_Click(Workspace& ws);
// The toolbar buttons: the closed padlock unlocks, the open one locks; neither saves.
void PicLockToolbar_Click(Workspace& ws);
void PicUnLockToolbar_Click(Workspace& ws);
// A click on the padlock shown beside an object: "Allow Editing?".
void ImgLock_Click(Workspace& ws);
// Unlocks a locked workspace for TimerBrieflyUnlock's ten seconds.
void UnlockBriefly(Workspace& ws);
void TimerBrieflyUnlock_Timer(Workspace& ws);

} // namespace pd
