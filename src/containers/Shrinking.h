#pragma once
// Shrinking a container to a 700 by 950 tile that shows its icon, expanding it by a click or a hover,
// and keeping dragged objects inside their parent.

#include <QString>

namespace pd {

class Workspace;
class Element;

// Expands a tile, or shrinks an open container to its tile.
void ToggleShrink(Workspace& ws, int i);
// The press on the shrink button: only the left button toggles.
void picShrink_MouseDown(Workspace& ws, int Button, int i);
// The mouse has gone elsewhere: a tile opened by hover shrinks back.
void ShrinkBackContainer(Workspace& ws);
// The pointer moves over a container's shrink button or tile.
void ShrinkHover(Workspace& ws, int i);
// A drag comes over a tile: it opens so that the drop can land inside.
void DragOverTile(Workspace& ws, int i);
// Moves an element back inside its parent.
void KeepInsideParent(Workspace& ws, Element& e);
// Draws the icon of a file into the container's tile and remembers the file.
void AddShrinkIcon(Workspace& ws, QString Path, int i);
// A double click on a tile: choose the file whose icon stands for the container.
void ShrinkIcon_DblClick(Workspace& ws);
// "S&hrink/Expand All": every container toggles.
void mnuShrinkAll_Click(Workspace& ws);
// The last-update caption of a feed container.
QString FeedLastUpdateCaption(Workspace& ws, int i);

} // namespace pd
