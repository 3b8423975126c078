// The view of tags, type-to-find and shortcut properties on the offscreen platform: the panel's
// controls opened by a letter on the window and driven by keys in the search field, the tags menu filled
// as the background's menu opens, the Shortcut Properties window, and the colour of an icon box read
// from the screen.

#include "app/MainWindow.h"
#include "shortcuts/EditLink.h"
#include "shortcuts/FindCommands.h"
#include "shortcuts/FindState.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "view/EditLinkDialog.h"
#include "view/ElementView.h"
#include "view/ElementWidget.h"
#include "view/FindView.h"
#include "view/JumpToPanel.h"
#include "view/MainView.h"
#include "view/MenuView.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

struct Prepared {
    explicit Prepared(TestWorkspace& t) {
        t.start();
        WireShortcutCommands(*t.ws);
        WireFindCommands(*t.ws);
    }
};

struct FindViewTest : ::testing::Test {
    TestWorkspace t;
    Prepared prepared{t};
    Workspace& ws = *t.ws;
    TopWindow main{ws, ws.frmMain(0), Qt::FramelessWindowHint | Qt::Tool};
    MenuView menus{ws.menus, &main};
    ElementView view{ws, {{&ws.frmMain(0), &main}}};
    FindView find{ws, view, menus, &main};
    int c = 0;

    FindViewTest() {
        ws.menuSink = &menus;
        view.onWindowChanged = [this](Element& e, Prop p) {
            if (&e == &ws.frmMain(0)) main.apply(p);
        };
        view.onWidgetCreated = [this](ElementWidget& w) { find.wireWidget(w); };
        view.attach();
        find.attach();
        ws.frmMain(0).Move(0, 0, 9000, 6000);
        ws.frmMain(0).Visible = true;
        ws.picBack(0).Move(0, 0, 9000, 6000);
        ws.menus["mnuCollapseBefore"].setChecked(false);
        c = t.newContainerAt(600, 600);
        for (const char* label : {"alpha", "Fab", "Foo"}) {
            AddShortcut(ws, QStringLiteral("/opt/tools/") + QString::fromLatin1(label), ws.grpBorder(c));
            const int n = ws.LinkCount - 1;
            ws.Link(n).Move(400, 400 + 300 * static_cast<float>(n));
            MoveLinkIcon(ws, n);
        }
    }
    ~FindViewTest() override { ws.menuSink = nullptr; }

    static void Key(QWidget* w, int key, const QString& text = {},
                    Qt::KeyboardModifiers mods = Qt::NoModifier) {
        QKeyEvent press(QEvent::KeyPress, key, mods, text);
        QApplication::sendEvent(w, &press);
        QKeyEvent release(QEvent::KeyRelease, key, mods, text);
        QApplication::sendEvent(w, &release);
    }
    QLineEdit* Edit() {
        auto* box = main.findChild<QComboBox*>(QStringLiteral("cboSearch"));
        EXPECT_NE(box, nullptr);
        return box ? box->lineEdit() : nullptr;
    }
    QWidget* PanelWidget() { return view.widget(ws.PicJumpToLink(0)); }
};

} // namespace

TEST_F(FindViewTest, ALetterOnTheWindowOpensThePanelAndTypingFindsAndEnterStarts) {
    Key(&main, Qt::Key_F, QStringLiteral("f"));
    ASSERT_TRUE(ws.PicJumpToLink(0).Visible);
    ASSERT_NE(PanelWidget(), nullptr);
    EXPECT_TRUE(PanelWidget()->isVisibleTo(&main));
    QLineEdit* edit = Edit();
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->text(), QStringLiteral("f"));
    // The release of the first key reaches the field that took the focus.
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_F, Qt::NoModifier, QStringLiteral("f"));
    QApplication::sendEvent(edit, &release);
    EXPECT_EQ(ws.SelectedLink, 1);
    auto* label = main.findChild<QLabel*>(QStringLiteral("lblJumpToLink"));
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), QStringLiteral("Fab"));
    Key(edit, Qt::Key_O, QStringLiteral("o"));
    EXPECT_EQ(edit->text(), QStringLiteral("fo"));
    EXPECT_EQ(ws.SelectedLink, 2);
    EXPECT_EQ(label->text(), QStringLiteral("Foo"));
    // The fixed texts and tips of the panel.
    auto* keys = main.findChild<QLabel*>(QStringLiteral("Label1"));
    ASSERT_NE(keys, nullptr);
    EXPECT_EQ(keys->text(), QStringLiteral("[Enter] Start [Del] Delete"));
    auto* go = main.findChild<QLabel*>(QStringLiteral("lblGo"));
    ASSERT_NE(go, nullptr);
    EXPECT_EQ(go->toolTip(), QStringLiteral("Launch"));
    auto* close = main.findChild<QLabel*>(QStringLiteral("lblClosePicJumpTo"));
    ASSERT_NE(close, nullptr);
    EXPECT_TRUE(close->toolTip().startsWith(QStringLiteral("Press the Esc key once")));
    EXPECT_NE(main.findChild<QLabel*>(QStringLiteral("PicJumpToIcon")), nullptr);

    Key(edit, Qt::Key_Return);
    EXPECT_FALSE(ws.PicJumpToLink(0).Visible);
    ASSERT_EQ(t.platform.launches.size(), 1u);
    EXPECT_EQ(t.platform.launches[0].file, QStringLiteral("/opt/tools/Foo"));
}

TEST_F(FindViewTest, EscInTheFieldClearsThenCloses) {
    Key(&main, Qt::Key_A, QStringLiteral("a"));
    QLineEdit* edit = Edit();
    ASSERT_NE(edit, nullptr);
    Key(edit, Qt::Key_Escape);
    EXPECT_TRUE(ws.PicJumpToLink(0).Visible);
    EXPECT_TRUE(edit->text().isEmpty());
    Key(edit, Qt::Key_Escape);
    EXPECT_FALSE(ws.PicJumpToLink(0).Visible);
    EXPECT_FALSE(PanelWidget()->isVisibleTo(&main));
}

TEST_F(FindViewTest, AClickOnTheWorkspaceClosesThePanelAndTheNextLetterOpensItAgain) {
    Key(&main, Qt::Key_A, QStringLiteral("a"));
    ASSERT_TRUE(ws.PicJumpToLink(0).Visible);
    auto* back = qobject_cast<ElementWidget*>(view.widget(ws.picBack(0)));
    ASSERT_NE(back, nullptr);
    ASSERT_TRUE(back->onPress);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    back->onPress(*back, press);
    EXPECT_FALSE(ws.PicJumpToLink(0).Visible);
    Key(&main, Qt::Key_F, QStringLiteral("f"));
    EXPECT_TRUE(ws.PicJumpToLink(0).Visible);
    EXPECT_EQ(Edit()->text(), QStringLiteral("f"));
}

TEST_F(FindViewTest, TheDownArrowFillsTheListAndCtrlOpensNothing) {
    Key(&main, Qt::Key_B, QStringLiteral("b"), Qt::ControlModifier);
    EXPECT_FALSE(ws.PicJumpToLink(0).Visible);
    Key(&main, Qt::Key_F, QStringLiteral("f"));
    auto* box = main.findChild<QComboBox*>(QStringLiteral("cboSearch"));
    ASSERT_NE(box, nullptr);
    Key(box->lineEdit(), Qt::Key_Down);
    EXPECT_GE(box->count(), 2);
    EXPECT_EQ(box->itemText(0), QStringLiteral("Fab"));
    EXPECT_EQ(box->lineEdit()->text(), QStringLiteral("Fab"));
    EXPECT_EQ(ws.SelectedLink, 1);
}

TEST_F(FindViewTest, TheBackgroundMenuShowsTheTagsAndChoosingOneFilters) {
    ws.Links[0].Tags = QStringLiteral("work");
    ws.Links[1].Tags = QStringLiteral("home,work");
    QMenu* mainMenu = menus.menu(QStringLiteral("mnuMain"));
    ASSERT_NE(mainMenu, nullptr);
    QMetaObject::invokeMethod(mainMenu, "aboutToShow");
    QMenu* tags = menus.menu(QStringLiteral("mnuTagsMain"));
    ASSERT_NE(tags, nullptr);
    EXPECT_EQ(tags->menuAction()->text(), QStringLiteral("&Tags"));
    QAction* first = nullptr;
    QAction* second = nullptr;
    for (QAction* a : tags->actions()) {
        if (a->objectName() == QLatin1String("mnuTagsItem_0")) first = a;
        if (a->objectName() == QLatin1String("mnuTagsItem_1")) second = a;
    }
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(first->text(), QStringLiteral("work"));
    EXPECT_EQ(second->text(), QStringLiteral("home"));
    second->trigger();
    EXPECT_FALSE(ws.Link(0).Visible);
    EXPECT_TRUE(ws.Link(1).Visible);
    EXPECT_FALSE(ws.Link(2).Visible);
    ASSERT_NE(view.widget(ws.FrameLinkGroup(0)), nullptr);
    EXPECT_TRUE(view.widget(ws.FrameLinkGroup(0))->isVisibleTo(&main));
}

TEST_F(FindViewTest, TheAsteriskTheBannerAndTheSwatchTakeTheMouse) {
    auto press = [](ElementWidget* w, QEvent::Type type, Qt::MouseButton b) {
        ASSERT_NE(w, nullptr);
        QMouseEvent ev(type, QPointF(2, 2), QPointF(2, 2), b,
                       type == QEvent::MouseButtonRelease ? Qt::NoButton : b, Qt::NoModifier);
        if (type == QEvent::MouseButtonPress && w->onPress) w->onPress(*w, ev);
        if (type == QEvent::MouseButtonRelease && w->onRelease) w->onRelease(*w, ev);
        if (type == QEvent::MouseMove && w->onMove) w->onMove(*w, ev);
    };
    // A hover over an icon shows the asterisk; a release on it asks for the first tags.
    auto* icon = qobject_cast<ElementWidget*>(view.widget(IconBox(ws, 0)));
    press(icon, QEvent::MouseMove, Qt::NoButton);
    EXPECT_TRUE(ws.ImgLinkGroup(0).Visible);
    t.platform.inputAnswers = {QStringLiteral("first")};
    press(qobject_cast<ElementWidget*>(view.widget(ws.ImgLinkGroup(0))), QEvent::MouseButtonRelease,
          Qt::LeftButton);
    EXPECT_EQ(ws.Links[0].Tags, QStringLiteral("first"));
    EXPECT_FALSE(ws.ImgLinkGroup(0).Visible);
    // The banner of a filter ends it on a left press.
    QMenu* mainMenu = menus.menu(QStringLiteral("mnuMain"));
    QMetaObject::invokeMethod(mainMenu, "aboutToShow");
    ws.menus(QStringLiteral("mnuTagsItem"), 0).Click();
    EXPECT_FALSE(ws.Link(1).Visible);
    press(qobject_cast<ElementWidget*>(view.widget(ws.FrameLinkGroup(0))), QEvent::MouseButtonPress,
          Qt::LeftButton);
    EXPECT_TRUE(ws.Link(1).Visible);
    EXPECT_FALSE(ws.FrameLinkGroup(0).Visible);
    // The toolbar's swatch: a press and release in place opens the colour menu.
    SetLinkSelected(ws, 0, true);
    ShowLinkToolbar(ws, ws.grpBorder(c));
    auto* swatch = qobject_cast<ElementWidget*>(view.widget(ws.PicLinkColor(0)));
    press(swatch, QEvent::MouseButtonPress, Qt::LeftButton);
    press(swatch, QEvent::MouseButtonRelease, Qt::LeftButton);
    QMenu* colour = menus.menu(QStringLiteral("mnuChangeColor"));
    ASSERT_NE(colour, nullptr);
    EXPECT_TRUE(colour->isVisible());
    colour->hide();
}

TEST_F(FindViewTest, TheShortcutPropertiesWindowShowsAndTakesTheFields) {
    FrmEditLink form;
    LoadEditLink(ws, form, 0);
    form.Visible = true;
    EditLinkDialog dialog(ws, form, &main);
    EXPECT_EQ(dialog.objectName(), QStringLiteral("frmEditLink"));
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Shortcut Properties"));
    auto* label = dialog.findChild<QLineEdit*>(QStringLiteral("txtLabel"));
    auto* param = dialog.findChild<QLineEdit*>(QStringLiteral("txtParam"));
    auto* path = dialog.findChild<QLineEdit*>(QStringLiteral("txtPath"));
    auto* command = dialog.findChild<QCheckBox*>(QStringLiteral("ChkCommand"));
    auto* browse = dialog.findChild<QPushButton*>(QStringLiteral("CmdBrowse"));
    auto* ok = dialog.findChild<QPushButton*>(QStringLiteral("cmdEditOK"));
    ASSERT_TRUE(label && param && path && command && browse && ok);
    for (const char* name : {"txtIcon", "txtSize"})
        EXPECT_NE(dialog.findChild<QLineEdit*>(QString::fromLatin1(name)), nullptr);
    for (const char* name : {"cmdChooseFileIcon", "cmdReset", "cmdEditCancel", "PicLinkColor"})
        EXPECT_NE(dialog.findChild<QPushButton*>(QString::fromLatin1(name)), nullptr) << name;
    for (const char* name : {"ChkBold", "chkConfirm"})
        EXPECT_NE(dialog.findChild<QCheckBox*>(QString::fromLatin1(name)), nullptr) << name;
    EXPECT_EQ(dialog.findChild<QCheckBox*>(QStringLiteral("chkConfirm"))->text(),
              QStringLiteral("&Requires Confirmation"));
    EXPECT_EQ(command->toolTip(),
              QStringLiteral("Enter a command to execute instead of a shortcut (Command Prompt)"));
    EXPECT_EQ(label->text(), QStringLiteral("alpha"));
    EXPECT_EQ(path->text(), QStringLiteral("/opt/tools/alpha"));
    // The command box: the command's layout.
    command->click();
    EXPECT_FALSE(browse->isEnabled());
    EXPECT_FALSE(path->isVisibleTo(&dialog));
    EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("lblParam"))->text(), QStringLiteral("Command:"));
    EXPECT_EQ(label->text(), QStringLiteral("Command"));
    // OK with no command is Cancel: nothing changes.
    ok->click();
    EXPECT_FALSE(form.Visible);
    EXPECT_EQ(ws.Links[0].Command, 0);
    EXPECT_EQ(ws.Link(0).Caption.get(), QStringLiteral("alpha"));
    // Again with a command.
    form.Visible = true;
    param->setText(QStringLiteral("echo hi"));
    label->setText(QStringLiteral("Say hi"));
    ok->click();
    EXPECT_EQ(ws.Links[0].Command, 1);
    EXPECT_EQ(ws.Links[0].LinkParam, QStringLiteral("echo hi"));
    EXPECT_EQ(ws.Link(0).Caption.get(), QStringLiteral("Say hi"));
}

TEST_F(FindViewTest, TheColourOfAnIconBoxIsReadFromTheScreenBackgroundIncluded) {
    // An icon box in a container, showing no icon: the mean is the container's colour.
    Element& box = IconBox(ws, 0);
    box.Picture = QString();
    box.BackStyle = 1;
    box.BackColor = 0x102030;
    main.show();
    QApplication::processEvents();
    ASSERT_TRUE(Find(ws).onReadPixels);
    const std::vector<int32_t> pixels = Find(ws).onReadPixels(box);
    ASSERT_FALSE(pixels.empty());
    EXPECT_EQ(MeanColor(pixels), 0x102030);
    SetLinkSelected(ws, 0, true);
    ColorFromIcon(ws, 0);
    EXPECT_EQ(ws.Links[0].LinkColor, 0x102030);
}

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
