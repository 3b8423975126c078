#pragma once
// The invisible bands along the window's edges: where a press moves or sizes the window, and which
// pointer shows there. Coordinates are twips in the window.

namespace pd {

class Workspace;

// Hit codes of a press: 13 top-left, 12 top, 14 top-right, 2 caption (move), 10 left, 11 right,
// 16 bottom-left, 15 bottom, 17 bottom-right; 0 where a press does nothing.
int WindowHitTest(float X, float Y, float Width, float Height);
// Pointer shapes: 0 default, 6 size NE-SW, 7 size N-S, 8 size NW-SE, 9 size W-E.
int WindowPointer(float X, float Y, float Width, float Height);

} // namespace pd
