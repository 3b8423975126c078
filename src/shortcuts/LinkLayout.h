#pragma once
// Where shortcuts stand: the icon that follows its label, the stacking of a selection into columns,
// sorting, zooming, font size and bold, and keeping a label inside its owner. Positions in twips.

#include <QString>

#include <cstdint>
#include <vector>

namespace pd {

class Workspace;
class Element;

// Whether slot n holds a shortcut: a loaded label with a caption, and its record.
bool IsLinkLive(const Workspace& ws, int n);
// The element shortcut n stands in (a grpBorder member or picBack).
Element& LinkOwner(Workspace& ws, int n);
// The icon box of shortcut n (PicIcon by the record's IconIndex).
Element& IconBox(Workspace& ws, int n);

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

// The sorts. The selection's order matters: stacking walks it from the last entry to the first, so a
// sort leaves the entry that is to stand highest at the end.
// Sorts the selection's entries First..Last (1-based) by their lowered captions and rebuilds it so that
// the walk from the last entry meets them in that order (A to Z when Ascending).
void QuickSortShortcutNames(Workspace& ws, int First, int Last, bool Ascending);
// Orders the selection by Top: the walk from the last entry meets the highest label first.
void QuickSortTop(Workspace& ws);
// Sorts Keys[Low..High] into ascending (descending) order, carrying Items along.
void QuickSortNumbers(std::vector<float>& Keys, std::vector<int16_t>& Items, int Low, int High);
void QuickSortStringsAscending(std::vector<QString>& Keys, std::vector<int16_t>& Items, int Low, int High);
void QuickSortStringsDescending(std::vector<QString>& Keys, std::vector<int16_t>& Items, int Low, int High);

} // namespace pd
