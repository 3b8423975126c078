#pragma once
// Selecting containers and shortcuts together: the selection that follows a dragged container, the
// rectangle drawn on the background or in a container, the click that clears, and the undo list of
// container moves. X, Y are twips in the pressed element; Button 1 left, 2 right; Shift 1, Ctrl 2, Alt 4.

namespace pd {

class Workspace;
class Element;

// Keeps the selected containers with container i while it is dragged (Finish false: each moves by the
// pointer's distance from the press), or places each at the end of the drag (Finish true: the grid when
// `snap`, then inside its parent).
void MoveSelectedContainers(Workspace& ws, int i, float X, float Y, bool Finish, bool snap = true);

// The undo list: the latest ten presses on a title or tile, each with where its container stood.
void PushUndoMove(Workspace& ws, int Index, float Left, float Top);
// Ctrl+Z: the last entry is taken, and its container goes back unless it is gone.
void UndoMove(Workspace& ws);

// The rectangle on the background: the press keeps its corner, moves with the left button draw it,
// the release selects what it covers or, with no rectangle, clears the selection.
void picBack_MouseDown(Workspace& ws, int Button, int Shift, float X, float Y);
void picBack_MouseMove(Workspace& ws, int Button, int Shift, float X, float Y);
void picBack_MouseUp(Workspace& ws, int Button, int Shift, float X, float Y);
// The same inside container i, with the outline SelectedRectGroup.
void grpBorder_MouseDown(Workspace& ws, int Button, int Shift, int i, float X, float Y);
void grpBorder_MouseMove(Workspace& ws, int Button, int Shift, int i, float X, float Y);
void grpBorder_MouseUp(Workspace& ws, int Button, int Shift, int i, float X, float Y);
// Lets the outline be seen over the owner's shortcut labels while it is drawn.
void DrawOwnerLabels(Workspace& ws, Element& outline);

} // namespace pd
