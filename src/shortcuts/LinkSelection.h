#pragma once
// The selection of shortcuts (newest first), its inverted look, and the shortcut toolbar over it.

namespace pd {

class Workspace;
class Element;

bool IsLinkSelected(const Workspace& ws, int n);
// Selects (opaque, inverted colours, added first) or unselects (transparent, own colours) shortcut n.
void SetLinkSelected(Workspace& ws, int n, bool Selected);
// Unselects every selected shortcut, keeping SelectedLink unless IncludeCurrent; hides the toolbar.
void UnselectAllLinks(Workspace& ws, bool IncludeCurrent);
// The menu commands: select all in the context owner, unselect all, invert the selection.
void mnuSelectAll_Click(Workspace& ws);
void mnuUnselectAll_Click(Workspace& ws);
void mnuLinkSelect_Click(Workspace& ws);
// The toolbar with the six buttons over the selection in `Owner`.
void ShowLinkToolbar(Workspace& ws, Element& Owner);
void HideLinkToolbar(Workspace& ws);
// A press on one of the toolbar's buttons (0 Zoom In ... 5 Sort Descending).
void picMiniToolbar_Click(Workspace& ws, int Index);

} // namespace pd
