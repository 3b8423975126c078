#pragma once
// Dragging a shortcut within its owner: the guides, the swap with a shortcut whose icon it covers,
// moving the selection along with Ctrl, and leaving the owner (the in-program drag).

namespace pd {

class Workspace;

// A pointer move over Link(n) with the left button down, at (X, Y) in the label's twips.
void LinkDragMove(Workspace& ws, int Shift, int n, float X, float Y);
// The release that ends a drag of Link(n).
void EndLinkDrag(Workspace& ws, int Shift, int n);
// Moves every other visible selected shortcut of n's owner by the same offset as n (Ctrl held).
void DragSelectedWithLink(Workspace& ws, int n, float dx, float dy);

} // namespace pd
