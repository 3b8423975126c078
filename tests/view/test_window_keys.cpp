// The key table on the real workspace window (offscreen): Qt's key events on the window, with their
// modifiers, reach the command of each key of the table (the window's key code and modifier mask are
// those the table takes), and the keypad's Enter is Enter.

#include "app/MainWindow.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "view/ElementView.h"
#include "view/MainView.h"
#include "view/MenuView.h"
#include "window/WindowServices.h"

#include <QApplication>
#include <QKeyEvent>

#include <gtest/gtest.h>

#include <map>
#include <string>

using namespace pd;
using namespace pd::test;

namespace {

struct WindowKey {
    Qt::KeyboardModifiers mods;
    int key;
    const char* command;
};

const WindowKey kKeys[] = {
    {Qt::ControlModifier, Qt::Key_S, "mnuRSSSearch"},     {Qt::ControlModifier, Qt::Key_E, "mnuAddRSS"},
    {Qt::ControlModifier, Qt::Key_W, "mnuAddLink"},       {Qt::ControlModifier, Qt::Key_F, "mnuAddFileLink"},
    {Qt::ControlModifier, Qt::Key_D, "mnuAddFolderLink"}, {Qt::ControlModifier, Qt::Key_P, "mnuAddPicture"},
    {Qt::ControlModifier, Qt::Key_V, "mnuPaste"},         {Qt::ControlModifier, Qt::Key_A, "mnuSelectAll"},
    {Qt::ControlModifier, Qt::Key_R, "mnuAddReminder"},   {Qt::ControlModifier, Qt::Key_U, "mnuUnselectAll"},
    {Qt::ControlModifier, Qt::Key_C, "mnuNew"},           {Qt::ControlModifier, Qt::Key_L, "mnuLock"},
    {Qt::ControlModifier, Qt::Key_N, "mnuNewNote"},       {Qt::ControlModifier, Qt::Key_F1, "mnuShrinkAll"},
    {Qt::ControlModifier, Qt::Key_F2, "mnuFoldAll"},      {Qt::AltModifier, Qt::Key_F4, "mnuExitMainWin"},
    {Qt::ShiftModifier, Qt::Key_Delete, "mnuDeleteSelected"},
    {Qt::NoModifier, Qt::Key_F1, "mnuTips"},              {Qt::NoModifier, Qt::Key_F4, "mnuProperties"},
    {Qt::NoModifier, Qt::Key_F8, "mnuSave"},              {Qt::NoModifier, Qt::Key_F11, "mnuRSSRefreshAll"},
    {Qt::NoModifier, Qt::Key_F12, "mnuRSSViewer"},
};

struct WindowKeys : ::testing::Test {
    TestWorkspace t;
    Workspace& ws = *t.ws;
    TopWindow main{ws, ws.frmMain(0), Qt::FramelessWindowHint | Qt::Tool};
    MenuView menus{ws.menus, &main};
    ElementView view{ws, {{&ws.frmMain(0), &main}}};
    std::map<std::string, int> counts;
    int c = 0, k = 0;

    WindowKeys() {
        t.start();
        WireCoreCommands(ws);
        ws.menuSink = &menus;
        view.onWindowChanged = [this](Element& e, Prop p) {
            if (&e == &ws.frmMain(0)) main.apply(p);
        };
        view.attach();
        ws.frmMain(0).Move(3000, 2000, 10065, 5265);
        ws.frmMain(0).Visible = true;
        c = t.newContainerAt(600, 600);
        AddShortcut(ws, QStringLiteral("/opt/tools/editor"), ws.grpBorder(c));
        k = ws.LinkCount - 1;
    }
    ~WindowKeys() override { ws.menuSink = nullptr; }
    int& Count(const char* name) {
        int& n = counts[name];
        ws.menus[QString::fromLatin1(name)].onClick = [&n] { ++n; };
        return n;
    }
    void Press(int key, Qt::KeyboardModifiers mods, const QString& text = {}) {
        QKeyEvent press(QEvent::KeyPress, key, mods, text);
        QApplication::sendEvent(&main, &press);
        QKeyEvent release(QEvent::KeyRelease, key, mods, text);
        QApplication::sendEvent(&main, &release);
    }
};

} // namespace

TEST_F(WindowKeys, EveryKeyOfTheTableReachesItsCommandFromTheWindow) {
    for (const WindowKey& key : kKeys) {
        int& n = Count(key.command);
        Press(key.key, key.mods);
        EXPECT_EQ(n, 1) << key.command;
    }
    // F2 with the shortcut selected edits it.
    int& edit = Count("mnuLinkEdit");
    SetLinkSelected(ws, k, true);
    ws.SelectedLink = static_cast<int16_t>(k);
    Press(Qt::Key_F2, Qt::NoModifier);
    EXPECT_EQ(edit, 1);
}

TEST_F(WindowKeys, EnterOfTheKeypadStartsTheSelectedShortcutAsReturnDoes) {
    SetLinkSelected(ws, k, true);
    ws.SelectedLink = static_cast<int16_t>(k);
    Press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(t.platform.launches.size() + t.platform.opened.size(), 1u);
    SetLinkSelected(ws, k, true);
    ws.SelectedLink = static_cast<int16_t>(k);
    Press(Qt::Key_Return, Qt::NoModifier);
    EXPECT_EQ(t.platform.launches.size() + t.platform.opened.size(), 2u);
}

TEST_F(WindowKeys, ALetterOpensTheFindPanelAndEscClosesIt) {
    Press(Qt::Key_E, Qt::NoModifier, QStringLiteral("e"));
    EXPECT_TRUE(ws.JumpToOpen);
    Press(Qt::Key_Escape, Qt::NoModifier);
    Press(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_FALSE(ws.JumpToOpen);
}

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
