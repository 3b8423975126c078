#pragma once
// The state of the shell exchange: the label that names the folder a drag over a folder-link container
// would copy or move into. Made at its first use by Shell(ws).

#include "app/elements/ElementFamily.h"

namespace pd {

class Workspace;

struct ShellState {
    explicit ShellState(Workspace& ws);
    // "Copy to " / "Move to " + the container's name, shown inside a folder-link container while files
    // are dragged over it.
    ElementFamily lblPath;
};

ShellState& Shell(Workspace& ws);

// Connects the shell exchange's menu entries and buttons.
void WireShell(Workspace& ws);
// Prepares the entries of the shell exchange in the menu about to open: on container `container`
// (-1 the background) or, with `link` >= 0, on that shortcut.
void ShellMenus(Workspace& ws, int container, int link);

} // namespace pd
