#include "window/Wallpaper.h"

#include "app/workspace/Workspace.h"

namespace pd {

void RedrawWallpaper(Workspace& ws) {
    if (ws.WallpaperPath.isEmpty() || !ws.StretchWallpaper) return;
    // imgBack holds the picture and shows it stretched over the whole of picBack.
    Element& back = ws.picBack(0);
    ws.imgBack(0).Move(0, 0, back.Width, back.Height);
    ws.imgBack(0).ZOrder(1);
}

void TimerResizePic_Timer(Workspace& ws) {
    if (ws.IsLoading) return;
    RedrawWallpaper(ws);
    ws.TimerResizePic.setEnabled(false);
}

} // namespace pd
