#include "desk/Notes.h"

#include "app/workspace/Workspace.h"
#include "containers/Folding.h"

namespace pd {

void ShowNote(Workspace& ws, int i) {
    if (ws.chkUnfold(i).Visible) UnfoldContainer(ws, i);
    ws.txtNote(i).Visible = true;
    ws.txtNote(i).ZOrder(0);
    ws.SetFocus(ws.txtNote(i));
    ws.picPin(i).Visible = true;
    ws.picPinNote(i).Visible = false;
}

void HideNote(Workspace& ws, int i) {
    ws.txtNote(i).Visible = false;
    ws.picPin(i).Visible = false;
    ws.picPinNote(i).Visible = true;
}

} // namespace pd
