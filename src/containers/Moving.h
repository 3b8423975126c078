#pragma once
// Moving a container by its title with the alignment grid, sizing containers and picture frames by
// their rim, the placement commands of the container menu, and the padlock of a locked workspace.
// Positions are twips in the parent element; Button 1 left, 2 right, 4 middle; Shift 1, Ctrl 2, Alt 4.

#include <QRect>
#include <QString>

namespace pd {

class Workspace;
class Element;

// A move of the pointer over the title of container i (X, Y in the title's twips) with `Button` held:
// with the left button, the container follows the pointer (the grid shows, Ctrl takes the selection
// along, leaving a parent or entering another container starts the in-program drag).
void lblName_MouseMove(Workspace& ws, int Button, int Shift, int i, float X, float Y);

// The landing step after a drag: a container's corner goes 20 twips right of and below the grid
// crossing up and left of it (strict comparisons: a container on a line stays); a shortcut takes the
// left of a shortcut within 300 twips. Nothing with "&Align" unchecked.
void AlignToGrid(Workspace& ws, Element& object, float x, float y);
// Where container i lands after a drag: the grid (unless `snap` is false), then inside its parent.
void PlaceDroppedContainer(Workspace& ws, int i, bool snap);

// The rim of a Group or a picPlaceholder: the handle under the pointer and its pointer shape, the
// ghost outline while the rim is pulled, and the new rectangle at the release.
void TrackEdgeResize(Workspace& ws, Element& object, float x, float y);
void BeginEdgeResize(Workspace& ws, Element& object);
void EndEdgeResize(Workspace& ws, Element& object);
// Draws the outline, or erases it when drawn a second time.
void DrawGhostRect(Workspace& ws, const QRect& rect);
// The rectangle of an element on the screen, in pixels.
QRect ElementScreenRect(const Workspace& ws, const Element& e);

// The rim handlers of container i: with "Lock Editing" a press shows the padlock instead.
void Group_MouseDown(Workspace& ws, int Button, int Shift, int i, float X, float Y);
void Group_MouseMove(Workspace& ws, int Button, int Shift, int i, float X, float Y);
void Group_MouseUp(Workspace& ws, int Button, int Shift, int i);
// The rim of picture frame i; the picture keeps a 120-twip margin in its frame after a resize.
void picPlaceholder_MouseDown(Workspace& ws, int Button, int Shift, int i, float X, float Y);
void picPlaceholder_MouseMove(Workspace& ws, int Button, int Shift, int i, float X, float Y);
void picPlaceholder_MouseUp(Workspace& ws, int Button, int Shift, int i);

// "Align &Left", "Align &Top", "Match &Size": the selected containers take the chosen container's
// left, top or size, after a question.
void mnuSetContainerLeft_Click(Workspace& ws);
void mnuSetContainerTop_Click(Workspace& ws);
void mnuSetContainerSize_Click(Workspace& ws);

// Shows the padlock beside `object` for TimeLock's 1.7 seconds.
void ShowLockedSign(Workspace& ws, Element& object);
// TimeLock's tick: the padlock hides and the timer stops.
void TimeLock_Timer(Workspace& ws);

// The in-program drag of container i to another owner starts: the container is carried.
void StartContainerDrag(Workspace& ws, int i);
// The drop of the carried element on the background or in container i, at (X, Y) in the twips of
// picBack or of grpBorder(i). A drop with nothing carried does nothing.
void picBack_DragDrop(Workspace& ws, float X, float Y);
void grpBorder_DragDrop(Workspace& ws, int i, float X, float Y);
// The in-program drag of shortcut n to another owner starts: its label is carried.
void StartLinkDrag(Workspace& ws, int n);
// The carried element was let go over nothing that takes it: it stays, inside its parent.
void CancelDrag(Workspace& ws);

} // namespace pd
