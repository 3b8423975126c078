// Type-to-find on the fake platform: the keys that open the panel, the search by prefix and then by
// containment with the lowest index winning, the candidate list, the keys of the open panel, and the
// icon of the found shortcut.

#include "shortcuts/FindCommands.h"
#include "shortcuts/FindState.h"
#include "shortcuts/JumpTo.h"
#include "shortcuts/Launch.h"
#include "shortcuts/LinkMouse.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "shortcuts/Tags.h"
#include "support/TestWorkspace.h"
#include "window/WindowServices.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

constexpr int kShift = 1;
constexpr int kCtrl = 2;
constexpr int kAlt = 4;

class JumpTo : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireFindCommands(ws());
        WireShortcutCommands(ws());
        ws().menus["mnuCollapseBefore"].setChecked(false);
        ws().picBack(0).Move(0, 0, 9000, 6000);
        c = t.newContainerAt(1000, 1000);
        t.platform.messages.clear();
    }
    Workspace& ws() { return *t.ws; }
    FindState& f() { return Find(ws()); }
    // Shortcuts with these labels, in index order, in the container.
    void Labels(std::initializer_list<const char*> labels) {
        for (const char* l : labels) {
            AddShortcut(ws(), QStringLiteral("/opt/tools/") + QString::fromLatin1(l), ws().grpBorder(c));
            const int n = ws().LinkCount - 1;
            ws().Link(n).Move(300, 300 + 300 * static_cast<float>(n));
        }
    }
    // One key typed on the window: down on the window, then up in the search field (which the panel's
    // opening gave the focus).
    void Type(const QString& text) {
        for (QChar ch : text) {
            if (!ws().PicJumpToLink(0).Visible) {
                Form_KeyDown(ws(), ch.toUpper().unicode(), 0);
            } else {
                cboSearch_Change(ws(), f().cboSearchText + ch);
            }
            cboSearch_KeyUp(ws());
        }
    }

    TestWorkspace t;
    int c = 0;
};

} // namespace

TEST_F(JumpTo, TypingFSelectsTheLowestIndexAmongPrefixMatches) {
    Labels({"alpha", "beta", "Fab", "gamma", "delta", "Foo"});
    Type(QStringLiteral("f"));
    EXPECT_TRUE(ws().PicJumpToLink(0).Visible);
    EXPECT_EQ(ws().SelectedLink, 2);
    EXPECT_TRUE(IsLinkSelected(ws(), 2));
    EXPECT_FALSE(IsLinkSelected(ws(), 5));
    EXPECT_EQ(f().lblJumpToLink, QStringLiteral("Fab"));
    Type(QStringLiteral("o"));
    EXPECT_EQ(ws().SelectedLink, 5);
    EXPECT_FALSE(IsLinkSelected(ws(), 2)) << "the previous find is unselected";
}

TEST_F(JumpTo, WithNoPrefixMatchTheLowestIndexContainingTheTermWins) {
    Labels({"alpha", "book", "zoo", "Foo"});
    OpenJumpTo(ws(), QStringLiteral("o"));
    cboSearch_Change(ws(), QStringLiteral("oo"));
    cboSearch_KeyUp(ws());
    EXPECT_EQ(ws().SelectedLink, 1);
    EXPECT_EQ(f().lblJumpToLink, QStringLiteral("book"));
}

TEST_F(JumpTo, NoMatchKeepsTheSelectionAndABlankTermUnselectsAll) {
    Labels({"alpha", "beta"});
    JumpToLink(ws(), QStringLiteral("bet"));
    EXPECT_EQ(ws().SelectedLink, 1);
    JumpToLink(ws(), QStringLiteral("zzz"));
    EXPECT_EQ(ws().SelectedLink, 1);
    EXPECT_TRUE(IsLinkSelected(ws(), 1));
    JumpToLink(ws(), QStringLiteral("  "));
    EXPECT_TRUE(ws().SelectedLinks.empty());
}

TEST_F(JumpTo, TheLabelShowsNineteenCharacters) {
    Labels({"abcdefghijklmnopqrstuvwxyz"});
    JumpToLink(ws(), QStringLiteral("abc"));
    EXPECT_EQ(f().lblJumpToLink, QStringLiteral("abcdefghijklmnopqrs"));
}

TEST_F(JumpTo, HiddenShortcutsAreNeverFound) {
    Labels({"work-a", "work-b"});
    ws().Links[0].Tags = QStringLiteral("x");
    ws().Links[1].Tags = QStringLiteral("y");
    FilterByTag(ws(), 0, QStringLiteral("y"));
    JumpToLink(ws(), QStringLiteral("work"));
    EXPECT_EQ(ws().SelectedLink, 1);
}

TEST_F(JumpTo, LettersAndDigitsOpenThePanelAndModifiersOtherThanTheMixedOnesDoNot) {
    Labels({"alpha"});
    EXPECT_FALSE(Form_KeyDown(ws(), 'B', kCtrl));
    EXPECT_FALSE(ws().PicJumpToLink(0).Visible) << "a key with Ctrl opens no panel";
    EXPECT_FALSE(Form_KeyDown(ws(), 'A', kShift));
    EXPECT_FALSE(Form_KeyDown(ws(), 'A', kAlt));
    EXPECT_FALSE(Form_KeyDown(ws(), 'A', kCtrl | kAlt));
    EXPECT_FALSE(ws().PicJumpToLink(0).Visible);
    EXPECT_FALSE(ws().JumpToOpen);
    EXPECT_TRUE(Form_KeyDown(ws(), '7', 0));
    EXPECT_TRUE(ws().PicJumpToLink(0).Visible);
    EXPECT_TRUE(ws().JumpToOpen);
    EXPECT_EQ(f().cboSearchText, QStringLiteral("7"));
    HideJumpTo(ws());
    // Shift with Ctrl is none of the four masks that keep it shut.
    EXPECT_TRUE(OpensJumpTo(ws(), 'Q', kShift | kCtrl));
    EXPECT_TRUE(OpensJumpTo(ws(), '0', 0));
    EXPECT_FALSE(OpensJumpTo(ws(), ' ', 0));
    EXPECT_FALSE(OpensJumpTo(ws(), kKeyF1, 0));
    EXPECT_FALSE(OpensJumpTo(ws(), kKeyF1 + 2, 0)) << "F3 has the code of a small r";
}

TEST_F(JumpTo, TheOpenedPanelIsCentredAndHoldsTheLoweredLetter) {
    Labels({"alpha"});
    Form_KeyDown(ws(), 'Q', 0);
    const Element& panel = ws().PicJumpToLink(0);
    EXPECT_EQ(panel.Left.get(), 9000.0f / 2 - panel.Width.get() / 2);
    EXPECT_EQ(panel.Top.get(), 6000.0f / 2 - panel.Height.get() / 2);
    EXPECT_EQ(f().cboSearchText, QStringLiteral("q"));
    EXPECT_EQ(f().SelStart, 1) << "the caret after the text";
    EXPECT_TRUE(f().FocusSearch);
    EXPECT_TRUE(ws().PicJumpToLinkTop(0).Visible);
    EXPECT_GT(panel.CornerRadius.get(), 0);
    // A second letter while it shows goes to the search field, not to a new opening.
    EXPECT_FALSE(OpensJumpTo(ws(), 'B', 0));
}

TEST_F(JumpTo, EscTwiceClearsTheTextThenClosesThePanel) {
    Labels({"alpha"});
    Type(QStringLiteral("al"));
    f().cboSearchList = {QStringLiteral("alpha")};
    Form_KeyDown(ws(), kKeyEscape, 0);
    EXPECT_TRUE(ws().PicJumpToLink(0).Visible);
    EXPECT_TRUE(f().cboSearchText.isEmpty());
    EXPECT_TRUE(f().cboSearchList.empty());
    Form_KeyDown(ws(), kKeyEscape, 0);
    EXPECT_FALSE(ws().PicJumpToLink(0).Visible);
    EXPECT_FALSE(ws().JumpToOpen);
}

TEST_F(JumpTo, EnterHidesThePanelAndStartsTheFoundShortcut) {
    Labels({"alpha", "beta"});
    Type(QStringLiteral("be"));
    Form_KeyDown(ws(), kKeyEnter, 0);
    EXPECT_FALSE(ws().PicJumpToLink(0).Visible);
    ASSERT_EQ(t.platform.launches.size(), 1u);
    EXPECT_EQ(t.platform.launches[0].file, QStringLiteral("/opt/tools/beta"));
}

TEST_F(JumpTo, TheLaunchLabelStartsAndTheCloseMarkHides) {
    Labels({"alpha"});
    Type(QStringLiteral("a"));
    lblGo_Click(ws());
    EXPECT_EQ(t.platform.launches.size(), 1u);
    Type(QStringLiteral("a"));
    lblClosePicJumpTo_Click(ws());
    EXPECT_FALSE(ws().PicJumpToLink(0).Visible);
}

TEST_F(JumpTo, DelDeletesTheFoundShortcutAfterAsking) {
    Labels({"alpha", "beta"});
    Type(QStringLiteral("b"));
    t.platform.answers = {MsgAnswer::Yes};
    Form_KeyDown(ws(), kKeyDelete, 0);
    ASSERT_FALSE(t.platform.messages.empty());
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Delete Selected Shortcuts?"));
    EXPECT_TRUE(ws().Link(1).Caption.get().isEmpty());
    EXPECT_FALSE(ws().PicJumpToLink(0).Visible) << "the panel closes before shortcuts are deleted";
}

TEST_F(JumpTo, APressOnAShortcutClosesThePanelAndTheListGoesWithIt) {
    Labels({"alpha"});
    Type(QStringLiteral("a"));
    FillSearchList(ws());
    EXPECT_FALSE(f().cboSearchList.empty());
    Link_MouseDown(ws(), 2, 0, 0, 5, 5);
    EXPECT_FALSE(ws().PicJumpToLink(0).Visible);
    EXPECT_TRUE(f().cboSearchList.empty());
    EXPECT_EQ(f().cboSearchText, QStringLiteral("a")) << "the text stays until the next opening";
}

TEST_F(JumpTo, FillSearchListPutsFirstLetterMatchesFirstAndComparesFromPositionOne) {
    Labels({"Apple", "banana", "Avocado", "grape", "pineapple", "kiwi"});
    OpenJumpTo(ws(), QStringLiteral("a"));
    FillSearchList(ws());
    // Pass 1: labels beginning with "a"; pass 2: labels containing it. Position 0 is not compared, so
    // "Apple" comes twice.
    const std::vector<QString> expected = {"Apple", "Avocado", "Apple", "banana", "grape", "pineapple"};
    EXPECT_EQ(f().cboSearchList, expected);
    EXPECT_FALSE(f().Busy);
    // A second fill adds nothing more: each label now stands at position 1 or later.
    FillSearchList(ws());
    EXPECT_EQ(f().cboSearchList, expected);
}

TEST_F(JumpTo, IsNewSearchItemIgnoresPositionZero) {
    Labels({"same", "other"});
    f().cboSearchList = {QStringLiteral("same")};
    EXPECT_TRUE(IsNewSearchItem(ws(), 0));
    f().cboSearchList = {QStringLiteral("x"), QStringLiteral("same")};
    EXPECT_FALSE(IsNewSearchItem(ws(), 0));
    EXPECT_TRUE(IsNewSearchItem(ws(), 1));
}

TEST_F(JumpTo, TheTextChangeFiltersTheListFromTheEndAndKeepsEmptyItems) {
    Labels({"alpha"});
    OpenJumpTo(ws(), QStringLiteral("a"));
    f().cboSearchList = {QStringLiteral("alpha"), QString(), QStringLiteral("beta"), QStringLiteral("Alps"),
                         QStringLiteral("gamma")};
    cboSearch_Change(ws(), QStringLiteral("Al"));
    // The items are compared as they stand with the lowered text.
    const std::vector<QString> expected = {QStringLiteral("alpha"), QString()};
    EXPECT_EQ(f().cboSearchList, expected);
    cboSearch_Change(ws(), QStringLiteral("  "));
    EXPECT_TRUE(f().cboSearchList.empty());
}

TEST_F(JumpTo, TheDownArrowFillsTheListAndStepsThroughIt) {
    Labels({"alpha", "beta", "Alto"});
    OpenJumpTo(ws(), QStringLiteral("a"));
    cboSearch_KeyDown(ws(), 40);
    ASSERT_FALSE(f().cboSearchList.empty());
    EXPECT_EQ(f().ListIndex, 0);
    EXPECT_EQ(f().cboSearchText, QStringLiteral("alpha"));
    EXPECT_EQ(ws().SelectedLink, 0);
    cboSearch_KeyDown(ws(), 40);
    EXPECT_EQ(f().ListIndex, 1);
    EXPECT_EQ(f().cboSearchText, QStringLiteral("Alto"));
    EXPECT_EQ(ws().SelectedLink, 2);
    // The drop-down fills the list too; a click on an entry finds it.
    cboSearch_DropDown(ws());
    cboSearch_Click(ws(), 0);
    EXPECT_EQ(ws().SelectedLink, 0);
}

TEST_F(JumpTo, TheIconOfTheFoundShortcut) {
    Labels({"cmd", "web", "custom", "missing"});
    ws().Links[0].Command = 1;
    ws().Links[1].LinkType = 1;
    QFile page(QDir(t.programDir()).filePath(QStringLiteral("Perchdock Home Page.html")));
    ASSERT_TRUE(page.open(QIODevice::WriteOnly));
    page.close();
    const QString icon = QDir(t.programDir()).filePath(QStringLiteral("own.png"));
    QFile own(icon);
    ASSERT_TRUE(own.open(QIODevice::WriteOnly));
    own.close();
    ws().Links[2].LinkIcon = icon;
    JumpToLink(ws(), QStringLiteral("cmd"));
    EXPECT_EQ(f().JumpToIcon, QStringLiteral("themeicon:utilities-terminal"));
    JumpToLink(ws(), QStringLiteral("web"));
    EXPECT_EQ(f().JumpToIcon, QStringLiteral("fileicon:") + page.fileName());
    JumpToLink(ws(), QStringLiteral("custom"));
    EXPECT_EQ(f().JumpToIcon, QStringLiteral("fileicon:") + icon);
    JumpToLink(ws(), QStringLiteral("missing"));
    EXPECT_EQ(f().JumpToIcon, QStringLiteral("noicon:"));
}
