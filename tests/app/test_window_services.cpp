// The services around the workspace window on the fake platform: the key table and where its keys
// go, translucency, the hot key's toggle, the settings that need a restart, the tray menu's texts.

#include "app/MainWindow.h"
#include "support/TestWorkspace.h"
#include "window/Docking.h"
#include "window/WindowServices.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class WindowServices : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireCoreCommands(ws());
        ws().frmMain(0).Move(3000, 2000, 10065, 5265);
    }
    Workspace& ws() { return *t.ws; }
    // Replaces a command by a counter, to see whether a key reaches it.
    int& Count(const char* name) {
        int& n = counts[name];
        ws().menus[QString::fromLatin1(name)].onClick = [&n] { ++n; };
        return n;
    }
    TestWorkspace t;
    std::map<std::string, int> counts;
};

TEST_F(WindowServices, CtrlKeysRunTheirCommands) {
    const std::pair<int, const char*> table[] = {
        {'W', "mnuAddLink"},     {'F', "mnuAddFileLink"}, {'D', "mnuAddFolderLink"}, {'A', "mnuSelectAll"},
        {'U', "mnuUnselectAll"}, {'C', "mnuNew"},         {'N', "mnuNewNote"},       {112, "mnuShrinkAll"},
        {113, "mnuFoldAll"},     {'L', "mnuLock"},        {'E', "mnuAddRSS"},        {'P', "mnuAddPicture"},
    };
    for (const auto& [key, name] : table) {
        int& n = Count(name);
        EXPECT_TRUE(Form_KeyDown(ws(), key, 2)) << name;
        EXPECT_EQ(n, 1) << name;
    }
    // Alt+F4 exits; with Shift the function keys do nothing.
    int& exits = Count("mnuExitMainWin");
    EXPECT_TRUE(Form_KeyDown(ws(), 115, 4));
    EXPECT_EQ(exits, 1);
    int& save = Count("mnuSave");
    EXPECT_FALSE(Form_KeyDown(ws(), 119, 1));
    EXPECT_TRUE(Form_KeyDown(ws(), 119, 0));
    EXPECT_EQ(save, 1);
}

TEST_F(WindowServices, AKeyWhoseCommandIsNotMadeYetDoesNothing) {
    // A key whose entry has no command (here F1's, taken away) does nothing and says so.
    ws().menus["mnuTips"].onClick = nullptr;
    EXPECT_FALSE(Form_KeyDown(ws(), 112, 0));
    EXPECT_TRUE(t.platform.messages.empty());
}

TEST_F(WindowServices, F11AndF12ReachTheFeedCommands) {
    int& refresh = Count("mnuRSSRefreshAll");
    int& viewer = Count("mnuRSSViewer");
    EXPECT_TRUE(Form_KeyDown(ws(), 122, 0));
    EXPECT_TRUE(Form_KeyDown(ws(), 123, 0));
    EXPECT_EQ(refresh, 1);
    EXPECT_EQ(viewer, 1);
}

TEST_F(WindowServices, EscDocksNowAndF9TogglesTranslucency) {
    ASSERT_EQ(ws().DockSide, 3);
    EXPECT_TRUE(Form_KeyDown(ws(), kKeyEscape, 0));
    EXPECT_EQ(ws().frmMain(0).Top, 40 - 5265.0f);
    EXPECT_TRUE(IsDocked(ws()));

    ASSERT_FALSE(ws().menus["mnuTranslucent"].Checked());
    EXPECT_TRUE(Form_KeyDown(ws(), 120, 0));
    EXPECT_TRUE(ws().menus["mnuTranslucent"].Checked());
    EXPECT_EQ(t.platform.alpha[QStringLiteral("frmMain")], 210);
    // The setting is saved at once.
    EXPECT_TRUE(t.dataExists(QStringLiteral("Perchdock.REC")));
    ws().menus["mnuTranslucent"].Click();
    EXPECT_EQ(t.platform.alpha[QStringLiteral("frmMain")], 255);
}

TEST_F(WindowServices, EscWithTheFindPanelOpenOnlyClosesIt) {
    ws().JumpToOpen = true;
    ws().PicJumpToLink(0).Visible = true;
    EXPECT_TRUE(Form_KeyDown(ws(), kKeyEscape, 0));
    EXPECT_FALSE(ws().JumpToOpen);
    EXPECT_EQ(ws().frmMain(0).Top, 2000.0f);
}

TEST_F(WindowServices, TheHotKeyHidesTheWindowInFrontAndBringsItBackOtherwise) {
    Element& win = ws().frmMain(0);
    ASSERT_TRUE(win.Visible);
    // Another program in front: it comes forward, undocked.
    win.Move(3000, 40 - 5265.0f);
    t.platform.foreground.clear();
    EXPECT_TRUE(ToggleWorkspace(ws()));
    EXPECT_TRUE(win.Visible);
    EXPECT_EQ(win.Top, -100.0f);
    // In front: it goes away.
    t.platform.foreground = QStringLiteral("frmMain");
    EXPECT_FALSE(ToggleWorkspace(ws()));
    EXPECT_FALSE(win.Visible);
    // Hidden: it comes back.
    EXPECT_TRUE(ToggleWorkspace(ws()));
    EXPECT_TRUE(win.Visible);
}

TEST_F(WindowServices, TheTrayMenuHidesAndTheTrayClickShows) {
    EXPECT_EQ(ws().menus["mnuHideWorkspace"].Caption(),
              QStringLiteral("Hide Perchdock (Click icon to show)"));
    EXPECT_EQ(ws().menus["mnuExitApp"].Caption(), QStringLiteral("Exit"));
    const auto& tray = ws().menus["mnuTray"].children();
    ASSERT_EQ(tray.size(), 2u);
    EXPECT_EQ(tray[0]->Name(), QStringLiteral("mnuHideWorkspace"));
    EXPECT_TRUE(t.platform.trayShown);
    ws().menus["mnuHideWorkspace"].Click();
    EXPECT_FALSE(ws().frmMain(0).Visible);
    ws().frmMain(0).Move(40 - 10065.0f, 2000);
    ws().menus["mnuShowWorkspace"].Click();
    EXPECT_TRUE(ws().frmMain(0).Visible);
    EXPECT_EQ(ws().frmMain(0).Left, -100.0f);
}

TEST_F(WindowServices, HotKeyAndDropShadowSayThatTheyNeedARestart) {
    for (const char* name : {"mnuGlobalHotkey", "mnuDropShadow"}) {
        MenuEntry& m = ws().menus[QString::fromLatin1(name)];
        const bool before = m.Checked();
        t.platform.messages.clear();
        ws().TimerHide.setEnabled(true);
        m.Click();
        EXPECT_NE(m.Checked(), before) << name;
        ASSERT_EQ(t.platform.messages.size(), 1u) << name;
        EXPECT_EQ(t.platform.messages[0].text,
                  QStringLiteral("You will need to restart the program for this setting to take effect"));
        // The heartbeat was stopped around the message and runs again.
        EXPECT_TRUE(ws().TimerHide.Enabled()) << name;
    }
    EXPECT_EQ(ws().menus["mnuGlobalHotkey"].Caption(), QStringLiteral("Global &Hotkey (Win+S)"));
    EXPECT_EQ(ws().menus["mnuDropShadow"].Caption(), QStringLiteral("Drop &Shadow (*)"));
}

TEST_F(WindowServices, TheLoadRegistersTheHotKeyAndAppliesTheEffects) {
    EXPECT_TRUE(t.platform.hotKeyRegistered);
    EXPECT_TRUE(t.platform.dropShadow);
    FlushMouseEvents(ws());
    EXPECT_EQ(t.platform.mouseFlushes, 1);
}

} // namespace
