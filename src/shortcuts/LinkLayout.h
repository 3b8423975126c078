#pragma once
// Where shortcuts stand: the icon that follows its label, the stacking of a selection into columns,
// sorting, zooming, font size and bold, and keeping a label inside its owner. Positions in twips.

#include <QString>

namespace pd {

class Workspace;
class Element;

// Makes icon and record agree with the label: icon size by font size (above 10 points the large
// icon), the icon 50 twips left of the label and centred on it, the record's Size, the icon drawn.
void MoveLinkIcon(Workspace& ws, Element& Owner, int n);
void MoveLinkIcon(Workspace& ws, int n);
// Only the icon's position (steps of MoveLinkIcon that draw nothing): used while dragging.
void PlaceLinkIcon(Workspace& ws, int n);
// MoveLinkIcon for every slot (F5).
void RefreshLinks(Workspace& ws);
// Stacks the selection under the shortcut `Reference` in columns; SortByTop orders it by Top first.
void ArrangeSelectedLinks(Workspace& ws, int Reference, bool SortByTop);
// Sorts the selection by name and stacks it from the highest and leftmost place it held.
void SortSelectedLinks(Workspace& ws, bool Ascending);
// Scans of the selection: the index of the highest and leftmost shortcut, the widest label's width.
int TopMostSelected(Workspace& ws);
int LeftMostSelected(Workspace& ws);
float WidestSelected(Workspace& ws);
// Font size steps of the selection, and the size prompt ("New Size:").
void ZoomLinksIn(Workspace& ws);
void ZoomLinksOut(Workspace& ws);
void SetLinksSize(Workspace& ws);
// Flips bold on each selected shortcut.
void ToggleBoldSelected(Workspace& ws);
// Keeps an element (a shortcut's label or a container) inside its owner by the keep-inside rules.
void KeepLinkInside(Workspace& ws, Element& e);

} // namespace pd
