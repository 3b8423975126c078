#include "app/workspace/SettingsMenus.h"

#include "window/Docking.h"

namespace pd {

// Grouped by the settings submenu that shows them; the display dialog opens the same submenus from its
// buttons. The dock's settings are in the dock menu and the feeds' in the feeds menu.
const CheckSetting kCheckSettings[] = {
    {"mnuAlign", "&Align", true, "mnuContainers"},
    {"mnuCaptureContainers", "&Capture/Nested Containers", false, "mnuContainers"},
    {"mnuAutoExpand", "Auto &Expand on Mouse-Over", true, "mnuContainers"},
    {"mnuAutoFold", "&Fold on Click", true, "mnuContainers"},
    // On Linux the hot key is Super+S; the caption keeps the key's usual name.
    {"mnuGlobalHotkey", "Global &Hotkey (Win+S)", true, "mnuGlobalSettings"},
    {"mnuAddNewToolbar", "Show Floating &Toolbar", true, "mnuGlobalSettings"},
    {"mnuTranslucent", "&Transparent", false, "mnuGlobalSettings"},
    {"mnuShowTime", "Show &Date && Time", false, "mnuGlobalSettings"},
    {"mnuDropShadow", "Drop &Shadow (*)", true, "mnuGlobalSettings"},
    {"mnuLock", "Lock Editing", false, "mnuGlobalSettings"},
    {"mnuExtractURL", "&Resolve Shortcuts", true, "mnuShortcuts"},
    {"mnuShowShortcutTags", "Show Asterisk Icon (Tags)", true, "mnuShortcuts"},
    {"mnuDblClick", "&Dbl-Click to Start", true, "mnuShortcuts"},
    {"mnuConfirmStartAllShortcuts", "&Require Confirmation for Start All Shortcuts", true, "mnuShortcuts"},
    {"mnuCollapseBefore", "Collapse &Before Launch", true, "mnuDock"},
    {"mnuAnimateDock", "&Animate (Slide-In)", true, "mnuDock"},
    {"mnuWideDockingBorder", "&Wide Border", false, "mnuDock"},
    // Checked means the delay before undocking applies, whatever the file key says.
    {"mnuUndockImmediately", "&Delay Before Undock", true, "mnuDock"},
    {"mnuHighlightRSS", "&Highlight Search Terms", true, "mnuRSSNewsFeeds"},
    {"mnuRSSLoadOnStartup", "&Load on startup", false, "mnuRSSNewsFeeds"},
    {"mnuRSSOpenDirectly", "&Open directly on the site", false, "mnuRSSNewsFeeds"},
};
const int kCheckSettingCount = sizeof kCheckSettings / sizeof kCheckSettings[0];

void DeclareCoreMenus(Menus& menus) {
    // The main menu in its order. Entries whose commands other subsystems make are declared here too,
    // so that they stand in their place; a later declaration of the same name finds the entry made.
    menus.add("mnuMain", "Perchdock");
    menus.add("mnuNew", "&Container", "mnuMain").setShortcut("Ctrl+C");
    menus.add("mnuNewNote", "&Note", "mnuMain").setShortcut("Ctrl+N");
    // Each entry of a menu has its own mnemonic letter where the captions allow, so that a key chooses
    // it at once.
    menus.add("mnuAddLink", "New &Web Shortcut...", "mnuMain").setShortcut("Ctrl+W");
    menus.add("mnuAddFileLink", "New Fi&le Shortcut...", "mnuMain").setShortcut("Ctrl+F");
    menus.add("mnuAddFolderLink", "New Di&r Shortcut...", "mnuMain").setShortcut("Ctrl+D");
    // Desk objects (desk/DeskState.cpp gives them their commands).
    menus.add("mnuAddPicture", "New &Picture...", "mnuMain").setShortcut("Ctrl+P");
    menus.add("mnuAddReminder", "New R&eminder...", "mnuMain").setShortcut("Ctrl+R");
    // A feed container (feeds/FeedMenus.cpp).
    menus.add("mnuAddRSS", "R&SS News Feed", "mnuMain").setShortcut("Ctrl+E");
    // The clipboard's paste (shell/Clipboard.cpp sets its caption when a menu opens).
    menus.add("mnuPaste", "Paste Shortcuts...", "mnuMain").setVisible(false);
    menus.add("mnuSepNew", "-", "mnuMain");
    menus.add("mnuFoldAll", "&Fold/Unfold All", "mnuMain").setShortcut("Ctrl+F2");
    menus.add("mnuShrinkAll", "S&hrink/Expand All", "mnuMain").setShortcut("Ctrl+F1");
    menus.add("mnuClearWorkSpace", "Clear Workspace", "mnuMain");
    // The tags and the check of all targets (shortcuts/FindCommands.cpp).
    menus.add("mnuSepTags", "-", "mnuMain");
    menus.add("mnuTagsMain", "&Tags", "mnuMain");
    menus.add("mnuVerify", "&Verify", "mnuMain");
    menus.add("mnuSepWorkspace", "-", "mnuMain");
    // Ctrl+S is the feed search's key; the save has F8.
    menus.add("mnuSave", "&Save Workspace", "mnuMain").setShortcut("F8");
    menus.add("mnuReload", "&Ignore Changes && Restart", "mnuMain");
    menus.add("mnuSepMenus", "-", "mnuMain");
    // The feeds' submenu (feeds/FeedMenus.cpp fills it), the reminders', the dock's and the settings.
    menus.add("mnuRSSNewsFeeds", "R&SS News Feeds", "mnuMain");
    menus.add("mnuReminders", "Re&minders", "mnuMain");
    menus.add("mnuRemindersDelete", "&Clear Reminders", "mnuReminders");
    // The dock menu (window/Docking) shows here and on the title band's dock button.
    DeclareDockMenus(menus);
    menus.add("mnuOptions", "Settin&gs", "mnuMain");
    menus.add("mnuContainers", "&Containers", "mnuOptions");
    menus.add("mnuGlobalSettings", "&Global Settings", "mnuOptions");
    menus.add("mnuShortcuts", "&Shortcuts", "mnuOptions");
    for (int i = 0; i < kCheckSettingCount; ++i) {
        const CheckSetting& s = kCheckSettings[i];
        MenuEntry& m = menus.add(s.menu, s.caption, s.submenu);
        m.setCheckable(true);
        m.setChecked(s.byDefault);
    }
    MenuEntry& confirm = menus.add("mnuDeleteConfirmation", "&Delete Confirmation", "mnuContainers");
    confirm.setCheckable(true);
    confirm.setChecked(true);
    menus.add("mnuRSSSetProxy", "&Proxy Server", "mnuRSSNewsFeeds").setCheckable(true);
    menus.add("mnuSepSettings", "-", "mnuOptions");
    // F4 reaches it through the window's key table, which first closes the type-to-find panel.
    menus.add("mnuProperties", "Display &Properties...", "mnuOptions");
    menus.add("mnuSepAbout", "-", "mnuMain");
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

    // Recent feed searches; member 0 always exists.
    menus.add("mnuRSSSearchItem", "[No Recent Search]", QString(), 0);
}

} // namespace pd
