#include "app/workspace/SettingsMenus.h"

#include "window/Docking.h"

namespace pd {

const CheckSetting kCheckSettings[] = {
    {"mnuAlign", "&Align", true},
    {"mnuCaptureContainers", "&Capture/Nested Containers", false},
    {"mnuAutoExpand", "Auto &Expand on Mouse-Over", true},
    // On Linux the hot key is Super+S; the caption keeps the key's usual name.
    {"mnuGlobalHotkey", "Global &Hotkey (Win+S)", true},
    {"mnuAddNewToolbar", "Show Floating &Toolbar", true},
    {"mnuExtractURL", "&Resolve Shortcuts", true},
    {"mnuAutoFold", "&Fold on Click", true},
    {"mnuTranslucent", "&Transparent", false},
    {"mnuAnimateDock", "&Animate (Slide-In)", true},
    {"mnuWideDockingBorder", "&Wide Border", false},
    // Checked means the delay before undocking applies, whatever the file key says.
    {"mnuUndockImmediately", "&Delay Before Undock", true},
    {"mnuLock", "Lock Editing", false},
    {"mnuShowTime", "Show &Date && Time", false},
    {"mnuDropShadow", "Drop &Shadow (*)", true},
    {"mnuShowShortcutTags", "Show Asterisk Icon (Tags)", true},
    {"mnuDblClick", "&Dbl-Click to Start", true},
    {"mnuCollapseBefore", "Collapse &Before Launch", true},
    {"mnuConfirmStartAllShortcuts", "&Require Confirmation for Start All Shortcuts", true},
    {"mnuRSSOpenDirectly", "&Open directly on the site", false},
    {"mnuRSSLoadOnStartup", "&Load on startup", false},
    {"mnuHighlightRSS", "&Highlight Search Terms", true},
};
const int kCheckSettingCount = sizeof kCheckSettings / sizeof kCheckSettings[0];

void DeclareCoreMenus(Menus& menus) {
    menus.add("mnuMain", "Perchdock");
    menus.add("mnuNew", "&Container", "mnuMain").setShortcut("Ctrl+C");
    menus.add("mnuNewNote", "&Note", "mnuMain").setShortcut("Ctrl+N");
    // Each entry of a menu has its own mnemonic letter, so that a key chooses it at once.
    menus.add("mnuAddLink", "New &Web Shortcut...", "mnuMain").setShortcut("Ctrl+W");
    menus.add("mnuAddFileLink", "New Fi&le Shortcut...", "mnuMain").setShortcut("Ctrl+F");
    menus.add("mnuAddFolderLink", "New Di&r Shortcut...", "mnuMain").setShortcut("Ctrl+D");
    // Desk objects (desk/DeskState.cpp gives them their commands).
    menus.add("mnuAddPicture", "New &Picture...", "mnuMain").setShortcut("Ctrl+P");
    menus.add("mnuAddReminder", "New R&eminder...", "mnuMain").setShortcut("Ctrl+R");
    menus.add("mnuReminders", "Re&minders", "mnuMain");
    menus.add("mnuRemindersDelete", "&Clear Reminders", "mnuReminders");
    // The clipboard's paste (shell/Clipboard.cpp sets its caption when a menu opens).
    menus.add("mnuPaste", "Paste Shortcuts...", "mnuMain").setVisible(false);
    menus.add("mnuSepNew", "-", "mnuMain");
    menus.add("mnuFoldAll", "&Fold/Unfold All", "mnuMain").setShortcut("Ctrl+F2");
    menus.add("mnuShrinkAll", "S&hrink/Expand All", "mnuMain").setShortcut("Ctrl+F1");
    menus.add("mnuClearWorkSpace", "Clear Workspace", "mnuMain");
    menus.add("mnuSepWorkspace", "-", "mnuMain");
    menus.add("mnuSave", "&Save Workspace", "mnuMain").setShortcut("Ctrl+S");
    menus.add("mnuReload", "&Ignore Changes && Restart", "mnuMain");
    // The dock menu (window/Docking) shows here and on the title band's dock button.
    menus.add("mnuDock", "&Dock", "mnuMain");
    menus.add("mnuOptions", "&Options", "mnuMain");
    for (int i = 0; i < kCheckSettingCount; ++i) {
        const CheckSetting& s = kCheckSettings[i];
        MenuEntry& m = menus.add(s.menu, s.caption, "mnuOptions");
        m.setCheckable(true);
        m.setChecked(s.byDefault);
    }
    MenuEntry& confirm = menus.add("mnuDeleteConfirmation", "&Delete Confirmation", "mnuOptions");
    confirm.setCheckable(true);
    confirm.setChecked(true);
    menus.add("mnuRSSSetProxy", "Set &Proxy...", "mnuOptions").setCheckable(true);
    menus.add("mnuCheckForUpdate", "Check for &Update", "mnuMain");
    menus.add("mnuAbout", "&About", "mnuMain");
    menus.add("mnuExitMainWin", "E&xit", "mnuMain");

    // The menu of a container's title.
    menus.add("mnuLink", "Container");
    menus.add("mnuLinkEdit", "Rename", "mnuLink");
    MenuEntry& del = menus.add("mnuDeleteContainer", "&Delete", "mnuLink");
    // Shows only while the menu was opened on a container: commands that add objects look at it.
    del.setVisible(false);
    // On a shortcut the same place holds the shortcut's own delete.
    menus.add("mnuLinkDelete", "&Delete", "mnuLink").setVisible(false);
    // The placement commands of a title's menu: the selected containers against the chosen one.
    menus.add("mnuSepSetContainer", "-", "mnuLink");
    menus.add("mnuSetContainerLeft", "Align &Left", "mnuLink");
    menus.add("mnuSetContainerTop", "Align &Top", "mnuLink");
    menus.add("mnuSetContainerSize", "Match &Size", "mnuLink");
    menus.add("mnuSepLinkLayout", "-", "mnuLink");
    menus.add("mnuAtoZ", "Sort A to Z...", "mnuLink");
    menus.add("mnuZtoA", "Sort Z to A...", "mnuLink");
    menus.add("mnuLargeIcons", "Zoom &In", "mnuLink");
    menus.add("mnuSmallIcons", "Zoom &Out", "mnuLink");
    menus.add("mnuSizeLink", "&Set Size", "mnuLink");
    menus.add("mnuLinkSelect", "&Invert Selection", "mnuLink");
    menus.add("mnuSelectAll", "Select &All", "mnuLink").setShortcut("Ctrl+A");
    menus.add("mnuUnselectAll", "&Unselect All", "mnuLink").setShortcut("Ctrl+U");
    menus.add("mnuDeleteSelected", "Delete Selected Shortcuts", "mnuLink").setShortcut("Shift+Del");
    menus.add("mnuSepStartAll", "-", "mnuLink");
    menus.add("mnuStartAll", "&Start All Shortcuts [0]", "mnuLink");
    menus.add("mnuSepAddToContainer", "-", "mnuLink");
    // The creation commands work in the container the menu was opened on.
    for (const char* name : {"mnuAddLink", "mnuAddFileLink", "mnuAddFolderLink"}) menus.share(name, "mnuLink");
    // The shell exchange: a shortcut's copy, the paste, and a folder-link container's entries.
    menus.share("mnuPaste", "mnuLink");
    menus.add("mnuCopy", "&Copy", "mnuLink").setVisible(false);
    menus.add("mnuSepCopyPath", "-", "mnuLink").setVisible(false);
    menus.add("mnuOpenFolder", "&Explore Folder", "mnuLink").setVisible(false);
    menus.add("mnuRefreshFolder", "&Refresh Folder", "mnuLink").setVisible(false);
    MenuEntry& refreshOnExpand = menus.add("mnuRefreshOnExpand", "Refresh on Expand && Unfold", "mnuLink");
    refreshOnExpand.setCheckable(true);
    refreshOnExpand.setVisible(false);

    // The tray icon's menu.
    menus.add("mnuTray", "Perchdock");
    menus.add("mnuHideWorkspace", "Hide Perchdock (Click icon to show)", "mnuTray");
    menus.add("mnuExitApp", "Exit", "mnuTray");
    // What a click on the tray icon and the hot key run; in no menu.
    menus.add("mnuShowWorkspace", "&Show Perchdock");

    DeclareDockMenus(menus);

    // Recent feed searches; member 0 always exists.
    menus.add("mnuRSSSearchItem", "[No Recent Search]", QString(), 0);
}

} // namespace pd
