// The whole key table of the workspace window, walked on the fake platform with every command wired as
// the program wires it: each key with its modifiers reaches its command (the menu entry's own command
// exists, and the key runs it), the keys without an entry do what they are for, every menu accelerator
// is a key of the table, and a key outside the table does nothing.

#include "app/MainWindow.h"
#include "containers/Selection.h"
#include "desk/Notes.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "window/Docking.h"
#include "window/WindowServices.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <map>
#include <string>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

constexpr int kShift = 1, kCtrl = 2, kAlt = 4;

struct Key {
    int shift;
    int code;
    const char* command;
};

// The keys that run a menu entry, with their modifier mask.
const Key kMenuKeys[] = {
    {kCtrl, 'S', "mnuRSSSearch"},       {kCtrl, 'E', "mnuAddRSS"},        {kCtrl, 'W', "mnuAddLink"},
    {kCtrl, 'F', "mnuAddFileLink"},     {kCtrl, 'D', "mnuAddFolderLink"}, {kCtrl, 'P', "mnuAddPicture"},
    {kCtrl, 'V', "mnuPaste"},           {kCtrl, 'A', "mnuSelectAll"},     {kCtrl, 'R', "mnuAddReminder"},
    {kCtrl, 'U', "mnuUnselectAll"},     {kCtrl, 'C', "mnuNew"},           {kCtrl, 'L', "mnuLock"},
    {kCtrl, 'N', "mnuNewNote"},         {kCtrl, kKeyF1, "mnuShrinkAll"},  {kCtrl, kKeyF1 + 1, "mnuFoldAll"},
    {kAlt, kKeyF1 + 3, "mnuExitMainWin"}, {kShift, kKeyDelete, "mnuDeleteSelected"},
    {0, kKeyF1, "mnuTips"},             {0, kKeyF1 + 3, "mnuProperties"}, {0, kKeyF1 + 7, "mnuSave"},
    {0, kKeyF1 + 10, "mnuRSSRefreshAll"}, {0, kKeyF1 + 11, "mnuRSSViewer"},
};

class KeyTable : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireCoreCommands(ws());
        ws().frmMain(0).Move(3000, 2000, 10065, 5265);
        c = t.newContainerAt(600, 600);
        AddShortcut(ws(), QStringLiteral("/opt/tools/editor"), ws().grpBorder(c));
        k = ws().LinkCount - 1;
    }
    Workspace& ws() { return *t.ws; }
    // Replaces a command by a counter, to see whether a key reaches it.
    int& Count(const char* name) {
        int& n = counts[name];
        ws().menus[QString::fromLatin1(name)].onClick = [&n] { ++n; };
        return n;
    }
    void SelectShortcut() {
        SetLinkSelected(ws(), k, true);
        ws().SelectedLink = static_cast<int16_t>(k);
    }
    TestWorkspace t;
    std::map<std::string, int> counts;
    int c = 0, k = 0;
};

// The key of an accelerator text ("Ctrl+F2", "Shift+Del") as the table takes it: the modifier mask and
// the key code; code 0 for a key the table does not know.
std::pair<int, int> TableKey(const QString& accelerator) {
    const QStringList parts = accelerator.split(QLatin1Char('+'));
    int shift = 0;
    for (int i = 0; i + 1 < parts.size(); ++i) {
        if (parts[i] == QLatin1String("Shift")) shift |= kShift;
        else if (parts[i] == QLatin1String("Ctrl")) shift |= kCtrl;
        else if (parts[i] == QLatin1String("Alt")) shift |= kAlt;
        else return {0, 0};
    }
    const QString key = parts.last();
    int code = 0;
    if (key.size() == 1 && key.at(0).isLetterOrNumber()) code = key.at(0).toUpper().unicode();
    else if (key.size() >= 2 && key.at(0) == QLatin1Char('F') && key.mid(1).toInt() >= 1 && key.mid(1).toInt() <= 12)
        code = kKeyF1 + key.mid(1).toInt() - 1;
    else if (key == QLatin1String("Del")) code = kKeyDelete;
    return {shift, code};
}

} // namespace

TEST_F(KeyTable, EveryMenuKeyReachesItsOwnCommand) {
    for (const Key& key : kMenuKeys) {
        const QString name = QString::fromLatin1(key.command);
        // The program has made the command the key is for.
        ASSERT_TRUE(ws().menus.has(name)) << key.command;
        EXPECT_TRUE(static_cast<bool>(ws().menus[name].onClick)) << key.command << " has no command";
        int& n = Count(key.command);
        EXPECT_TRUE(Form_KeyDown(ws(), key.code, key.shift)) << key.command;
        EXPECT_EQ(n, 1) << key.command;
    }
}

TEST_F(KeyTable, F2EditsTheSelectedShortcutOnly) {
    int& edit = Count("mnuLinkEdit");
    ASSERT_TRUE(static_cast<bool>(ws().menus["mnuLinkEdit"].onClick));
    EXPECT_FALSE(Form_KeyDown(ws(), kKeyF1 + 1, 0));
    EXPECT_EQ(edit, 0);
    SelectShortcut();
    EXPECT_TRUE(Form_KeyDown(ws(), kKeyF1 + 1, 0));
    EXPECT_EQ(edit, 1);
}

TEST_F(KeyTable, F2AndF4CloseTheFindPanelFirst) {
    Count("mnuProperties");
    ws().JumpToOpen = true;
    ws().PicJumpToLink(0).Visible = true;
    EXPECT_TRUE(Form_KeyDown(ws(), kKeyF1 + 3, 0));
    EXPECT_FALSE(ws().JumpToOpen);
}

TEST_F(KeyTable, F5F9EnterDelEscSpaceAndLettersDoTheirWork) {
    // F5 redraws the shortcuts: an icon left behind by its label goes back beside it.
    Element& icon = ws().PicIcon(ws().Links[static_cast<size_t>(k)].IconIndex);
    const float iconTop = icon.Top;
    ws().Link(k).Top = ws().Link(k).Top + 600;
    ASSERT_EQ(icon.Top.get(), iconTop);
    EXPECT_TRUE(Form_KeyDown(ws(), kKeyF1 + 4, 0));
    EXPECT_NE(icon.Top.get(), iconTop);
    EXPECT_NEAR(icon.Top.get(), ws().Link(k).Top.get(), 150.0f);
    // F9: translucency.
    EXPECT_TRUE(Form_KeyDown(ws(), kKeyF1 + 8, 0));
    EXPECT_TRUE(ws().menus["mnuTranslucent"].Checked());
    // Enter starts the selected shortcut.
    SelectShortcut();
    EXPECT_TRUE(Form_KeyDown(ws(), kKeyEnter, 0));
    ASSERT_EQ(t.platform.launches.size() + t.platform.opened.size(), 1u);
    // Del deletes it (the question answered yes).
    SelectShortcut();
    t.platform.answers = {MsgAnswer::Yes, MsgAnswer::Yes};
    EXPECT_TRUE(Form_KeyDown(ws(), kKeyDelete, 0));
    EXPECT_TRUE(ws().Links[static_cast<size_t>(k)].LinkPath.isEmpty() || !ws().Link.exists(k) ||
                !ws().Link(k).Visible);
    // A letter and a digit open the find panel; Esc clears and closes it, then docks the window.
    EXPECT_TRUE(Form_KeyDown(ws(), 'Q', 0));
    EXPECT_TRUE(ws().JumpToOpen);
    EXPECT_TRUE(Form_KeyDown(ws(), kKeyEscape, 0));
    EXPECT_TRUE(Form_KeyDown(ws(), kKeyEscape, 0));
    EXPECT_FALSE(ws().JumpToOpen);
    EXPECT_TRUE(Form_KeyDown(ws(), '7', 0));
    EXPECT_TRUE(ws().JumpToOpen);
    Form_KeyDown(ws(), kKeyEscape, 0);
    Form_KeyDown(ws(), kKeyEscape, 0);
    // Space opens the next container: the folded one unfolds.
    ws().menus["mnuFoldAll"].Click();
    ASSERT_EQ(ws().Group(c).Height.get(), 350.0f);
    EXPECT_TRUE(Form_KeyDown(ws(), kKeySpace, 0));
    EXPECT_GT(ws().Group(c).Height.get(), 350.0f);
    // Esc with the panel closed docks the window.
    EXPECT_TRUE(Form_KeyDown(ws(), kKeyEscape, 0));
    EXPECT_TRUE(IsDocked(ws()));
}

TEST_F(KeyTable, CtrlZUndoesAContainerMove) {
    const float left = ws().Group(c).Left;
    const float top = ws().Group(c).Top;
    PushUndoMove(ws(), c, left, top);
    ws().Group(c).Move(left + 1500, top + 900);
    EXPECT_TRUE(Form_KeyDown(ws(), 'Z', kCtrl));
    EXPECT_EQ(ws().Group(c).Left.get(), left);
    EXPECT_EQ(ws().Group(c).Top.get(), top);
}

TEST_F(KeyTable, F1ShowsTheKeys) {
    EXPECT_TRUE(Form_KeyDown(ws(), kKeyF1, 0));
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, KeyTipsText());
    EXPECT_EQ(t.platform.messages[0].style, MsgStyle::Information);
    // Every key of the table is named in it.
    for (const char* name : {"F2", "F4", "F5", "F8", "F9", "F11", "F12", "Ctrl+Z", "Alt+F4", "Shift+Del", "Space",
                             "Esc", "Enter"})
        EXPECT_TRUE(KeyTipsText().contains(QString::fromLatin1(name))) << name;
}

TEST_F(KeyTable, EveryMenuAcceleratorIsAKeyOfTheTable) {
    int checked = 0;
    for (const auto& entry : ws().menus.all()) {
        MenuEntry& m = *entry;
        if (m.Shortcut().isEmpty()) continue;
        const QString name = m.Name();
        const auto [shift, code] = TableKey(m.Shortcut());
        ASSERT_NE(code, 0) << name.toStdString() << " " << m.Shortcut().toStdString();
        int n = 0;
        m.onClick = [&n] { ++n; };
        EXPECT_TRUE(Form_KeyDown(ws(), code, shift)) << name.toStdString() << " " << m.Shortcut().toStdString();
        EXPECT_EQ(n, 1) << name.toStdString() << " " << m.Shortcut().toStdString();
        ++checked;
    }
    EXPECT_GE(checked, 15);
}

TEST_F(KeyTable, KeysOutsideTheTableDoNothing) {
    EXPECT_FALSE(Form_KeyDown(ws(), 'B', kCtrl | kAlt));
    EXPECT_FALSE(Form_KeyDown(ws(), kKeyF1 + 7, kShift));
    EXPECT_FALSE(Form_KeyDown(ws(), kKeyF1 + 5, 0)); // F6
    EXPECT_FALSE(Form_KeyDown(ws(), 'Q', kShift));
    EXPECT_TRUE(t.platform.messages.empty());
}

TEST_F(KeyTable, WhileANoteIsEditedOnlyCtrlAActs) {
    int& all = Count("mnuSelectAll");
    ShowNote(ws(), c);
    txtNote_GotFocus(ws(), c);
    ASSERT_TRUE(NoteHasFocus(ws()));
    EXPECT_TRUE(Form_KeyDown(ws(), 'A', kCtrl));
    EXPECT_EQ(all, 0);
    EXPECT_FALSE(Form_KeyDown(ws(), 'C', kCtrl));
    EXPECT_FALSE(Form_KeyDown(ws(), kKeyF1 + 7, 0));
    txtNote_LostFocus(ws(), c);
    EXPECT_TRUE(Form_KeyDown(ws(), 'A', kCtrl));
    EXPECT_EQ(all, 1);
}
