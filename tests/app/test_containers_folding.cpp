// Folding a container to its title bar and unfolding it, upward when it would not fit below; fold all,
// the open container, and the key that steps through containers.

#include "app/WorkspaceFile.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Shrinking.h"
#include "containers/TitleMouse.h"
#include "desk/Notes.h"
#include "support/TestWorkspace.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class Folding : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        // The workspace after the first start: picBack fills the window inside a 50-twip margin.
        ASSERT_EQ(ws().picBack(0).Width.get(), 9965.0f);
        ASSERT_EQ(ws().picBack(0).Height.get(), 5165.0f);
    }
    Workspace& ws() { return *t.ws; }
    // A container as the menu makes it, at (left, top), 3000 by 3000.
    int NewContainerAt(float left, float top) { return t.newContainerAt(left, top); }
    void ExpectTitleAtTop(int i) {
        // (The rename field takes its own place when renaming starts.)
        for (ElementFamily* f :
             {&ws().chkFold, &ws().picPinNote, &ws().picPin, &ws().picCopy1, &ws().picCopy2, &ws().picShrink})
            EXPECT_EQ((*f)(i).Top.get(), 30.0f) << f->name().toStdString();
        EXPECT_EQ(ws().lblName(i).Top.get(), 40.0f);
        EXPECT_EQ(ws().txtNote(i).Top.get(), 340.0f);
    }
    void ExpectTitleAtBottom(int i) {
        const float top = ws().Group(i).Height - 300;
        for (ElementFamily* f : {&ws().chkFold, &ws().groupName, &ws().lblName, &ws().picPinNote,
                                 &ws().picPin, &ws().picCopy1, &ws().picCopy2, &ws().picShrink})
            EXPECT_EQ((*f)(i).Top.get(), top) << f->name().toStdString();
        EXPECT_EQ(ws().txtNote(i).Top.get(), 100.0f);
    }
    QString Sound(const char* name) const { return QDir(t.programDir()).filePath(QString::fromLatin1(name)); }
    TestWorkspace t;
};

} // namespace

TEST_F(Folding, FoldingLeavesTheTitleBarAndUnfoldingGivesBackTheOpenSize) {
    const int n = NewContainerAt(600, 200);
    ws().Group(n).Width = 4000;
    ws().Group(n).Height = 2500;
    FoldContainer(ws(), n);
    EXPECT_FALSE(ws().chkFold(n).Visible.get());
    EXPECT_TRUE(ws().chkUnfold(n).Visible.get());
    EXPECT_TRUE(IsFolded(ws(), n));
    EXPECT_EQ(ws().Group(n).Height.get(), 350.0f);
    EXPECT_EQ(ws().grpBorder(n).Height.get(), 320.0f);
    EXPECT_EQ(ws().Group(n).Width.get(), 4000.0f);
    // The record holds the size to open to.
    EXPECT_EQ(ws().Containers[n].H, 2500);
    EXPECT_EQ(ws().Containers[n].W, 4000);
    EXPECT_EQ(ws().Containers[n].X, 600);
    EXPECT_EQ(ws().Containers[n].Y, 200);

    UnfoldContainer(ws(), n);
    EXPECT_TRUE(ws().chkFold(n).Visible.get());
    EXPECT_FALSE(ws().chkUnfold(n).Visible.get());
    EXPECT_FALSE(ws().Containers[n].Flipped);
    EXPECT_EQ(ws().Group(n).Top.get(), 200.0f);
    EXPECT_EQ(ws().Group(n).Height.get(), 2500.0f);
    // The inside follows the size.
    EXPECT_EQ(ws().grpBorder(n).Height.get(), 2470.0f);
    EXPECT_EQ(ws().grpBorder(n).Width.get(), 3970.0f);
    EXPECT_EQ(ws().lblName(n).Width.get(), 2620.0f);
    EXPECT_EQ(ws().chkFold(n).Left.get(), 3610.0f);
    EXPECT_TRUE(ws().Group(n).isFrontmost());
    ExpectTitleAtTop(n);
}

TEST_F(Folding, UnfoldingGivesTheKeyboardToAVisibleNote) {
    std::vector<QString> focused;
    ws().onFocusRequest = [&focused](Element& e) {
        focused.push_back(e.Name() + QString::number(e.Index()));
    };
    const int box = NewContainerAt(600, 200);
    FoldContainer(ws(), box);
    focused.clear();
    UnfoldContainer(ws(), box);
    EXPECT_TRUE(focused.empty());
    ShowNote(ws(), box);
    FoldContainer(ws(), box);
    focused.clear();
    UnfoldContainer(ws(), box);
    ASSERT_EQ(focused.size(), 1u);
    EXPECT_EQ(focused[0], QStringLiteral("txtNote") + QString::number(box));
    // The pin on a folded container unfolds it and shows the note, as one gesture.
    HideNote(ws(), box);
    FoldContainer(ws(), box);
    ShowNote(ws(), box);
    EXPECT_FALSE(IsFolded(ws(), box));
    EXPECT_EQ(ws().Group(box).Height.get(), 3000.0f);
    EXPECT_TRUE(ws().txtNote(box).Visible.get());
    EXPECT_TRUE(ws().picPin(box).Visible.get());
    EXPECT_FALSE(ws().picPinNote(box).Visible.get());
}

TEST_F(Folding, AContainerAtTheLowerEdgeUnfoldsUpward) {
    const int n = NewContainerAt(600, 4000);
    FoldContainer(ws(), n);
    EXPECT_EQ(ws().Group(n).Top.get(), 4000.0f);
    UnfoldContainer(ws(), n);
    const ContainerRecord& r = ws().Containers[n];
    EXPECT_TRUE(r.Flipped);
    // The bar stays where it was: the box grows upward from it.
    EXPECT_EQ(r.Y, 4000);
    EXPECT_EQ(ws().Group(n).Top.get(), 4000.0f - 3000.0f + 350.0f);
    EXPECT_EQ(ws().Group(n).Height.get(), 3000.0f);
    EXPECT_FALSE(TitleAtTop(ws(), n));
    ExpectTitleAtBottom(n);
    EXPECT_EQ(ws().picShrink(n).Top.get(), 2700.0f);
}

TEST_F(Folding, WithoutRoomAboveTheUpwardUnfoldStopsAtTopZero) {
    const int n = NewContainerAt(600, 1000);
    ws().Group(n).Height = 5000;
    FoldContainer(ws(), n);
    ASSERT_EQ(ws().Containers[n].H, 5000);
    UnfoldContainer(ws(), n);
    EXPECT_TRUE(ws().Containers[n].Flipped);
    EXPECT_EQ(ws().Containers[n].Y, 1000);
    EXPECT_EQ(ws().Group(n).Top.get(), 0.0f);
    EXPECT_EQ(ws().Group(n).Height.get(), 5000.0f);
    ExpectTitleAtBottom(n);
}

TEST_F(Folding, AContainerThatJustFitsUnfoldsDownward) {
    // 2165 + 3000 is the background's height exactly: not greater, so it opens downward.
    const int n = NewContainerAt(600, 2165);
    FoldContainer(ws(), n);
    UnfoldContainer(ws(), n);
    EXPECT_FALSE(ws().Containers[n].Flipped);
    EXPECT_EQ(ws().Group(n).Top.get(), 2165.0f);
    ExpectTitleAtTop(n);
}

TEST_F(Folding, FoldingAFlippedContainerReturnsItToItsBarEvenAfterAMove) {
    const int n = NewContainerAt(600, 4000);
    FoldContainer(ws(), n);
    UnfoldContainer(ws(), n);
    ASSERT_TRUE(ws().Containers[n].Flipped);
    // The user moves it while it is open.
    ws().Group(n).Move(2000, 500);
    FoldContainer(ws(), n);
    EXPECT_EQ(ws().Group(n).Top.get(), 4000.0f);
    EXPECT_EQ(ws().Group(n).Left.get(), 2000.0f);
    EXPECT_EQ(ws().Group(n).Height.get(), 350.0f);
    ExpectTitleAtTop(n);
    // A flipped container does not refresh its remembered size and place, but its left.
    const ContainerRecord& r = ws().Containers[n];
    EXPECT_EQ(r.Y, 4000);
    EXPECT_EQ(r.H, 3000);
    EXPECT_EQ(r.W, 3000);
    EXPECT_EQ(r.X, 2000);
}

TEST_F(Folding, ANestedContainerUnfoldsAgainstItsParentsHeight) {
    const int parent = NewContainerAt(600, 200);
    const int child = NewContainerAt(0, 0);
    ws().Group(child).setContainer(&ws().Group(parent));
    ws().Group(child).Move(100, 1800, 2000, 2000);
    FoldContainer(ws(), child);
    UnfoldContainer(ws(), child);
    // 1800 + 2000 is more than the parent's 3000, though the background would have had room.
    EXPECT_TRUE(ws().Containers[child].Flipped);
    EXPECT_EQ(ws().Containers[child].Y, 1800);
    EXPECT_EQ(ws().Group(child).Top.get(), 150.0f);
}

TEST_F(Folding, FoldingAFoldedContainerAgainKeepsItsOpenHeight) {
    const int n = NewContainerAt(600, 200);
    lblName_DblClick(ws(), n);
    EXPECT_TRUE(IsFolded(ws(), n));
    EXPECT_EQ(ws().OpenContainer, n);
    // Docking folds the open container, which is already folded.
    FoldOpenContainer(ws(), n);
    FoldContainer(ws(), n);
    EXPECT_EQ(ws().Containers[n].H, 3000);
    lblName_DblClick(ws(), n);
    EXPECT_FALSE(IsFolded(ws(), n));
    EXPECT_EQ(ws().Group(n).Height.get(), 3000.0f);
}

TEST_F(Folding, ATileHasNoBarToFoldTo) {
    const int n = NewContainerAt(600, 200);
    ToggleShrink(ws(), n);
    ASSERT_TRUE(IsShrunkSize(ws(), n));
    FoldContainer(ws(), n);
    EXPECT_TRUE(IsShrunkSize(ws(), n));
    EXPECT_FALSE(ws().chkUnfold(n).Visible.get());
    EXPECT_EQ(ws().Containers[n].H, 3000);
}

TEST_F(Folding, FoldingForgetsTheTileOpenedByHover) {
    const int n = NewContainerAt(600, 200);
    ws().ExpandedContainer = n;
    FoldContainer(ws(), n);
    EXPECT_EQ(ws().ExpandedContainer, -1);
}

TEST_F(Folding, OnlyTheLeftButtonFoldsAndUnfolds) {
    const int n = NewContainerAt(600, 200);
    chkFold_MouseDown(ws(), kRightButton, n);
    chkFold_MouseDown(ws(), kMiddleButton, n);
    EXPECT_FALSE(IsFolded(ws(), n));
    EXPECT_EQ(ws().Group(n).Height.get(), 3000.0f);
    chkFold_MouseDown(ws(), kLeftButton, n);
    EXPECT_TRUE(IsFolded(ws(), n));
    chkUnfold_MouseDown(ws(), kRightButton, n);
    EXPECT_TRUE(IsFolded(ws(), n));
    EXPECT_EQ(ws().Group(n).Height.get(), 350.0f);
    chkUnfold_MouseDown(ws(), kLeftButton, n);
    EXPECT_FALSE(IsFolded(ws(), n));
    EXPECT_EQ(ws().Group(n).Height.get(), 3000.0f);
}

TEST_F(Folding, TheReleasesPlayTheFoldAndUnfoldSounds) {
    const int n = NewContainerAt(600, 200);
    t.platform.sounds.clear();
    chkFold_MouseDown(ws(), kLeftButton, n);
    EXPECT_TRUE(t.platform.sounds.empty());
    chkFold_MouseUp(ws());
    chkUnfold_MouseDown(ws(), kLeftButton, n);
    chkUnfold_MouseUp(ws());
    ASSERT_EQ(t.platform.sounds.size(), 2u);
    EXPECT_EQ(t.platform.sounds[0], Sound("fold.wav"));
    EXPECT_EQ(t.platform.sounds[1], Sound("unfold.wav"));
}

TEST_F(Folding, ADoubleClickOnTheTitleTogglesAndMakesTheContainerTheOpenOne) {
    const int a = NewContainerAt(600, 200);
    const int b = NewContainerAt(4000, 200);
    FoldContainer(ws(), b);
    lblName_DblClick(ws(), b);
    EXPECT_FALSE(IsFolded(ws(), b));
    EXPECT_EQ(ws().OpenContainer, b);
    lblName_DblClick(ws(), a);
    EXPECT_TRUE(IsFolded(ws(), a));
    EXPECT_EQ(ws().OpenContainer, a);
}

TEST_F(Folding, ADoubleClickOnTheTitleHoldsOffDraggingFor100Milliseconds) {
    const int n = NewContainerAt(600, 200);
    ws().menus["mnuAutoFold"].setChecked(false);
    lblName_DblClick(ws(), n);
    EXPECT_TRUE(ws().DblClickLabelDelay);
    EXPECT_TRUE(ws().TimerDblClickLabelDelay.Enabled());
    t.clock.advance(99);
    EXPECT_TRUE(ws().DblClickLabelDelay);
    t.clock.advance(1);
    EXPECT_FALSE(ws().DblClickLabelDelay);
    EXPECT_FALSE(ws().TimerDblClickLabelDelay.Enabled());
}

TEST_F(Folding, APressOnTheTitleRecordsTheGestureAndPlaysItsSounds) {
    const int a = NewContainerAt(600, 200);
    const int b = NewContainerAt(4000, 1200);
    ws().SelectedContainer = static_cast<int16_t>(a);
    t.platform.sounds.clear();
    lblName_MouseDown(ws(), kLeftButton, 0, b, 120.4f, 60.6f);
    EXPECT_EQ(ws().SelectedContainer, b);
    // The container's place becomes the drop position of the next new container.
    EXPECT_EQ(ws().DropX, 4000.0f);
    EXPECT_EQ(ws().DropY, 1200.0f);
    EXPECT_EQ(ws().PressX, 120.0f);
    EXPECT_EQ(ws().PressY, 61.0f);
    EXPECT_TRUE(ws().Group(b).isFrontmost());
    EXPECT_TRUE(ws().HoldExpanded);
    EXPECT_TRUE(ws().TimerSuspendShrink.Enabled());
    lblName_MouseUp(ws(), kLeftButton, 0, b);
    ASSERT_EQ(t.platform.sounds.size(), 2u);
    EXPECT_EQ(t.platform.sounds[0], Sound("container_mousedown.wav"));
    EXPECT_EQ(t.platform.sounds[1], Sound("container_mouseup.wav"));
    // Two seconds later hovering may shrink tiles again.
    t.clock.advance(2000);
    EXPECT_FALSE(ws().HoldExpanded);

    // The right button opens the menu instead: nothing recorded, no sound.
    t.platform.sounds.clear();
    lblName_MouseDown(ws(), kRightButton, 0, a, 10, 10);
    lblName_MouseUp(ws(), kRightButton, 0, a);
    EXPECT_TRUE(t.platform.sounds.empty());
    EXPECT_EQ(ws().DropX, 4000.0f);
    // The middle button presses without the release sound.
    lblName_MouseDown(ws(), kMiddleButton, 0, a, 10, 10);
    lblName_MouseUp(ws(), kMiddleButton, 0, a);
    ASSERT_EQ(t.platform.sounds.size(), 1u);
    EXPECT_EQ(t.platform.sounds[0], Sound("container_mousedown.wav"));
}

TEST_F(Folding, ACtrlClickInPlaceOnTheTitleFlipsTheSelection) {
    const int n = NewContainerAt(600, 200);
    lblName_MouseDown(ws(), kLeftButton, kCtrlMask, n, 10, 10);
    lblName_MouseUp(ws(), kLeftButton, kCtrlMask, n);
    EXPECT_TRUE(ws().lblName(n).FontBold.get());
    lblName_MouseDown(ws(), kLeftButton, kCtrlMask, n, 10, 10);
    lblName_MouseUp(ws(), kLeftButton, kCtrlMask, n);
    EXPECT_FALSE(ws().lblName(n).FontBold.get());
    // Without Ctrl, or once the container has moved, a click leaves the selection alone.
    lblName_MouseDown(ws(), kLeftButton, 0, n, 10, 10);
    lblName_MouseUp(ws(), kLeftButton, 0, n);
    EXPECT_FALSE(ws().lblName(n).FontBold.get());
    lblName_MouseDown(ws(), kLeftButton, kCtrlMask, n, 10, 10);
    ws().Group(n).Left = 700;
    lblName_MouseUp(ws(), kLeftButton, kCtrlMask, n);
    EXPECT_FALSE(ws().lblName(n).FontBold.get());
}

TEST_F(Folding, FoldOnClickFoldsTheOpenContainerWhenTheUserTurnsElsewhere) {
    const int a = NewContainerAt(600, 200);
    const int b = NewContainerAt(4000, 200);
    ASSERT_TRUE(ws().menus["mnuAutoFold"].Checked());
    FoldContainer(ws(), a);
    lblName_DblClick(ws(), a);
    ASSERT_EQ(ws().OpenContainer, a);

    // Another container, without nesting: nothing.
    FoldOpenContainer(ws(), b);
    EXPECT_FALSE(IsFolded(ws(), a));
    // With nesting, a container that is not inside the open one: nothing either.
    ws().menus["mnuCaptureContainers"].setChecked(true);
    FoldOpenContainer(ws(), b);
    EXPECT_FALSE(IsFolded(ws(), a));
    // One inside it folds it.
    ws().Group(b).setContainer(&ws().Group(a));
    FoldOpenContainer(ws(), b);
    EXPECT_TRUE(IsFolded(ws(), a));

    // The usual call, with the open container itself; not without "&Fold on Click".
    lblName_DblClick(ws(), a);
    ws().menus["mnuAutoFold"].setChecked(false);
    FoldOpenContainer(ws(), a);
    EXPECT_FALSE(IsFolded(ws(), a));
    ws().menus["mnuAutoFold"].setChecked(true);
    FoldOpenContainer(ws(), a);
    EXPECT_TRUE(IsFolded(ws(), a));
    // No open container: nothing to do.
    ws().OpenContainer = -1;
    FoldOpenContainer(ws(), b);
    EXPECT_FALSE(IsFolded(ws(), b));
}

TEST_F(Folding, FoldAllTogglesEachContainerOnItsOwnAndLeavesTilesAlone) {
    const int open = NewContainerAt(600, 200);
    const int folded = NewContainerAt(3700, 200);
    const int tile = NewContainerAt(6800, 200);
    const int dead = NewContainerAt(600, 2000);
    FoldContainer(ws(), folded);
    ToggleShrink(ws(), tile);
    ws().Group(dead).Visible = false;

    mnuFoldAll_Click(ws());
    EXPECT_TRUE(IsFolded(ws(), open));
    EXPECT_EQ(ws().Group(open).Height.get(), 350.0f);
    EXPECT_FALSE(IsFolded(ws(), folded));
    EXPECT_EQ(ws().Group(folded).Height.get(), 3000.0f);
    EXPECT_TRUE(IsShrunkSize(ws(), tile));
    EXPECT_FALSE(ws().lblName(tile).Visible.get());
    EXPECT_FALSE(ws().chkUnfold(tile).Visible.get());
    EXPECT_FALSE(IsFolded(ws(), dead));
    EXPECT_EQ(ws().Group(dead).Height.get(), 3000.0f);
    // Saved at once.
    EXPECT_TRUE(t.dataExists(QStringLiteral("Perchdock.REC")));
    EXPECT_TRUE(t.readData(QStringLiteral("Containers/0.con")).contains("[Folded]\r\n1\r\n"));
    EXPECT_TRUE(t.readData(QStringLiteral("Containers/1.con")).contains("[Folded]\r\n0\r\n"));

    // Again: the mixed set stays mixed, each back to where it was.
    mnuFoldAll_Click(ws());
    EXPECT_FALSE(IsFolded(ws(), open));
    EXPECT_TRUE(IsFolded(ws(), folded));
    EXPECT_TRUE(IsShrunkSize(ws(), tile));
}

TEST_F(Folding, TheSteppingKeyOpensEachContainerInTurn) {
    const int folded = NewContainerAt(600, 200);
    const int dead = NewContainerAt(600, 200);
    const int tile = NewContainerAt(3700, 200);
    const int open = NewContainerAt(6800, 200);
    FoldContainer(ws(), folded);
    ToggleShrink(ws(), tile);
    ws().Group(dead).Visible = false;
    ws().LastClickShrunk = -1;

    // The folded one unfolds and becomes the open one.
    StepToNextContainer(ws());
    EXPECT_FALSE(IsFolded(ws(), folded));
    EXPECT_EQ(ws().OpenContainer, folded);
    EXPECT_EQ(ws().StepCursor, folded + 1);
    // Mouse moves rest for 500 ms.
    EXPECT_TRUE(ws().TimerDisableMouseMove.Enabled());

    // The next skips the dead slot: the open one folds, the tile opens as a hover would.
    StepToNextContainer(ws());
    EXPECT_TRUE(IsFolded(ws(), folded));
    EXPECT_FALSE(IsShrunkSize(ws(), tile));
    EXPECT_EQ(ws().Group(tile).Width.get(), 3000.0f);
    EXPECT_EQ(ws().ExpandedContainer, tile);
    EXPECT_EQ(ws().StepCursor, tile + 1);

    // While the moves rest, a hover over the tile's button does not close or open anything.
    ShrinkHover(ws(), tile);
    EXPECT_FALSE(IsShrunkSize(ws(), tile));

    // The open one is neither folded nor a tile: it stays as it is; the tile goes back; the fold of the
    // already folded open container leaves its open height alone.
    StepToNextContainer(ws());
    EXPECT_TRUE(IsShrunkSize(ws(), tile));
    EXPECT_EQ(ws().ExpandedContainer, -1);
    EXPECT_FALSE(IsFolded(ws(), open));
    EXPECT_EQ(ws().Group(open).Height.get(), 3000.0f);
    EXPECT_EQ(ws().Containers[folded].H, 3000);
    // Past the end the cursor wraps to 0.
    EXPECT_EQ(ws().StepCursor, 0);

    StepToNextContainer(ws());
    EXPECT_FALSE(IsFolded(ws(), folded));
    EXPECT_EQ(ws().Group(folded).Height.get(), 3000.0f);

    // The rest ends after its interval.
    t.clock.advance(500);
    EXPECT_FALSE(ws().TimerDisableMouseMove.Enabled());
    t.clock.advance(1000);
    EXPECT_FALSE(ws().TimerDisableMouseMove.Enabled());
}

TEST_F(Folding, TheSteppingKeyWithNoContainerDoesNothing) {
    StepToNextContainer(ws());
    EXPECT_EQ(ws().OpenContainer, -1);
    EXPECT_EQ(ws().StepCursor, 0);
}
