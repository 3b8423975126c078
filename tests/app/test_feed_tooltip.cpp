// The headline tip window on the fake platform and the hand clock: top-most and translucent at 240,
// gone on a move or when the pointer leaves the headlines, the wheel passed on.

#include "support/TestWorkspace.h"
#include "window/FeedTooltip.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

struct FeedTooltipTest : ::testing::Test {
    TestWorkspace t;
    FeedTooltipTest() { t.start(); }
};

TEST_F(FeedTooltipTest, ItIsTopMostTranslucentAndStaysWhileOverAHeadline) {
    FeedTooltip tip(*t.ws);
    bool over = true;
    tip.OverHeadline = [&over] { return over; };
    ShowFeedTooltip(tip, QStringLiteral("A headline"), 3000, 2000);
    EXPECT_TRUE(tip.Loaded);
    EXPECT_EQ(tip.Text, QStringLiteral("A headline"));
    EXPECT_TRUE(t.platform.onTop[QStringLiteral("frmTooltip")]);
    EXPECT_EQ(t.platform.alpha[QStringLiteral("frmTooltip")], 240);
    t.clock.advance(3000);
    EXPECT_TRUE(tip.Loaded);
    over = false;
    t.clock.advance(1000);
    EXPECT_FALSE(tip.Loaded);
    EXPECT_TRUE(t.ws->TopmostWindows.empty());
}

TEST_F(FeedTooltipTest, AMoveOnItClosesItAndTheWheelGoesOn) {
    FeedTooltip tip(*t.ws);
    std::vector<int> wheel;
    tip.MouseWheel = [&wheel](int keys, int turn, int x, int y) { wheel = {keys, turn, x, y}; };
    ShowFeedTooltip(tip, QStringLiteral("A headline"), 3000, 2000);
    FeedTooltip_Wheel(tip, 0, -120, 300, 200);
    EXPECT_EQ(wheel, (std::vector<int>{0, -120, 300, 200}));
    EXPECT_TRUE(tip.Loaded);
    FeedTooltip_MouseMove(tip);
    EXPECT_FALSE(tip.Loaded);
    EXPECT_FALSE(tip.TimerHide.Enabled());
}

} // namespace
