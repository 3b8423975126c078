#include "desk/Notes.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Folding.h"
#include "containers/Shrinking.h"
#include "desk/DeskState.h"

namespace pd {

void ShowNote(Workspace& ws, int i) {
    if (!ws.txtNote.exists(i)) return;
    // A folded container unfolds first, in the same gesture.
    if (ws.chkUnfold(i).Visible) UnfoldContainer(ws, i);
    ws.txtNote(i).Visible = true;
    ws.txtNote(i).ZOrder(0);
    ws.SetFocus(ws.txtNote(i));
    ws.picPin(i).Visible = true;
    ws.picPinNote(i).Visible = false;
}

void HideNote(Workspace& ws, int i) {
    if (!ws.txtNote.exists(i)) return;
    ws.txtNote(i).Visible = false;
    ws.picPin(i).Visible = false;
    ws.picPinNote(i).Visible = true;
}

void txtNote_GotFocus(Workspace& ws, int i) {
    ws.SelectedContainer = static_cast<int16_t>(i);
    Desk(ws).NoteHasFocus = true;
}

void txtNote_LostFocus(Workspace& ws, int /*i*/) {
    Desk(ws).NoteHasFocus = false;
    SaveDesktop(ws, true, false);
}

void txtNote_MouseDown(Workspace& ws, int i) {
    if (ws.Group.exists(i)) ws.Group(i).ZOrder(0);
}

void txtNote_MouseMove(Workspace& ws, int i) {
    ShrinkHover(ws, i);
    ShrinkBackContainer(ws);
}

void NoteSelectAll(Workspace& ws) {
    const int i = ws.SelectedContainer;
    if (!ws.txtNote.exists(i)) return;
    DeskState& d = Desk(ws);
    if (d.onSelectAllInNote) d.onSelectAllInNote(ws.txtNote(i));
}

bool NoteHasFocus(Workspace& ws) {
    return ws.DeskStateSlot && ws.DeskStateSlot->NoteHasFocus;
}

} // namespace pd
