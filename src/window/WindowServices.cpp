#include "window/WindowServices.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "containers/Folding.h"
#include "containers/Selection.h"
#include "desk/Notes.h"
#include "shortcuts/FindState.h"
#include "shortcuts/JumpTo.h"
#include "shortcuts/Launch.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkMouse.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "window/AutoHide.h"
#include "window/Docking.h"

namespace pd {

namespace {

const QString kMain = QStringLiteral("frmMain");

// Runs a menu command when its subsystem has made it; false when there is none yet.
bool Run(Workspace& ws, const char* name) {
    const QString n = QString::fromLatin1(name);
    if (!ws.menus.has(n) || !ws.menus[n].onClick) return false;
    ws.menus[n].Click();
    return true;
}

bool SelectedLinkShown(Workspace& ws, bool mustBeVisible) {
    const int n = ws.SelectedLink;
    if (!ws.Link.exists(n) || !IsLinkSelected(ws, n)) return false;
    return !mustBeVisible || ws.Link(n).Visible;
}

// A setting that takes effect at the next start: flip it under a stopped heartbeat and say so.
void RestartSetting(Workspace& ws, const char* name) {
    EnableDisableTimerHide(ws, false);
    MenuEntry& m = ws.menus[QString::fromLatin1(name)];
    m.setChecked(!m.Checked());
    ws.platform.messageBox(
        QStringLiteral("You will need to restart the program for this setting to take effect"),
        MsgStyle::OkOnly);
    EnableDisableTimerHide(ws, true);
    SaveDesktop(ws, true, false);
}

} // namespace

bool Form_KeyDown(Workspace& ws, int KeyCode, int Shift) {
    // While a note is being edited the keys are the note's: only Ctrl+A acts, on the note's text.
    if (NoteHasFocus(ws)) {
        if (Shift != 2 || KeyCode != 'A') return false;
        NoteSelectAll(ws);
        return true;
    }
    if (Shift == 2) {
        switch (KeyCode) {
        case 'S':
            return Run(ws, "mnuRSSSearch");
        case 'E':
            return Run(ws, "mnuAddRSS");
        case 'W':
            return Run(ws, "mnuAddLink");
        case 'F':
            return Run(ws, "mnuAddFileLink");
        case 'D':
            return Run(ws, "mnuAddFolderLink");
        case 'P':
            return Run(ws, "mnuAddPicture");
        case 'V':
            return Run(ws, "mnuPaste");
        case 'A':
            return Run(ws, "mnuSelectAll");
        case 'R':
            return Run(ws, "mnuAddReminder");
        case 'U':
            return Run(ws, "mnuUnselectAll");
        case 'C':
            return Run(ws, "mnuNew");
        case 'L':
            return Run(ws, "mnuLock");
        case 'Z':
            // Undo of the last container move; it has no menu entry.
            UndoMove(ws);
            return true;
        case kKeyF1:
            return Run(ws, "mnuShrinkAll");
        case kKeyF1 + 1:
            return Run(ws, "mnuFoldAll");
        case 'N':
            return Run(ws, "mnuNewNote");
        default:
            return false;
        }
    }
    if (Shift == 4) return KeyCode == kKeyF1 + 3 && Run(ws, "mnuExitMainWin");
    // Shift+Del deletes the selected shortcuts, as the entry's accelerator says.
    if (Shift == 1) return KeyCode == kKeyDelete && Run(ws, "mnuDeleteSelected");
    switch (KeyCode) {
    case kKeyF1:
        return Run(ws, "mnuTips");
    case kKeyF1 + 1:
        if (!SelectedLinkShown(ws, false)) return false;
        HideJumpTo(ws);
        // From the keyboard the entry is the shortcut's, whatever menu last renamed a container.
        ws.menus["mnuLinkEdit"].setCaption(QStringLiteral("&Properties"));
        return Run(ws, "mnuLinkEdit");
    case kKeyF1 + 3:
        HideJumpTo(ws);
        return Run(ws, "mnuProperties");
    case kKeyF1 + 4:
        RefreshLinks(ws);
        return true;
    case kKeyF1 + 7:
        return Run(ws, "mnuSave");
    case kKeyF1 + 8:
        mnuTranslucent_Click(ws);
        return true;
    case kKeyF1 + 10:
        return Run(ws, "mnuRSSRefreshAll");
    case kKeyF1 + 11:
        return Run(ws, "mnuRSSViewer");
    case kKeyEnter:
        HideJumpTo(ws);
        if (SelectedLinkShown(ws, true)) LaunchSelectedLink(ws);
        return true;
    case kKeyDelete:
        if (SelectedLinkShown(ws, true)) mnuDeleteSelected_Click(ws);
        return true;
    case kKeyEscape:
        if (ws.JumpToOpen)
            JumpToEscape(ws);
        else if (!ws.ShapeMovingIcon(0).Visible)
            DockNow(ws);
        return true;
    case kKeySpace:
        if (ws.JumpToOpen) return false;
        StepToNextContainer(ws);
        return true;
    default:
        // A letter or digit opens type-to-find with it.
        if (!OpensJumpTo(ws, KeyCode, Shift)) return false;
        Find(ws).cboSearchList.clear();
        OpenJumpTo(ws, QString(QChar(KeyCode)));
        return true;
    }
}

void ApplyTranslucency(Workspace& ws) {
    ws.platform.setWindowAlpha(kMain, ws.menus["mnuTranslucent"].Checked() ? 210 : 255);
}

void mnuTranslucent_Click(Workspace& ws) {
    MenuEntry& m = ws.menus["mnuTranslucent"];
    m.setChecked(!m.Checked());
    ApplyTranslucency(ws);
    SaveDesktop(ws, true, false);
}

void ApplyWindowEffects(Workspace& ws) {
    ws.platform.setDropShadow(ws.menus["mnuDropShadow"].Checked());
    if (ws.menus["mnuTranslucent"].Checked()) ApplyTranslucency(ws);
}

bool ToggleWorkspace(Workspace& ws) {
    Element& win = ws.frmMain(0);
    if (win.Visible && win.WindowState != 1 && ws.platform.foregroundWindow() == kMain) {
        win.Visible = false;
        return false;
    }
    ws.menus["mnuShowWorkspace"].Click();
    return true;
}

void FlushMouseEvents(Workspace& ws) {
    ws.platform.flushMouseEvents();
}

void WireWindowServices(Workspace& ws) {
    Workspace* w = &ws;
    ws.menus["mnuTranslucent"].onClick = [w] { mnuTranslucent_Click(*w); };
    ws.menus["mnuGlobalHotkey"].onClick = [w] { RestartSetting(*w, "mnuGlobalHotkey"); };
    ws.menus["mnuDropShadow"].onClick = [w] { RestartSetting(*w, "mnuDropShadow"); };
    // F1: the keys of the workspace, in a box (an entry of no menu).
    if (!ws.menus.has(QStringLiteral("mnuTips"))) ws.menus.add(QStringLiteral("mnuTips"), QStringLiteral("&Tips"));
    ws.menus["mnuTips"].onClick = [w] { mnuTips_Click(*w); };
}

QString KeyTipsText() {
    return QStringLiteral(
        "Keys of the workspace\r\n\r\n"
        "A letter or digit: find a shortcut by its label (Enter starts it, Del deletes it, Esc clears)\r\n"
        "Enter: start the selected shortcut | Del, Shift+Del: delete the selected shortcuts\r\n"
        "Space: open the next container | Esc: dock the workspace\r\n"
        "F1: these tips | F2: shortcut properties | F4: display properties | F5: refresh the shortcuts\r\n"
        "F8: save the workspace | F9: transparent | F11: refresh all feeds | F12: feed viewer\r\n"
        "Ctrl+C: new container | Ctrl+N: new note | Ctrl+W: new web shortcut | Ctrl+F: new file shortcut\r\n"
        "Ctrl+D: new folder shortcut | Ctrl+P: new picture | Ctrl+R: new reminder | Ctrl+E: new feed\r\n"
        "Ctrl+S: search the feeds | Ctrl+V: paste shortcuts | Ctrl+A: select all | Ctrl+U: unselect all\r\n"
        "Ctrl+L: lock or unlock | Ctrl+Z: undo a container move | Ctrl+F1: shrink all | Ctrl+F2: fold all\r\n"
        "Alt+F4: exit");
}

void mnuTips_Click(Workspace& ws) { ws.platform.messageBox(KeyTipsText(), MsgStyle::Information); }

} // namespace pd
