#pragma once
// The clipboard: file shortcuts copied out as a file list that file managers paste, and a file list
// or text pasted into a container or onto the background.

#include <QStringList>

namespace pd {

class Workspace;
class Element;

// Puts the paths on the clipboard as a file list; false on failure.
bool CopyFilesToClipboard(Workspace& ws, const QStringList& Paths);
// The files listed on the clipboard, each trimmed; empty when it holds none.
QStringList GetClipboardFiles(Workspace& ws);

// "&Copy" on a shortcut: the selected file shortcuts (oldest selection first) as a file list.
void mnuCopy_Click(Workspace& ws);
// Sets the paste entry's caption for a menu opened on container i, or on the background (-1).
void SetPasteMenu(Workspace& ws, int i);
// The paste entry (and Ctrl+V): files as shortcuts, or text as a "Clipboard Text" note.
void mnuPaste_Click(Workspace& ws);
// The clipboard's files as shortcuts in Owner at (DropX, DropY); a folder-link container copies them in.
void PasteFiles(Workspace& ws, Element& Owner);

} // namespace pd
