// Shrinking a container to its 700 by 950 tile and expanding it by a click or a hover, the fits near the
// edges, "S&hrink/Expand All", KeepInsideParent and the hold-offs.

#include "app/WorkspaceFile.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Shrinking.h"
#include "desk/Notes.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class Shrinking : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        ASSERT_EQ(ws().picBack(0).Width.get(), 9965.0f);
        ASSERT_EQ(ws().picBack(0).Height.get(), 5165.0f);
        t.platform.sounds.clear();
    }
    Workspace& ws() { return *t.ws; }
    int NewContainerAt(float left, float top) { return t.newContainerAt(left, top); }
    void ExpectTile(int i) {
        EXPECT_EQ(ws().Group(i).Width.get(), 700.0f);
        EXPECT_EQ(ws().Group(i).Height.get(), 950.0f);
        EXPECT_EQ(ws().grpBorder(i).Width.get(), 670.0f);
        EXPECT_EQ(ws().grpBorder(i).Height.get(), 920.0f);
        EXPECT_TRUE(ws().ShrinkIcon(i).Visible.get());
        EXPECT_FALSE(ws().lblName(i).Visible.get());
        EXPECT_FALSE(ws().chkFold(i).Visible.get());
        EXPECT_FALSE(ws().chkUnfold(i).Visible.get());
        EXPECT_TRUE(IsShrunkSize(ws(), i));
    }
    void ExpectOpen(int i, float w, float h) {
        EXPECT_EQ(ws().Group(i).Width.get(), w);
        EXPECT_EQ(ws().Group(i).Height.get(), h);
        EXPECT_EQ(ws().grpBorder(i).Width.get(), w - 30);
        EXPECT_EQ(ws().grpBorder(i).Height.get(), h - 30);
        EXPECT_FALSE(ws().ShrinkIcon(i).Visible.get());
        EXPECT_TRUE(ws().lblName(i).Visible.get());
        EXPECT_TRUE(ws().chkFold(i).Visible.get());
        EXPECT_FALSE(ws().chkUnfold(i).Visible.get());
    }
    QString Sound(const char* name) const { return QDir(t.programDir()).filePath(QString::fromLatin1(name)); }
    TestWorkspace t;
};

} // namespace

TEST_F(Shrinking, AContainerShrinksToItsTileAndExpandsToItsSize) {
    const int n = NewContainerAt(600, 200);
    ws().Group(n).Width = 4000;
    ws().Group(n).Height = 2500;
    ws().OpenContainer = static_cast<int16_t>(n);
    ToggleShrink(ws(), n);
    ExpectTile(n);
    EXPECT_EQ(ws().Group(n).Left.get(), 600.0f);
    EXPECT_EQ(ws().Group(n).Top.get(), 200.0f);
    EXPECT_TRUE(ws().ShrinkIcon(n).isFrontmost());
    EXPECT_EQ(ws().OpenContainer, -1);
    EXPECT_EQ(ws().LastClickShrunk, n);
    EXPECT_EQ(ws().Group(n).CornerRadius.get(), 12);
    const ContainerRecord& r = ws().Containers[n];
    EXPECT_EQ(r.W, 4000);
    EXPECT_EQ(r.H, 2500);
    EXPECT_EQ(r.X, 600);
    EXPECT_EQ(r.Y, 200);
    ASSERT_EQ(t.platform.sounds.size(), 1u);
    EXPECT_EQ(t.platform.sounds[0], Sound("shrink.wav"));

    ToggleShrink(ws(), n);
    ExpectOpen(n, 4000, 2500);
    EXPECT_EQ(ws().Group(n).Left.get(), 600.0f);
    EXPECT_EQ(ws().Group(n).Top.get(), 200.0f);
    EXPECT_FALSE(r.KeepX);
    EXPECT_FALSE(r.Flipped);
    EXPECT_TRUE(ws().chkFold(n).isFrontmost());
    EXPECT_EQ(ws().lblName(n).Width.get(), 2620.0f);
    EXPECT_EQ(ws().chkFold(n).Left.get(), 3610.0f);
    ASSERT_EQ(t.platform.sounds.size(), 2u);
    EXPECT_EQ(t.platform.sounds[1], Sound("expand.wav"));
}

TEST_F(Shrinking, NoShrinkSoundWhileLoading) {
    const int n = NewContainerAt(600, 200);
    ws().IsLoading = true;
    ToggleShrink(ws(), n);
    ExpectTile(n);
    EXPECT_TRUE(t.platform.sounds.empty());
}

TEST_F(Shrinking, OnlyTheLeftButtonToggles) {
    const int n = NewContainerAt(600, 200);
    picShrink_MouseDown(ws(), kRightButton, n);
    picShrink_MouseDown(ws(), kMiddleButton, n);
    EXPECT_FALSE(IsShrunkSize(ws(), n));
    EXPECT_TRUE(t.platform.sounds.empty());
    picShrink_MouseDown(ws(), kLeftButton, n);
    EXPECT_TRUE(IsShrunkSize(ws(), n));
    picShrink_MouseDown(ws(), kRightButton, n);
    EXPECT_TRUE(IsShrunkSize(ws(), n));
}

TEST_F(Shrinking, AFoldedContainerShrinksAndOpensUnfoldedAtItsOpenHeight) {
    const int n = NewContainerAt(600, 200);
    FoldContainer(ws(), n);
    ToggleShrink(ws(), n);
    ExpectTile(n);
    EXPECT_EQ(ws().Containers[n].H, 3000);
    ToggleShrink(ws(), n);
    ExpectOpen(n, 3000, 3000);
}

TEST_F(Shrinking, AContainerSizedToATileByHandCountsAsShrunk) {
    const int n = NewContainerAt(600, 200);
    // The record holds 3000 by 3000; the user drags the open box to exactly 700 by 950.
    ws().Group(n).Width = 700;
    ws().Group(n).Height = 950;
    EXPECT_TRUE(IsShrunkSize(ws(), n));
    EXPECT_TRUE(ws().lblName(n).Visible.get());
    ToggleShrink(ws(), n);
    // The test is by size: it expands, to the record's size.
    ExpectOpen(n, 3000, 3000);
    ASSERT_EQ(t.platform.sounds.size(), 1u);
    EXPECT_EQ(t.platform.sounds[0], Sound("expand.wav"));
}

TEST_F(Shrinking, ATileNearTheRightEdgeOpensShiftedLeftAndShrinksBackToItsPlace) {
    const int n = NewContainerAt(8000, 200);
    ToggleShrink(ws(), n);
    ASSERT_EQ(ws().Group(n).Left.get(), 8000.0f);
    ToggleShrink(ws(), n);
    const ContainerRecord& r = ws().Containers[n];
    EXPECT_TRUE(r.KeepX);
    EXPECT_EQ(r.X, 8000);
    EXPECT_EQ(ws().Group(n).Left.get(), 9965.0f - 3000.0f - 100.0f);
    EXPECT_EQ(ws().Group(n).Top.get(), 200.0f);
    EXPECT_FALSE(r.Flipped);

    ToggleShrink(ws(), n);
    ExpectTile(n);
    EXPECT_EQ(ws().Group(n).Left.get(), 8000.0f);
    EXPECT_EQ(ws().Group(n).Top.get(), 200.0f);
    EXPECT_EQ(r.X, 8000);
}

TEST_F(Shrinking, ATileNearTheBottomOpensPushedUpWithItsTitleOnTop) {
    const int n = NewContainerAt(600, 4000);
    ToggleShrink(ws(), n);
    ASSERT_EQ(ws().Group(n).Top.get(), 4000.0f);
    ToggleShrink(ws(), n);
    const ContainerRecord& r = ws().Containers[n];
    EXPECT_TRUE(r.Flipped);
    EXPECT_EQ(r.Y, 4000);
    EXPECT_EQ(ws().Group(n).Top.get(), 5165.0f - 3000.0f - 100.0f);
    EXPECT_TRUE(TitleAtTop(ws(), n));
    EXPECT_EQ(ws().lblName(n).Top.get(), 40.0f);
    EXPECT_FALSE(r.KeepX);

    ToggleShrink(ws(), n);
    ExpectTile(n);
    EXPECT_EQ(ws().Group(n).Top.get(), 4000.0f);
    EXPECT_EQ(ws().Group(n).Left.get(), 600.0f);
}

TEST_F(Shrinking, AnUpwardUnfoldedContainerShrinksToItsBarWithTheTitleBackOnTop) {
    const int n = NewContainerAt(600, 4000);
    FoldContainer(ws(), n);
    UnfoldContainer(ws(), n);
    ASSERT_FALSE(TitleAtTop(ws(), n));
    ToggleShrink(ws(), n);
    ExpectTile(n);
    EXPECT_TRUE(TitleAtTop(ws(), n));
    EXPECT_EQ(ws().txtNote(n).Top.get(), 340.0f);
    EXPECT_EQ(ws().Group(n).Top.get(), 4000.0f);
}

TEST_F(Shrinking, ATileLeftOfTheBackgroundComesBackToZero) {
    const int n = NewContainerAt(600, 200);
    ws().Group(n).Left = -500;
    ToggleShrink(ws(), n);
    ExpectTile(n);
    EXPECT_EQ(ws().Containers[n].X, -500);
    EXPECT_EQ(ws().Group(n).Left.get(), 0.0f);
}

TEST_F(Shrinking, ATileBelowTheBackgroundIsKeptInside) {
    const int n = NewContainerAt(600, 200);
    ws().Group(n).Top = 5000;
    ToggleShrink(ws(), n);
    // Its top was the remembered 5000, above 5165 - 500: the tile sits 100 above the lower edge.
    EXPECT_EQ(ws().Group(n).Top.get(), 5165.0f - 950.0f - 100.0f);
}

TEST_F(Shrinking, ANoteStaysANoteThroughShrinkAndExpand) {
    mnuNewNote_Click(ws());
    const int n = ws().ContainerCount - 1;
    ws().txtNote(n).Text = QStringLiteral("milk");
    ToggleShrink(ws(), n);
    ExpectTile(n);
    EXPECT_TRUE(ws().txtNote(n).Visible.get());
    // The icon lies over it.
    EXPECT_GT(ws().ShrinkIcon(n).zValue(), ws().txtNote(n).zValue());
    SaveDesktop(ws(), true, false);
    EXPECT_TRUE(t.readData(QStringLiteral("Containers/0.con")).contains("[NOTE ON]\r\n1\r\n"));
    ToggleShrink(ws(), n);
    EXPECT_TRUE(ws().txtNote(n).Visible.get());
    EXPECT_TRUE(ws().picPin(n).Visible.get());
    EXPECT_EQ(ws().txtNote(n).Text.get(), QStringLiteral("milk"));
    EXPECT_EQ(ws().txtNote(n).Height.get(), 2530.0f);
}

TEST_F(Shrinking, ExpandingGivesTheKeyboardToAVisibleNote) {
    std::vector<QString> focused;
    ws().onFocusRequest = [&focused](Element& e) {
        focused.push_back(e.Name() + QString::number(e.Index()));
    };
    const int box = NewContainerAt(600, 200);
    ToggleShrink(ws(), box);
    focused.clear();
    ToggleShrink(ws(), box);
    EXPECT_TRUE(focused.empty());
    mnuNewNote_Click(ws());
    const int n = ws().ContainerCount - 1;
    ToggleShrink(ws(), n);
    focused.clear();
    ToggleShrink(ws(), n);
    ASSERT_EQ(focused.size(), 1u);
    EXPECT_EQ(focused[0], QStringLiteral("txtNote") + QString::number(n));
}

// --- hover ---

TEST_F(Shrinking, ATileJustShrunkByAClickStaysShrunkUnderTheMouseUntilItHasBeenElsewhere) {
    const int n = NewContainerAt(600, 200);
    ASSERT_TRUE(ws().menus["mnuAutoExpand"].Checked());
    picShrink_MouseDown(ws(), kLeftButton, n);
    ASSERT_EQ(ws().LastClickShrunk, n);
    ShrinkHover(ws(), n);
    ShrinkHover(ws(), n);
    ExpectTile(n);

    // The mouse has been elsewhere.
    ShrinkBackContainer(ws());
    EXPECT_EQ(ws().LastClickShrunk, -1);
    ShrinkHover(ws(), n);
    ExpectOpen(n, 3000, 3000);
    EXPECT_EQ(ws().ExpandedContainer, n);
    // Moves over the open container's button do not toggle it again.
    ShrinkHover(ws(), n);
    ExpectOpen(n, 3000, 3000);

    // Leaving shrinks it back.
    ShrinkBackContainer(ws());
    ExpectTile(n);
    EXPECT_EQ(ws().ExpandedContainer, -1);
}

TEST_F(Shrinking, HoverDoesNothingWithoutAutoExpandOrWhileSuspended) {
    const int n = NewContainerAt(600, 200);
    ToggleShrink(ws(), n);
    ws().LastClickShrunk = -1;
    ws().menus["mnuAutoExpand"].setChecked(false);
    ShrinkHover(ws(), n);
    ExpectTile(n);
    ws().menus["mnuAutoExpand"].setChecked(true);
    ws().AutoExpandSuspended = true;
    ShrinkHover(ws(), n);
    ExpectTile(n);
    ws().AutoExpandSuspended = false;
    ShrinkHover(ws(), n);
    ExpectOpen(n, 3000, 3000);
}

TEST_F(Shrinking, HoverOverAnotherTileClosesTheOneOpenByHover) {
    const int a = NewContainerAt(600, 200);
    const int b = NewContainerAt(4000, 200);
    ToggleShrink(ws(), a);
    ToggleShrink(ws(), b);
    ws().LastClickShrunk = -1;
    ShrinkHover(ws(), a);
    ASSERT_EQ(ws().ExpandedContainer, a);
    ShrinkHover(ws(), b);
    ExpectTile(a);
    ExpectOpen(b, 3000, 3000);
    EXPECT_EQ(ws().ExpandedContainer, b);
}

TEST_F(Shrinking, ATileNestedInTheContainerOpenByHoverDoesNotCloseIt) {
    const int parent = NewContainerAt(600, 200);
    const int child = NewContainerAt(0, 0);
    ws().Group(child).setContainer(&ws().Group(parent));
    ws().Group(child).Move(200, 500);
    ToggleShrink(ws(), child);
    ToggleShrink(ws(), parent);
    ws().LastClickShrunk = -1;
    ShrinkHover(ws(), parent);
    ASSERT_EQ(ws().ExpandedContainer, parent);
    ShrinkHover(ws(), child);
    ExpectOpen(parent, 3000, 3000);
    ExpectOpen(child, 3000, 3000);
    EXPECT_EQ(ws().ExpandedContainer, child);
}

TEST_F(Shrinking, HoldExpandedKeepsTheHoverTileOpen) {
    const int n = NewContainerAt(600, 200);
    ToggleShrink(ws(), n);
    ws().LastClickShrunk = -1;
    ShrinkHover(ws(), n);
    ws().HoldExpanded = true;
    ShrinkBackContainer(ws());
    ExpectOpen(n, 3000, 3000);
    EXPECT_EQ(ws().ExpandedContainer, n);

    // Expanding another tile ends the hold and closes the held one.
    const int other = NewContainerAt(4000, 200);
    ToggleShrink(ws(), other);
    ToggleShrink(ws(), other);
    EXPECT_FALSE(ws().HoldExpanded);
    ExpectTile(n);
    EXPECT_EQ(ws().ExpandedContainer, -1);
    ExpectOpen(other, 3000, 3000);
}

// --- drags over a tile ---

TEST_F(Shrinking, ADragOverATileOpensItAndKeepsItOpenForAMoment) {
    const int n = NewContainerAt(600, 200);
    ShowNote(ws(), n);
    ToggleShrink(ws(), n);
    ws().LastClickShrunk = -1;
    DragOverTile(ws(), n);
    ExpectOpen(n, 3000, 3000);
    // The note is put away so that the drop lands among the shortcuts.
    EXPECT_FALSE(ws().txtNote(n).Visible.get());
    EXPECT_TRUE(ws().picPinNote(n).Visible.get());
    EXPECT_EQ(ws().ExpandedContainer, n);
    EXPECT_TRUE(ws().DontShrink);
    EXPECT_TRUE(ws().TimerDontShrink.Enabled());
    // A shrink in the meantime does nothing.
    ToggleShrink(ws(), n);
    ExpectOpen(n, 3000, 3000);

    // 20 ms later it may shrink again.
    t.clock.advance(20);
    EXPECT_FALSE(ws().DontShrink);
    EXPECT_FALSE(ws().TimerDontShrink.Enabled());
    ShrinkBackContainer(ws());
    ExpectTile(n);
}

TEST_F(Shrinking, ADragOverAFeedTileDoesNothing) {
    const int n = NewContainerAt(600, 200);
    ToggleShrink(ws(), n);
    ws().Containers[n].IsFeed = true;
    DragOverTile(ws(), n);
    ExpectTile(n);
    EXPECT_FALSE(ws().DontShrink);
}

// --- "S&hrink/Expand All" ---

TEST_F(Shrinking, ShrinkAllWithOneOpenContainerAndOneTileSwapsThem) {
    const int open = NewContainerAt(600, 200);
    const int tile = NewContainerAt(4000, 200);
    const int dead = NewContainerAt(600, 2000);
    ToggleShrink(ws(), tile);
    ws().Group(dead).Visible = false;
    mnuShrinkAll_Click(ws());
    ExpectTile(open);
    ExpectOpen(tile, 3000, 3000);
    EXPECT_FALSE(IsShrunkSize(ws(), dead));
    EXPECT_TRUE(ws().lblName(dead).Visible.get());
    EXPECT_TRUE(t.readData(QStringLiteral("Containers/0.con")).contains("[Shrink]\r\n1\r\n"));
    EXPECT_TRUE(t.readData(QStringLiteral("Containers/1.con")).contains("[Shrink]\r\n0\r\n"));
    mnuShrinkAll_Click(ws());
    ExpectOpen(open, 3000, 3000);
    ExpectTile(tile);
}

// --- KeepInsideParent ---

TEST_F(Shrinking, KeepInsideParentMovesABoxBackOntoTheBackground) {
    const int n = NewContainerAt(600, 200);
    Element& g = ws().Group(n);
    // Left below 0: steps 1 and 3 together end at 100.
    g.Move(-500, 300);
    KeepInsideParent(ws(), g);
    EXPECT_EQ(g.Left.get(), 100.0f);
    EXPECT_EQ(g.Top.get(), 300.0f);
    // A left between -Width/2 and 0 ends at 100 too; a top below 0 at 0.
    g.Move(-10, -10);
    KeepInsideParent(ws(), g);
    EXPECT_EQ(g.Left.get(), 100.0f);
    EXPECT_EQ(g.Top.get(), 0.0f);
    // Past the right edge less 700: parent width - width - 100.
    g.Move(9300, 300);
    KeepInsideParent(ws(), g);
    EXPECT_EQ(g.Left.get(), 9965.0f - 3000.0f - 100.0f);
    // Exactly at the limit stays.
    g.Move(9265, 300);
    KeepInsideParent(ws(), g);
    EXPECT_EQ(g.Left.get(), 9265.0f);
    // Below the lower edge less 500: parent height - height - 100.
    g.Move(600, 4700);
    KeepInsideParent(ws(), g);
    EXPECT_EQ(g.Top.get(), 5165.0f - 3000.0f - 100.0f);
    g.Move(600, 4665);
    KeepInsideParent(ws(), g);
    EXPECT_EQ(g.Top.get(), 4665.0f);
}

TEST_F(Shrinking, KeepInsideParentPutsAShortcutOnTheBackgroundBelowTheTitleBand) {
    const int n = NewContainerAt(600, 200);
    AddShortcut(ws(), QStringLiteral("/data/a.txt"), ws().picBack(0));
    AddShortcut(ws(), QStringLiteral("/data/b.txt"), ws().grpBorder(n));
    Element& onBack = ws().Link(0);
    Element& inside = ws().Link(1);
    onBack.Move(500, -20);
    KeepInsideParent(ws(), onBack);
    EXPECT_EQ(onBack.Top.get(), ws().picMoveMe(0).Top + ws().picMoveMe(0).Height);
    EXPECT_EQ(onBack.Top.get(), 285.0f);
    // In a container, top 0; its parent's size is the grpBorder's.
    inside.Move(500, -20);
    KeepInsideParent(ws(), inside);
    EXPECT_EQ(inside.Top.get(), 0.0f);
    inside.Move(2500, 2600);
    KeepInsideParent(ws(), inside);
    EXPECT_EQ(inside.Left.get(), 2970.0f - inside.Width - 100.0f);
    EXPECT_EQ(inside.Top.get(), 2970.0f - inside.Height - 100.0f);
}

// --- the icon ---

TEST_F(Shrinking, AddShrinkIconTrimsThePathAndSizesTheIconTo64Pixels) {
    const int n = NewContainerAt(600, 200);
    ws().ShrinkIcon(n).Move(80, 330, 100, 100);
    AddShrinkIcon(ws(), QStringLiteral("  /icons/box.png  "), n);
    EXPECT_EQ(ws().Containers[n].IconPath, QStringLiteral("/icons/box.png"));
    EXPECT_EQ(ws().ShrinkIcon(n).Width.get(), 960.0f);
    EXPECT_EQ(ws().ShrinkIcon(n).Height.get(), 960.0f);
    EXPECT_FALSE(ws().ShrinkIcon(n).Picture.get().isEmpty());
}
