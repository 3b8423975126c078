// What assistive technology reads of the workspace, on the offscreen platform: the accessible interfaces
// of the real widgets of a loaded workspace give a shortcut as a link named by its label and described
// by its target, a container as a grouping named by its title with the title as a heading, a note as an
// editable text with its text as value, a picture button named by its tip, a headline row as a link with
// its text, and a dialog's buttons with their texts; names follow the elements' captions and tips.

#include "app/MainWindow.h"
#include "feeds/FeedContainers.h"
#include "feeds/FeedsState.h"
#include "shortcuts/EditLink.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "view/ConColorsWindow.h"
#include "view/EditLinkDialog.h"
#include "view/ElementView.h"
#include "view/ElementWidget.h"
#include "view/HeadlinePanelWidget.h"
#include "view/JumpToPanel.h"
#include "view/MainView.h"
#include "view/MenuView.h"
#include "view/RichLabel.h"
#include "view/ToolbarWindow.h"
#include "window/FloatingToolbar.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>

#include <gtest/gtest.h>

#include <vector>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

struct AccessibilityTest : ::testing::Test {
    TestWorkspace t;
    Workspace& ws = *t.ws;
    TopWindow main{ws, ws.frmMain(0), Qt::FramelessWindowHint | Qt::Tool};
    MenuView menus{ws.menus, &main};
    ElementView view{ws, {{&ws.frmMain(0), &main}}};
    int c = 0;

    AccessibilityTest() {
        t.start();
        WireCoreCommands(ws);
        ws.menuSink = &menus;
        view.onWindowChanged = [this](Element& e, Prop p) {
            if (&e == &ws.frmMain(0)) main.apply(p);
        };
        view.attach();
        ws.frmMain(0).Move(0, 0, 9000, 6000);
        ws.frmMain(0).Visible = true;
        ws.picBack(0).Move(0, 0, 9000, 6000);
        c = t.newContainerAt(600, 600);
        ws.lblName(c).Caption = QStringLiteral("Tools");
        AddShortcut(ws, QStringLiteral("/opt/tools/editor"), ws.grpBorder(c));
    }
    ~AccessibilityTest() override {
        ws.menuSink = nullptr;
    }

    static QAccessibleInterface* Of(QObject* o) {
        QAccessibleInterface* a = QAccessible::queryAccessibleInterface(o);
        EXPECT_NE(a, nullptr);
        return a;
    }
    QAccessibleInterface* Of(Element& e) { return Of(view.widget(e)); }
};

} // namespace

TEST_F(AccessibilityTest, AShortcutIsALinkNamedByItsLabelAndDescribedByItsTarget) {
    const int k = ws.LinkCount - 1;
    QAccessibleInterface* a = Of(ws.Link(k));
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->role(), QAccessible::Link);
    EXPECT_EQ(a->text(QAccessible::Name), ws.Link(k).Caption.get());
    EXPECT_FALSE(ws.Link(k).Caption.get().isEmpty());
    EXPECT_EQ(a->text(QAccessible::Description), QStringLiteral("/opt/tools/editor"));
    EXPECT_TRUE(a->state().linked);
    ASSERT_NE(a->actionInterface(), nullptr);
    EXPECT_TRUE(a->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    // Its icon is a button named after the shortcut.
    QAccessibleInterface* icon = Of(ws.PicIcon(ws.Links[static_cast<size_t>(k)].IconIndex));
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(icon->role(), QAccessible::Button);
    EXPECT_EQ(icon->text(QAccessible::Name), ws.Link(k).Caption.get());
    // A new label is its new name.
    ws.Link(k).Caption = QStringLiteral("Editor");
    EXPECT_EQ(a->text(QAccessible::Name), QStringLiteral("Editor"));
}

TEST_F(AccessibilityTest, AContainerIsAGroupingNamedByItsTitleWhichIsAHeading) {
    QAccessibleInterface* title = Of(ws.lblName(c));
    ASSERT_NE(title, nullptr);
    EXPECT_EQ(title->role(), QAccessible::Heading);
    EXPECT_EQ(title->text(QAccessible::Name), QStringLiteral("Tools"));
    QAccessibleInterface* group = Of(ws.Group(c));
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->role(), QAccessible::Grouping);
    EXPECT_EQ(group->text(QAccessible::Name), QStringLiteral("Tools"));
    EXPECT_EQ(Of(ws.grpBorder(c))->text(QAccessible::Name), QStringLiteral("Tools"));
    // The shortcut is found inside the container's tree.
    bool found = false;
    std::vector<QAccessibleInterface*> todo{group};
    while (!todo.empty() && !found) {
        QAccessibleInterface* n = todo.back();
        todo.pop_back();
        if (n->role() == QAccessible::Link) found = true;
        for (int i = 0; i < n->childCount(); ++i)
            if (QAccessibleInterface* ch = n->child(i)) todo.push_back(ch);
    }
    EXPECT_TRUE(found);
    // Renamed: both have the new name.
    ws.lblName(c).Caption = QStringLiteral("Work");
    EXPECT_EQ(title->text(QAccessible::Name), QStringLiteral("Work"));
    EXPECT_EQ(group->text(QAccessible::Name), QStringLiteral("Work"));
    // The rename field is a named text field.
    auto* field = view.widget(ws.groupName(c))->findChild<QWidget*>();
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(Of(field)->role(), QAccessible::EditableText);
    EXPECT_EQ(Of(field)->text(QAccessible::Name), QStringLiteral("Container name"));
}

TEST_F(AccessibilityTest, ANoteIsAnEditableTextWithItsTextAsValue) {
    ws.txtNote(c).Text = QStringLiteral("Buy milk\r\neggs");
    ws.txtNote(c).Visible = true;
    auto* editor = view.widget(ws.txtNote(c))->findChild<QPlainTextEdit*>();
    ASSERT_NE(editor, nullptr);
    QAccessibleInterface* a = Of(editor);
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->role(), QAccessible::EditableText);
    EXPECT_EQ(a->text(QAccessible::Name), QStringLiteral("Note"));
    EXPECT_EQ(a->text(QAccessible::Value), QStringLiteral("Buy milk\neggs"));
    ASSERT_NE(a->textInterface(), nullptr);
    EXPECT_EQ(a->textInterface()->text(0, 8), QStringLiteral("Buy milk"));
    EXPECT_EQ(Of(ws.txtNote(c))->role(), QAccessible::Note);
}

TEST_F(AccessibilityTest, PictureButtonsAreButtonsNamedByTheirTips) {
    QAccessibleInterface* a = Of(ws.picCopy1(c));
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->role(), QAccessible::Button);
    EXPECT_EQ(a->text(QAccessible::Name), QStringLiteral("Turn ON Folder Link"));
    ws.picCopy1(c).ToolTipText = QStringLiteral("Link a folder\r\nnow");
    EXPECT_EQ(a->text(QAccessible::Name), QStringLiteral("Link a folder now"));
    // Without a tip, the fold button says what it does.
    EXPECT_EQ(Of(ws.chkFold(c))->role(), QAccessible::Button);
    EXPECT_EQ(Of(ws.chkFold(c))->text(QAccessible::Name), QStringLiteral("Fold"));
}

TEST_F(AccessibilityTest, AHeadlineRowIsALinkWithItsText) {
    const QString url = QStringLiteral("http://feeds.test/1");
    t.platform.httpReplies[url] = {
        200,
        QByteArrayLiteral("<rss><channel><title>Chan</title><link>http://site/</link><description>d</description>"
                          "<item><title>Volcano wakes</title><link>http://site/1</link></item>"
                          "<item><title>Second story</title><link>http://site/2</link></item></channel></rss>"),
        "application/rss+xml"};
    QString u = url;
    ASSERT_TRUE(AddRSS(ws, u, -1));
    const int i = ws.ContainerCount - 1;
    UserControl1& p = Feeds(ws).Panel(ws.Containers[static_cast<size_t>(i)].FeedIndex);
    QWidget host;
    host.resize(200, 133);
    HeadlinePanelWidget w(p, 15, 15, &host);
    w.resize(200, 133);
    host.show();
    w.sync();
    auto* row = w.findChild<RichLabel*>(QStringLiteral("LblHeadline_0"));
    ASSERT_NE(row, nullptr);
    QAccessibleInterface* a = Of(row);
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->role(), QAccessible::Link);
    EXPECT_EQ(a->text(QAccessible::Name), QStringLiteral("Volcano wakes"));
    EXPECT_EQ(Of(w.findChild<RichLabel*>(QStringLiteral("LblHeadline_1")))->text(QAccessible::Name),
              QStringLiteral("Second story"));
    EXPECT_EQ(Of(&w)->text(QAccessible::Name), QStringLiteral("Headlines"));
    // The press action is a click on the row: it opens the viewer on the item.
    ASSERT_NE(a->actionInterface(), nullptr);
    a->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(Feeds(ws).Viewer.Visible);
}

TEST_F(AccessibilityTest, ADialogsButtonsAreNamedButtons) {
    ConColorsWindow dialog(ws);
    auto* sw = dialog.findChild<QPushButton*>(QStringLiteral("CmdSwitch"));
    ASSERT_NE(sw, nullptr);
    EXPECT_EQ(Of(sw)->role(), QAccessible::Button);
    EXPECT_EQ(Of(sw)->text(QAccessible::Name), QStringLiteral("Switch"));
    auto* back = dialog.findChild<QPushButton*>(QStringLiteral("picBack"));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(Of(back)->role(), QAccessible::Button);
    EXPECT_EQ(Of(back)->text(QAccessible::Name), QStringLiteral("Back Color"));
    EXPECT_EQ(Of(&dialog)->role(), QAccessible::Dialog);
    EXPECT_EQ(Of(&dialog)->text(QAccessible::Name), QStringLiteral("Container Colors"));
    // The labels of the find panel that take clicks are buttons: "Go", and the close sign by its tip.
    QWidget host;
    JumpToPanel panel(ws, &host, nullptr);
    auto* go = panel.findChild<QLabel*>(QStringLiteral("lblGo"));
    ASSERT_NE(go, nullptr);
    EXPECT_EQ(Of(go)->role(), QAccessible::Button);
    EXPECT_EQ(Of(go)->text(QAccessible::Name), QStringLiteral("Go"));
    auto* close = panel.findChild<QLabel*>(QStringLiteral("lblClosePicJumpTo"));
    ASSERT_NE(close, nullptr);
    EXPECT_EQ(Of(close)->role(), QAccessible::Button);
    EXPECT_TRUE(Of(close)->text(QAccessible::Name).startsWith(QStringLiteral("Press the Esc key")));
}

TEST_F(AccessibilityTest, ADialogsFieldsAreNamedByTheLabelsBeforeThem) {
    FrmEditLink form;
    LoadEditLink(ws, form, ws.LinkCount - 1);
    form.Visible = true;
    EditLinkDialog dialog(ws, form, nullptr);
    dialog.load();
    dialog.show();
    QCoreApplication::processEvents();
    auto name = [&](const char* field) {
        QWidget* w = dialog.findChild<QWidget*>(QString::fromLatin1(field));
        EXPECT_NE(w, nullptr) << field;
        return w ? Of(w)->text(QAccessible::Name) : QString();
    };
    EXPECT_TRUE(name("txtLabel").startsWith(QStringLiteral("Label"))) << name("txtLabel").toStdString();
    EXPECT_TRUE(name("txtPath").startsWith(QStringLiteral("Target"))) << name("txtPath").toStdString();
    EXPECT_TRUE(name("txtParam").startsWith(QStringLiteral("Parameters"))) << name("txtParam").toStdString();
    EXPECT_TRUE(name("txtSize").startsWith(QStringLiteral("Font Size"))) << name("txtSize").toStdString();
    EXPECT_EQ(name("PicLinkColor"), QStringLiteral("Color"));
    EXPECT_EQ(Of(dialog.findChild<QWidget*>(QStringLiteral("txtLabel")))->role(), QAccessible::EditableText);
}

TEST_F(AccessibilityTest, MenuEntriesAreMenuItemsWithTheirCaptionsAndKeys) {
    QMenu* menu = menus.menu(QStringLiteral("mnuMain"));
    ASSERT_NE(menu, nullptr);
    QAccessibleInterface* a = Of(menu);
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->role(), QAccessible::PopupMenu);
    bool found = false;
    for (int i = 0; i < a->childCount(); ++i) {
        QAccessibleInterface* item = a->child(i);
        if (!item || item->role() != QAccessible::MenuItem) continue;
        if (item->text(QAccessible::Name) == QStringLiteral("Container")) {
            found = true;
            EXPECT_EQ(item->text(QAccessible::Accelerator), QStringLiteral("Ctrl+C"));
        }
    }
    EXPECT_TRUE(found);
}

TEST_F(AccessibilityTest, TheFloatingToolbarsIconsAreButtonsWithTheirKeys) {
    ToolbarWindow bar(ws, t.programDir());
    bar.resize(272, 52);
    bar.show();
    QAccessibleInterface* a = Of(&bar);
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->role(), QAccessible::ToolBar);
    ASSERT_EQ(a->childCount(), kToolbarIcons + 1);
    QAccessibleInterface* note = a->child(1);
    ASSERT_NE(note, nullptr);
    EXPECT_EQ(note->role(), QAccessible::Button);
    EXPECT_EQ(note->text(QAccessible::Name), QStringLiteral("New Note"));
    EXPECT_EQ(note->parent(), a);
    EXPECT_EQ(a->indexOfChild(note), 1);
    EXPECT_TRUE(note->rect().isValid());
    ASSERT_NE(note->actionInterface(), nullptr);
    EXPECT_EQ(note->actionInterface()->keyBindingsForAction(QAccessibleActionInterface::pressAction()),
              QStringList{QStringLiteral("Ctrl+N")});
    EXPECT_EQ(a->child(kToolbarIcons)->text(QAccessible::Name), QStringLiteral("Close"));
    // The press action is a click on the icon: it runs the icon's command.
    int notes = 0;
    ws.menus["mnuNewNote"].onClick = [&notes] { ++notes; };
    note->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(notes, 1);
}

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
