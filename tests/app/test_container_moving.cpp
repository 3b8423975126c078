// Moving containers by their titles with the grid, the release rules, the rim of containers and picture
// frames with the ghost outline, the placement commands, the padlock, and the drag to another owner.

#include "app/WorkspaceFile.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Moving.h"
#include "containers/Selection.h"
#include "containers/Shrinking.h"
#include "containers/TitleMouse.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "window/Grid.h"
#include "window/RelativeLayout.h"

#include <gtest/gtest.h>

#include <vector>

using namespace pd;
using namespace pd::test;

namespace {

// The container a container file names as its parent (its first key), trimmed.
QString ParentInFile(const QByteArray& file) {
    const QList<QByteArray> lines = file.split('\n');
    for (int k = 0; k + 1 < lines.size(); ++k)
        if (lines[k].trimmed() == "[Container]") return QString::fromLatin1(lines[k + 1].trimmed());
    return QStringLiteral("?");
}

class Moving : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        ws().picBack(0).Move(0, 0, 20000, 15000);
        ws().onDrawGhostRect = [this](const QRect& r) { ghosts.push_back(r); };
    }
    Workspace& ws() { return *t.ws; }
    // Presses the title of container i at (100, 100) of the title, moves the pointer so that the
    // container's corner comes to (left, top), and releases, with the keys `shift` held throughout.
    void DragTitleTo(int i, float left, float top, int shift = 0) {
        const Element& g = ws().Group(i);
        lblName_MouseDown(ws(), kLeftButton, shift, i, 100, 100);
        lblName_MouseMove(ws(), kLeftButton, shift, i, 100 + (left - g.Left), 100 + (top - g.Top));
        lblName_MouseUp(ws(), kLeftButton, shift, i);
    }
    TestWorkspace t;
    std::vector<QRect> ghosts;
};

} // namespace

// --- the title drag and its landing ---

TEST_F(Moving, AContainerDroppedOnAGridLineStaysAndOnePastItGoesToTheNextCrossingPlus20) {
    const int a = t.newContainerAt(1000, 1000);
    DragTitleTo(a, 250, 250);
    EXPECT_EQ(ws().Group(a).Left.get(), 250.0f);
    EXPECT_EQ(ws().Group(a).Top.get(), 250.0f);
    DragTitleTo(a, 251, 251);
    EXPECT_EQ(ws().Group(a).Left.get(), 270.0f);
    EXPECT_EQ(ws().Group(a).Top.get(), 270.0f);
    DragTitleTo(a, 1612, 1499);
    EXPECT_EQ(ws().Group(a).Left.get(), 1520.0f);
    EXPECT_EQ(ws().Group(a).Top.get(), 1270.0f);
    // Left of and above the first line (250) nothing snaps.
    DragTitleTo(a, 200, 120);
    EXPECT_EQ(ws().Group(a).Left.get(), 200.0f);
    EXPECT_EQ(ws().Group(a).Top.get(), 120.0f);
}

TEST_F(Moving, CtrlAtTheReleaseLeavesTheContainerWhereItFell) {
    const int a = t.newContainerAt(1000, 1000);
    DragTitleTo(a, 1612, 1499, kCtrlMask);
    EXPECT_EQ(ws().Group(a).Left.get(), 1612.0f);
    EXPECT_EQ(ws().Group(a).Top.get(), 1499.0f);
}

TEST_F(Moving, WithoutAlignNoGridShowsAndNothingSnaps) {
    ws().menus["mnuAlign"].setChecked(false);
    const int a = t.newContainerAt(1000, 1000);
    lblName_MouseDown(ws(), kLeftButton, 0, a, 100, 100);
    lblName_MouseMove(ws(), kLeftButton, 0, a, 712, 600);
    EXPECT_FALSE(ws().HorS(0).Visible);
    lblName_MouseUp(ws(), kLeftButton, 0, a);
    EXPECT_EQ(ws().Group(a).Left.get(), 1612.0f);
    EXPECT_EQ(ws().Group(a).Top.get(), 1500.0f);
}

TEST_F(Moving, TheGridShowsOnTheParentDuringTheDragWithIndicatorsAndHidesAtTheRelease) {
    const int a = t.newContainerAt(1000, 1000);
    lblName_MouseDown(ws(), kLeftButton, 0, a, 100, 100);
    EXPECT_FALSE(ws().HorS(0).Visible);
    // No move of the pointer: nothing happens.
    lblName_MouseMove(ws(), kLeftButton, 0, a, 100, 100);
    EXPECT_FALSE(ws().HorS(0).Visible);
    lblName_MouseMove(ws(), kLeftButton, 0, a, 712, 100);
    EXPECT_TRUE(ws().HorS(0).Visible);
    EXPECT_TRUE(ws().VerS(0).Visible);
    EXPECT_EQ(ws().VerS(0).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().GridLinesV, 80); // 20000 / 250
    EXPECT_EQ(ws().Group(a).Left.get(), 1612.0f);
    // The indicators stand on the lines left of and above the corner.
    EXPECT_EQ(ws().VerSIndic(0).Left.get(), 1500.0f);
    EXPECT_EQ(ws().HorSIndic(0).Top.get(), 1000.0f);
    EXPECT_TRUE(ws().VerSIndic(0).Visible);
    lblName_MouseUp(ws(), kLeftButton, 0, a);
    EXPECT_FALSE(ws().HorS(0).Visible);
    EXPECT_FALSE(ws().VerSIndic(0).Visible);
    EXPECT_EQ(ws().GridLinesV, 0);
    EXPECT_FALSE(ws().VerS.exists(1));
}

TEST_F(Moving, TheReleaseKeepsTheContainerInsideItsParent) {
    const int a = t.newContainerAt(1000, 1000);
    DragTitleTo(a, 19500, 1000, kCtrlMask);
    // Past the parent's width - 700 it comes back to width - its width - 100.
    EXPECT_EQ(ws().Group(a).Left.get(), 20000.0f - 3000 - 100);
}

TEST_F(Moving, AClickInPlaceWithCtrlFlipsTheSelectionAndAMoveWithoutCtrlClearsIt) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(5000, 1000);
    lblName_MouseDown(ws(), kLeftButton, kCtrlMask, a, 100, 100);
    lblName_MouseUp(ws(), kLeftButton, kCtrlMask, a);
    EXPECT_TRUE(ws().lblName(a).FontBold);
    SelectGroup(ws(), b);
    lblName_MouseDown(ws(), kLeftButton, 0, a, 100, 100);
    lblName_MouseMove(ws(), kLeftButton, 0, a, 200, 100);
    EXPECT_FALSE(ws().lblName(a).FontBold);
    EXPECT_FALSE(ws().lblName(b).FontBold);
}

TEST_F(Moving, ACtrlDragTakesTheSelectedContainersAlong) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(5000, 1000);
    const int c = t.newContainerAt(9000, 1000);
    SelectGroup(ws(), b);
    lblName_MouseDown(ws(), kLeftButton, kCtrlMask, a, 100, 100);
    lblName_MouseMove(ws(), kLeftButton, kCtrlMask, a, 600, 400);
    // The dragged container joins the selection; the others keep the same offset.
    EXPECT_TRUE(ws().lblName(a).FontBold);
    EXPECT_EQ(ws().Group(a).Left.get(), 1500.0f);
    EXPECT_EQ(ws().Group(b).Left.get(), 5500.0f);
    EXPECT_EQ(ws().Group(b).Top.get(), 1300.0f);
    EXPECT_EQ(ws().Group(c).Left.get(), 9000.0f);
    lblName_MouseUp(ws(), kLeftButton, kCtrlMask, a);
    EXPECT_EQ(ws().Group(b).Left.get(), 5500.0f);
    EXPECT_EQ(ws().Group(a).Left.get(), 1500.0f);
}

TEST_F(Moving, ATakenAlongSelectionLandsOnTheGridWhenReleasedWithoutCtrl) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(5000, 1000);
    SelectGroup(ws(), a);
    SelectGroup(ws(), b);
    lblName_MouseDown(ws(), kLeftButton, kCtrlMask, a, 100, 100);
    lblName_MouseMove(ws(), kLeftButton, kCtrlMask, a, 130, 130);
    lblName_MouseUp(ws(), kLeftButton, 0, a);
    EXPECT_EQ(ws().Group(a).Left.get(), 1020.0f);
    EXPECT_EQ(ws().Group(b).Left.get(), 5020.0f);
    EXPECT_EQ(ws().Group(b).Top.get(), 1020.0f);
}

TEST_F(Moving, ALockedWorkspaceDoesNotDragAndARightPressShowsThePadlockFor1700ms) {
    const int a = t.newContainerAt(1000, 1000);
    ws().menus["mnuLock"].setChecked(true);
    lblName_MouseDown(ws(), kLeftButton, 0, a, 100, 100);
    lblName_MouseMove(ws(), kLeftButton, 0, a, 900, 900);
    EXPECT_EQ(ws().Group(a).Left.get(), 1000.0f);
    EXPECT_FALSE(ws().HorS(0).Visible);
    lblName_MouseDown(ws(), kRightButton, 0, a, 100, 100);
    const Element& lock = ws().ImgLock(0);
    EXPECT_TRUE(lock.Visible);
    EXPECT_EQ(lock.Container(), &ws().picBack(0));
    EXPECT_EQ(lock.Left.get(), 1300.0f);
    EXPECT_EQ(lock.Top.get(), 1300.0f);
    EXPECT_TRUE(lock.isFrontmost());
    t.clock.advance(1699);
    EXPECT_TRUE(lock.Visible);
    t.clock.advance(1);
    EXPECT_FALSE(lock.Visible);
    EXPECT_FALSE(ws().TimeLock.Enabled());
    // The rim does not size either: a press there shows the padlock.
    ws().ImgLock(0).Visible = false;
    Group_MouseMove(ws(), 0, 0, a, 2990, 1500);
    Group_MouseDown(ws(), kLeftButton, 0, a, 2990, 1500);
    EXPECT_FALSE(ws().ResizeActive);
    EXPECT_TRUE(lock.Visible);
}

TEST_F(Moving, AlignToGridOfAShortcutTakesTheLeftOfANeighbourWithin300Twips) {
    AddShortcut(ws(), QStringLiteral("/tmp"), ws().picBack(0));
    AddShortcut(ws(), QStringLiteral("/usr"), ws().picBack(0));
    const int n0 = ws().LinkCount - 2, n1 = ws().LinkCount - 1;
    ws().Link(n0).Move(1000, 1000);
    ws().Link(n1).Move(1290, 2000);
    AlignToGrid(ws(), ws().Link(n1), 1290, 2000);
    EXPECT_EQ(ws().Link(n1).Left.get(), 1000.0f);
    ws().Link(n1).Left = 1301;
    AlignToGrid(ws(), ws().Link(n1), 1301, 2000);
    EXPECT_EQ(ws().Link(n1).Left.get(), 1301.0f);
}

// --- the rim ---

TEST_F(Moving, TheHandleTableWithItsAsymmetries) {
    const int a = t.newContainerAt(1000, 1000);
    Element& g = ws().Group(a);
    struct Case {
        float x, y;
        const char* handle;
        int pointer;
    };
    const Case cases[] = {
        {0, 0, "TL", 8},       {84, 84, "TL", 8},      {2990, 10, "TR", 6},   {90, 2910, "BL", 6},
        {94, 2999, "BL", 6},   {2990, 2990, "BR", 8},  {0, 1500, "L", 9},     {2916, 1500, "R", 9},
        {1500, 64, "T", 7},    {1500, 2936, "B", 7},   {90, 50, "T", 7},      {2915, 2990, "B", 7},
    };
    for (const Case& c : cases) {
        TrackEdgeResize(ws(), g, c.x, c.y);
        EXPECT_EQ(ws().ResizeHandle, QString::fromLatin1(c.handle)) << c.x << "," << c.y;
        EXPECT_EQ(g.MousePointer.get(), c.pointer) << c.x << "," << c.y;
    }
    // The left edge counts only at 0: one pixel in, no handle, and the last one stays.
    TrackEdgeResize(ws(), g, 15, 1500);
    EXPECT_EQ(g.MousePointer.get(), 0);
    EXPECT_EQ(ws().ResizeHandle, QStringLiteral("B"));
}

TEST_F(Moving, APressOnTheRimOfATileOnlyBringsItToTheFront) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(1500, 1500);
    ToggleShrink(ws(), a);
    ASSERT_TRUE(IsShrunkSize(ws(), a));
    Group_MouseMove(ws(), 0, 0, a, 0, 500);
    EXPECT_EQ(ws().Group(a).MousePointer.get(), 0);
    EXPECT_TRUE(ws().Group(b).isFrontmost() || !ws().Group(a).isFrontmost());
    Group_MouseDown(ws(), kLeftButton, 0, a, 0, 500);
    EXPECT_TRUE(ws().Group(a).isFrontmost());
    EXPECT_FALSE(ws().ResizeActive);
    EXPECT_TRUE(ghosts.empty());
}

TEST_F(Moving, APressAwayFromEveryHandleStartsNoResize) {
    const int a = t.newContainerAt(1000, 1000);
    Group_MouseMove(ws(), 0, 0, a, 1500, 1500);
    Group_MouseDown(ws(), kLeftButton, 0, a, 1500, 1500);
    EXPECT_FALSE(ws().ResizeActive);
}

TEST_F(Moving, TheGhostOutlineFollowsThePointerAndTheReleaseAppliesTheMoveTable) {
    const int a = t.newContainerAt(1500, 1500);
    Element& g = ws().Group(a);
    ws().frmMain(0).Move(0, 0, 20000, 15000);
    t.platform.cursor = QPoint(300, 300);
    Group_MouseMove(ws(), 0, 0, a, 2990, 2990);
    Group_MouseDown(ws(), kLeftButton, 0, a, 2990, 2990);
    ASSERT_TRUE(ws().ResizeActive);
    EXPECT_EQ(ws().ResizeHandle, QStringLiteral("BR"));
    const QRect start = ElementScreenRect(ws(), g);
    EXPECT_EQ(start, QRect(100, 100, 200, 200));
    ASSERT_EQ(ghosts.size(), 1u);
    EXPECT_EQ(ghosts[0], start);
    // Moves draw the ghost only: the container stays until the release.
    t.platform.cursor = QPoint(340, 320);
    Group_MouseMove(ws(), 1, 0, a, 0, 0);
    ASSERT_EQ(ghosts.size(), 3u);
    EXPECT_EQ(ghosts[1], start); // erased
    EXPECT_EQ(ghosts[2].right(), 340);
    EXPECT_EQ(ghosts[2].bottom(), 320);
    EXPECT_EQ(ghosts[2].topLeft(), start.topLeft());
    EXPECT_EQ(g.Width.get(), 3000.0f);
    Group_MouseUp(ws(), kLeftButton, 0, a);
    ASSERT_EQ(ghosts.size(), 4u);
    EXPECT_EQ(ghosts[3], ghosts[2]); // erased at the release
    EXPECT_FALSE(ws().ResizeActive);
    EXPECT_EQ(g.MousePointer.get(), 0);
    EXPECT_EQ(g.Width.get(), 3000.0f + 40 * 15);
    EXPECT_EQ(g.Height.get(), 3000.0f + 20 * 15);
    EXPECT_EQ(g.Left.get(), 1500.0f);
    // The inside follows the new size.
    EXPECT_EQ(ws().grpBorder(a).Width.get(), g.Width - 30);
    EXPECT_EQ(ws().chkFold(a).Left.get(), g.Width - 390);
}

TEST_F(Moving, EachHandleMovesItsEdges) {
    struct Case {
        float x, y;
        float left, top, width, height;
    };
    // The pointer goes 20 pixels (300 twips) left and 10 pixels (150 twips) up.
    const Case cases[] = {
        {0, 1500, 1200, 1500, 3300, 3000},    {1500, 10, 1500, 1350, 3000, 3150},
        {2990, 1500, 1500, 1500, 2700, 3000}, {1500, 2990, 1500, 1500, 3000, 2850},
        {10, 10, 1200, 1350, 3300, 3150},     {2990, 10, 1500, 1350, 2700, 3150},
        {10, 2990, 1200, 1500, 3300, 2850},   {2990, 2990, 1500, 1500, 2700, 2850},
    };
    for (const Case& c : cases) {
        const int a = t.newContainerAt(1500, 1500);
        t.platform.cursor = QPoint(500, 500);
        Group_MouseMove(ws(), 0, 0, a, c.x, c.y);
        Group_MouseDown(ws(), kLeftButton, 0, a, c.x, c.y);
        t.platform.cursor = QPoint(480, 490);
        Group_MouseUp(ws(), kLeftButton, 0, a);
        const Element& g = ws().Group(a);
        EXPECT_EQ(g.Left.get(), c.left) << ws().ResizeHandle.toStdString();
        EXPECT_EQ(g.Top.get(), c.top) << ws().ResizeHandle.toStdString();
        EXPECT_EQ(g.Width.get(), c.width) << ws().ResizeHandle.toStdString();
        EXPECT_EQ(g.Height.get(), c.height) << ws().ResizeHandle.toStdString();
    }
}

TEST_F(Moving, ARimPulledPastTheParentComesBackInside) {
    const int a = t.newContainerAt(100, 100);
    t.platform.cursor = QPoint(500, 500);
    Group_MouseMove(ws(), 0, 0, a, 10, 10);
    Group_MouseDown(ws(), kLeftButton, 0, a, 10, 10);
    t.platform.cursor = QPoint(480, 480); // 300 twips up and left: past the parent's corner
    Group_MouseUp(ws(), kLeftButton, 0, a);
    EXPECT_EQ(ws().Group(a).Left.get(), 200.0f);
    EXPECT_EQ(ws().Group(a).Top.get(), 60.0f);
    EXPECT_EQ(ws().Group(a).Width.get(), 3300.0f);
}

TEST_F(Moving, APictureFramePulledPastTheRightEdgeKeeps200TwipsOfMargin) {
    Element& frame = ws().picPlaceholder(0);
    frame.Visible = true;
    frame.Move(15000, 2000, 3000, 2000);
    t.platform.cursor = QPoint(1200, 300);
    picPlaceholder_MouseMove(ws(), 0, 0, 0, 2990, 1000);
    EXPECT_EQ(frame.MousePointer.get(), 9);
    picPlaceholder_MouseDown(ws(), kLeftButton, 0, 0, 2990, 1000);
    t.platform.cursor = QPoint(1400, 300); // 3000 twips to the right: 21000, past 20000
    picPlaceholder_MouseUp(ws(), kLeftButton, 0, 0);
    EXPECT_EQ(frame.Width.get(), 20000.0f - 15000 - 200);
    EXPECT_EQ(ws().imgPicture(0).Width.get(), frame.Width - 240);
    EXPECT_EQ(ws().imgPicture(0).Height.get(), frame.Height - 240);
}

TEST_F(Moving, ATallerContainerShowsItsFoldButton) {
    const int a = t.newContainerAt(1500, 1500);
    ws().chkFold(a).Visible = false;
    t.platform.cursor = QPoint(500, 500);
    Group_MouseMove(ws(), 0, 0, a, 1500, 2990);
    Group_MouseDown(ws(), kLeftButton, 0, a, 1500, 2990);
    t.platform.cursor = QPoint(500, 520);
    Group_MouseUp(ws(), kLeftButton, 0, a);
    EXPECT_TRUE(ws().chkFold(a).Visible);
}

TEST_F(Moving, ResizingSavesTheNewSize) {
    const int a = t.newContainerAt(1500, 1500);
    t.platform.cursor = QPoint(500, 500);
    Group_MouseMove(ws(), 0, 0, a, 2990, 2990);
    Group_MouseDown(ws(), kLeftButton, 0, a, 2990, 2990);
    t.platform.cursor = QPoint(600, 600);
    Group_MouseUp(ws(), kLeftButton, 0, a);
    const QByteArray file = t.readData(QStringLiteral("Containers/%1.con").arg(a));
    EXPECT_TRUE(file.contains("[W]\r\n 4500 \r\n")) << file.toStdString();
    EXPECT_TRUE(file.contains("[H]\r\n 4500 \r\n")) << file.toStdString();
}

// --- the placement commands ---

TEST_F(Moving, AlignLeftAndTopAskAndMoveTheSelectionToTheChosenContainer) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(5000, 3000);
    const int c = t.newContainerAt(9000, 5000);
    SelectGroup(ws(), a);
    SelectGroup(ws(), b);
    SelectGroup(ws(), c);
    ws().SelectedContainer = static_cast<int16_t>(a);
    t.platform.answers = {MsgAnswer::Yes};
    mnuSetContainerLeft_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Align the selected container(s) with the chosen container?"));
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Align Left"));
    EXPECT_EQ(t.platform.messages[0].style, MsgStyle::YesNoQuestion);
    EXPECT_EQ(ws().Group(b).Left.get(), 1000.0f);
    EXPECT_EQ(ws().Group(c).Left.get(), 1000.0f);
    EXPECT_EQ(ws().Containers[c].X, 1000);
    EXPECT_EQ(ws().Group(c).Top.get(), 5000.0f);
    // The chosen container has left the selection.
    EXPECT_FALSE(ws().lblName(a).FontBold);
    EXPECT_TRUE(ws().lblName(b).FontBold);

    t.platform.answers = {MsgAnswer::Yes};
    mnuSetContainerTop_Click(ws());
    EXPECT_EQ(t.platform.messages.back().title, QStringLiteral("Align Top"));
    EXPECT_EQ(ws().Group(b).Top.get(), 1000.0f);
    EXPECT_EQ(ws().Containers[b].Y, 1000);

    // No leaves everything.
    ws().Group(b).Left = 7000;
    t.platform.answers = {MsgAnswer::No};
    mnuSetContainerLeft_Click(ws());
    EXPECT_EQ(ws().Group(b).Left.get(), 7000.0f);
}

TEST_F(Moving, MatchSizeGivesTheSelectionTheChosenSizeFoldedOnesIncluded) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(5000, 1000);
    const int c = t.newContainerAt(9000, 1000);
    const int d = t.newContainerAt(13000, 1000);
    ws().Group(a).Move(1000, 1000, 4000, 2500);
    SetObjectRelativeSize(ws(), a);
    FoldContainer(ws(), c);
    ToggleShrink(ws(), d);
    for (int k : {a, b, c, d}) SelectGroup(ws(), k);
    ws().SelectedContainer = static_cast<int16_t>(a);
    t.platform.answers = {MsgAnswer::Yes};
    mnuSetContainerSize_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text,
              QStringLiteral("Resize the selected container(s) to match the chosen container size?"));
    EXPECT_EQ(ws().Group(b).Width.get(), 4000.0f);
    EXPECT_EQ(ws().Group(b).Height.get(), 2500.0f);
    EXPECT_EQ(ws().Group(b).Left.get(), 5000.0f);
    EXPECT_EQ(ws().grpBorder(b).Width.get(), 3970.0f);
    // The folded one was opened, sized and folded again.
    EXPECT_TRUE(IsFolded(ws(), c));
    EXPECT_EQ(ws().Group(c).Width.get(), 4000.0f);
    EXPECT_EQ(ws().Containers[c].H, 2500);
    // A tile keeps its size.
    EXPECT_TRUE(IsShrunkSize(ws(), d));
}

// --- the drag to another owner ---

TEST_F(Moving, WithCaptureANestedContainerLeavingItsParentStartsTheDragAndTheBackgroundTakesIt) {
    ws().menus["mnuCaptureContainers"].setChecked(true);
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(6000, 1000);
    ws().Group(b).setContainer(&ws().Group(a));
    ws().Group(b).Move(500, 500, 1500, 1500);
    lblName_MouseDown(ws(), kLeftButton, 0, b, 100, 100);
    lblName_MouseMove(ws(), kLeftButton, 0, b, 50, 100);
    EXPECT_EQ(ws().DragSource, nullptr);
    lblName_MouseMove(ws(), kLeftButton, 0, b, -500, 100);
    EXPECT_EQ(ws().DragSource, &ws().Group(b));
    // Further moves are the carried drag's, not the title's.
    const float left = ws().Group(b).Left;
    lblName_MouseMove(ws(), kLeftButton, 0, b, -900, 100);
    EXPECT_EQ(ws().Group(b).Left.get(), left);
    picBack_DragDrop(ws(), 8000, 4000);
    EXPECT_EQ(ws().DragSource, nullptr);
    EXPECT_EQ(ws().Group(b).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().Group(b).Left.get(), 8000 - ws().DragGripX);
    EXPECT_FALSE(ws().HorS(0).Visible);
    const QByteArray file = t.readData(QStringLiteral("Containers/%1.con").arg(b));
    EXPECT_EQ(ParentInFile(file), QStringLiteral("-1")) << file.toStdString();
}

TEST_F(Moving, WithoutCaptureNoDragStarts) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(6000, 1000);
    ws().Group(b).setContainer(&ws().Group(a));
    ws().Group(b).Move(500, 500, 1500, 1500);
    lblName_MouseDown(ws(), kLeftButton, 0, b, 100, 100);
    lblName_MouseMove(ws(), kLeftButton, 0, b, -900, 100);
    EXPECT_EQ(ws().DragSource, nullptr);
}

TEST_F(Moving, AContainerOverOneOfAnotherParentStartsTheDragAndAContainerTakesIt) {
    ws().menus["mnuCaptureContainers"].setChecked(true);
    const int a = t.newContainerAt(6000, 6000);
    const int inner = t.newContainerAt(6000, 1000);
    ws().Group(inner).setContainer(&ws().Group(a));
    ws().Group(inner).Move(300, 400, 1500, 1500);
    const int b = t.newContainerAt(9000, 9000);
    lblName_MouseDown(ws(), kLeftButton, 0, b, 100, 100);
    // b's corner comes to (500, 600): within the numbers of `inner`, which stands in another parent.
    lblName_MouseMove(ws(), kLeftButton, 0, b, 100 - 8500, 100 - 8400);
    EXPECT_EQ(ws().DragSource, &ws().Group(b));
    grpBorder_DragDrop(ws(), a, 1000, 800);
    EXPECT_EQ(ws().Group(b).Container(), &ws().Group(a));
    EXPECT_EQ(ws().SelectedContainer, a);
    EXPECT_EQ(ws().Group(b).Left.get(), 1000 + ws().grpBorder(a).Left - ws().DragGripX);
    const QByteArray file = t.readData(QStringLiteral("Containers/%1.con").arg(b));
    EXPECT_EQ(ParentInFile(file), QString::number(a)) << file.toStdString();
}

TEST_F(Moving, NoContainerIsDroppedIntoItselfOrOneOfItsOwn) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(6000, 1000);
    ws().Group(b).setContainer(&ws().Group(a));
    StartContainerDrag(ws(), a);
    grpBorder_DragDrop(ws(), b, 100, 100);
    EXPECT_EQ(ws().Group(a).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().DragSource, nullptr);
    StartContainerDrag(ws(), a);
    grpBorder_DragDrop(ws(), a, 100, 100);
    EXPECT_EQ(ws().Group(a).Container(), &ws().picBack(0));
}

TEST_F(Moving, AFeedContainerTakesNoDrop) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(6000, 1000);
    ws().Containers[a].IsFeed = true;
    StartContainerDrag(ws(), b);
    grpBorder_DragDrop(ws(), a, 100, 100);
    EXPECT_EQ(ws().Group(b).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().DragSource, nullptr);
}
