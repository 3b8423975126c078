#pragma once
// Drag and drop with the desktop: files, text and web addresses dragged in from other programs, and
// shortcuts dragged out as files. Positions are twips in the element dropped on; Shift is the modifier
// mask (1 Shift, 2 Ctrl, 4 Alt); effects are 0 none, 1 copy, 2 move.

#include <QString>
#include <QStringList>

namespace pd {

class Workspace;

// What a drag from another program carries: the local files it lists, and plain text.
struct DropData {
    QStringList files;
    bool hasText = false;
    QString text;
    bool hasFiles() const { return !files.isEmpty(); }
};

// A drag over container i or over the background: the effect that a drop would have. Over a
// folder-link container, lblPath names where the files would go.
int grpBorder_OLEDragOver(Workspace& ws, int i, const DropData& data, int Shift);
int picBack_OLEDragOver(Workspace& ws, const DropData& data, int Shift);
// The drag left the workspace's places: lblPath hides.
void OLEDragLeave(Workspace& ws);
// A drop in container i: files become shortcuts (copied, or with Ctrl moved, into a folder link),
// text goes to the container's note.
void grpBorder_OLEDragDrop(Workspace& ws, int i, const DropData& data, int Shift, float X, float Y);
// A drop on the background: files become shortcuts; with Shift a picture or a .txt note; text becomes a
// note ("Text Snippet") or, starting with http, a web shortcut.
void picBack_OLEDragDrop(Workspace& ws, const DropData& data, int Shift, float X, float Y);
// The files a drag of shortcut n takes out: its path, then those of the other selected shortcuts in
// the same owner.
QStringList Link_OLEStartDrag(Workspace& ws, int n);

// The in-program drag of an element over container i or over the background. Over the background a
// shortcut of a folder-link container leaves as a file drag to other programs: returns true when that
// happened, and the in-program drag has then ended.
void grpBorder_DragOver(Workspace& ws, int i);
bool picBack_DragOver(Workspace& ws);

// Helpers shared with the clipboard and the folder links.
// Cuts ".lnk", ".exe" or ".url" off the caption of shortcut n.
void CutLinkExtension(Workspace& ws, int n);
// Makes a shortcut to `file` in `Owner` at (X, Y), with the extension cut, and selects it. Returns its
// index, or -1 when none was made.
int AddDroppedShortcut(Workspace& ws, const QString& file, class Element& Owner, float X, float Y);
// A new note container named `name` holding `text`.
void NewTextNote(Workspace& ws, const QString& name, const QString& text);

} // namespace pd
