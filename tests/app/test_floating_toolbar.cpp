// The floating toolbar on the fake platform and the hand clock: a click in place on the background
// opens it, a moved click or one in the top 360 twips does not; the fades; the mouse watch; a dragged
// toolbar stays until the next click on the background; the close mark; keys act and close it.

#include "app/MainWindow.h"
#include "containers/Selection.h"
#include "support/TestWorkspace.h"
#include "window/FloatingToolbar.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class ToolbarTest : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireCoreCommands(ws());
        ws().frmMain(0).Move(1500, 1500, 10065, 5265);
        ws().TimerHide.setEnabled(true);
    }
    Workspace& ws() { return *t.ws; }
    FloatingToolbar& tb() { return Toolbar(ws()); }
    void Click(float x, float y) {
        ToolbarBackPress(ws(), x, y);
        ToolbarBackRelease(ws(), x, y);
    }
    // The pointer on the toolbar (pixels).
    void PointerOnToolbar() {
        t.platform.cursor = QPoint(static_cast<int>(tb().Left / 15) + 5, static_cast<int>(tb().Top / 15) + 5);
    }
    TestWorkspace t;
};

TEST_F(ToolbarTest, AClickInPlaceOpensItAtThePointer) {
    Click(2000, 1000);
    ASSERT_TRUE(tb().Loaded);
    EXPECT_EQ(tb().Left, 1500 + 2000 - 100.0f);
    EXPECT_EQ(tb().Top, 1500 + 1000 - 250.0f);
    EXPECT_EQ(ws().ToolbarLeft, tb().Left);
    EXPECT_EQ(ws().ToolbarTop, tb().Top);
    EXPECT_EQ(tb().Tip, QStringLiteral("New Container | Ctrl+C"));
    EXPECT_TRUE(t.platform.onTop[QStringLiteral("frmToolbar")]);
    EXPECT_FALSE(ws().ToolbarVisible);
}

TEST_F(ToolbarTest, AClickThatMovedByATwipOpensNothing) {
    ToolbarBackPress(ws(), 2000, 1000);
    ToolbarBackRelease(ws(), 2001, 1000);
    EXPECT_FALSE(tb().Loaded);
}

TEST_F(ToolbarTest, AClickInTheTop360TwipsOpensNothing) {
    Click(2000, 359);
    EXPECT_FALSE(tb().Loaded);
    Click(2000, 360);
    EXPECT_TRUE(tb().Loaded);
}

TEST_F(ToolbarTest, WithTheSettingOffNothingHappens) {
    ws().menus["mnuAddNewToolbar"].setChecked(false);
    Click(2000, 1000);
    EXPECT_FALSE(tb().Loaded);
}

TEST_F(ToolbarTest, ItFadesInToTwoHundredTwentyInEighteenTicks) {
    PointerOnToolbar();
    Click(2000, 1000);
    PointerOnToolbar();
    t.clock.advance(10);
    EXPECT_EQ(tb().Alpha, 13);
    t.clock.advance(160);
    EXPECT_EQ(tb().Alpha, 221); // 17 ticks of 12.8, each rounded
    EXPECT_TRUE(tb().TimerFadeIn.Enabled());
    t.clock.advance(10);
    EXPECT_EQ(tb().Alpha, 220);
    EXPECT_FALSE(tb().TimerFadeIn.Enabled());
}

TEST_F(ToolbarTest, ItFadesOutAndClosesWhenThePointerLeaves) {
    Click(2000, 1000);
    PointerOnToolbar();
    t.clock.advance(200);
    ASSERT_EQ(tb().Alpha, 220);
    t.platform.cursor = QPoint(5, 5);
    t.clock.advance(50);
    EXPECT_TRUE(tb().TimerFadeOut.Enabled());
    t.clock.advance(10);
    EXPECT_EQ(tb().Alpha, 256 - 13);
    t.clock.advance(300);
    EXPECT_FALSE(tb().Loaded);
    EXPECT_FALSE(ws().ToolbarVisible);
}

TEST_F(ToolbarTest, ADraggedToolbarDoesNotFadeUntilTheNextClickOnTheBackground) {
    Click(2000, 1000);
    PointerOnToolbar();
    ToolbarGripPress(ws());
    EXPECT_FALSE(ws().TimerHide.Enabled());
    ToolbarMoved(ws(), tb().Left + 600, tb().Top + 300);
    t.platform.cursor = QPoint(5, 5);
    t.clock.advance(1000);
    EXPECT_TRUE(tb().Loaded);
    EXPECT_FALSE(tb().TimerFadeOut.Enabled());
    EXPECT_TRUE(ws().ToolbarVisible);
    // A click on the background fades it out and lets the workspace dock again.
    Click(5000, 3000);
    EXPECT_TRUE(tb().TimerFadeOut.Enabled());
    EXPECT_TRUE(ws().TimerHide.Enabled());
    t.clock.advance(300);
    EXPECT_FALSE(tb().Loaded);
    EXPECT_FALSE(ws().ToolbarVisible);
}

TEST_F(ToolbarTest, IconsShowTheirTipsAndRunTheirCommands) {
    Click(2000, 1000);
    ImgToolbar_MouseMove(ws(), 6);
    EXPECT_EQ(tb().SelectedIcon, 6);
    EXPECT_EQ(tb().Tip, QStringLiteral("New Web URL | Ctrl+W"));
    int saves = 0;
    ws().menus["mnuSave"].onClick = [&saves] { ++saves; };
    ImgToolbar_Click(ws(), 8);
    EXPECT_EQ(saves, 1);
    ImgToolbar_Click(ws(), 9);
    EXPECT_TRUE(ws().menus["mnuTranslucent"].Checked());
    EXPECT_EQ(ToolbarTipText(10), QStringLiteral("New RSS | Ctrl+E"));
}

TEST_F(ToolbarTest, TheCloseMarkTurnsTheSettingOffAndSaysHowToGetItBack) {
    Click(2000, 1000);
    ToolbarCloseMark_Click(ws());
    EXPECT_FALSE(ws().menus["mnuAddNewToolbar"].Checked());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text,
              QStringLiteral(
                  "To show again: Right Click Menu >> Settings >> Global Settings >> Show Floating Toolbar"));
    EXPECT_EQ(t.platform.messages[0].style, 4160);
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Floating Toolbar"));
    EXPECT_FALSE(tb().Loaded);
}

TEST_F(ToolbarTest, AKeyActsAsOnTheWindowAndClosesAtOnce) {
    Click(2000, 1000);
    int saves = 0;
    ws().menus["mnuSave"].onClick = [&saves] { ++saves; };
    Toolbar_KeyDown(ws(), 119, 0);
    EXPECT_EQ(saves, 1);
    EXPECT_FALSE(tb().Loaded);
    EXPECT_FALSE(tb().TimerFadeOut.Enabled());
}

// --- through the background's own handlers ---

TEST_F(ToolbarTest, TheBackgroundsClickInPlaceOpensItAndADragDoesNot) {
    picBack_MouseDown(ws(), 1, 0, 2000, 1000);
    picBack_MouseUp(ws(), 1, 0, 2000, 1000);
    EXPECT_TRUE(tb().Loaded);
    UnloadToolbar(ws());
    // A press that moved by a twip draws the selection rectangle instead.
    picBack_MouseDown(ws(), 1, 0, 2000, 1000);
    picBack_MouseMove(ws(), 1, 0, 2001, 1000);
    picBack_MouseUp(ws(), 1, 0, 2001, 1000);
    EXPECT_FALSE(tb().Loaded);
    // With Ctrl nothing opens.
    picBack_MouseDown(ws(), 1, 2, 2000, 1000);
    picBack_MouseUp(ws(), 1, 2, 2000, 1000);
    EXPECT_FALSE(tb().Loaded);
}

TEST_F(ToolbarTest, AClickThatOnlyDropsASelectionOpensNothing) {
    const int c = t.newContainerAt(3000, 3000);
    ws().lblName(c).FontBold = true;
    picBack_MouseDown(ws(), 1, 0, 2000, 1000);
    picBack_MouseUp(ws(), 1, 0, 2000, 1000);
    EXPECT_FALSE(ws().lblName(c).FontBold);
    EXPECT_FALSE(tb().Loaded);
    // The next click opens it.
    picBack_MouseDown(ws(), 1, 0, 2000, 1000);
    picBack_MouseUp(ws(), 1, 0, 2000, 1000);
    EXPECT_TRUE(tb().Loaded);
}

} // namespace
