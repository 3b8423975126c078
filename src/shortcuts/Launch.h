#pragma once
// Starting shortcuts: the launch of one, the collapse around it, Start All, and opening one
// shortcut's target with another's program.

#include <QString>

namespace pd {

class Workspace;

void LaunchLink(Workspace& ws, int n);
// A path stored with "@" in front: "@" stands for the program's drive (see the implementation).
QString ExpandDriveLetter(const Workspace& ws, const QString& Path);
// The path up to and including its last separator; empty when it has none.
QString ParentFolder(const QString& Path);
// "&Start All Shortcuts [n]": starts every visible shortcut of the selected container.
void mnuStartAll_Click(Workspace& ws);
// A drag of shortcut s dropped on shortcut n: "Open: s with: n?".
void OpenLinkWithLink(Workspace& ws, int s, int n);
// Takes the launch mark off the shortcuts whose mark tag is among shortcut n's tags.
void ClearMarksForTags(Workspace& ws, int n);
// Closes the type-to-find panel when it is open.
void HideJumpTo(Workspace& ws);

// The text of a start's error number (1 to 31), as the error box shows it.
QString LaunchErrorText(int result);

} // namespace pd
