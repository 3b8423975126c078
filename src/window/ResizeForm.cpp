#include "window/ResizeForm.h"

#include "app/workspace/Workspace.h"
#include "window/Wallpaper.h"

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
    // Stretching the wallpaper is the costly step: while the user drags an edge it waits for the
    // window to come to rest.
    if (immediate) RedrawWallpaper(ws);
    else ws.TimerResizePic.setEnabled(true);
    // The window's outlines are the view's: rounded at 11 pixels, the title band at 7.
    back.CornerRadius = 11;
    ws.picMoveMe(0).CornerRadius = 7;
}

} // namespace pd
