#include "window/ResizeForm.h"

#include "app/workspace/Workspace.h"

namespace pd {

void ResizeForm(Workspace& ws, bool immediate) {
    Element& win = ws.frmMain(0);
    Element& back = ws.picBack(0);
    back.Move(50, 50, win.Width - 100, win.Height - 100);
    ws.picMoveMe(0).Width = back.Width - 1950;
    ws.lblCaption(0).Width = ws.picMoveMe(0).Width.get();
    ws.PicDock(0).Left = back.Width - 16 * ws.TwipsPerPixelX() - 130;
    ws.PicLockToolbar(0).Left = ws.PicDock(0).Left - 320;
    ws.PicUnLockToolbar(0).Left = ws.PicDock(0).Left - 320;
    // The stretched wallpaper follows picBack's size; the view redraws it from imgBack.
    Q_UNUSED(immediate);
    ws.imgBack(0).Move(0, 0, back.Width, back.Height);
}

} // namespace pd
