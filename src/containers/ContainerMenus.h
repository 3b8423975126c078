#pragma once
// The commands of the container menus, connected to their entries.

namespace pd {

class Workspace;

void WireContainerCommands(Workspace& ws);
// The ticks of the hold-off timers of mouse gestures (suspended shrinking, auto-expand, mouse moves, the
// title's double click). Part of the window's load: the routines rely on them with or without a view.
void WireGestureTimers(Workspace& ws);
// Shows or hides "Align &Left", "Align &Top" and "Match &Size", which a title's menu offers.
void SetPlacementEntriesVisible(Workspace& ws, bool visible);
// A right click on the title of container i: the title's menu, unless the workspace is locked.
// Returns the name of the popup to open, or an empty name for none.
const char* TitleContextMenu(Workspace& ws, int i);
// A right click inside container i: the same menu, with "Invert Selection" acting on its shortcuts and
// "&Start All Shortcuts [n]" counting them.
const char* ContainerBodyMenu(Workspace& ws, int i);

} // namespace pd
