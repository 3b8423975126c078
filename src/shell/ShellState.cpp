#include "shell/ShellState.h"

#include "app/workspace/Workspace.h"
#include "shell/Clipboard.h"
#include "shell/FolderLink.h"

namespace pd {

ShellState::ShellState(Workspace& ws) : lblPath("lblPath", &ws.sink, false) {
    Element& label = lblPath(0);
    label.Visible = false;
    label.BackStyle = 0;
    label.FontBold = true;
    label.FontSize = 8;
}

ShellState& Shell(Workspace& ws) {
    if (!ws.ShellStateSlot) ws.ShellStateSlot = std::make_shared<ShellState>(ws);
    ShellState& s = *ws.ShellStateSlot;
    // The label is made before the view may exist: the view learns of it at its first showing.
    Element& label = s.lblPath(0);
    if (!label.viewHandle && ws.sink) ws.sink->elementLoaded(label);
    return s;
}

void WireShell(Workspace& ws) {
    Workspace* w = &ws;
    ws.menus["mnuCopy"].onClick = [w] { mnuCopy_Click(*w); };
    ws.menus["mnuPaste"].onClick = [w] { mnuPaste_Click(*w); };
    ws.menus["mnuOpenFolder"].onClick = [w] { mnuOpenFolder_Click(*w); };
    ws.menus["mnuRefreshFolder"].onClick = [w] { mnuRefreshFolder_Click(*w); };
    ws.menus["mnuRefreshOnExpand"].onClick = [w] { mnuRefreshOnExpand_Click(*w); };
}

void ShellMenus(Workspace& ws, int container, int link) {
    const bool linked = container >= 0 && container < static_cast<int>(ws.Containers.size()) &&
                        !ws.Containers[static_cast<size_t>(container)].CopyPath.isEmpty();
    for (const char* name : {"mnuSepCopyPath", "mnuOpenFolder", "mnuRefreshFolder", "mnuRefreshOnExpand"})
        ws.menus[QString::fromLatin1(name)].setVisible(linked && link < 0);
    if (linked)
        ws.menus["mnuRefreshOnExpand"].setChecked(
            ws.Containers[static_cast<size_t>(container)].RefreshOnExpand);
    if (link >= 0) {
        // "&Copy" is for file shortcuts; a web shortcut has no file to give.
        const bool web =
            link < static_cast<int>(ws.Links.size()) && ws.Links[static_cast<size_t>(link)].LinkType == 1.0f;
        ws.menus["mnuCopy"].setVisible(!web);
        ws.menus["mnuPaste"].setVisible(false);
        return;
    }
    ws.menus["mnuCopy"].setVisible(false);
    SetPasteMenu(ws, container);
}

} // namespace pd
