#pragma once
// Shortcut items: the adders that fill the next Link slot, the menu routes that make and remove
// shortcuts, and the helpers they share.

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
// A file size as the hover text shows it: "5.00 Bytes", "0.98 KB", "1.00 KB"; empty when negative.
QString FormatFileSize(long long Size);
// Whether Owner already holds a visible file shortcut with exactly this path.
bool FindDuplicateLink(Workspace& ws, Element& Owner, const QString& Path);
// The font size for a new shortcut in container OwnerIndex: that of its latest other shortcut.
int FontSizeInContainer(Workspace& ws, int OwnerIndex, int NewLinkIndex);

// The owner the creation menus put a new shortcut in: the container the menu was opened on, or
// the background.
Element& MenuOwner(Workspace& ws);
// The creation menus: a file (Ctrl+F), a folder (Ctrl+D), a web address (Ctrl+W).
void mnuAddFileLink_Click(Workspace& ws);
void mnuAddFolderLink_Click(Workspace& ws);
void mnuAddLink_Click(Workspace& ws);
// Connects the shortcut commands of the menus.
void WireShortcutCommands(Workspace& ws);
// Prepares the shared context menu for shortcut n and returns its name.
const char* LinkContextMenu(Workspace& ws, int n);

// The hover text of shortcut n: the address, or the size and location of its file.
QString LinkHoverText(Workspace& ws, int n);
// A pointer move over Link(n) with no left button: tooltip, underline, pointer shape.
void Link_Hover(Workspace& ws, int Shift, int n);
// Takes the hover underline off every shortcut.
void ClearLinkUnderlines(Workspace& ws);

// Empties the slot of shortcut n: no path, no caption, no icon. The index is not reused.
void RemoveLink(Workspace& ws, int n);
// Deletes the selected shortcuts (Shift+Del); folder-link containers delete their files too.
void mnuDeleteSelected_Click(Workspace& ws);
// "&Delete" on a shortcut's menu (or the container's, when it was opened on a container).
void mnuLinkDelete_Click(Workspace& ws);
// Sends Path to the trash after asking: 0 removed (or gone), 1 kept (No), 999 stop (Cancel).
int DeleteFromDisk(Workspace& ws, const QString& Path);

} // namespace pd
