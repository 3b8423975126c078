#pragma once
// The icon beside each shortcut: which file's icon it shows, drawn small (16 pixels) or large.

#include <QString>

namespace pd {

class Workspace;
class Element;

// Draws the icon of shortcut n into its icon box.
void DrawFileIcon(Workspace& ws, int n);
// Draws File's icon into Box; a box on the background takes the wallpaper behind it.
void DrawIconToBox(Workspace& ws, Element& Box, const QString& File, bool Large);

} // namespace pd
