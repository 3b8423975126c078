#pragma once
// Shortcut items: the adders that fill the next Link slot and the helpers they share.

#include <QString>

namespace pd {

class Workspace;
class Element;

// Creates a file or folder shortcut in `Owner` (picBack or a grpBorder), or hands a `.url` over to
// AddURL when shortcuts are resolved. Leaves the label at its default place.
void AddShortcut(Workspace& ws, QString Path, Element& Owner);
// Creates a web shortcut in `Owner` at the drop position; an empty Label shows the address.
void AddURL(Workspace& ws, QString Address, const QString& Label, Element& Owner);
// The target of a link file (.lnk, .url, .desktop), or empty when it cannot be read.
QString ResolveLinkTarget(const QString& Path);
// The label for a path: what follows its last separator; a 3-character path names itself.
QString GetFileName(const QString& Path);
// Empties the slot of shortcut n: no path, no caption, no icon. The index is not reused.
void RemoveLink(Workspace& ws, int n);
// Puts the icon of shortcut n beside its label.
void MoveLinkIcon(Workspace& ws, int n);

} // namespace pd
