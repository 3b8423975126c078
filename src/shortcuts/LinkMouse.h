#pragma once
// The mouse and keys on a shortcut's label: which gesture selects, drags or starts it.
// Button: 1 left, 2 right, 4 middle. Shift: 1 Shift, 2 Ctrl, 4 Alt. X, Y in the label's twips.

namespace pd {

class Workspace;

void Link_MouseDown(Workspace& ws, int Button, int Shift, int n, float X, float Y);
// A move with no button (the hover text) or with the left button (a drag).
void Link_MouseMove(Workspace& ws, int Button, int Shift, int n, float X, float Y);
void Link_MouseUp(Workspace& ws, int Button, int Shift, int n, float X, float Y);
void Link_DblClick(Workspace& ws, int n);
// Enter on the window: starts SelectedLink when it is selected and visible.
void LaunchSelectedLink(Workspace& ws);

} // namespace pd
