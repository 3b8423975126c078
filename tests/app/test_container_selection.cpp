// Selecting containers and shortcuts: the container side of the selection, the rectangle on the
// background and in a container, the click that clears, the commands, and the undo list of moves.

#include "app/WorkspaceFile.h"
#include "containers/ContainerMenus.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Moving.h"
#include "containers/Selection.h"
#include "containers/TitleMouse.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "themes/Buttons.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

class Selection : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        ws().picBack(0).Move(0, 0, 20000, 15000);
    }
    Workspace& ws() { return *t.ws; }
    // Draws a rectangle on the background from (x0, y0) to (x1, y1) and releases with `shift`.
    void RectangleOnBack(float x0, float y0, float x1, float y1, int shift = 0) {
        picBack_MouseDown(ws(), kLeftButton, shift, x0, y0);
        picBack_MouseMove(ws(), kLeftButton, shift, x0, y0);
        picBack_MouseMove(ws(), kLeftButton, shift, x1, y1);
        picBack_MouseUp(ws(), kLeftButton, shift, x1, y1);
    }
    int LinkOn(Element& owner, const QString& path, float left, float top) {
        AddShortcut(ws(), path, owner);
        const int n = ws().LinkCount - 1;
        ws().Link(n).Move(left, top);
        return n;
    }
    TestWorkspace t;
};

} // namespace

TEST_F(Selection, SelectingAContainerOnTheBackgroundColoursItsFrameANestedOneOnlyGoesBold) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(6000, 1000);
    ws().picBack(0).ForeColor = 0x00FF00;
    SelectGroup(ws(), a);
    EXPECT_TRUE(ws().lblName(a).FontBold);
    EXPECT_EQ(ws().Group(a).BackColor.get(), 0x00FF00);
    UnselectGroup(ws(), a);
    EXPECT_FALSE(ws().lblName(a).FontBold);
    EXPECT_EQ(ws().Group(a).BackColor.get(), Lighten(ws().grpBorder(a).BackColor));
    ws().Group(b).setContainer(&ws().Group(a));
    const int32_t frame = ws().Group(b).BackColor;
    SelectGroup(ws(), b);
    EXPECT_TRUE(ws().lblName(b).FontBold);
    EXPECT_EQ(ws().Group(b).BackColor.get(), frame);
}

TEST_F(Selection, UnselectAllGroupsTakesOnlyVisibleContainers) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(6000, 1000);
    SelectGroup(ws(), a);
    SelectGroup(ws(), b);
    ws().Group(b).Visible = false;
    UnselectAllGroups(ws());
    EXPECT_FALSE(ws().lblName(a).FontBold);
    EXPECT_TRUE(ws().lblName(b).FontBold);
}

TEST_F(Selection, TheRectangleStretchesFromThePressPointAndHidesAtTheRelease) {
    const Element& r = ws().SelectRect(0);
    ws().picBack(0).ForeColor = 0x123456;
    picBack_MouseDown(ws(), kLeftButton, 0, 5000, 5000);
    picBack_MouseMove(ws(), kLeftButton, 0, 5000, 5000);
    EXPECT_TRUE(r.Visible);
    EXPECT_EQ(r.ForeColor.get(), 0x123456);
    EXPECT_TRUE(r.isFrontmost());
    picBack_MouseMove(ws(), kLeftButton, 0, 3000, 4000);
    EXPECT_EQ(r.Left.get(), 3000.0f);
    EXPECT_EQ(r.Top.get(), 4000.0f);
    EXPECT_EQ(r.Width.get(), 2000.0f);
    EXPECT_EQ(r.Height.get(), 1000.0f);
    picBack_MouseUp(ws(), kLeftButton, 0, 3000, 4000);
    EXPECT_FALSE(r.Visible);
}

TEST_F(Selection, TheRightButtonDrawsNoRectangle) {
    picBack_MouseDown(ws(), kRightButton, 0, 5000, 5000);
    picBack_MouseMove(ws(), kRightButton, 0, 6000, 6000);
    EXPECT_FALSE(ws().SelectRect(0).Visible);
}

TEST_F(Selection, ARectangleSelectsTheContainersWhollyInsideAndLeavesOnePartlyInside) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(5000, 1000);
    const int c = t.newContainerAt(9000, 1000);
    RectangleOnBack(500, 500, 9500, 4500);
    EXPECT_TRUE(ws().lblName(a).FontBold);
    EXPECT_TRUE(ws().lblName(b).FontBold);
    EXPECT_FALSE(ws().lblName(c).FontBold);
}

TEST_F(Selection, CtrlWithARectangleFlipsTheContainersItCovers) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(5000, 1000);
    SelectGroup(ws(), a);
    RectangleOnBack(500, 500, 8500, 4500, kCtrlMask);
    EXPECT_FALSE(ws().lblName(a).FontBold);
    EXPECT_TRUE(ws().lblName(b).FontBold);
}

TEST_F(Selection, AShortcutIsTakenByItsFirst20TwipsAndItsFullHeight) {
    const int n = LinkOn(ws().picBack(0), QStringLiteral("/usr"), 2000, 2000);
    const Element& label = ws().Link(n);
    ASSERT_GT(label.Width.get(), 100.0f);
    const float bottom = label.Top + label.Height;
    // Across the label's right end only: not taken.
    RectangleOnBack(2000 + label.Width - 50, 1900, 2000 + label.Width + 500, bottom + 100);
    EXPECT_FALSE(IsLinkSelected(ws(), n));
    // Its first 20 twips are not enough; 21 are.
    RectangleOnBack(2000, 1900, 2020, bottom + 100);
    EXPECT_FALSE(IsLinkSelected(ws(), n));
    RectangleOnBack(2000, 1900, 2021, bottom + 100);
    EXPECT_TRUE(IsLinkSelected(ws(), n));
    EXPECT_TRUE(ws().PicLinkToolbar(0).Visible);
    UnselectAllLinks(ws(), true);
    // Short of its full height: not taken.
    RectangleOnBack(1900, 1900, 5000, bottom - 1);
    EXPECT_FALSE(IsLinkSelected(ws(), n));
}

TEST_F(Selection, CtrlWithARectangleFlipsShortcutsAndWithoutKeysTheFirstMoveClearsThem) {
    const int n0 = LinkOn(ws().picBack(0), QStringLiteral("/usr"), 2000, 2000);
    const int n1 = LinkOn(ws().picBack(0), QStringLiteral("/tmp"), 2000, 3000);
    const int far = LinkOn(ws().picBack(0), QStringLiteral("/var"), 9000, 9000);
    SetLinkSelected(ws(), n0, true);
    SetLinkSelected(ws(), far, true);
    RectangleOnBack(1900, 1900, 6000, 4000, kCtrlMask);
    EXPECT_FALSE(IsLinkSelected(ws(), n0));
    EXPECT_TRUE(IsLinkSelected(ws(), n1));
    EXPECT_TRUE(IsLinkSelected(ws(), far));
    RectangleOnBack(1900, 1900, 6000, 2500);
    EXPECT_TRUE(IsLinkSelected(ws(), n0));
    EXPECT_FALSE(IsLinkSelected(ws(), far));
}

TEST_F(Selection, APlainClickOnTheBackgroundClearsEverySelection) {
    const int a = t.newContainerAt(1000, 1000);
    const int n = LinkOn(ws().picBack(0), QStringLiteral("/usr"), 6000, 2000);
    SelectGroup(ws(), a);
    SetLinkSelected(ws(), n, true);
    picBack_MouseDown(ws(), kLeftButton, kCtrlMask, 100, 100);
    picBack_MouseUp(ws(), kLeftButton, kCtrlMask, 100, 100);
    EXPECT_TRUE(ws().lblName(a).FontBold);
    picBack_MouseDown(ws(), kLeftButton, 0, 100, 100);
    picBack_MouseUp(ws(), kLeftButton, 0, 100, 100);
    EXPECT_FALSE(ws().lblName(a).FontBold);
    EXPECT_FALSE(IsLinkSelected(ws(), n));
}

TEST_F(Selection, ARectangleInAContainerSelectsItsShortcuts) {
    const int a = t.newContainerAt(1000, 1000);
    const int inside = LinkOn(ws().grpBorder(a), QStringLiteral("/usr"), 300, 600);
    const int outside = LinkOn(ws().picBack(0), QStringLiteral("/tmp"), 300, 600);
    grpBorder_MouseDown(ws(), kLeftButton, 0, a, 100, 400);
    grpBorder_MouseMove(ws(), kLeftButton, 0, a, 100, 400);
    const Element& r = ws().SelectedRectGroup(0);
    EXPECT_TRUE(r.Visible);
    EXPECT_EQ(r.Container(), &ws().grpBorder(a));
    grpBorder_MouseMove(ws(), kLeftButton, 0, a, 2500, 1500);
    grpBorder_MouseUp(ws(), kLeftButton, 0, a, 2500, 1500);
    EXPECT_FALSE(r.Visible);
    EXPECT_TRUE(IsLinkSelected(ws(), inside));
    EXPECT_FALSE(IsLinkSelected(ws(), outside));
    EXPECT_EQ(ws().PicLinkToolbar(0).Container(), &ws().grpBorder(a));
}

TEST_F(Selection, UnselectAllAndInvertSelectionTakeContainersToo) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(5000, 1000);
    SelectGroup(ws(), a);
    ws().ContextIsContainer = true;
    mnuLinkSelect_Click(ws());
    EXPECT_FALSE(ws().lblName(a).FontBold);
    EXPECT_TRUE(ws().lblName(b).FontBold);
    mnuUnselectAll_Click(ws());
    EXPECT_FALSE(ws().lblName(b).FontBold);
    EXPECT_EQ(ws().menus["mnuSelectAll"].Shortcut(), QStringLiteral("Ctrl+A"));
    EXPECT_EQ(ws().menus["mnuUnselectAll"].Shortcut(), QStringLiteral("Ctrl+U"));
    EXPECT_EQ(ws().menus["mnuLinkSelect"].Caption(), QStringLiteral("&Invert Selection"));
}

// --- undo ---

TEST_F(Selection, UndoWithAnEmptyListDoesNothing) {
    const int a = t.newContainerAt(1000, 1000);
    UndoMove(ws());
    EXPECT_EQ(ws().UndoCount, 0);
    EXPECT_EQ(ws().Group(a).Left.get(), 1000.0f);
}

TEST_F(Selection, APressOnATitlePushesWhereTheContainerStoodAndUndoPutsItBack) {
    const int a = t.newContainerAt(1000, 1000);
    lblName_MouseDown(ws(), kLeftButton, 0, a, 100, 100);
    lblName_MouseMove(ws(), kLeftButton, 0, a, 3100, 2100);
    lblName_MouseUp(ws(), kLeftButton, 0, a);
    EXPECT_EQ(ws().UndoCount, 1);
    EXPECT_NE(ws().Group(a).Left.get(), 1000.0f);
    const float width = ws().Group(a).Width;
    UndoMove(ws());
    EXPECT_EQ(ws().UndoCount, 0);
    EXPECT_EQ(ws().Group(a).Left.get(), 1000.0f);
    EXPECT_EQ(ws().Group(a).Top.get(), 1000.0f);
    EXPECT_EQ(ws().Group(a).Width.get(), width);
    // A tile's press pushes too, with the left or middle button only.
    ShrinkIcon_MouseDown(ws(), kRightButton, 0, a, 10, 10);
    EXPECT_EQ(ws().UndoCount, 0);
    ShrinkIcon_MouseDown(ws(), kMiddleButton, 0, a, 10, 10);
    EXPECT_EQ(ws().UndoCount, 1);
}

TEST_F(Selection, ElevenPressesKeepTheLatestTen) {
    const int a = t.newContainerAt(1000, 1000);
    for (int k = 0; k < 11; ++k) PushUndoMove(ws(), a, static_cast<float>(100 * k), static_cast<float>(10 * k));
    EXPECT_EQ(ws().UndoCount, 10);
    EXPECT_EQ(ws().UndoMoves[0].Left, 100);
    EXPECT_EQ(ws().UndoMoves[9].Left, 1000);
    EXPECT_EQ(ws().UndoMoves[9].Top, 100);
    EXPECT_EQ(ws().UndoMoves[9].Index, a);
    for (int k = 10; k >= 1; --k) {
        UndoMove(ws());
        EXPECT_EQ(ws().Group(a).Left.get(), static_cast<float>(100 * k));
    }
    EXPECT_EQ(ws().UndoCount, 0);
    UndoMove(ws());
    EXPECT_EQ(ws().Group(a).Left.get(), 100.0f);
}

TEST_F(Selection, UndoingTheMoveOfADeletedContainerUsesTheEntryUp) {
    const int a = t.newContainerAt(1000, 1000);
    const int b = t.newContainerAt(5000, 1000);
    PushUndoMove(ws(), a, 300, 300);
    PushUndoMove(ws(), b, 400, 400);
    ws().Group(b).Visible = false;
    UndoMove(ws());
    EXPECT_EQ(ws().UndoCount, 1);
    EXPECT_EQ(ws().Group(b).Left.get(), 5000.0f);
    UndoMove(ws());
    EXPECT_EQ(ws().Group(a).Left.get(), 300.0f);
}
