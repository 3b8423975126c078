// Notes and the editing lock on the fake platform and the hand clock: the pin on a folded container,
// the note's focus and save, Ctrl+A in a note, hover and press in the text, the note on a flipped
// title; the lock from the menu, Ctrl+L and the toolbar buttons, the padlock's question, TimeLock and the
// ten-second brief unlock.

#include "app/MainWindow.h"
#include "app/WorkspaceFile.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Moving.h"
#include "desk/DeskState.h"
#include "desk/Lock.h"
#include "desk/Notes.h"
#include "feeds/FeedSearch.h"
#include "feeds/FeedsState.h"
#include "shortcuts/EditLink.h"
#include "shortcuts/FindState.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "window/FloatingToolbar.h"
#include "window/WindowServices.h"

#include <QFileInfo>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class Notes : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireCoreCommands(ws());
        ws().frmMain(0).Move(1500, 1500, 10065, 5265);
        ws().onFocusRequest = [this](Element& e) {
            focused.push_back(e.Name() + QString::number(e.Index()));
        };
    }
    Workspace& ws() { return *t.ws; }
    DeskState& desk() { return Desk(ws()); }
    TestWorkspace t;
    std::vector<QString> focused;
};

TEST_F(Notes, ThePinOnAFoldedContainerUnfoldsItAndShowsTheNoteInOneGesture) {
    const int n = t.newContainerAt(600, 200);
    FoldContainer(ws(), n);
    ASSERT_TRUE(ws().chkUnfold(n).Visible.get());
    focused.clear();
    ShowNote(ws(), n);
    EXPECT_FALSE(ws().chkUnfold(n).Visible.get());
    EXPECT_TRUE(ws().chkFold(n).Visible.get());
    EXPECT_EQ(ws().Group(n).Height.get(), 3000.0f);
    EXPECT_TRUE(ws().txtNote(n).Visible.get());
    EXPECT_TRUE(ws().txtNote(n).isFrontmost() || ws().txtNote(n).zValue() > ws().lblName(n).zValue());
    EXPECT_TRUE(ws().picPin(n).Visible.get());
    EXPECT_FALSE(ws().picPinNote(n).Visible.get());
    ASSERT_FALSE(focused.empty());
    EXPECT_EQ(focused.back(), QStringLiteral("txtNote") + QString::number(n));
}

TEST_F(Notes, HidingKeepsTheText) {
    const int n = t.newContainerAt(600, 200);
    ShowNote(ws(), n);
    ws().txtNote(n).Text = QStringLiteral("milk\r\neggs");
    HideNote(ws(), n);
    EXPECT_FALSE(ws().txtNote(n).Visible.get());
    EXPECT_FALSE(ws().picPin(n).Visible.get());
    EXPECT_TRUE(ws().picPinNote(n).Visible.get());
    EXPECT_EQ(ws().txtNote(n).Text.get(), QStringLiteral("milk\r\neggs"));
    ShowNote(ws(), n);
    EXPECT_EQ(ws().txtNote(n).Text.get(), QStringLiteral("milk\r\neggs"));
}

TEST_F(Notes, NewNoteIsAContainerNamedNoteWithItsNoteOpen) {
    ws().menus["mnuNewNote"].Click();
    const int n = ws().ContainerCount - 1;
    EXPECT_EQ(ws().lblName(n).Caption.get(), QStringLiteral("Note"));
    EXPECT_TRUE(ws().txtNote(n).Visible.get());
    EXPECT_EQ(ws().menus["mnuNewNote"].Shortcut(), QStringLiteral("Ctrl+N"));
}

TEST_F(Notes, FocusSelectsTheContainerAndLeavingSavesEvenUnchanged) {
    const int a = t.newContainerAt(600, 200);
    const int b = t.newContainerAt(4600, 200);
    ShowNote(ws(), b);
    ws().SelectedContainer = static_cast<int16_t>(a);
    txtNote_GotFocus(ws(), b);
    EXPECT_EQ(ws().SelectedContainer, b);
    EXPECT_TRUE(desk().NoteHasFocus);
    EXPECT_TRUE(NoteHasFocus(ws()));
    QFile::remove(t.dataFile(QStringLiteral("Perchdock.REC")));
    ASSERT_FALSE(t.dataExists(QStringLiteral("Perchdock.REC")));
    txtNote_LostFocus(ws(), b);
    EXPECT_FALSE(desk().NoteHasFocus);
    EXPECT_TRUE(t.dataExists(QStringLiteral("Perchdock.REC"))) << "nothing changed, and still it saved";
}

TEST_F(Notes, CtrlAInANoteSelectsTheNotesTextNotTheShortcuts) {
    const int n = t.newContainerAt(600, 200);
    ShowNote(ws(), n);
    std::vector<int> selectedIn;
    desk().onSelectAllInNote = [&](Element& e) {
        EXPECT_EQ(e.Name(), QStringLiteral("txtNote"));
        selectedIn.push_back(e.Index());
    };
    int selectAll = 0;
    ws().menus["mnuSelectAll"].onClick = [&] { ++selectAll; };
    txtNote_GotFocus(ws(), n);
    EXPECT_TRUE(Form_KeyDown(ws(), 'A', 2));
    ASSERT_EQ(selectedIn.size(), 1u);
    EXPECT_EQ(selectedIn[0], n);
    EXPECT_EQ(selectAll, 0);
    // Other keys are the note's: no new container from Ctrl+C, no lock from Ctrl+L.
    const int before = ws().ContainerCount;
    EXPECT_FALSE(Form_KeyDown(ws(), 'C', 2));
    EXPECT_FALSE(Form_KeyDown(ws(), 'L', 2));
    EXPECT_EQ(ws().ContainerCount, before);
    EXPECT_FALSE(ws().menus["mnuLock"].Checked());
    // Once the note has lost the focus, Ctrl+A is the workspace's again.
    txtNote_LostFocus(ws(), n);
    EXPECT_TRUE(Form_KeyDown(ws(), 'A', 2));
    EXPECT_EQ(selectAll, 1);
    EXPECT_EQ(selectedIn.size(), 1u);
}

TEST_F(Notes, APressInTheTextBringsTheContainerToTheFront) {
    const int a = t.newContainerAt(600, 200);
    const int b = t.newContainerAt(1600, 800);
    ShowNote(ws(), a);
    ASSERT_GT(ws().Group(b).zValue(), ws().Group(a).zValue());
    txtNote_MouseDown(ws(), a);
    EXPECT_GT(ws().Group(a).zValue(), ws().Group(b).zValue());
}

TEST_F(Notes, TheNoteFollowsAFlippedTitle) {
    const int n = t.newContainerAt(600, 200);
    ShowNote(ws(), n);
    SetTitleEdge(ws(), true, n);
    EXPECT_EQ(ws().txtNote(n).Top.get(), 100.0f);
    SetTitleEdge(ws(), false, n);
    EXPECT_EQ(ws().txtNote(n).Top.get(), 340.0f);
}

TEST_F(Notes, ANoteSurvivesTheContainerFile) {
    const int n = t.newContainerAt(600, 200);
    ShowNote(ws(), n);
    ws().txtNote(n).Text = QStringLiteral("first line\r\nsecond line");
    SaveDesktop(ws(), false, true);
    t.restart();
    t.start();
    ASSERT_EQ(ws().ContainerCount, 1);
    EXPECT_TRUE(ws().txtNote(0).Visible.get());
    // The file's lines come back each with its line end; the save trims them again.
    EXPECT_EQ(TrimAll(ws().txtNote(0).Text.get()), QStringLiteral("first line\r\nsecond line"));
    const QByteArray before = t.readData(QStringLiteral("Containers/0.con"));
    SaveDesktop(ws(), false, true);
    EXPECT_EQ(t.readData(QStringLiteral("Containers/0.con")), before);
}

// --- the lock ---

TEST_F(Notes, LockEditingFromTheMenuAndCtrlLFlipsTheButtonsAndSaves) {
    EXPECT_EQ(ws().menus["mnuLock"].Caption(), QStringLiteral("Lock Editing"));
    const int n = t.newContainerAt(600, 200);
    SelectGroup(ws(), n);
    ASSERT_TRUE(ws().lblName(n).FontBold.get());
    QFile::remove(t.dataFile(QStringLiteral("Perchdock.REC")));
    ws().menus["mnuLock"].Click();
    EXPECT_TRUE(ws().menus["mnuLock"].Checked());
    EXPECT_TRUE(ws().PicLockToolbar(0).Visible.get());
    EXPECT_FALSE(ws().PicUnLockToolbar(0).Visible.get());
    EXPECT_FALSE(ws().lblName(n).FontBold.get()) << "the lock clears the selection";
    EXPECT_TRUE(t.dataExists(QStringLiteral("Perchdock.REC")));
    EXPECT_TRUE(Form_KeyDown(ws(), 'L', 2));
    EXPECT_FALSE(ws().menus["mnuLock"].Checked());
    EXPECT_FALSE(ws().PicLockToolbar(0).Visible.get());
    EXPECT_TRUE(ws().PicUnLockToolbar(0).Visible.get());
    // Stored as [LOCKED].
    ws().menus["mnuLock"].Click();
    SaveDesktop(ws(), false, true);
    EXPECT_TRUE(t.readData(QStringLiteral("Perchdock.ini")).contains("[LOCKED]\r\n1\r\n"));
    t.restart();
    t.start();
    EXPECT_TRUE(ws().menus["mnuLock"].Checked());
    EXPECT_TRUE(ws().PicLockToolbar(0).Visible.get());
}

TEST_F(Notes, TheToolbarButtonsLockAndUnlockWithoutSaving) {
    EXPECT_EQ(ws().PicLockToolbar(0).ToolTipText.get(),
              QStringLiteral("Click to Unlock the workspace for editing"));
    EXPECT_EQ(ws().PicUnLockToolbar(0).ToolTipText.get(),
              QStringLiteral("Click to Lock the workspace for editing"));
    QFile::remove(t.dataFile(QStringLiteral("Perchdock.REC")));
    PicUnLockToolbar_Click(ws());
    EXPECT_TRUE(ws().menus["mnuLock"].Checked());
    EXPECT_TRUE(ws().PicLockToolbar(0).Visible.get());
    PicLockToolbar_Click(ws());
    EXPECT_FALSE(ws().menus["mnuLock"].Checked());
    EXPECT_TRUE(ws().PicUnLockToolbar(0).Visible.get());
    EXPECT_FALSE(t.dataExists(QStringLiteral("Perchdock.REC")));
}

TEST_F(Notes, ALockedTitleDoesNotDragAndShowsThePadlockForATimeLock) {
    const int n = t.newContainerAt(600, 200);
    LockWorkspace(ws());
    ShowLockedSign(ws(), ws().Group(n));
    EXPECT_TRUE(ws().ImgLock(0).Visible.get());
    EXPECT_TRUE(ws().TimeLock.Enabled());
    t.clock.advance(1699);
    EXPECT_TRUE(ws().ImgLock(0).Visible.get());
    t.clock.advance(1);
    EXPECT_FALSE(ws().ImgLock(0).Visible.get());
    EXPECT_FALSE(ws().TimeLock.Enabled());
}

TEST_F(Notes, ThePadlockAsksAllowEditingAndUnlocksOnYes) {
    const int n = t.newContainerAt(600, 200);
    LockWorkspace(ws());
    ShowLockedSign(ws(), ws().Group(n));
    ws().TimerHide.setEnabled(true);
    bool heldDuring = false;
    t.platform.answers = {MsgAnswer::No};
    ImgLock_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Allow Editing?"));
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Locked for Editing"));
    EXPECT_EQ(t.platform.messages[0].style, 4132);
    EXPECT_TRUE(ws().menus["mnuLock"].Checked());
    (void)heldDuring;
    t.platform.answers = {MsgAnswer::Yes};
    ImgLock_Click(ws());
    EXPECT_FALSE(ws().menus["mnuLock"].Checked());
    EXPECT_FALSE(ws().ImgLock(0).Visible.get());
    EXPECT_TRUE(ws().PicUnLockToolbar(0).Visible.get());
    EXPECT_TRUE(ws().TimerHide.Enabled());
}

TEST_F(Notes, ABriefUnlockEndsLockedAfterTenSecondsEvenIfUnlockedByHandMeanwhile) {
    LockWorkspace(ws());
    UnlockBriefly(ws());
    EXPECT_FALSE(ws().menus["mnuLock"].Checked());
    EXPECT_TRUE(desk().TimerBrieflyUnlock.Enabled());
    t.clock.advance(5000);
    // The user unlocks by hand in the meantime.
    ws().menus["mnuLock"].Click();
    ws().menus["mnuLock"].Click();
    EXPECT_FALSE(ws().menus["mnuLock"].Checked());
    t.clock.advance(4999);
    EXPECT_FALSE(ws().menus["mnuLock"].Checked());
    t.clock.advance(1);
    EXPECT_TRUE(ws().menus["mnuLock"].Checked());
    EXPECT_TRUE(ws().PicLockToolbar(0).Visible.get());
    EXPECT_FALSE(desk().TimerBrieflyUnlock.Enabled());
    // An unlocked workspace has nothing to unlock briefly.
    UnlockWorkspace(ws());
    UnlockBriefly(ws());
    EXPECT_FALSE(desk().TimerBrieflyUnlock.Enabled());
}

// The three commands that open a locked workspace for a short spell: each leaves it unlocked with the
// brief timer running, and the lock comes back ten seconds later by itself.
TEST_F(Notes, TheShortcutEditorOpensALockedWorkspaceForTenSeconds) {
    const int c = t.newContainerAt(600, 200);
    AddShortcut(ws(), QStringLiteral("/opt/tools/prog"), ws().grpBorder(c));
    ws().SelectedLink = static_cast<int16_t>(ws().LinkCount - 1);
    LockWorkspace(ws());
    bool lockedWhileOpen = true;
    Find(ws()).onShowEditLink = [&](FrmEditLink&) { lockedWhileOpen = ws().menus["mnuLock"].Checked(); };
    mnuLinkEdit_Click(ws());
    EXPECT_FALSE(lockedWhileOpen);
    EXPECT_FALSE(ws().menus["mnuLock"].Checked());
    EXPECT_TRUE(desk().TimerBrieflyUnlock.Enabled());
    t.clock.advance(10000);
    EXPECT_TRUE(ws().menus["mnuLock"].Checked());
    EXPECT_TRUE(ws().PicLockToolbar(0).Visible.get());
}

TEST_F(Notes, TheFeedSearchOpensALockedWorkspaceForTenSeconds) {
    LockWorkspace(ws());
    int shown = 0;
    Feeds(ws()).showSearch = [&](FrmRSSSearch&) { ++shown; };
    mnuRSSSearch_Click(ws());
    EXPECT_EQ(shown, 1);
    EXPECT_FALSE(ws().menus["mnuLock"].Checked());
    EXPECT_TRUE(desk().TimerBrieflyUnlock.Enabled());
    t.clock.advance(10000);
    EXPECT_TRUE(ws().menus["mnuLock"].Checked());
}

TEST_F(Notes, TheReleaseThatBringsUpTheToolbarOpensALockedWorkspaceForTenSeconds) {
    ws().menus["mnuAddNewToolbar"].setChecked(true);
    LockWorkspace(ws());
    // A release that moved opens no toolbar and keeps the lock.
    ToolbarBackPress(ws(), 2000, 1000);
    ToolbarBackRelease(ws(), 2001, 1000);
    EXPECT_TRUE(ws().menus["mnuLock"].Checked());
    EXPECT_FALSE(desk().TimerBrieflyUnlock.Enabled());
    ToolbarBackPress(ws(), 2000, 1000);
    ToolbarBackRelease(ws(), 2000, 1000);
    ASSERT_TRUE(Toolbar(ws()).Loaded);
    EXPECT_FALSE(ws().menus["mnuLock"].Checked());
    EXPECT_TRUE(desk().TimerBrieflyUnlock.Enabled());
    t.clock.advance(10000);
    EXPECT_TRUE(ws().menus["mnuLock"].Checked());
}

TEST_F(Notes, AnUnlockedWorkspaceStaysUnlockedWithoutTheTimer) {
    Feeds(ws()).showSearch = [](FrmRSSSearch&) {};
    mnuRSSSearch_Click(ws());
    EXPECT_FALSE(ws().menus["mnuLock"].Checked());
    EXPECT_FALSE(desk().TimerBrieflyUnlock.Enabled());
    t.clock.advance(20000);
    EXPECT_FALSE(ws().menus["mnuLock"].Checked());
}

} // namespace
