// The selection of shortcuts: newest first, drawn in the owner's inverted colours, the menu commands
// that select, unselect and invert, and the toolbar over the selection.

#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class LinkSelection : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        ws().picBack(0).ForeColor = 0xFFFFFF;
        ws().picBack(0).BackColor = 0x290700;
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
    std::vector<int16_t> List(std::initializer_list<int> ns) {
        std::vector<int16_t> v;
        for (int n : ns) v.push_back(static_cast<int16_t>(n));
        return v;
    }
    Element& Bar() { return ws().PicLinkToolbar(0); }
    TestWorkspace t;
};

} // namespace

TEST_F(LinkSelection, TheNewestSelectionComesFirst) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 400);
    const int b = AddOnBack(QStringLiteral("b.txt"), 1000, 900);
    const int c = AddOnBack(QStringLiteral("c.txt"), 1000, 1400);
    SetLinkSelected(ws(), c, true);
    SetLinkSelected(ws(), a, true);
    SetLinkSelected(ws(), b, true);
    EXPECT_EQ(ws().SelectedLinks, List({b, a, c}));
    // Selecting one again keeps its place; unselecting takes it out.
    SetLinkSelected(ws(), c, true);
    EXPECT_EQ(ws().SelectedLinks, List({b, a, c}));
    SetLinkSelected(ws(), a, false);
    EXPECT_EQ(ws().SelectedLinks, List({b, c}));
    EXPECT_TRUE(IsLinkSelected(ws(), b));
    EXPECT_FALSE(IsLinkSelected(ws(), a));
}

TEST_F(LinkSelection, ASelectedLabelShowsItsOwnersColoursInverted) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 400);
    ASSERT_EQ(Label(a).BackStyle.get(), 0);
    SetLinkSelected(ws(), a, true);
    EXPECT_EQ(Label(a).BackStyle.get(), 1);
    EXPECT_EQ(Label(a).BackColor.get(), 0xFFFFFF);
    EXPECT_EQ(Label(a).ForeColor.get(), 0x290700);
    SetLinkSelected(ws(), a, false);
    EXPECT_EQ(Label(a).BackStyle.get(), 0);
    EXPECT_EQ(Label(a).BackColor.get(), 0x290700);
    EXPECT_EQ(Label(a).ForeColor.get(), 0xFFFFFF) << "LinkColor -1 follows the owner";
}

TEST_F(LinkSelection, UnselectingGivesBackTheShortcutsOwnColour) {
    const int c = t.newContainerAt(600, 600);
    ws().grpBorder(c).ForeColor = 0x00FFFF;
    ws().grpBorder(c).BackColor = 0x112233;
    const int a = Add(QStringLiteral("a.txt"), ws().grpBorder(c), 500, 300);
    ws().Links[static_cast<size_t>(a)].LinkColor = 0x00FF00;
    Label(a).ForeColor = 0x00FF00;
    SetLinkSelected(ws(), a, true);
    EXPECT_EQ(Label(a).BackColor.get(), 0x00FFFF);
    EXPECT_EQ(Label(a).ForeColor.get(), 0x112233);
    SetLinkSelected(ws(), a, false);
    EXPECT_EQ(Label(a).BackColor.get(), 0x112233);
    EXPECT_EQ(Label(a).ForeColor.get(), 0x00FF00);
}

TEST_F(LinkSelection, UnselectAllKeepsTheCurrentShortcutUnlessAsked) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 400);
    const int b = AddOnBack(QStringLiteral("b.txt"), 1000, 900);
    const int c = AddOnBack(QStringLiteral("c.txt"), 1000, 1400);
    for (int n : {a, b, c}) SetLinkSelected(ws(), n, true);
    ShowLinkToolbar(ws(), ws().picBack(0));
    ASSERT_TRUE(Bar().Visible.get());
    ws().SelectedLink = static_cast<int16_t>(b);
    UnselectAllLinks(ws(), false);
    EXPECT_EQ(ws().SelectedLinks, List({b}));
    EXPECT_EQ(Label(b).BackStyle.get(), 1);
    EXPECT_EQ(Label(a).BackStyle.get(), 0);
    EXPECT_EQ(Label(c).BackStyle.get(), 0);
    EXPECT_FALSE(Bar().Visible.get());
    UnselectAllLinks(ws(), true);
    EXPECT_TRUE(ws().SelectedLinks.empty());
    EXPECT_EQ(Label(b).BackStyle.get(), 0);
}

TEST_F(LinkSelection, UnselectAllClearsRemovedShortcutsFromTheSelection) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 400);
    const int b = AddOnBack(QStringLiteral("b.txt"), 1000, 900);
    SetLinkSelected(ws(), a, true);
    SetLinkSelected(ws(), b, true);
    RemoveLink(ws(), a);
    UnselectAllLinks(ws(), true);
    EXPECT_TRUE(ws().SelectedLinks.empty());
}

TEST_F(LinkSelection, SelectAllTakesTheShortcutsOfTheBackground) {
    const int c = t.newContainerAt(600, 600);
    const int a = AddOnBack(QStringLiteral("a.txt"), 5000, 400);
    const int b = Add(QStringLiteral("b.txt"), ws().grpBorder(c), 500, 300);
    const int d = AddOnBack(QStringLiteral("d.txt"), 5000, 1400);
    const int dead = AddOnBack(QStringLiteral("dead.txt"), 5000, 2400);
    RemoveLink(ws(), dead);
    ws().menus["mnuDeleteContainer"].setVisible(false);
    mnuSelectAll_Click(ws());
    EXPECT_EQ(ws().SelectedLinks, List({d, a}));
    EXPECT_FALSE(IsLinkSelected(ws(), b));
    EXPECT_TRUE(Bar().Visible.get());
    EXPECT_EQ(Bar().Container(), &ws().picBack(0));
}

TEST_F(LinkSelection, SelectAllOnAContainerTakesItsShortcuts) {
    const int c = t.newContainerAt(600, 600);
    const int a = AddOnBack(QStringLiteral("a.txt"), 5000, 400);
    const int b = Add(QStringLiteral("b.txt"), ws().grpBorder(c), 500, 400);
    ws().menus["mnuDeleteContainer"].setVisible(true);
    ws().SelectedContainer = static_cast<int16_t>(c);
    mnuSelectAll_Click(ws());
    EXPECT_EQ(ws().SelectedLinks, List({b}));
    EXPECT_FALSE(IsLinkSelected(ws(), a));
    EXPECT_EQ(Bar().Container(), &ws().grpBorder(c));
}

TEST_F(LinkSelection, UnselectAllTakesContainersToo) {
    const int c = t.newContainerAt(600, 600);
    const int a = AddOnBack(QStringLiteral("a.txt"), 5000, 400);
    SetLinkSelected(ws(), a, true);
    SelectGroup(ws(), c);
    mnuUnselectAll_Click(ws());
    EXPECT_TRUE(ws().SelectedLinks.empty());
    EXPECT_FALSE(ws().lblName(c).FontBold.get());
}

TEST_F(LinkSelection, InvertingFlipsTheShortcutsOfTheOwner) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 5000, 400);
    const int b = AddOnBack(QStringLiteral("b.txt"), 5000, 900);
    ws().menus["mnuDeleteContainer"].setVisible(false);
    ws().ContextIsContainer = false;
    SetLinkSelected(ws(), a, true);
    mnuLinkSelect_Click(ws());
    EXPECT_FALSE(IsLinkSelected(ws(), a));
    EXPECT_TRUE(IsLinkSelected(ws(), b));
    EXPECT_EQ(Label(a).BackStyle.get(), 0);
    EXPECT_EQ(Label(b).BackStyle.get(), 1);
}

TEST_F(LinkSelection, InvertingOnAContainerFlipsTheContainers) {
    const int c1 = t.newContainerAt(600, 600);
    const int c2 = t.newContainerAt(4600, 600);
    const int a = AddOnBack(QStringLiteral("a.txt"), 8000, 400);
    SelectGroup(ws(), c1);
    ws().ContextIsContainer = true;
    mnuLinkSelect_Click(ws());
    EXPECT_FALSE(ws().lblName(c1).FontBold.get());
    EXPECT_TRUE(ws().lblName(c2).FontBold.get());
    EXPECT_FALSE(IsLinkSelected(ws(), a)) << "the shortcuts stay as they were";
}

TEST_F(LinkSelection, TheToolbarStandsAboveAndLeftOfTheHighestSelected) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 3000, 2000);
    const int b = AddOnBack(QStringLiteral("b.txt"), 3500, 1200);
    SetLinkSelected(ws(), a, true);
    SetLinkSelected(ws(), b, true);
    ShowLinkToolbar(ws(), ws().picBack(0));
    EXPECT_TRUE(Bar().Visible.get());
    EXPECT_EQ(Bar().Container(), &ws().picBack(0));
    EXPECT_EQ(Bar().Top.get(), 1200 - 370.0f);
    EXPECT_EQ(Bar().Left.get(), 3500 - 400.0f);
    EXPECT_TRUE(Bar().isFrontmost());
    // Near the left edge the toolbar stops at 0.
    Label(b).Left = 250;
    ShowLinkToolbar(ws(), ws().picBack(0));
    EXPECT_EQ(Bar().Left.get(), 0.0f);
}

TEST_F(LinkSelection, TheToolbarKeepsInsideTheOwnersRightEdge) {
    const int c = t.newContainerAt(600, 600);
    Element& box = ws().grpBorder(c);
    box.Width = 4000;
    const int a = Add(QStringLiteral("a.txt"), box, 3800, 900);
    SetLinkSelected(ws(), a, true);
    ShowLinkToolbar(ws(), box);
    ASSERT_LT(Bar().Width.get(), 4000.0f);
    EXPECT_EQ(Bar().Left.get(), 4000 - Bar().Width);
    EXPECT_EQ(Bar().Top.get(), 900 - 370.0f);
    // An owner narrower than the toolbar leaves it where the label put it.
    box.Width = Bar().Width - 10;
    Label(a).Left = 1000;
    ShowLinkToolbar(ws(), box);
    EXPECT_EQ(Bar().Left.get(), 600.0f);
}

TEST_F(LinkSelection, TheToolbarHasItsSwatchAndSixButtons) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 3000, 2000);
    ws().Links[static_cast<size_t>(a)].LinkColor = 0x0000FF;
    SetLinkSelected(ws(), a, true);
    ShowLinkToolbar(ws(), ws().picBack(0));
    ShowLinkToolbar(ws(), ws().picBack(0)); // the buttons are loaded once
    ASSERT_EQ(ws().picMiniToolbar.Count(), 6);
    const char* tips[] = {"Zoom In", "Zoom Out", "Set Size", "Toggle Bold Font", "Sort Ascending", "Sort Descending"};
    float left = ws().PicLinkColor(0).Left;
    for (int i = 0; i < 6; ++i) {
        Element& b = ws().picMiniToolbar(i);
        EXPECT_EQ(b.ToolTipText.get(), QString::fromLatin1(tips[i]));
        EXPECT_EQ(b.Container(), &Bar());
        EXPECT_TRUE(b.Visible.get());
        EXPECT_GT(b.Left.get(), left);
        EXPECT_LE(b.Left + b.Width, Bar().Width.get());
        EXPECT_LE(b.Top + b.Height, Bar().Height.get());
        left = b.Left;
    }
    EXPECT_EQ(ws().PicLinkColor(0).BackColor.get(), 0x0000FF);
    ws().Links[static_cast<size_t>(a)].LinkColor = -1;
    ShowLinkToolbar(ws(), ws().picBack(0));
    EXPECT_EQ(ws().PicLinkColor(0).BackColor.get(), 0xFFFFFF);
}

TEST_F(LinkSelection, TheToolbarNeedsASelectionAndNoLock) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 3000, 2000);
    ShowLinkToolbar(ws(), ws().picBack(0));
    EXPECT_FALSE(Bar().Visible.get());
    SetLinkSelected(ws(), a, true);
    ws().menus["mnuLock"].setChecked(true);
    ShowLinkToolbar(ws(), ws().picBack(0));
    EXPECT_FALSE(Bar().Visible.get());
    EXPECT_TRUE(ws().ImgLock(0).Visible.get()) << "the padlock instead of the toolbar";
    ws().menus["mnuLock"].setChecked(false);
    ShowLinkToolbar(ws(), ws().picBack(0));
    EXPECT_TRUE(Bar().Visible.get());
    HideLinkToolbar(ws());
    EXPECT_FALSE(Bar().Visible.get());
}

TEST_F(LinkSelection, TheToolbarButtonsRunTheirCommands) {
    const int a = AddOnBack(QStringLiteral("b.txt"), 3000, 2000);
    const int b = AddOnBack(QStringLiteral("a.txt"), 3000, 1000);
    SetLinkSelected(ws(), a, true);
    SetLinkSelected(ws(), b, true);
    ws().SelectedLink = static_cast<int16_t>(a);
    picMiniToolbar_Click(ws(), 0);
    EXPECT_EQ(Label(a).FontSize.get(), 12.0f);
    picMiniToolbar_Click(ws(), 1);
    EXPECT_EQ(Label(a).FontSize.get(), 10.0f);
    t.platform.inputAnswers.push_back(QStringLiteral("9"));
    picMiniToolbar_Click(ws(), 2);
    EXPECT_EQ(Label(b).FontSize.get(), 9.0f);
    picMiniToolbar_Click(ws(), 3);
    EXPECT_TRUE(Label(a).FontBold.get());
    picMiniToolbar_Click(ws(), 5); // Z to A: b.txt (a) above a.txt (b)
    EXPECT_LT(Label(a).Top.get(), Label(b).Top.get());
    picMiniToolbar_Click(ws(), 4);
    EXPECT_LT(Label(b).Top.get(), Label(a).Top.get());
    picMiniToolbar_Click(ws(), 6); // no such button
}

TEST_F(LinkSelection, TheToolbarButtonsShowTheProgramsImagesWhenTheyAreThere) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 3000, 2000);
    SetLinkSelected(ws(), a, true);
    const char* files[] = {"zoomin.gif", "zoomout.gif", "setsize.gif", "bold.gif", "sortaz.gif", "sortza.gif"};
    // One image missing: that button shows none.
    for (int i = 0; i < 5; ++i)
        t.platform.images[ws().programFile(QStringLiteral("Skin/Toolbar/") + QString::fromLatin1(files[i]))] = QSize(16, 16);
    ShowLinkToolbar(ws(), ws().picBack(0));
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(ws().picMiniToolbar(i).Picture.get(),
                  ws().programFile(QStringLiteral("Skin/Toolbar/") + QString::fromLatin1(files[i])));
    EXPECT_TRUE(ws().picMiniToolbar(5).Picture.get().isEmpty());
}

#ifdef PERCHDOCK_ASSETS_DIR
// The six images ship with the program: 16 by 16 GIFs, all different.
TEST(LinkToolbarImages, TheSixButtonImagesShipWithTheProgram) {
    const char* files[] = {"zoomin.gif", "zoomout.gif", "setsize.gif", "bold.gif", "sortaz.gif", "sortza.gif"};
    std::vector<QByteArray> seen;
    for (const char* f : files) {
        QFile file(QStringLiteral(PERCHDOCK_ASSETS_DIR "/Skin/Toolbar/") + QString::fromLatin1(f));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << f;
        const QByteArray bytes = file.readAll();
        ASSERT_GE(bytes.size(), 10) << f;
        EXPECT_TRUE(bytes.startsWith("GIF89a")) << f;
        EXPECT_EQ(static_cast<uint8_t>(bytes[6]) | (static_cast<uint8_t>(bytes[7]) << 8), 16) << f;
        EXPECT_EQ(static_cast<uint8_t>(bytes[8]) | (static_cast<uint8_t>(bytes[9]) << 8), 16) << f;
        for (const QByteArray& other : seen) EXPECT_NE(bytes, other) << f;
        seen.push_back(bytes);
    }
}
#endif
