// The floating toolbar's window on the offscreen platform: it shows where the toolbar stands, fades with
// it, runs an icon's command on a click there, and closes at once on a key.

#include "app/MainWindow.h"
#include "support/TestWorkspace.h"
#include "view/ToolbarWindow.h"
#include "window/FloatingToolbar.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

struct ToolbarWindowTest : ::testing::Test {
    TestWorkspace t;
    ToolbarWindowTest() {
        t.start();
        WireCoreCommands(*t.ws);
        t.ws->frmMain(0).Move(1500, 1500, 10065, 5265);
    }
    Workspace& ws() { return *t.ws; }
    void Open(ToolbarWindow& w) {
        Toolbar(ws()).onChanged = [&w] { w.sync(); };
        ToolbarBackPress(ws(), 2000, 1000);
        ToolbarBackRelease(ws(), 2000, 1000);
    }
    void Click(QWidget& w, QPoint at) {
        QMouseEvent press(QEvent::MouseButtonPress, at, w.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&w, &press);
        QMouseEvent release(QEvent::MouseButtonRelease, at, w.mapToGlobal(at), Qt::LeftButton, Qt::NoButton,
                            Qt::NoModifier);
        QApplication::sendEvent(&w, &release);
    }
};

TEST_F(ToolbarWindowTest, ItShowsWhereTheToolbarStandsAndFadesIn) {
    ToolbarWindow w(ws(), t.programDir());
    Open(w);
    ASSERT_TRUE(w.isVisible());
    // 3400 by 2250 twips: 227 by 150 pixels.
    EXPECT_EQ(w.geometry(), QRect(227, 150, 272, 52));
    EXPECT_DOUBLE_EQ(w.windowOpacity(), 0.0);
    t.platform.cursor = w.geometry().center();
    t.clock.advance(180);
    EXPECT_NEAR(w.windowOpacity(), 220 / 255.0, 0.01);
}

TEST_F(ToolbarWindowTest, AClickOnAnIconRunsItsCommand) {
    ToolbarWindow w(ws(), t.programDir());
    Open(w);
    int saves = 0;
    ws().menus["mnuSave"].onClick = [&saves] { ++saves; };
    EXPECT_EQ(w.iconAt(QPoint(4 + 8 * 24 + 10, 12)), 8);
    EXPECT_EQ(w.iconAt(QPoint(10, 40)), -1);
    EXPECT_TRUE(w.onGrip(QPoint(10, 40)));
    EXPECT_TRUE(w.onCloseMark(QPoint(265, 40)));
    Click(w, QPoint(4 + 8 * 24 + 10, 12));
    EXPECT_EQ(saves, 1);
}

TEST_F(ToolbarWindowTest, AKeyActsAndClosesItAtOnce) {
    ToolbarWindow w(ws(), t.programDir());
    Open(w);
    int saves = 0;
    ws().menus["mnuSave"].onClick = [&saves] { ++saves; };
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F8, Qt::NoModifier);
    QApplication::sendEvent(&w, &key);
    EXPECT_EQ(saves, 1);
    EXPECT_FALSE(w.isVisible());
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
