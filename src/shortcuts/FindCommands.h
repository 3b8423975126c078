#pragma once
// The menu entries of tags, marks, properties, style and verification, and their commands.

namespace pd {

class Workspace;

// Declares the entries (in the background's menu, the shortcut's menu, the tag pop-up and the colour
// swatch's menu) and connects their commands. Runs before the view builds the menus.
void WireFindCommands(Workspace& ws);
// Before the background's menu opens: the tags menu is filled afresh.
void PrepareMainMenu(Workspace& ws);
// Before the shared shortcut/container menu opens: the shortcut's own entries show only when it was
// opened on a shortcut.
void PrepareLinkMenu(Workspace& ws);

} // namespace pd
