// Where shortcuts stand: the icon beside its label, stacking a selection into columns, sorting by name,
// zooming, the size prompt, bold, and keeping a label inside its owner.

#include "app/workspace/Workspace.h"
#include "containers/Containers.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class LinkLayout : public ::testing::Test {
  protected:
    void SetUp() override { t.start(); }
    Workspace& ws() { return *t.ws; }
    // A file shortcut named `name` in `owner`, its label at (left, top) and its icon placed.
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
    void Select(std::initializer_list<int> ns) {
        for (int n : ns) SetLinkSelected(ws(), n, true);
    }
    TestWorkspace t;
};

} // namespace

TEST_F(LinkLayout, TheIconStandsFiftyTwipsLeftOfItsLabelAndCentredOnIt) {
    const int n = AddOnBack(QStringLiteral("a.txt"), 1000, 500);
    ws().Link(n).FontSize = 10;
    MoveLinkIcon(ws(), n);
    const float h = Label(n).Height;
    ASSERT_GT(h, 0.0f);
    EXPECT_EQ(Icon(n).Width.get(), 16 * 15.0f);
    EXPECT_EQ(Icon(n).Height.get(), 16 * 15.0f);
    EXPECT_EQ(Icon(n).Left.get(), 1000 - 240 - 50.0f);
    EXPECT_EQ(Icon(n).Top.get(), 500 + h / 2 - 120);
    EXPECT_EQ(Icon(n).Container(), &ws().picBack(0));
    EXPECT_LT(Icon(n).zValue(), Label(n).zValue()) << "the icon goes to the back";
    EXPECT_EQ(ws().Links[static_cast<size_t>(n)].Size, 10);
    // The drag outline lies over the icon box's inside.
    EXPECT_EQ(ws().ShapeMove(0).Container(), &Icon(n));
    EXPECT_EQ(ws().ShapeMove(0).Left.get(), 0.0f);
    EXPECT_EQ(ws().ShapeMove(0).Top.get(), 0.0f);
    EXPECT_EQ(ws().ShapeMove(0).Width.get(), 240.0f);
    EXPECT_EQ(ws().ShapeMove(0).Height.get(), 240.0f);
}

TEST_F(LinkLayout, AboveTenPointsTheIconIsLarge) {
    ws().LargeIconSize = 48;
    const int a = AddOnBack(QStringLiteral("ten.txt"), 1000, 500);
    const int b = AddOnBack(QStringLiteral("eleven.txt"), 1000, 1500);
    Label(a).FontSize = 10;
    Label(b).FontSize = 11;
    MoveLinkIcon(ws(), a);
    MoveLinkIcon(ws(), b);
    EXPECT_EQ(Icon(a).Width.get(), 16 * 15.0f);
    EXPECT_EQ(Icon(a).Height.get(), 16 * 15.0f);
    EXPECT_EQ(Icon(b).Width.get(), 48 * 15.0f);
    EXPECT_EQ(Icon(b).Height.get(), 48 * 15.0f);
    EXPECT_EQ(Icon(b).Left.get(), 1000 - 720 - 50.0f);
    EXPECT_EQ(Icon(b).Top.get(), 1500 + Label(b).Height / 2 - 360);
    EXPECT_EQ(ws().Links[static_cast<size_t>(b)].Size, 11);
    // 10.4 points is above 10: the large icon; the record keeps the rounded size.
    Label(a).FontSize = 10.4f;
    MoveLinkIcon(ws(), a);
    EXPECT_EQ(Icon(a).Width.get(), 720.0f);
    EXPECT_EQ(ws().Links[static_cast<size_t>(a)].Size, 10);
}

TEST_F(LinkLayout, ZoomingAcrossTenPointsChangesTheIconSize) {
    const int n = AddOnBack(QStringLiteral("a.txt"), 1000, 500);
    Label(n).FontSize = 10;
    MoveLinkIcon(ws(), n);
    ASSERT_EQ(Icon(n).Width.get(), 240.0f);
    ws().SelectedLink = static_cast<int16_t>(n);
    ZoomLinksIn(ws());
    EXPECT_EQ(Label(n).FontSize.get(), 12.0f);
    EXPECT_EQ(Icon(n).Width.get(), 32 * 15.0f);
    ZoomLinksOut(ws());
    EXPECT_EQ(Label(n).FontSize.get(), 10.0f);
    EXPECT_EQ(Icon(n).Width.get(), 240.0f);
}

TEST_F(LinkLayout, MoveLinkIconTakesTheIconIntoTheGivenOwner) {
    const int c = t.newContainerAt(600, 600);
    const int n = AddOnBack(QStringLiteral("a.txt"), 1000, 500);
    Label(n).setContainer(&ws().grpBorder(c));
    ASSERT_EQ(Icon(n).Container(), &ws().picBack(0));
    MoveLinkIcon(ws(), ws().grpBorder(c), n);
    EXPECT_EQ(Icon(n).Container(), &ws().grpBorder(c));
}

TEST_F(LinkLayout, RefreshLinksPlacesEveryIconAndEndsOnTheLastContainer) {
    const int c = t.newContainerAt(600, 600);
    const int a = Add(QStringLiteral("a.txt"), ws().grpBorder(c), 800, 400);
    const int b = AddOnBack(QStringLiteral("b.txt"), 2000, 3000);
    Label(a).Move(900, 700);
    Label(b).Move(2500, 3500);
    ws().SelectedContainer = 0;
    RefreshLinks(ws());
    EXPECT_EQ(Icon(a).Left.get(), 900 - 240 - 50.0f);
    EXPECT_EQ(Icon(b).Left.get(), 2500 - 240 - 50.0f);
    EXPECT_EQ(Icon(b).Top.get(), 3500 + Label(b).Height / 2 - 120);
    EXPECT_EQ(ws().SelectedContainer, c);
}

TEST_F(LinkLayout, ArrangingStacksTheSelectionWithThirtyTwipGaps) {
    const int r = AddOnBack(QStringLiteral("ref.txt"), 1000, 1000);
    const int a = AddOnBack(QStringLiteral("a.txt"), 4000, 300);
    const int b = AddOnBack(QStringLiteral("b.txt"), 5000, 2500);
    Select({r, a, b}); // the walk from the last entry meets r (the reference, passed over), a, b
    const float h = std::max(Label(r).Height.get(), 240.0f);
    ArrangeSelectedLinks(ws(), r, false);
    EXPECT_EQ(Label(a).Left.get(), 1000.0f);
    EXPECT_EQ(Label(a).Top.get(), 1000 + h + 30);
    EXPECT_EQ(Label(b).Left.get(), 1000.0f);
    EXPECT_EQ(Label(b).Top.get(), 1000 + 2 * (h + 30));
    EXPECT_EQ(Icon(b).Left.get(), 1000 - 290.0f);
    EXPECT_EQ(Label(r).Left.get(), 1000.0f);
    EXPECT_EQ(Label(r).Top.get(), 1000.0f);
    EXPECT_TRUE(ws().PicLinkToolbar(0).Visible.get());
    EXPECT_FALSE(ws().ShapeMove(0).Visible.get());
}

TEST_F(LinkLayout, TheGapIsMeasuredUnderTheTallerOfLabelAndIcon) {
    const int r = AddOnBack(QStringLiteral("ref.txt"), 1000, 1000);
    const int a = AddOnBack(QStringLiteral("a.txt"), 4000, 300);
    const int b = AddOnBack(QStringLiteral("b.txt"), 5000, 2500);
    Label(a).FontSize = 12; // the large icon, 480 twips, is taller than the label
    MoveLinkIcon(ws(), a);
    ASSERT_GT(Icon(a).Height.get(), Label(a).Height.get());
    Select({r, a, b});
    const float hr = std::max(Label(r).Height.get(), 240.0f);
    ArrangeSelectedLinks(ws(), r, false);
    EXPECT_EQ(Label(a).Top.get(), 1000 + hr + 30);
    EXPECT_EQ(Label(b).Top.get(), Label(a).Top + 480 + 30);
}

TEST_F(LinkLayout, SortingByTopStacksInTheOrderTheLabelsStood) {
    const int r = AddOnBack(QStringLiteral("ref.txt"), 1000, 100);
    const int a = AddOnBack(QStringLiteral("a.txt"), 4000, 3000);
    const int b = AddOnBack(QStringLiteral("b.txt"), 5000, 800);
    Select({r, a, b}); // selection order would put a first
    ArrangeSelectedLinks(ws(), r, true);
    EXPECT_LT(Label(b).Top.get(), Label(a).Top.get());
    EXPECT_EQ(Label(b).Top.get(), 100 + std::max(Label(r).Height.get(), 240.0f) + 30);
}

TEST_F(LinkLayout, ArrangingTakesShortcutsOfAnotherOwnerInWithItsSelectedColours) {
    const int c = t.newContainerAt(600, 600);
    ws().grpBorder(c).ForeColor = 0x00FFFF;
    ws().grpBorder(c).BackColor = 0x112233;
    const int r = Add(QStringLiteral("ref.txt"), ws().grpBorder(c), 500, 300);
    const int a = AddOnBack(QStringLiteral("a.txt"), 6000, 3000);
    Select({r, a});
    ArrangeSelectedLinks(ws(), r, false);
    EXPECT_EQ(Label(a).Container(), &ws().grpBorder(c));
    EXPECT_EQ(Icon(a).Container(), &ws().grpBorder(c));
    EXPECT_EQ(Label(a).BackStyle.get(), 1);
    EXPECT_EQ(Label(a).BackColor.get(), 0x00FFFF);
    EXPECT_EQ(Label(a).ForeColor.get(), 0x112233);
    EXPECT_EQ(Label(a).Left.get(), 500.0f);
}

TEST_F(LinkLayout, AnOverflowingStackStartsANewColumnBesideTheWidestLabel) {
    const int c = t.newContainerAt(200, 600);
    Element& box = ws().grpBorder(c);
    box.Width = 9000;
    box.Height = 1500;
    const int r = Add(QStringLiteral("ref.txt"), box, 500, 100);
    std::vector<int> others;
    for (int k = 0; k < 4; ++k) others.push_back(Add(QStringLiteral("item%1.txt").arg(k), box, 6000, 200));
    SetLinkSelected(ws(), r, true);
    for (int n : others) SetLinkSelected(ws(), n, true);
    // Newest first: the walk from the last entry meets r, then the others in the order selected.
    const float widest = WidestSelected(ws());
    const float step = Label(r).Height + 30;
    ASSERT_EQ(step, 360.0f);
    ArrangeSelectedLinks(ws(), r, false);
    // 460, 820 fit under 1500 - label height; 1180 does not: a new column at the reference's Top.
    EXPECT_EQ(Label(others[0]).Top.get(), 460.0f);
    EXPECT_EQ(Label(others[0]).Left.get(), 500.0f);
    EXPECT_EQ(Label(others[1]).Top.get(), 820.0f);
    EXPECT_EQ(Label(others[2]).Top.get(), 100.0f);
    EXPECT_EQ(Label(others[2]).Left.get(), 500 + widest + 500);
    EXPECT_EQ(Label(others[3]).Top.get(), 460.0f);
    EXPECT_EQ(Label(others[3]).Left.get(), 500 + widest + 500);
}

TEST_F(LinkLayout, AStackOverflowingANarrowContainerWrapsOverTheFirstColumn) {
    const int c = t.newContainerAt(200, 600);
    Element& box = ws().grpBorder(c);
    box.Width = 2970;
    box.Height = 1500;
    const int r = Add(QStringLiteral("ref.txt"), box, 500, 100);
    std::vector<int> others;
    for (int k = 0; k < 4; ++k) others.push_back(Add(QStringLiteral("item%1.txt").arg(k), box, 2000, 200));
    SetLinkSelected(ws(), r, true);
    for (int n : others) SetLinkSelected(ws(), n, true);
    ArrangeSelectedLinks(ws(), r, false);
    EXPECT_EQ(Label(others[0]).Left.get(), 500.0f);
    EXPECT_EQ(Label(others[0]).Top.get(), 460.0f);
    EXPECT_EQ(Label(others[1]).Left.get(), 500.0f);
    EXPECT_EQ(Label(others[1]).Top.get(), 820.0f);
    // The next column would start beyond 2970 - 2000: it wraps 500 twips right of the first one,
    // from the reference's Top, over the labels already there.
    EXPECT_EQ(Label(others[2]).Left.get(), 1000.0f);
    EXPECT_EQ(Label(others[2]).Top.get(), 100.0f);
    EXPECT_EQ(Label(others[3]).Left.get(), 1000.0f);
    EXPECT_EQ(Label(others[3]).Top.get(), 460.0f);
}

TEST_F(LinkLayout, ArrangingPassesOverHiddenAndDeadShortcutsAndNeedsALinkReference) {
    const int r = AddOnBack(QStringLiteral("ref.txt"), 1000, 1000);
    const int hidden = AddOnBack(QStringLiteral("hidden.txt"), 4000, 300);
    const int dead = AddOnBack(QStringLiteral("dead.txt"), 4000, 900);
    const int a = AddOnBack(QStringLiteral("a.txt"), 5000, 2500);
    Select({r, hidden, dead, a});
    Label(hidden).Visible = false;
    RemoveLink(ws(), dead);
    ArrangeSelectedLinks(ws(), 999, false); // no such shortcut: nothing happens
    EXPECT_EQ(Label(a).Left.get(), 5000.0f);
    ArrangeSelectedLinks(ws(), r, false);
    EXPECT_EQ(Label(hidden).Left.get(), 4000.0f);
    EXPECT_EQ(Label(hidden).Top.get(), 300.0f);
    EXPECT_EQ(Label(a).Left.get(), 1000.0f);
    EXPECT_EQ(Label(a).Top.get(), 1000 + std::max(Label(r).Height.get(), 240.0f) + 30);
}

TEST_F(LinkLayout, SortingOneShortcutMovesItOneTwipUp) {
    const int n = AddOnBack(QStringLiteral("a.txt"), 1500, 700);
    Select({n});
    SortSelectedLinks(ws(), true);
    EXPECT_EQ(Label(n).Left.get(), 1500.0f);
    EXPECT_EQ(Label(n).Top.get(), 699.0f);
    EXPECT_EQ(ws().SelectedLink, n);
}

TEST_F(LinkLayout, SortingWithNothingSelectedDoesNothing) {
    const int n = AddOnBack(QStringLiteral("a.txt"), 1500, 700);
    SortSelectedLinks(ws(), true);
    EXPECT_EQ(Label(n).Top.get(), 700.0f);
}

TEST_F(LinkLayout, SortingStacksAToZFromTheHighestAndLeftmostPlace) {
    const int c = AddOnBack(QStringLiteral("c.txt"), 3000, 400);
    const int a = AddOnBack(QStringLiteral("Apple.txt"), 5000, 2000);
    const int b = AddOnBack(QStringLiteral("b.txt"), 1200, 3000);
    Select({c, a, b});
    SortSelectedLinks(ws(), true);
    const float step = std::max(Label(a).Height.get(), 240.0f) + 30;
    EXPECT_EQ(Label(a).Left.get(), 1200.0f);
    EXPECT_EQ(Label(a).Top.get(), 399.0f);
    EXPECT_EQ(Label(b).Left.get(), 1200.0f);
    EXPECT_EQ(Label(b).Top.get(), 399 + step);
    EXPECT_EQ(Label(c).Left.get(), 1200.0f);
    EXPECT_EQ(Label(c).Top.get(), 399 + 2 * step);
    EXPECT_EQ(ws().SelectedLink, a);
    // The selection now ends with the first name, so that the walk from the last entry meets A first.
    EXPECT_EQ(ws().SelectedLinks, (std::vector<int16_t>{static_cast<int16_t>(c), static_cast<int16_t>(b),
                                                       static_cast<int16_t>(a)}));
}

TEST_F(LinkLayout, SortingZToAStacksTheOtherWay) {
    const int c = AddOnBack(QStringLiteral("c.txt"), 3000, 400);
    const int a = AddOnBack(QStringLiteral("Apple.txt"), 5000, 2000);
    const int b = AddOnBack(QStringLiteral("B.txt"), 1200, 3000);
    Select({a, b, c});
    SortSelectedLinks(ws(), false);
    const float step = std::max(Label(c).Height.get(), 240.0f) + 30;
    EXPECT_EQ(Label(c).Top.get(), 399.0f);
    EXPECT_EQ(Label(b).Top.get(), 399 + step);
    EXPECT_EQ(Label(a).Top.get(), 399 + 2 * step);
    EXPECT_EQ(Label(a).Left.get(), 1200.0f);
    EXPECT_EQ(ws().SelectedLink, c);
}

TEST_F(LinkLayout, TheScansOfTheSelection) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 3000, 400);
    const int b = AddOnBack(QStringLiteral("a much longer name.txt"), 1000, 900);
    const int c = AddOnBack(QStringLiteral("c.txt"), 2000, 400);
    EXPECT_EQ(TopMostSelected(ws()), -1);
    EXPECT_EQ(WidestSelected(ws()), 0.0f);
    Select({a, b, c}); // the selection is {c, b, a}; the walk goes a, b, c
    // Among equal Tops the first met (a) stays: a later one must be strictly higher.
    EXPECT_EQ(TopMostSelected(ws()), a);
    EXPECT_EQ(LeftMostSelected(ws()), b);
    EXPECT_EQ(WidestSelected(ws()), Label(b).Width.get());
}

TEST_F(LinkLayout, ZoomAddsTwoPointsToEachFromItsOwnSize) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 400);
    const int b = AddOnBack(QStringLiteral("b.txt"), 1000, 1400);
    Label(b).FontSize = 14;
    MoveLinkIcon(ws(), b);
    ws().SelectedLink = static_cast<int16_t>(b);
    Select({a});
    ZoomLinksIn(ws()); // selects SelectedLink (b) first
    EXPECT_TRUE(IsLinkSelected(ws(), b));
    EXPECT_EQ(Label(a).FontSize.get(), 12.0f);
    EXPECT_EQ(Label(b).FontSize.get(), 16.0f);
    EXPECT_EQ(ws().Links[static_cast<size_t>(a)].Size, 12);
    EXPECT_EQ(ws().Links[static_cast<size_t>(b)].Size, 16);
    // Stacked under the highest.
    EXPECT_EQ(Label(b).Top.get(), 400 + std::max(Label(a).Height.get(), Icon(a).Height.get()) + 30);
    ZoomLinksOut(ws());
    ZoomLinksOut(ws());
    EXPECT_EQ(Label(a).FontSize.get(), 8.0f);
    EXPECT_EQ(Label(b).FontSize.get(), 12.0f);
    EXPECT_EQ(ws().Links[static_cast<size_t>(a)].Size, 8);
}

TEST_F(LinkLayout, ZoomingOutStopsAtOnePoint) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 400);
    Label(a).FontSize = 2;
    ws().SelectedLink = static_cast<int16_t>(a);
    ZoomLinksOut(ws());
    EXPECT_EQ(Label(a).FontSize.get(), 2.0f);
}

TEST_F(LinkLayout, TheSizePromptCancelledOrNotANumberChangesNothing) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 400);
    const int b = AddOnBack(QStringLiteral("b.txt"), 3000, 2400);
    Select({a, b});
    ws().SelectedLink = static_cast<int16_t>(b);
    ShowLinkToolbar(ws(), ws().picBack(0));
    ws().picMiniToolbar(2).BorderStyle = 1;
    SetLinksSize(ws()); // no answer: the dialog was cancelled
    ASSERT_EQ(t.platform.inputPrompts.size(), 1u);
    EXPECT_EQ(t.platform.inputPrompts[0], QStringLiteral("New Size:|Perchdock|10"));
    EXPECT_EQ(ws().picMiniToolbar(2).BorderStyle.get(), 0);
    for (const char* answer : {"", "   ", "big", "12pt"}) {
        t.platform.inputAnswers.push_back(QString::fromLatin1(answer));
        SetLinksSize(ws());
        EXPECT_EQ(Label(a).FontSize.get(), 10.0f) << answer;
        EXPECT_EQ(Label(b).FontSize.get(), 10.0f) << answer;
        EXPECT_EQ(Label(b).Left.get(), 3000.0f) << answer;
        EXPECT_EQ(ws().SelectedLink, b) << answer;
    }
}

TEST_F(LinkLayout, TheSizePromptSetsEverySelectedShortcut) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 400);
    const int b = AddOnBack(QStringLiteral("b.txt"), 3000, 2400);
    Label(b).FontSize = 8;
    Select({a, b});
    ws().SelectedLink = static_cast<int16_t>(b);
    t.platform.inputAnswers.push_back(QStringLiteral(" 14 "));
    SetLinksSize(ws());
    EXPECT_EQ(t.platform.inputPrompts.back(), QStringLiteral("New Size:|Perchdock|8"));
    EXPECT_EQ(Label(a).FontSize.get(), 14.0f);
    EXPECT_EQ(Label(b).FontSize.get(), 14.0f);
    EXPECT_EQ(ws().Links[static_cast<size_t>(a)].Size, 14);
    EXPECT_EQ(ws().Links[static_cast<size_t>(b)].Size, 14);
    EXPECT_EQ(ws().SelectedLink, a) << "the highest becomes the current shortcut";
    // Stacked from the former current shortcut, b: a goes under it.
    EXPECT_EQ(Label(b).Left.get(), 3000.0f);
    EXPECT_EQ(Label(a).Left.get(), 3000.0f);
    EXPECT_EQ(Label(a).Top.get(), 2400 + std::max(Label(b).Height.get(), Icon(b).Height.get()) + 30);
}

TEST_F(LinkLayout, BoldFlipsEachSelectedShortcutByItself) {
    const int a = AddOnBack(QStringLiteral("a.txt"), 1000, 400);
    const int b = AddOnBack(QStringLiteral("b.txt"), 3000, 2400);
    const int c = AddOnBack(QStringLiteral("c.txt"), 3000, 3400);
    Label(b).FontBold = true;
    ws().Links[static_cast<size_t>(b)].Bold = true;
    Select({a, b});
    ToggleBoldSelected(ws());
    EXPECT_TRUE(Label(a).FontBold.get());
    EXPECT_TRUE(ws().Links[static_cast<size_t>(a)].Bold);
    EXPECT_FALSE(Label(b).FontBold.get());
    EXPECT_FALSE(ws().Links[static_cast<size_t>(b)].Bold);
    EXPECT_FALSE(Label(c).FontBold.get());
}

TEST_F(LinkLayout, KeepingALabelInsideAContainer) {
    const int c = t.newContainerAt(200, 600);
    Element& box = ws().grpBorder(c);
    box.Width = 4000;
    box.Height = 3000;
    const int n = Add(QStringLiteral("a.txt"), box, 500, 300);
    Element& l = Label(n);
    l.Move(-10, -10);
    KeepLinkInside(ws(), l);
    EXPECT_EQ(l.Left.get(), 100.0f);
    EXPECT_EQ(l.Top.get(), 0.0f);
    l.Move(3301, 2501);
    KeepLinkInside(ws(), l);
    EXPECT_EQ(l.Left.get(), 4000 - l.Width - 100);
    EXPECT_EQ(l.Top.get(), 3000 - l.Height - 100);
    // At the limits themselves it stays.
    l.Move(3300, 2500);
    KeepLinkInside(ws(), l);
    EXPECT_EQ(l.Left.get(), 3300.0f);
    EXPECT_EQ(l.Top.get(), 2500.0f);
}

TEST_F(LinkLayout, ALabelAboveTheBackgroundGoesUnderTheTitleBar) {
    const int n = AddOnBack(QStringLiteral("a.txt"), 500, 300);
    Element& l = Label(n);
    ws().picMoveMe(0).Top = 30;
    ws().picMoveMe(0).Height = 255;
    l.Move(-1, -50);
    KeepLinkInside(ws(), l);
    EXPECT_EQ(l.Left.get(), 100.0f);
    EXPECT_EQ(l.Top.get(), 285.0f);
    // A container above the background's top goes to 0.
    const int c = t.newContainerAt(200, 600);
    ws().Group(c).Top = -40;
    KeepLinkInside(ws(), ws().Group(c));
    EXPECT_EQ(ws().Group(c).Top.get(), 0.0f);
}

TEST_F(LinkLayout, TheSortsAgreeWithTheStandardSort) {
    std::mt19937 rng(7);
    std::uniform_int_distribution<int> pick(0, 50);
    for (int round = 0; round < 20; ++round) {
        const int size = 1 + round * 7;
        std::vector<float> keys;
        std::vector<QString> names;
        std::vector<int16_t> items;
        for (int k = 0; k < size; ++k) {
            keys.push_back(static_cast<float>(pick(rng)));
            names.push_back(QString::number(pick(rng)));
            items.push_back(static_cast<int16_t>(k));
        }
        std::vector<float> sortedKeys = keys;
        std::sort(sortedKeys.begin(), sortedKeys.end());
        std::vector<int16_t> carried = items;
        std::vector<float> k2 = keys;
        QuickSortNumbers(k2, carried, 0, size - 1);
        EXPECT_EQ(k2, sortedKeys);
        for (int k = 0; k < size; ++k) EXPECT_EQ(keys[static_cast<size_t>(carried[static_cast<size_t>(k)])], k2[static_cast<size_t>(k)]);
        std::vector<QString> up = names, down = names;
        std::vector<int16_t> i1 = items, i2 = items;
        QuickSortStringsAscending(up, i1, 0, size - 1);
        QuickSortStringsDescending(down, i2, 0, size - 1);
        EXPECT_TRUE(std::is_sorted(up.begin(), up.end()));
        EXPECT_TRUE(std::is_sorted(down.rbegin(), down.rend()));
    }
    // A range outside the arrays sorts nothing.
    std::vector<float> keys{3, 2, 1};
    std::vector<int16_t> items{0, 1, 2};
    QuickSortNumbers(keys, items, 0, 3);
    EXPECT_EQ(keys, (std::vector<float>{3, 2, 1}));
}
