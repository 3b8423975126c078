#pragma once
// The stretched wallpaper follows the workspace's size, redrawn once the window has come to rest.

namespace pd {

class Workspace;

// Stretches the wallpaper over picBack, when there is one and stretching is on.
void RedrawWallpaper(Workspace& ws);
// The tick of TimerResizePic: redraws and stops, unless the load still runs.
void TimerResizePic_Timer(Workspace& ws);

} // namespace pd
