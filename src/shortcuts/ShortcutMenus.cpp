// The menu routes that make shortcuts: a file (Ctrl+F), a folder (Ctrl+D), web addresses (Ctrl+W).
// Each saves the workspace at once, so that a crash cannot lose a shortcut already made.

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Moving.h"
#include "shell/ShellState.h"
#include "shortcuts/Launch.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "shortcuts/Tags.h"
#include "window/AutoHide.h"

namespace pd {

namespace {

// Puts the shortcut made last (if one was made since `before`) at the drop position and saves.
void PlaceNewShortcut(Workspace& ws, int before) {
    if (ws.LinkCount <= before) return;
    const int n = ws.LinkCount - 1;
    ws.Link(n).Move(ws.DropX, ws.DropY);
    MoveLinkIcon(ws, n);
    SaveDesktop(ws, true, false);
}

} // namespace

Element& MenuOwner(Workspace& ws) {
    // The delete entry of a container shows only while the menu was opened on a container.
    if (ws.menus["mnuDeleteContainer"].Visible() && ws.grpBorder.exists(ws.SelectedContainer))
        return ws.grpBorder(ws.SelectedContainer);
    return ws.picBack(0);
}

void mnuAddFileLink_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    const QString file = ws.platform.chooseOpenFile(QStringLiteral("Add File Shortcut"),
                                                    QStringLiteral("All Files (*.*)"), QStringLiteral("*.*"));
    EnableDisableTimerHide(ws, true);
    if (file.isEmpty()) return;
    const int before = ws.LinkCount;
    AddShortcut(ws, file, MenuOwner(ws));
    PlaceNewShortcut(ws, before);
}

void mnuAddFolderLink_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    const QString folder = ws.platform.chooseFolder(QStringLiteral("Add Folder Shortcut:"));
    EnableDisableTimerHide(ws, true);
    if (folder.trimmed().isEmpty()) return;
    const int before = ws.LinkCount;
    AddShortcut(ws, folder, MenuOwner(ws));
    PlaceNewShortcut(ws, before);
}

void mnuAddLink_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    ws.platform.addUrlDialog([&ws](const QString& address) {
        // The owner is decided at each press of Add, from the menu the dialog was opened from.
        if (address.trimmed().isEmpty()) return;
        AddURL(ws, address, QString(), MenuOwner(ws));
    });
    SaveDesktop(ws, true, false);
    EnableDisableTimerHide(ws, true);
}

void WireShortcutCommands(Workspace& ws) {
    Workspace* w = &ws;
    ws.menus["mnuAddFileLink"].onClick = [w] { mnuAddFileLink_Click(*w); };
    ws.menus["mnuAddFolderLink"].onClick = [w] { mnuAddFolderLink_Click(*w); };
    ws.menus["mnuAddLink"].onClick = [w] { mnuAddLink_Click(*w); };
    ws.menus["mnuDeleteSelected"].onClick = [w] { mnuDeleteSelected_Click(*w); };
    ws.menus["mnuLinkDelete"].onClick = [w] { mnuLinkDelete_Click(*w); };
    ws.menus["mnuSelectAll"].onClick = [w] { mnuSelectAll_Click(*w); };
    ws.menus["mnuUnselectAll"].onClick = [w] { mnuUnselectAll_Click(*w); };
    ws.menus["mnuLinkSelect"].onClick = [w] { mnuLinkSelect_Click(*w); };
    ws.menus["mnuAtoZ"].onClick = [w] { SortSelectedLinks(*w, true); };
    ws.menus["mnuZtoA"].onClick = [w] { SortSelectedLinks(*w, false); };
    ws.menus["mnuLargeIcons"].onClick = [w] { ZoomLinksIn(*w); };
    ws.menus["mnuSmallIcons"].onClick = [w] { ZoomLinksOut(*w); };
    ws.menus["mnuSizeLink"].onClick = [w] { SetLinksSize(*w); };
    ws.menus["mnuStartAll"].onClick = [w] { mnuStartAll_Click(*w); };
    // A shortcut dragged out of its owner is carried to the owner it is dropped on.
    ws.onStartLinkDrag = [w](int n) { StartLinkDrag(*w, n); };
}

const char* LinkContextMenu(Workspace& ws, int n) {
    // Locked: the padlock beside the shortcut instead of its menu.
    if (ws.menus["mnuLock"].Checked()) {
        if (ws.Link.exists(n)) ShowLockedSign(ws, ws.Link(n));
        return "";
    }
    ws.SelectedLink = static_cast<int16_t>(n);
    ws.ContextIsContainer = false;
    ws.menus["mnuDeleteContainer"].setVisible(false);
    ws.menus["mnuLinkDelete"].setVisible(true);
    // The same entry renames a container; on a shortcut it opens the shortcut's properties.
    ws.menus["mnuLinkEdit"].setCaption(QStringLiteral("&Properties"));
    ws.menus["mnuLinkEdit"].setVisible(true);
    UpdateMarkCaption(ws);
    for (const char* name : {"mnuSepLinkLayout", "mnuAtoZ", "mnuZtoA", "mnuLargeIcons", "mnuSmallIcons", "mnuSizeLink"})
        ws.menus[QString::fromLatin1(name)].setVisible(true);
    for (const char* name : {"mnuSepStartAll", "mnuStartAll", "mnuSepSetContainer", "mnuSetContainerLeft",
                             "mnuSetContainerTop", "mnuSetContainerSize"})
        ws.menus[QString::fromLatin1(name)].setVisible(false);
    ShellMenus(ws, -1, n);
    return "mnuLink";
}

} // namespace pd
