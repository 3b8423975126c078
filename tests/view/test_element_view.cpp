// The view mirrors the elements and menus into widgets and actions, in pixels, with the elements'
// names as object names.

#include "app/MainWindow.h"
#include "app/WorkspaceFile.h"
#include "support/TestWorkspace.h"
#include "view/ElementView.h"
#include "view/ElementWidget.h"
#include "view/MainView.h"
#include "view/MenuView.h"

#include <QAction>
#include <QApplication>
#include <QMenu>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

struct ViewFixture : ::testing::Test {
    TestWorkspace t;
    Workspace& ws = *t.ws;
    TopWindow main{ws, ws.frmMain(0), Qt::FramelessWindowHint | Qt::Tool};
    TopWindow splash{ws, ws.splash.frmSplash(0), Qt::FramelessWindowHint};
    MenuView menus{ws.menus, &main};
    ElementView view{ws, {{&ws.frmMain(0), &main}, {&ws.splash.frmSplash(0), &splash}}};

    ViewFixture() {
        ws.menuSink = &menus;
        view.onWindowChanged = [this](Element& e, Prop p) {
            if (&e == &ws.frmMain(0)) main.apply(p);
            else splash.apply(p);
        };
        view.attach();
    }
};

} // namespace

TEST_F(ViewFixture, ElementGeometryIsShownInPixels) {
    Element& back = ws.picBack(0);
    back.Move(50, 60, 1500, 3000);
    QWidget* w = view.widget(back);
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->geometry(), QRect(3, 4, 100, 200));
    EXPECT_EQ(w->objectName(), QStringLiteral("picBack"));
}

TEST_F(ViewFixture, LoadedMembersGetWidgetsNamedByIndex) {
    Element& label = ws.Link.Load(3);
    label.setContainer(&ws.picBack(0));
    label.Caption = QStringLiteral("Notes.txt");
    label.Visible = true;
    auto* w = qobject_cast<ElementWidget*>(view.widget(label));
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->objectName(), QStringLiteral("Link_3"));
    EXPECT_EQ(w->parentWidget(), view.widget(ws.picBack(0)));
    EXPECT_EQ(w->accessibleName(), QStringLiteral("Notes.txt"));
    EXPECT_FALSE(w->isHidden());
    label.Visible = false;
    EXPECT_TRUE(w->isHidden());
}

TEST_F(ViewFixture, ZOrderBringsAWidgetToTheFront) {
    Element& a = ws.Link.Load(1);
    Element& b = ws.Link.Load(2);
    a.setContainer(&ws.picBack(0));
    b.setContainer(&ws.picBack(0));
    a.ZOrder(0);
    QWidget* parent = view.widget(ws.picBack(0));
    auto topmost = [&] {
        QWidget* top = nullptr;
        for (QObject* o : parent->children())
            if (auto* w = qobject_cast<QWidget*>(o); w && (w == view.widget(a) || w == view.widget(b))) top = w;
        return top;
    };
    EXPECT_EQ(topmost(), view.widget(a));
    b.ZOrder(0);
    EXPECT_EQ(topmost(), view.widget(b));
    b.ZOrder(1);
    EXPECT_EQ(topmost(), view.widget(a));
}

TEST_F(ViewFixture, MenuEntriesBecomeActionsNamedAfterThem) {
    QAction* save = menus.action(QStringLiteral("mnuSave"));
    ASSERT_NE(save, nullptr);
    EXPECT_EQ(save->text(), QStringLiteral("&Save Workspace"));
    // Ctrl+S belongs to the feed search; the save keeps F8.
    EXPECT_EQ(save->shortcut(), QKeySequence(QStringLiteral("F8")));
    ASSERT_NE(menus.action(QStringLiteral("mnuReload")), nullptr);
    EXPECT_EQ(menus.action(QStringLiteral("mnuReload"))->text(), QStringLiteral("&Ignore Changes && Restart"));
    EXPECT_EQ(menus.action(QStringLiteral("mnuExitMainWin"))->text(), QStringLiteral("E&xit"));
    EXPECT_EQ(menus.action(QStringLiteral("mnuExitApp"))->text(), QStringLiteral("Exit"));
    QMenu* main = menus.menu(QStringLiteral("mnuMain"));
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(main->objectName(), QStringLiteral("mnuMain"));
}

TEST_F(ViewFixture, ACheckMarkFollowsItsEntryBothWays) {
    WireCoreCommands(ws);
    MainWindowLoad(ws);
    LoadSettings(ws);
    QAction* align = menus.action(QStringLiteral("mnuAlign"));
    ASSERT_NE(align, nullptr);
    EXPECT_TRUE(align->isCheckable());
    EXPECT_TRUE(align->isChecked());
    // Choosing the entry flips the setting and saves it at once, to the recovery file.
    align->trigger();
    EXPECT_FALSE(ws.menus["mnuAlign"].Checked());
    EXPECT_FALSE(align->isChecked());
    EXPECT_TRUE(t.dataExists(QStringLiteral("Perchdock.REC")));
    EXPECT_TRUE(t.readData(QStringLiteral("Perchdock.REC")).contains("[Align]\r\n0\r\n"));
    ws.menus["mnuAlign"].setChecked(true);
    EXPECT_TRUE(align->isChecked());
}

TEST_F(ViewFixture, TheWindowFollowsItsElement) {
    Element& win = ws.frmMain(0);
    win.Move(1500, 1500, 6000, 4500);
    win.Visible = true;
    EXPECT_TRUE(main.isVisible());
    EXPECT_EQ(main.size(), QSize(400, 300));
    win.Visible = false;
    EXPECT_FALSE(main.isVisible());
}

TEST_F(ViewFixture, MinimisingHidesTheWindowToTheTray) {
    WireCoreCommands(ws);
    MainWindowLoad(ws);
    LoadSettings(ws);
    Element& win = ws.frmMain(0);
    ASSERT_TRUE(win.Visible);
    win.WindowState = 1;
    MainWindowResize(ws);
    EXPECT_FALSE(win.Visible);
    EXPECT_FALSE(main.isVisible());
}

TEST_F(ViewFixture, ATinyWindowSnapsTo1500Twips) {
    MainWindowLoad(ws);
    LoadSettings(ws);
    Element& win = ws.frmMain(0);
    win.Width = 90;
    MainWindowResize(ws);
    EXPECT_EQ(win.Width.get(), 1500.0f);
    EXPECT_EQ(win.Height.get(), 1500.0f);
    // 101 twips is accepted: there is no other lower limit.
    win.Width = 101;
    win.Height = 101;
    MainWindowResize(ws);
    EXPECT_EQ(win.Width.get(), 101.0f);
}

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

TEST_F(ViewFixture, ThePressedFeedPictureOfTheToolbarShowsInverted) {
    Element& pic = ws.PicRSSRefreshALL(0);
    pic.setContainer(&ws.picBack(0));
    pic.Move(0, 0, 240, 240);
    pic.BackStyle = 1;
    pic.BackColor = 0x204080; // red 0x80, green 0x40, blue 0x20
    pic.Visible = true;
    QWidget* w = view.widget(pic);
    ASSERT_NE(w, nullptr);
    const QColor before = w->grab().toImage().pixelColor(8, 8);
    EXPECT_EQ(before, QColor(0x80, 0x40, 0x20));
    pic.BorderStyle = 1;
    EXPECT_EQ(w->grab().toImage().pixelColor(8, 8), QColor(0x7F, 0xBF, 0xDF));
    pic.BorderStyle = 0;
    EXPECT_EQ(w->grab().toImage().pixelColor(8, 8), before);
}
