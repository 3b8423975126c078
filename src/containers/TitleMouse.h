#pragma once
// The press and release on a container's title (lblName): the start and end of a title gesture.

namespace pd {

class Workspace;

// Key states as the mouse handlers receive them, added together.
inline constexpr int kShiftMask = 1;
inline constexpr int kCtrlMask = 2;
inline constexpr int kAltMask = 4;

// Any button but the right: makes i the selected container, holds hover-shrinking off, records where the
// container stood (the drop position of the next new container) and where the pointer went down (X, Y in
// the title's twips), pushes the undo entry, brings the container to the front and plays the press
// sound. The right button shows the padlock when the workspace is locked; otherwise the caller opens
// the context menu.
void lblName_MouseDown(Workspace& ws, int Button, int Shift, int i, float X, float Y);
// A click in place with Ctrl flips the container's selection; the left button plays the release sound.
// After a move the container lands on the grid (not with Ctrl), the selected ones with it, the grid
// hides and the container is kept inside its parent.
void lblName_MouseUp(Workspace& ws, int Button, int Shift, int i);

// The press on a tile's icon: makes i the selected container, brings it to the front and records the
// press point for a drag. The right button's menu is the caller's, as on the title.
void ShrinkIcon_MouseDown(Workspace& ws, int Button, int Shift, int i, float X, float Y);

} // namespace pd
