#pragma once
// The commands of the container menus, connected to their entries.

namespace pd {

class Workspace;

void WireContainerCommands(Workspace& ws);
// A right click on the title of container i: the title's menu, unless the workspace is locked.
// Returns the name of the popup to open, or an empty name for none.
const char* TitleContextMenu(Workspace& ws, int i);

} // namespace pd
