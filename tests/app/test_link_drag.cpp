// Dragging a shortcut within its owner: the label and its icon follow the pointer, the guides mark a
// shortcut to change places with, Ctrl takes the selection along, leaving the owner hands over to the
// drag between owners, and the release keeps the label inside, aligns it, stacks or swaps.

#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "containers/Moving.h"
#include "shortcuts/LinkDrag.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

constexpr int kCtrl = 2;

class LinkDrag : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        ws().onStartLinkDrag = [this](int n) { started.push_back(n); };
        t.platform.sounds.clear();
    }
    Workspace& ws() { return *t.ws; }
    int Add(const QString& name, Element& owner, float left, float top) {
        AddShortcut(ws(), QStringLiteral("/data/") + name, owner);
        const int n = ws().LinkCount - 1;
        ws().Link(n).Move(left, top);
        MoveLinkIcon(ws(), n);
        return n;
    }
    int AddOnBack(const QString& name, float left, float top) { return Add(name, ws().picBack(0), left, top); }
    Element& Label(int n) { return ws().Link(n); }
    Element& Icon(int n) { return ws().PicIcon(ws().Links[static_cast<size_t>(n)].IconIndex); }
    // The press that the label's mouse handler records, at (x, y) in the label.
    void Press(int n, float x = 40, float y = 40) {
        ws().SelectedLink = static_cast<int16_t>(n);
        ws().MouseDownLink = static_cast<int16_t>(n);
        ws().MouseDownX = x;
        ws().MouseDownY = y;
        ws().DownLeft = Label(n).Left;
        ws().DownTop = Label(n).Top;
    }
    // A pointer move by (dx, dy) from the press point.
    void DragBy(int n, float dx, float dy, int shift = 0) {
        LinkDragMove(ws(), shift, n, ws().MouseDownX + dx, ws().MouseDownY + dy);
    }
    std::vector<int> started;
    TestWorkspace t;
};

} // namespace

TEST_F(LinkDrag, TheLabelAndItsIconFollowThePointer) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 1000);
    const int other = AddOnBack(QStringLiteral("other.txt"), 6000, 4000);
    ShowLinkToolbar(ws(), ws().picBack(0));
    ws().ImgLinkGroup(0).Visible = true;
    Press(a);
    DragBy(a, 300, 150);
    EXPECT_EQ(Label(a).Left.get(), 1300.0f);
    EXPECT_EQ(Label(a).Top.get(), 1150.0f);
    EXPECT_EQ(Icon(a).Left.get(), 1300 - 290.0f);
    EXPECT_EQ(Icon(a).Top.get(), 1150 + Label(a).Height / 2 - 120);
    EXPECT_EQ(ws().MouseDownLink, -1);
    EXPECT_FALSE(ws().ImgLinkGroup(0).Visible.get());
    EXPECT_FALSE(ws().PicLinkToolbar(0).Visible.get());
    EXPECT_TRUE(IsLinkSelected(ws(), a));
    EXPECT_TRUE(Label(a).isFrontmost());
    EXPECT_TRUE(ws().ShapeMove(0).Visible.get());
    EXPECT_EQ(ws().ShapeMove(0).Container(), &Icon(a));
    EXPECT_TRUE(ws().ShapeMovingIcon(0).Visible.get());
    EXPECT_EQ(ws().ShapeMovingIcon(0).Left.get(), Icon(a).Left.get());
    EXPECT_EQ(ws().ShapeMovingIcon(0).Top.get(), Icon(a).Top.get());
    EXPECT_FALSE(ws().LinkLine(0).Visible.get());
    EXPECT_FALSE(ws().ShapeIconFiller(0).Visible.get());
    EXPECT_EQ(Label(other).Left.get(), 6000.0f);
    EXPECT_TRUE(started.empty());
    // The pointer back where it was pressed moves nothing.
    ws().MouseDownLink = static_cast<int16_t>(a);
    LinkDragMove(ws(), 0, a, ws().MouseDownX, ws().MouseDownY);
    EXPECT_EQ(Label(a).Left.get(), 1300.0f);
    EXPECT_EQ(ws().MouseDownLink, a);
}

TEST_F(LinkDrag, NothingMovesUnderTheLockOrATagFilter) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 1000);
    Press(a);
    ws().FrameLinkGroup(0).Visible = true;
    DragBy(a, 300, 150);
    EXPECT_EQ(Label(a).Left.get(), 1000.0f);
    EXPECT_EQ(ws().MouseDownLink, -1);
    EndLinkDrag(ws(), 0, a);
    EXPECT_EQ(Label(a).Left.get(), 1000.0f);
    ws().FrameLinkGroup(0).Visible = false;
    ws().menus["mnuLock"].setChecked(true);
    Press(a);
    DragBy(a, 300, 150);
    EXPECT_EQ(Label(a).Left.get(), 1000.0f);
    EXPECT_FALSE(IsLinkSelected(ws(), a));
    // The padlock says why: beside the label, 300 twips in.
    EXPECT_TRUE(ws().ImgLock(0).Visible.get());
    EXPECT_EQ(ws().ImgLock(0).Left.get(), 1300.0f);
    EXPECT_EQ(ws().ImgLock(0).Top.get(), 1300.0f);
}

TEST_F(LinkDrag, WithCtrlTheSelectionOfTheOwnerMovesAlong) {
    const int c = t.newContainerAt(600, 3000);
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 1000);
    const int b = AddOnBack(QStringLiteral("b.txt"), 5000, 400);
    const int elsewhere = Add(QStringLiteral("c.txt"), ws().grpBorder(c), 500, 500);
    const int unselected = AddOnBack(QStringLiteral("d.txt"), 7000, 1400);
    SetLinkSelected(ws(), b, true);
    SetLinkSelected(ws(), elsewhere, true);
    Press(a);
    DragBy(a, -200, 100, kCtrl);
    EXPECT_EQ(Label(a).Left.get(), 800.0f);
    EXPECT_EQ(Label(a).Top.get(), 1100.0f);
    EXPECT_EQ(Icon(a).Left.get(), 800 - 290.0f);
    EXPECT_EQ(Label(b).Left.get(), 4800.0f);
    EXPECT_EQ(Label(b).Top.get(), 500.0f);
    EXPECT_EQ(Icon(b).Left.get(), 4800 - 290.0f);
    EXPECT_EQ(Icon(b).Top.get(), 500 + Label(b).Height / 2 - 120);
    EXPECT_EQ(Label(elsewhere).Left.get(), 500.0f);
    EXPECT_EQ(Label(unselected).Left.get(), 7000.0f);
    EXPECT_FALSE(ws().ShapeMovingIcon(0).Visible.get());
    EXPECT_FALSE(ws().LinkLine(0).Visible.get());
    EXPECT_TRUE(IsLinkSelected(ws(), a));
    // A Ctrl release neither aligns nor stacks.
    ws().menus["mnuAlign"].setChecked(true);
    EndLinkDrag(ws(), kCtrl, a);
    EXPECT_EQ(Label(a).Left.get(), 800.0f);
    EXPECT_EQ(Label(b).Left.get(), 4800.0f);
    EXPECT_EQ(Label(b).Top.get(), 500.0f);
}

TEST_F(LinkDrag, CoveringAnotherIconMarksItForASwap) {
    ws().picBack(0).ForeColor = 0x00FFFF;
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 1000);
    const int b = AddOnBack(QStringLiteral("b.txt"), 3000, 2000);
    Press(a, 0, 0);
    // Put the label's left part over b's icon (at 2710..2950, 2000 + h/2 - 120 ...).
    const float iconX = Icon(b).Left + 120, iconY = Icon(b).Top + 120;
    DragBy(a, iconX - 20 - 1000, iconY - Label(a).Height / 2 - 1000);
    EXPECT_FALSE(Icon(b).Visible.get());
    Element& filler = ws().ShapeIconFiller(0);
    EXPECT_TRUE(filler.Visible.get());
    EXPECT_EQ(filler.Left.get(), Icon(b).Left.get());
    EXPECT_EQ(filler.Top.get(), Icon(b).Top.get());
    EXPECT_EQ(filler.Width.get(), Icon(b).Width.get());
    Element& line = ws().LinkLine(0);
    EXPECT_TRUE(line.Visible.get());
    EXPECT_EQ(line.ForeColor.get(), 0x00FFFF);
    const Element& moving = ws().ShapeMovingIcon(0);
    EXPECT_EQ(line.Left.get(), moving.Left + moving.Width / 2);
    EXPECT_EQ(line.Top.get(), moving.Top + moving.Height / 2);
    EXPECT_EQ(line.Left + line.Width, iconX);
    EXPECT_EQ(line.Top + line.Height, iconY);
    // Moving on, clear of the icon, shows it again and drops the line.
    DragBy(a, 100, 100);
    EXPECT_TRUE(Icon(b).Visible.get());
    EXPECT_FALSE(line.Visible.get());
    EXPECT_FALSE(filler.Visible.get());
}

TEST_F(LinkDrag, DroppingALabelOnAnotherIconSwapsThemWithoutStacking) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 1000);
    const int b = AddOnBack(QStringLiteral("b.txt"), 3000, 2000);
    const int c = AddOnBack(QStringLiteral("c.txt"), 6000, 300);
    SetLinkSelected(ws(), c, true);
    ws().menus["mnuAlign"].setChecked(true);
    Press(a, 0, 0);
    const float iconX = Icon(b).Left + 120, iconY = Icon(b).Top + 120;
    DragBy(a, iconX - 20 - 1000, iconY - Label(a).Height / 2 - 1000);
    ASSERT_TRUE(ws().LinkLine(0).Visible.get());
    EndLinkDrag(ws(), 0, a);
    EXPECT_EQ(Label(a).Left.get(), 3000.0f);
    EXPECT_EQ(Label(a).Top.get(), 2000.0f);
    EXPECT_EQ(Label(b).Left.get(), 1000.0f);
    EXPECT_EQ(Label(b).Top.get(), 1000.0f);
    EXPECT_EQ(Icon(a).Left.get(), 3000 - 290.0f);
    EXPECT_EQ(Icon(b).Left.get(), 1000 - 290.0f);
    EXPECT_TRUE(Icon(b).Visible.get());
    EXPECT_EQ(Label(c).Left.get(), 6000.0f) << "no stacking with a swap";
    EXPECT_EQ(Label(c).Top.get(), 300.0f);
    ASSERT_EQ(t.platform.sounds.size(), 1u);
    EXPECT_TRUE(t.platform.sounds[0].endsWith(QStringLiteral("container_mouseup.wav")));
    EXPECT_FALSE(ws().LinkLine(0).Visible.get());
    EXPECT_FALSE(ws().ShapeIconFiller(0).Visible.get());
    EXPECT_FALSE(ws().ShapeMovingIcon(0).Visible.get());
    EXPECT_FALSE(ws().ShapeMove(0).Visible.get());
}

TEST_F(LinkDrag, WithAlignOnALabelSnapsToANeighboursLeft) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 1000);
    const int b = AddOnBack(QStringLiteral("b.txt"), 100, 3000);
    (void)b;
    ws().menus["mnuAlign"].setChecked(true);
    Press(a, 0, 0);
    DragBy(a, 60 - 1000, 0);
    ASSERT_EQ(Label(a).Left.get(), 60.0f);
    EndLinkDrag(ws(), 0, a);
    EXPECT_EQ(Label(a).Left.get(), 100.0f);
    EXPECT_EQ(Icon(a).Left.get(), 100 - 290.0f);
    // The window is strict: 300 twips away stays, 299 snaps.
    Label(a).Left = 400;
    EndLinkDrag(ws(), 0, a);
    EXPECT_EQ(Label(a).Left.get(), 400.0f);
    Label(a).Left = 399;
    EndLinkDrag(ws(), 0, a);
    EXPECT_EQ(Label(a).Left.get(), 100.0f);
    // Without Align it stays where it was dropped.
    ws().menus["mnuAlign"].setChecked(false);
    Label(a).Left = 60;
    EndLinkDrag(ws(), 0, a);
    EXPECT_EQ(Label(a).Left.get(), 60.0f);
}

TEST_F(LinkDrag, AlignLooksOnlyAtShownShortcutsOfTheSameOwner) {
    const int c = t.newContainerAt(6000, 3000);
    const int a = AddOnBack(QStringLiteral("a.txt"), 60, 1000);
    const int hidden = AddOnBack(QStringLiteral("hidden.txt"), 100, 3000);
    const int inside = Add(QStringLiteral("inside.txt"), ws().grpBorder(c), 150, 300);
    (void)inside;
    Label(hidden).Visible = false;
    ws().menus["mnuAlign"].setChecked(true);
    EndLinkDrag(ws(), 0, a);
    EXPECT_EQ(Label(a).Left.get(), 60.0f);
}

TEST_F(LinkDrag, TheReleaseKeepsTheLabelInsideAndStacksASelection) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 1000);
    const int b = AddOnBack(QStringLiteral("b.txt"), 5000, 400);
    SetLinkSelected(ws(), b, true);
    Press(a, 0, 0);
    DragBy(a, -1500, 500);
    ASSERT_EQ(Label(a).Left.get(), -500.0f);
    EndLinkDrag(ws(), 0, a);
    EXPECT_EQ(Label(a).Left.get(), 100.0f);
    EXPECT_EQ(Label(a).Top.get(), 1500.0f);
    EXPECT_EQ(Label(b).Left.get(), 100.0f);
    EXPECT_EQ(Label(b).Top.get(), 1500 + std::max(Label(a).Height.get(), 240.0f) + 30);
    EXPECT_TRUE(ws().PicLinkToolbar(0).Visible.get());
}

TEST_F(LinkDrag, LeavingAContainerPutsTheLabelBackAndStartsTheDragOut) {
    const int c = t.newContainerAt(600, 600);
    const int a = Add(QStringLiteral("a.txt"), ws().grpBorder(c), 500, 400);
    Press(a);
    DragBy(a, -300, 10);
    EXPECT_EQ(Label(a).Left.get(), 200.0f);
    EXPECT_TRUE(started.empty());
    DragBy(a, -600, 10);
    EXPECT_EQ(started, std::vector<int>{a});
    EXPECT_EQ(Label(a).Left.get(), 500.0f);
    EXPECT_EQ(Label(a).Top.get(), 400.0f);
    EXPECT_EQ(Icon(a).Left.get(), 500 - 290.0f);
    EXPECT_FALSE(ws().ShapeMove(0).Visible.get());
    EXPECT_FALSE(ws().ShapeMovingIcon(0).Visible.get());
    // Dropped back where it came from, the release moves nothing.
    EndLinkDrag(ws(), 0, a);
    EXPECT_EQ(Label(a).Left.get(), 500.0f);
    EXPECT_EQ(Label(a).Top.get(), 400.0f);
}

TEST_F(LinkDrag, LeavingAContainerAtAnyEdge) {
    const int c = t.newContainerAt(600, 600);
    Element& box = ws().grpBorder(c);
    const int a = Add(QStringLiteral("a.txt"), box, 500, 400);
    const struct {
        float dx, dy;
    } moves[] = {{0, -401}, {box.Width - 499, 0}, {0, box.Height - 399}};
    for (const auto& m : moves) {
        started.clear();
        Press(a, 0, 0);
        DragBy(a, m.dx, m.dy);
        EXPECT_EQ(started.size(), 1u) << m.dx << "," << m.dy;
        EXPECT_EQ(Label(a).Left.get(), 500.0f);
        EXPECT_EQ(Label(a).Top.get(), 400.0f);
    }
}

TEST_F(LinkDrag, OnTheBackgroundALabelWhollyOverAContainerLeaves) {
    const int c = t.newContainerAt(3000, 1000);
    const int a = AddOnBack(QStringLiteral("a.txt"), 500, 500);
    Press(a, 0, 0);
    // Partly over the container: still on the background. (Each move is from where the label stands.)
    DragBy(a, 3000 - 500 - 20, 1500 - 500);
    ASSERT_EQ(Label(a).Left.get(), 2980.0f);
    EXPECT_TRUE(started.empty());
    DragBy(a, 3500 - 2980, 0);
    EXPECT_EQ(started, std::vector<int>{a});
    EXPECT_EQ(Label(a).Left.get(), 500.0f);
    EXPECT_EQ(Label(a).Top.get(), 500.0f);
    (void)c;
}

TEST_F(LinkDrag, ACarriedShortcutLandsInTheOwnerItIsDroppedOn) {
    // The program's own hook: the label is carried by its press point.
    WireShortcutCommands(ws());
    const int c = t.newContainerAt(600, 600);
    const int d = t.newContainerAt(5000, 600);
    const int a = Add(QStringLiteral("a.txt"), ws().grpBorder(c), 500, 400);
    Press(a, 60, 30);
    DragBy(a, -900, 10);
    ASSERT_EQ(ws().DragSource, &Label(a));
    grpBorder_DragDrop(ws(), d, 1000, 800);
    EXPECT_EQ(ws().DragSource, nullptr);
    EXPECT_EQ(Label(a).Container(), &ws().grpBorder(d));
    EXPECT_EQ(Label(a).Left.get(), 940.0f);
    EXPECT_EQ(Label(a).Top.get(), 770.0f);
    EXPECT_EQ(Icon(a).Container(), &ws().grpBorder(d)) << "the icon follows its label";
    EXPECT_EQ(Icon(a).Left.get(), 940.0f - 240 - 50);
    EXPECT_EQ(ws().SelectedContainer, d);
    EXPECT_EQ(t.platform.sounds.back(), QDir(t.programDir()).filePath(QStringLiteral("container_mouseup.wav")));

    // Out again, onto the background.
    Press(a, 60, 30);
    DragBy(a, -2000, 10);
    ASSERT_EQ(ws().DragSource, &Label(a));
    picBack_DragDrop(ws(), 3000, 4000);
    EXPECT_EQ(Label(a).Container(), &ws().picBack(0));
    EXPECT_EQ(Label(a).Left.get(), 2940.0f);
    EXPECT_EQ(Label(a).Top.get(), 3970.0f);
    EXPECT_EQ(Icon(a).Container(), &ws().picBack(0));
    EXPECT_TRUE(t.readData(QStringLiteral("Perchdock.REC")).contains("a.txt")) << "saved";
}
