#pragma once
// Folder-link containers: a container linked to a folder mirrors the folder's files and subfolders as
// shortcuts. The buttons that turn the link on and off, the folder prompt, the rebuild and the menu
// entries of such a container.

#include <QString>
#include <QStringList>

namespace pd {

class Workspace;

// A left press on picCopy1(i) ("Turn ON Folder Link"): asks for the folder, or only mends the buttons
// when the container already has one.
void picCopy1_MouseDown(Workspace& ws, int Button, int i);
// A click on picCopy2(i) ("Turn OFF Folder Link"): the link goes; the shortcuts stay as plain ones.
void picCopy2_Click(Workspace& ws, int i);
// Asks "Set Container's Folder Link:"; a folder chosen renames the container after it and links it.
void SetFolderLink(Workspace& ws, int i);
// Rebuilds container i's shortcuts from its folder: files, then subfolders, stacked from (600, 400)
// and selected. A folder that cannot be read leaves the old shortcuts. Returns true when rebuilt.
bool RefreshFolderLink(Workspace& ws, int i, bool Silent);
// The folder's visible files and subfolders (full paths), each list sorted as file managers sort names:
// without regard to case, numbers by their value. False when the folder cannot be read.
bool ListFolder(const QString& folder, QStringList& files, QStringList& folders);

// "&Explore Folder", "&Refresh Folder", "Refresh on Expand && Unfold" on SelectedContainer.
void mnuOpenFolder_Click(Workspace& ws);
void mnuRefreshFolder_Click(Workspace& ws);
void mnuRefreshOnExpand_Click(Workspace& ws);
// The unfold or expand of container i re-reads its folder when it refreshes on expand.
void RefreshOnExpand(Workspace& ws, int i);

} // namespace pd
