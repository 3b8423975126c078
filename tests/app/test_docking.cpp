// Docking and auto-hide on the fake platform and the hand clock: the positions that count as docked,
// the three cases of DockMe, the slide, the undock with its two right-edge places, DockNow, the
// heartbeat and the delayed undock, the top-most list, the dock menu and the dock button.

#include "app/MainWindow.h"
#include "shortcuts/Launch.h"
#include "support/TestWorkspace.h"
#include "window/AutoHide.h"
#include "window/Docking.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

// The fake screen: 1920 x 1080 pixels at 15 twips a pixel.
constexpr float kScreenW = 1920 * 15.0f;
constexpr float kW = 10065;
constexpr float kH = 5265;

class Docking : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireCoreCommands(ws());
        win().Move(3000, 2000, kW, kH);
        // The pointer far away from the window, and another program in front.
        t.platform.cursor = QPoint(1900, 1070);
        t.platform.foreground.clear();
        ws().TimerHide.setEnabled(true);
    }
    Workspace& ws() { return *t.ws; }
    Element& win() { return ws().frmMain(0); }
    bool Checked(const char* name) { return ws().menus[QString::fromLatin1(name)].Checked(); }
    void Set(const char* name, bool on) { ws().menus[QString::fromLatin1(name)].setChecked(on); }
    // Runs the slide until it ends; returns the number of ticks.
    int SlideToEnd() {
        int ticks = 0;
        while (ws().TimerSlide.Enabled() && ticks < 10000) {
            t.clock.advance(5);
            ++ticks;
        }
        return ticks;
    }
    // The pointer on the window's rectangle, in pixels.
    void PointerOnWindow(int dx = 0, int dy = 0) {
        t.platform.cursor = QPoint(static_cast<int>(std::lround(win().Left / 15)) + dx,
                                   static_cast<int>(std::lround(win().Top / 15)) + dy);
    }

    TestWorkspace t;
};

// --- IsDocked ---

TEST_F(Docking, IsDockedReadsThePositionOnly) {
    win().Move(3000, 2000);
    EXPECT_FALSE(IsDocked(ws()));
    win().Left = -100;
    EXPECT_FALSE(IsDocked(ws()));
    win().Left = -101;
    EXPECT_TRUE(IsDocked(ws()));
    win().Left = kScreenW - 40;
    EXPECT_TRUE(IsDocked(ws()));
    win().Left = kScreenW - 120;
    EXPECT_TRUE(IsDocked(ws()));
    win().Left = kScreenW - 100;
    EXPECT_FALSE(IsDocked(ws()));
    win().Move(3000, -100);
    EXPECT_FALSE(IsDocked(ws()));
    win().Top = 40 - kH;
    EXPECT_TRUE(IsDocked(ws()));
    win().Top = 0;
    EXPECT_FALSE(IsDocked(ws()));
}

TEST_F(Docking, IsMouseOverWindowIncludesBothBorders) {
    win().Move(1500, 3000, 1500, 750); // pixels 100..200 by 200..250
    t.platform.cursor = QPoint(100, 200);
    EXPECT_TRUE(IsMouseOverWindow(ws()));
    t.platform.cursor = QPoint(200, 250);
    EXPECT_TRUE(IsMouseOverWindow(ws()));
    t.platform.cursor = QPoint(201, 250);
    EXPECT_FALSE(IsMouseOverWindow(ws()));
    t.platform.cursor = QPoint(150, 199);
    EXPECT_FALSE(IsMouseOverWindow(ws()));
}

// --- DockMe: the three cases ---

TEST_F(Docking, LeftZeroIsCaseCAndDocksLeftEvenBelowTheTop) {
    win().Move(0, 2000);
    EXPECT_TRUE(DockMe(ws(), false));
    EXPECT_EQ(win().Left, 40 - kW);
    EXPECT_EQ(win().Top, 2000.0f);
    EXPECT_EQ(win().BackColor, ws().DockingColor);
    EXPECT_TRUE(t.platform.onTop[QStringLiteral("frmMain")]);
    // The non-animated path leaves DockSide alone.
    EXPECT_EQ(ws().DockSide, 3);
}

TEST_F(Docking, TopZeroWithLeftAboveZeroIsCaseB) {
    win().Move(3000, 0);
    EXPECT_TRUE(DockMe(ws(), false));
    EXPECT_EQ(win().Top, 40 - kH);
    EXPECT_EQ(win().Left, 3000.0f);
}

TEST_F(Docking, MinusHundredIsNotDockedAndSlidesLeft) {
    win().Move(-100, 2000);
    EXPECT_FALSE(IsDocked(ws()));
    EXPECT_TRUE(DockMe(ws(), true));
    EXPECT_EQ(ws().DockSide, 1);
    EXPECT_TRUE(ws().TimerSlide.Enabled());
    // Nothing moved yet: the slide does it, 500 twips a tick.
    EXPECT_EQ(win().Left, -100.0f);
    t.clock.advance(5);
    EXPECT_EQ(win().Left, -600.0f);
    const int ticks = SlideToEnd();
    EXPECT_EQ(win().Left, 40 - kW);
    EXPECT_TRUE(IsDocked(ws()));
    EXPECT_EQ(win().BackColor, ws().DockingColor);
    EXPECT_TRUE(t.platform.onTop[QStringLiteral("frmMain")]);
    // From -600 the slide stops once 100 - Width >= Left: 19 more steps reach -10100.
    EXPECT_EQ(ticks, 19);
}

TEST_F(Docking, FlushWithTheRightEdgeDoesNotDockRight) {
    win().Move(kScreenW - kW, 2000);
    EXPECT_FALSE(DockMe(ws(), false));
    EXPECT_EQ(win().Left, kScreenW - kW);
    EXPECT_FALSE(ws().TimerSlide.Enabled());
    // Not docked: it stops being top-most.
    ASSERT_FALSE(t.platform.onTopCalls.empty());
    EXPECT_FALSE(t.platform.onTopCalls.back().onTop);
    // One twip further it docks.
    win().Left = kScreenW - kW + 1;
    EXPECT_TRUE(DockMe(ws(), false));
    EXPECT_EQ(win().Left, kScreenW - 40);
}

TEST_F(Docking, PastTheRightEdgeSlidesRight) {
    win().Move(kScreenW - kW + 100, 2000);
    EXPECT_TRUE(DockMe(ws(), true));
    EXPECT_EQ(ws().DockSide, 2);
    SlideToEnd();
    EXPECT_EQ(win().Left, kScreenW - 40);
    EXPECT_TRUE(IsDocked(ws()));
}

TEST_F(Docking, AtScreenWidthLessHundredNothingMovesButItCountsAsDocked) {
    win().Move(kScreenW - 100, 2000);
    EXPECT_TRUE(DockMe(ws(), true));
    EXPECT_FALSE(ws().TimerSlide.Enabled());
    EXPECT_EQ(win().Left, kScreenW - 100);
}

TEST_F(Docking, AWindowInTheMiddleDoesNotDock) {
    EXPECT_FALSE(DockMe(ws(), true));
    EXPECT_EQ(win().Left, 3000.0f);
    EXPECT_EQ(win().Top, 2000.0f);
}

TEST_F(Docking, DockedAtTheRightStopsBeingTopMostAtTheNextTick) {
    win().Move(kScreenW - 40, 2000);
    t.platform.onTopCalls.clear();
    EXPECT_FALSE(DockMe(ws(), true));
    ASSERT_EQ(t.platform.onTopCalls.size(), 1u);
    EXPECT_FALSE(t.platform.onTopCalls[0].onTop);
    EXPECT_EQ(win().Left, kScreenW - 40);
    EXPECT_TRUE(IsDocked(ws()));
    // Docked at the left it stays top-most: nothing is called.
    win().Move(40 - kW, 2000);
    t.platform.onTopCalls.clear();
    EXPECT_TRUE(DockMe(ws(), true));
    EXPECT_TRUE(t.platform.onTopCalls.empty());
}

TEST_F(Docking, WithoutAnimationTheWindowJumps) {
    Set("mnuAnimateDock", false);
    win().Move(-100, 2000);
    EXPECT_TRUE(DockMe(ws(), true));
    EXPECT_FALSE(ws().TimerSlide.Enabled());
    EXPECT_EQ(win().Left, 40 - kW);
}

TEST_F(Docking, WideBorderLeavesHundredTwentyTwips) {
    Set("mnuWideDockingBorder", true);
    win().Move(0, 0);
    DockMe(ws(), false);
    EXPECT_EQ(win().Left, 120 - kW);
}

TEST_F(Docking, SwitchingTheWideBorderWhileDockedKeepsItDocked) {
    win().Move(-100, 2000);
    DockMe(ws(), false);
    ASSERT_EQ(win().Left, 40 - kW);
    Set("mnuWideDockingBorder", true);
    EXPECT_TRUE(IsDocked(ws()));
    EXPECT_TRUE(DockMe(ws(), true));
    EXPECT_FALSE(ws().TimerSlide.Enabled());
    EXPECT_EQ(win().Left, 40 - kW);
    // At the right too.
    win().Move(kScreenW - 40, 2000);
    EXPECT_TRUE(IsDocked(ws()));
    EXPECT_TRUE(Undock(ws()));
    EXPECT_EQ(win().Left, kScreenW - kW + 200);
    // At the top.
    win().Move(3000, 40 - kH);
    EXPECT_TRUE(DockMe(ws(), true));
    EXPECT_EQ(win().Top, 40 - kH);
    EXPECT_TRUE(Undock(ws()));
    EXPECT_EQ(win().Top, -100.0f);
}

// --- the slide and Undock ---

TEST_F(Docking, UndockDuringASlideDoesNotStopTheSlide) {
    win().Move(-100, 2000);
    DockMe(ws(), true);
    t.clock.advance(5);
    t.clock.advance(5);
    ASSERT_EQ(win().Left, -1100.0f);
    // The mouse-down handler undocks: the window jumps back, and the slide goes on.
    DockMouseDown(ws());
    EXPECT_EQ(win().Left, -100.0f);
    EXPECT_TRUE(ws().TimerSlide.Enabled());
    SlideToEnd();
    EXPECT_EQ(win().Left, 40 - kW);
}

TEST_F(Docking, ImmediateUndockWaitsForTheSlide) {
    Set("mnuUndockImmediately", false);
    win().Move(-100, 2000);
    DockMe(ws(), true);
    t.clock.advance(5);
    t.clock.advance(5);
    DockMouseMove(ws());
    EXPECT_EQ(win().Left, -1100.0f);
    SlideToEnd();
    DockMouseMove(ws());
    EXPECT_EQ(win().Left, -100.0f);
    EXPECT_EQ(win().BackColor, ws().picBack(0).BackColor);
}

TEST_F(Docking, UndockUsesTwoHundredAtTheRightAndTheMenuHundred) {
    win().Move(kScreenW - 40, 2000);
    EXPECT_TRUE(Undock(ws()));
    EXPECT_EQ(win().Left, kScreenW - kW + 200);
    EXPECT_EQ(ws().DockSide, 2);
    ws().menus["mnuDockRight"].Click();
    EXPECT_EQ(win().Left, kScreenW - kW + 100);
    EXPECT_EQ(win().Top, (1080 * 15.0f) / 2 - kH / 2);
}

TEST_F(Docking, UndockOfAnUndockedWindowDoesNothing) {
    win().Move(-100, -100);
    const int32_t back = win().BackColor;
    EXPECT_FALSE(Undock(ws()));
    EXPECT_EQ(win().Left, -100.0f);
    EXPECT_EQ(win().BackColor, back);
}

// --- DockNow and the menu ---

TEST_F(Docking, DockNowWithSideThreeDocksAtTheTopWhereverTheWindowIs) {
    ASSERT_EQ(ws().DockSide, 3);
    win().Move(5000, 4000);
    ws().menus["mnuDockNow"].Click();
    EXPECT_EQ(win().Top, 40 - kH);
    EXPECT_EQ(win().Left, 5000.0f);
    EXPECT_EQ(win().BackColor, ws().DockingColor);
    EXPECT_TRUE(t.platform.onTop[QStringLiteral("frmMain")]);
}

TEST_F(Docking, DockMenuSidesCentreAndSetTheSide) {
    ws().menus["mnuDockLeft"].Click();
    EXPECT_EQ(win().Left, -100.0f);
    EXPECT_EQ(win().Top, (1080 * 15.0f) / 2 - kH / 2);
    EXPECT_EQ(ws().DockSide, 1);
    ws().menus["mnuDockTop"].Click();
    EXPECT_EQ(win().Left, kScreenW / 2 - kW / 2);
    EXPECT_EQ(win().Top, -100.0f);
    EXPECT_EQ(ws().DockSide, 3);
    MarkDockSide(ws());
    EXPECT_TRUE(Checked("mnuDockTop"));
    EXPECT_FALSE(Checked("mnuDockLeft"));
    EXPECT_EQ(ws().menus["mnuDock"].Caption(), QStringLiteral("&Dock"));
    EXPECT_EQ(ws().menus["mnuDockNow"].Caption(), QStringLiteral("&Collapse Now (Esc)"));
}

TEST_F(Docking, PicDockLeftClickCollapsesAndOtherButtonsOpenTheMenu) {
    ws().DockSide = 1;
    win().Move(-100, 2000);
    PicDock_MouseDown(ws(), 1);
    EXPECT_EQ(PicDock_MouseUp(ws(), 1), QString());
    EXPECT_EQ(win().Left, 40 - kW);
    EXPECT_EQ(PicDock_MouseUp(ws(), 2), QStringLiteral("mnuDock"));
    EXPECT_TRUE(Checked("mnuDockLeft"));
    EXPECT_FALSE(Checked("mnuDockTop"));
}

// --- the heartbeat and the delayed undock ---

TEST_F(Docking, DocksWithinASecondOfPointerOutAndAnotherWindowInFront) {
    win().Move(-100, 2000);
    t.platform.foreground = QStringLiteral("frmMain");
    t.clock.advance(1000);
    EXPECT_FALSE(ws().TimerSlide.Enabled());
    // The focus goes elsewhere but the pointer is on the window: it stays.
    t.platform.foreground.clear();
    PointerOnWindow(20, 20);
    t.clock.advance(1000);
    EXPECT_FALSE(ws().TimerSlide.Enabled());
    // Pointer out: the next tick starts the slide.
    t.platform.cursor = QPoint(1900, 1070);
    t.clock.advance(1000);
    EXPECT_TRUE(ws().TimerSlide.Enabled());
    SlideToEnd();
    EXPECT_EQ(win().Left, 40 - kW);
}

TEST_F(Docking, AHiddenWindowIsNeverDockedButItsAlarmsAreChecked) {
    int checks = 0;
    ws().RemindersPresent = true;
    ws().onAlarmCheck = [&checks] { ++checks; };
    Set("mnuShowTime", true);
    ws().lblCaption(0).Caption = QStringLiteral("before");
    win().Move(-100, 2000);
    win().Visible = false;
    t.clock.advance(3000);
    EXPECT_EQ(checks, 3);
    EXPECT_FALSE(ws().TimerSlide.Enabled());
    EXPECT_EQ(win().Left, -100.0f);
    EXPECT_EQ(ws().lblCaption(0).Caption.get(), QStringLiteral("before"));
    // Without reminders there is no check.
    ws().RemindersPresent = false;
    t.clock.advance(1000);
    EXPECT_EQ(checks, 3);
}

TEST_F(Docking, APassOverTheStripThatLeavesWithinHalfASecondDoesNothing) {
    win().Move(40 - kW, 2000);
    PointerOnWindow(static_cast<int>(kW / 15) - 1, 10);
    ASSERT_TRUE(IsMouseOverWindow(ws()));
    DockMouseMove(ws());
    EXPECT_TRUE(ws().TimerShow.Enabled());
    t.clock.advance(300);
    t.platform.cursor = QPoint(900, 1000);
    t.clock.advance(200);
    EXPECT_FALSE(ws().TimerShow.Enabled());
    EXPECT_EQ(win().Left, 40 - kW);
    // A pointer that stays brings it back after the delay.
    PointerOnWindow(static_cast<int>(kW / 15) - 1, 10);
    DockMouseMove(ws());
    t.clock.advance(499);
    EXPECT_EQ(win().Left, 40 - kW);
    t.clock.advance(1);
    EXPECT_EQ(win().Left, -100.0f);
    EXPECT_EQ(ws().DockSide, 1);
}

TEST_F(Docking, AMaximisedWindowIgnoresTheMouse) {
    win().Move(40 - kW, 2000);
    win().WindowState = 2;
    DockMouseMove(ws());
    EXPECT_FALSE(ws().TimerShow.Enabled());
}

TEST_F(Docking, TheTimerIsLeftAloneWhileTheToolbarShows) {
    ws().ToolbarVisible = true;
    EnableDisableTimerHide(ws(), false);
    EXPECT_TRUE(ws().TimerHide.Enabled());
    ws().ToolbarVisible = false;
    EnableDisableTimerHide(ws(), false);
    EXPECT_FALSE(ws().TimerHide.Enabled());
    // No dock under a dialog.
    win().Move(-100, 2000);
    t.clock.advance(2000);
    EXPECT_FALSE(ws().TimerSlide.Enabled());
}

// --- SetOnTop and its list ---

TEST_F(Docking, SetOnTopKeepsTheListAndRestoresItAfterARemoval) {
    t.platform.onTopCalls.clear();
    SetOnTop(ws(), QStringLiteral("frmToolbar"), true, false);
    SetOnTop(ws(), QStringLiteral("frmToolbar"), true, false); // tolerated
    SetOnTop(ws(), QStringLiteral("frmMain"), true, false);
    EXPECT_EQ(ws().TopmostWindows,
              (std::vector<QString>{QStringLiteral("frmToolbar"), QStringLiteral("frmMain")}));
    // The main window comes up without taking the focus; others may.
    EXPECT_FALSE(t.platform.onTopCalls[0].noActivate);
    EXPECT_TRUE(t.platform.onTopCalls[2].noActivate);
    t.platform.onTopCalls.clear();
    SetOnTop(ws(), QStringLiteral("frmToolbar"), false, false);
    EXPECT_EQ(ws().TopmostWindows, (std::vector<QString>{QStringLiteral("frmMain")}));
    ASSERT_EQ(t.platform.onTopCalls.size(), 2u);
    EXPECT_FALSE(t.platform.onTopCalls[0].onTop);
    EXPECT_EQ(t.platform.onTopCalls[1].window, QStringLiteral("frmMain"));
    EXPECT_TRUE(t.platform.onTopCalls[1].onTop);
    // An internal removal takes it off the list without restoring the others.
    t.platform.onTopCalls.clear();
    SetOnTop(ws(), QStringLiteral("frmMain"), false, true);
    EXPECT_TRUE(ws().TopmostWindows.empty());
    EXPECT_EQ(t.platform.onTopCalls.size(), 1u);
}

// --- PostLaunch ---

TEST_F(Docking, PostLaunchDocksWithoutASlide) {
    win().Move(-100, 2000);
    ASSERT_TRUE(Checked("mnuCollapseBefore"));
    PostLaunch(ws(), true);
    EXPECT_EQ(win().Left, -100.0f);
    PostLaunch(ws(), false);
    EXPECT_FALSE(ws().TimerSlide.Enabled());
    EXPECT_EQ(win().Left, 40 - kW);
}

// --- the caption ---

TEST_F(Docking, TheCaptionShowsTheDateAndTimeEachSecond) {
    ws().menus["mnuShowTime"].Click();
    ASSERT_TRUE(Checked("mnuShowTime"));
    const QString first = ws().lblCaption(0).Caption;
    EXPECT_TRUE(first.endsWith(QStringLiteral(" | 12:00 PM"))) << first.toStdString();
    EXPECT_TRUE(first.contains(QStringLiteral("2026")));
    t.clock.advance(61000);
    EXPECT_TRUE(ws().lblCaption(0).Caption.get().endsWith(QStringLiteral(" | 12:01 PM")));
    ws().menus["mnuShowTime"].Click();
    EXPECT_TRUE(ws().lblCaption(0).Caption.get().startsWith(QStringLiteral("Perchdock ")));
}

} // namespace
