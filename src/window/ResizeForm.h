#pragma once
// The layout of the window's own elements from the window's size.

namespace pd {

class Workspace;

// Lays out picBack, the title band and the buttons. `immediate` stretches the wallpaper now; otherwise
// the wallpaper waits for the window to come to rest.
void ResizeForm(Workspace& ws, bool immediate);

} // namespace pd
