#include "shell/Clipboard.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "shell/DragDrop.h"
#include "shell/FileOperation.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"

namespace pd {

namespace {
const QString kPasteText = QStringLiteral("Paste Text...");
}

bool CopyFilesToClipboard(Workspace& ws, const QStringList& Paths) {
    return ws.platform.setClipboardFiles(Paths);
}

QStringList GetClipboardFiles(Workspace& ws) {
    QStringList out;
    for (const QString& p : ws.platform.clipboardFiles())
        out << p.trimmed();
    return out;
}

void mnuCopy_Click(Workspace& ws) {
    const int s = ws.SelectedLink;
    if (IsLinkLive(ws, s) && !IsLinkSelected(ws, s)) SetLinkSelected(ws, s, true);
    QStringList paths;
    // From the last entry (the oldest selection) to the first.
    for (auto it = ws.SelectedLinks.rbegin(); it != ws.SelectedLinks.rend(); ++it) {
        const int n = *it;
        if (n < 0 || n >= static_cast<int>(ws.Links.size())) continue;
        if (ws.Links[static_cast<size_t>(n)].LinkType == 2.0f)
            paths << ws.Links[static_cast<size_t>(n)].LinkPath;
    }
    if (!CopyFilesToClipboard(ws, paths)) {
        UnselectAllLinks(ws, true);
        ws.platform.messageBox(QStringLiteral("Error copying Files or Folders to clipboard"),
                               MsgStyle::CriticalBox, QStringLiteral("Error"));
    }
}

void SetPasteMenu(Workspace& ws, int i) {
    MenuEntry& paste = ws.menus["mnuPaste"];
    if (!TrimAll(ws.platform.clipboardText()).isEmpty()) {
        paste.setCaption(kPasteText);
        paste.setVisible(true);
        return;
    }
    if (!GetClipboardFiles(ws).isEmpty()) {
        const bool linked = i >= 0 && i < static_cast<int>(ws.Containers.size()) &&
                            !ws.Containers[static_cast<size_t>(i)].CopyPath.isEmpty();
        paste.setCaption(linked ? QStringLiteral("Paste Clipboard Files...")
                                : QStringLiteral("Paste Shortcuts..."));
        paste.setVisible(true);
        return;
    }
    paste.setVisible(false);
}

void mnuPaste_Click(Workspace& ws) {
    if (ws.menus["mnuPaste"].Caption() != kPasteText) {
        const bool onContainer =
            ws.menus["mnuDeleteContainer"].Visible() && ws.grpBorder.exists(ws.SelectedContainer);
        PasteFiles(ws, onContainer ? ws.grpBorder(ws.SelectedContainer) : ws.picBack(0));
    } else {
        const QString text = ws.platform.clipboardText();
        if (!text.isEmpty()) NewTextNote(ws, QStringLiteral("Clipboard Text"), text);
    }
    SaveDesktop(ws, true, false);
}

void PasteFiles(Workspace& ws, Element& Owner) {
    const QStringList paths = GetClipboardFiles(ws);
    mnuUnselectAll_Click(ws);
    const int c = ContainerOf(Owner);
    const QString folder = c >= 0 && c < static_cast<int>(ws.Containers.size()) && &Owner == &ws.grpBorder(c)
                               ? ws.Containers[static_cast<size_t>(c)].CopyPath
                               : QString();
    bool NoDuplicates = true;
    for (const QString& path : paths) {
        if (FindDuplicateLink(ws, Owner, path)) {
            NoDuplicates = false;
            continue;
        }
        const int n = AddDroppedShortcut(ws, path, Owner, ws.DropX, ws.DropY);
        if (n >= 0 && !folder.isEmpty()) CopyIntoFolderLink(ws, n, path, folder, false);
    }
    SortSelectedLinks(ws, true);
    if (!NoDuplicates)
        ws.platform.messageBox(QStringLiteral("Duplicate items were not added"), MsgStyle::ExclamationBox);
}

} // namespace pd
