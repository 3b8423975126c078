// The window of a feed headline's tip: it follows the tip's state, stays whole on the screen, is as
// wide as its longest line up to 400 pixels, closes on a pointer move or a press, and passes a wheel
// turn on to the panel beneath.

#include "support/TestWorkspace.h"
#include "view/FeedTooltipWindow.h"
#include "view/RichLabel.h"
#include "window/FeedTooltip.h"

#include <QApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QWheelEvent>

#include <array>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

struct TipWindow : ::testing::Test {
    TestWorkspace t;
    Workspace& ws = *t.ws;
    FeedTooltip& tip = HeadlineTip(ws);
    FeedTooltipWindow window{tip, 15, 15};
    TipWindow() { tip.onChanged = [this] { window.sync(); }; }
};

} // namespace

TEST_F(TipWindow, ShowsTheTextWhereTheTipSaysAndHidesWithIt) {
    EXPECT_FALSE(window.isVisible());
    ShowFeedTooltip(tip, QStringLiteral("Headline one\nSecond line"), 300 * 15, 200 * 15);
    ASSERT_TRUE(window.isVisible());
    EXPECT_EQ(window.pos(), QPoint(300, 200));
    EXPECT_EQ(window.label().Text(), QStringLiteral("Headline one\nSecond line"));
    EXPECT_EQ(window.label().LineCount(), 2);
    EXPECT_NEAR(window.windowOpacity(), 240 / 255.0, 0.01);
    EXPECT_TRUE(window.windowFlags() & Qt::WindowStaysOnTopHint);
    UnloadFeedTooltip(tip);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(TipWindow, ALongLineWrapsAtTheWidthLimit) {
    ShowFeedTooltip(tip, QStringLiteral("short"), 0, 0);
    const int narrow = window.width();
    EXPECT_LT(narrow, FeedTooltipWindow::kMaxWidth);
    ShowFeedTooltip(tip, QString(60, QLatin1Char('w')) + QStringLiteral(" ") + QString(60, QLatin1Char('w')), 0, 0);
    EXPECT_EQ(window.width(), FeedTooltipWindow::kMaxWidth);
    EXPECT_GE(window.label().LineCount(), 2);
}

TEST_F(TipWindow, ATipAtTheScreensEdgeMovesBackWhole) {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    ShowFeedTooltip(tip, QStringLiteral("At the edge"), static_cast<float>(screen.right()) * 15,
                    static_cast<float>(screen.bottom()) * 15);
    EXPECT_EQ(window.x() + window.width(), screen.right() + 1);
    EXPECT_EQ(window.y() + window.height(), screen.bottom() + 1);
}

TEST_F(TipWindow, APointerMoveOrAPressClosesIt) {
    ShowFeedTooltip(tip, QStringLiteral("Tip"), 0, 0);
    QMouseEvent move(QEvent::MouseMove, QPointF(2, 2), QPointF(2, 2), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&window.label(), &move);
    EXPECT_FALSE(tip.Loaded);
    EXPECT_FALSE(window.isVisible());
    ShowFeedTooltip(tip, QStringLiteral("Tip"), 0, 0);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(2, 2), QPointF(2, 2), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&window, &press);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(TipWindow, AWheelGoesOnToThePanelBeneath) {
    std::vector<std::array<int, 4>> wheels;
    tip.MouseWheel = [&](int keys, int turn, int x, int y) { wheels.push_back({keys, turn, x, y}); };
    ShowFeedTooltip(tip, QStringLiteral("Tip"), 0, 0);
    QWheelEvent wheel(QPointF(5, 5), QPointF(105, 205), QPoint(), QPoint(0, -120), Qt::NoButton, Qt::ControlModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&window.label(), &wheel);
    ASSERT_EQ(wheels.size(), 1u);
    EXPECT_EQ(wheels[0][0], 8);
    EXPECT_EQ(wheels[0][1], -120);
    EXPECT_EQ(wheels[0][2], 105);
    EXPECT_EQ(wheels[0][3], 205);
    EXPECT_TRUE(tip.Loaded) << "a wheel does not close the tip";
}

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
