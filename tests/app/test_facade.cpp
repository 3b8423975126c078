// Element families, menu entries and the hand clock: the ground every routine stands on.

#include "app/clock/ManualClock.h"
#include "app/elements/ElementFamily.h"
#include "app/elements/Menu.h"

#include <gtest/gtest.h>

#include <vector>

using namespace pd;

namespace {
struct RecordingSink : ElementSink {
    std::vector<std::pair<QString, Prop>> changes;
    std::vector<QString> loaded;
    void elementLoaded(Element& e) override { loaded.push_back(e.Name() + QString::number(e.Index())); }
    void elementChanged(Element& e, Prop p) override { changes.emplace_back(e.Name() + QString::number(e.Index()), p); }
};
} // namespace

TEST(ElementFamily, MemberZeroExistsAndOthersAreLoadedWithItsDesign) {
    ElementSink* sink = nullptr;
    ElementFamily group(QStringLiteral("Group"), &sink);
    EXPECT_EQ(group.Count(), 1);
    group(0).Width = 2835;
    group(0).BackColor = 0x954815;
    group(0).Visible = true;
    Element& g3 = group.Load(3);
    EXPECT_EQ(group.Count(), 4);
    EXPECT_FALSE(group.exists(1));
    EXPECT_EQ(g3.Index(), 3);
    EXPECT_EQ(g3.Width.get(), 2835.0f);
    EXPECT_EQ(g3.BackColor.get(), 0x954815);
    // A loaded member starts hidden, as a new member of a control family does.
    EXPECT_FALSE(g3.Visible.get());
    // Loading again returns the same member with its state.
    g3.Left = 400;
    EXPECT_EQ(group.Load(3).Left.get(), 400.0f);
}

TEST(ElementFamily, SingleElementsHaveNoIndex) {
    ElementSink* sink = nullptr;
    ElementFamily back(QStringLiteral("picBack"), &sink, false);
    EXPECT_EQ(back(0).Index(), -1);
    EXPECT_EQ(back(0).Name(), QStringLiteral("picBack"));
}

TEST(ElementFamily, EveryChangeReachesTheSinkOnce) {
    RecordingSink rec;
    ElementSink* sink = &rec;
    ElementFamily link(QStringLiteral("Link"), &sink);
    link(0).Left = 100;
    link(0).Left = 100; // unchanged: no notice
    link(0).Caption = QStringLiteral("a");
    ASSERT_EQ(rec.changes.size(), 2u);
    EXPECT_EQ(rec.changes[0].second, Prop::Left);
    EXPECT_EQ(rec.changes[1].second, Prop::Caption);
    link.Load(1);
    ASSERT_EQ(rec.loaded.size(), 1u);
    EXPECT_EQ(rec.loaded[0], QStringLiteral("Link1"));
    // The view may follow the widget without echoing the change back.
    rec.changes.clear();
    link(0).Top.setFromView(300);
    EXPECT_EQ(link(0).Top.get(), 300.0f);
    EXPECT_TRUE(rec.changes.empty());
}

TEST(ElementFamily, ParentsAndStacking) {
    ElementSink* sink = nullptr;
    ElementFamily back(QStringLiteral("picBack"), &sink, false);
    ElementFamily border(QStringLiteral("grpBorder"), &sink);
    ElementFamily link(QStringLiteral("Link"), &sink);
    Element& a = link(0);
    Element& b = link.Load(1);
    a.setContainer(&border(0));
    EXPECT_EQ(a.Container()->Name(), QStringLiteral("grpBorder"));
    EXPECT_EQ(a.Container()->Index(), 0);
    b.setContainer(&back(0));
    EXPECT_EQ(b.Container()->Name(), QStringLiteral("picBack"));
    a.ZOrder(0);
    EXPECT_GT(a.zValue(), b.zValue());
    a.ZOrder(1);
    EXPECT_LT(a.zValue(), b.zValue());
}

TEST(Menus, CheckMarksStoreSettingsAndFamiliesCount) {
    MenuSink* sink = nullptr;
    Menus menus(&sink);
    menus.add(QStringLiteral("mnuMain"), QStringLiteral("Main"));
    MenuEntry& align = menus.add(QStringLiteral("mnuAlign"), QStringLiteral("&Align"), QStringLiteral("mnuMain"));
    align.setChecked(true);
    EXPECT_TRUE(menus[QStringLiteral("mnuAlign")].Checked());
    EXPECT_EQ(menus[QStringLiteral("mnuMain")].children().size(), 1u);
    menus.add(QStringLiteral("mnuRSSSearchItem"), QStringLiteral("[No Recent Search]"), QString(), 0);
    menus.add(QStringLiteral("mnuRSSSearchItem"), QStringLiteral("b"), QString(), 1);
    EXPECT_EQ(menus.familyCount(QStringLiteral("mnuRSSSearchItem")), 2);
    EXPECT_EQ(menus(QStringLiteral("mnuRSSSearchItem"), 1).objectName(), QStringLiteral("mnuRSSSearchItem_1"));
    int clicks = 0;
    align.onClick = [&] { ++clicks; };
    align.Click();
    EXPECT_EQ(clicks, 1);
}

TEST(ManualClock, FiresTimersAtTheirIntervalsInTimeOrder) {
    ManualClock clock;
    Timer slow(clock, QStringLiteral("TimerHide"), 1000);
    Timer fast(clock, QStringLiteral("TimerSlide"), 5);
    std::vector<QString> fired;
    slow.onTimer = [&] { fired.push_back(QStringLiteral("hide@") + QString::number(clock.ticks())); };
    int fastCount = 0;
    fast.onTimer = [&] { ++fastCount; };
    slow.setEnabled(true);
    fast.setEnabled(true);
    clock.advance(999);
    EXPECT_TRUE(fired.empty());
    EXPECT_EQ(fastCount, 199);
    clock.advance(1);
    ASSERT_EQ(fired.size(), 1u);
    EXPECT_EQ(fired[0], QStringLiteral("hide@1000"));
    fast.setEnabled(false);
    clock.advance(2000);
    EXPECT_EQ(fastCount, 200);
    EXPECT_EQ(fired.size(), 3u);
    EXPECT_TRUE(clock.isEnabled(QStringLiteral("TimerHide")));
    EXPECT_FALSE(clock.isEnabled(QStringLiteral("TimerSlide")));
}

TEST(ManualClock, ATimerThatStopsItselfFiresOnceAndNowMovesWithTicks) {
    ManualClock clock(QDateTime(QDate(2026, 3, 1), QTime(8, 0)));
    Timer once(clock, QStringLiteral("TimeLock"), 1700);
    int n = 0;
    once.onTimer = [&] {
        ++n;
        once.setEnabled(false);
    };
    once.setEnabled(true);
    clock.advance(10000);
    EXPECT_EQ(n, 1);
    EXPECT_EQ(clock.now(), QDateTime(QDate(2026, 3, 1), QTime(8, 0, 10)));
}

#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

TEST(Workspace, AShortcutLabelSizesItselfToItsCaption) {
    pd::test::TestWorkspace t;
    Workspace& ws = *t.ws;
    AddURL(ws, QStringLiteral("http://example.com/"), QStringLiteral("Example"), ws.picBack(0));
    Element& label = ws.Link(0);
    const QSize px = t.platform.textExtent(QStringLiteral("Example"), label.FontName, label.FontSize, false);
    EXPECT_EQ(label.Width.get(), px.width() * 15.0f);
    EXPECT_EQ(label.Height.get(), px.height() * 15.0f);
    label.FontBold = true;
    EXPECT_EQ(label.Width.get(), t.platform.textExtent(QStringLiteral("Example"), label.FontName, label.FontSize, true).width() * 15.0f);
    label.Caption = QStringLiteral("A much longer caption");
    EXPECT_GT(label.Width.get(), px.width() * 15.0f);
}

#include "window/WindowBands.h"

TEST(WindowBands, HitTableWithItsStrictLimits) {
    const float W = 6000, H = 4000;
    EXPECT_EQ(WindowHitTest(10, 10, W, H), 13);
    EXPECT_EQ(WindowHitTest(160, 10, W, H), 12); // X = 160 is the top band, not the corner
    EXPECT_EQ(WindowHitTest(W - 160, 10, W, H), 12);
    EXPECT_EQ(WindowHitTest(W - 159, 10, W, H), 14);
    EXPECT_EQ(WindowHitTest(3000, 200, W, H), 2);
    EXPECT_EQ(WindowHitTest(10, 299, W, H), 2);
    EXPECT_EQ(WindowHitTest(10, 300, W, H), 10);
    EXPECT_EQ(WindowHitTest(3000, 2000, W, H), 0);
    EXPECT_EQ(WindowHitTest(W - 10, 2000, W, H), 11);
    EXPECT_EQ(WindowHitTest(10, H - 160, W, H), 10);
    EXPECT_EQ(WindowHitTest(10, H - 159, W, H), 16);
    EXPECT_EQ(WindowHitTest(3000, H - 10, W, H), 15);
    EXPECT_EQ(WindowHitTest(W - 10, H - 10, W, H), 17);
}

TEST(WindowBands, PointerTableKeepsItsSixes) {
    const float W = 6000, H = 4000;
    EXPECT_EQ(WindowPointer(10, 10, W, H), 8);
    EXPECT_EQ(WindowPointer(3000, 10, W, H), 7);
    EXPECT_EQ(WindowPointer(W - 10, 10, W, H), 6);
    EXPECT_EQ(WindowPointer(3000, 200, W, H), 6); // the title band
    EXPECT_EQ(WindowPointer(10, 2000, W, H), 9);
    EXPECT_EQ(WindowPointer(3000, 2000, W, H), 0);
    EXPECT_EQ(WindowPointer(10, H - 10, W, H), 6); // the lower left
    EXPECT_EQ(WindowPointer(3000, H - 10, W, H), 7);
    EXPECT_EQ(WindowPointer(W - 10, H - 10, W, H), 8);
}

#include "window/Grid.h"

TEST(Grid, LinesEvery250TwipsOverTheTargetAndGoneAfterwards) {
    pd::test::TestWorkspace t;
    Workspace& ws = *t.ws;
    Element& back = ws.picBack(0);
    back.Move(50, 50, 1000, 600);
    back.ForeColor = 0x00FF00;
    ShowGrid(ws, 250, 250, back);
    // 1000 / 250 = 4 extra vertical lines, 600 / 250 = 2.4 -> 2 horizontal ones.
    EXPECT_EQ(ws.GridLinesV, 4);
    EXPECT_EQ(ws.GridLinesH, 2);
    EXPECT_EQ(ws.VerS(0).Left.get(), 250.0f);
    EXPECT_EQ(ws.VerS(4).Left.get(), 1250.0f);
    EXPECT_EQ(ws.HorS(2).Top.get(), 750.0f);
    EXPECT_EQ(ws.VerS(0).Height.get(), 600.0f);
    EXPECT_EQ(ws.HorS(0).Width.get(), 1000.0f);
    EXPECT_EQ(ws.VerS(3).BackColor.get(), 0x00FF00);
    EXPECT_TRUE(ws.VerSIndic(0).Visible.get());
    EXPECT_EQ(ws.VerS(2).Container(), &back);
    HideGrid(ws);
    EXPECT_FALSE(ws.VerS(0).Visible.get());
    EXPECT_FALSE(ws.HorSIndic(0).Visible.get());
    EXPECT_FALSE(ws.VerS.exists(1));
    EXPECT_EQ(ws.VerS.Count(), 1);
}
