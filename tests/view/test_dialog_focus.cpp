// Keyboard use of every dialog on the offscreen platform: when a dialog opens, its first control in
// reading order has the focus; Tab goes through all its controls in reading order (top to bottom, left
// to right, a group of controls read whole before the one beside it) and comes back to the first; Esc
// cancels; Enter in the first field presses the default button where there is one.

#include "app/MainWindow.h"
#include "desk/ReminderForm.h"
#include "feeds/FeedContainers.h"
#include "feeds/FeedSearch.h"
#include "feeds/InputDialog.h"
#include "platform/qt/AddUrlDialog.h"
#include "platform/qt/InputForm.h"
#include "shortcuts/EditLink.h"
#include "shortcuts/FindCommands.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "themes/ThemeState.h"
#include "view/ConColorsWindow.h"
#include "view/EditLinkDialog.h"
#include "view/ElementView.h"
#include "view/ElementWidget.h"
#include "view/FeedWindows.h"
#include "view/FindView.h"
#include "view/MainView.h"
#include "view/MenuView.h"
#include "view/PropertiesWindow.h"
#include "view/ReminderWindows.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>

using namespace pd;
using namespace pd::test;

namespace {

void Key(QWidget* w, int key, Qt::KeyboardModifiers mods = Qt::NoModifier) {
    QKeyEvent press(QEvent::KeyPress, key, mods);
    QApplication::sendEvent(w, &press);
    QKeyEvent release(QEvent::KeyRelease, key, mods);
    QApplication::sendEvent(w, &release);
}

// The control a focused widget belongs to: the line of an editable combo box or spin box is the box.
QWidget* Control(QWidget* w) {
    if (!w) return nullptr;
    if (QWidget* p = w->parentWidget())
        if (qobject_cast<QComboBox*>(p) || qobject_cast<QAbstractSpinBox*>(p)) return p;
    return w;
}

QString Name(QWidget* w) {
    if (!w) return QStringLiteral("(none)");
    return w->objectName().isEmpty() ? QString::fromLatin1(w->metaObject()->className()) : w->objectName();
}

// Whether `a` is read before `b` in `root`: the children of their nearest common ancestor that hold them
// are compared; side by side (overlapping in height by half) the left one first, otherwise the upper.
bool ReadsBefore(QWidget* a, QWidget* b) {
    std::vector<QWidget*> upA;
    for (QWidget* w = a; w; w = w->parentWidget()) upA.push_back(w);
    QWidget* cb = b;
    QWidget* common = nullptr;
    for (QWidget* w = b; w; w = w->parentWidget()) {
        if (std::find(upA.begin(), upA.end(), w) != upA.end()) {
            common = w;
            break;
        }
        cb = w;
    }
    if (!common || common == a || common == b) return common == a;
    QWidget* ca = a;
    while (ca->parentWidget() != common) ca = ca->parentWidget();
    const QRect ra = ca->geometry(), rb = cb->geometry();
    const int overlap = std::min(ra.bottom(), rb.bottom()) - std::max(ra.top(), rb.top());
    if (overlap * 2 >= std::min(ra.height(), rb.height())) return ra.left() < rb.left();
    return ra.top() < rb.top();
}

// Every control of `dialog` that Tab can reach.
std::vector<QWidget*> TabControls(QWidget* dialog) {
    std::vector<QWidget*> out;
    for (QWidget* w : dialog->findChildren<QWidget*>()) {
        if (!(w->focusPolicy() & Qt::TabFocus) || !w->isVisibleTo(dialog) || !w->isEnabled()) continue;
        if (w->focusProxy()) continue;
        // Of a group of radio buttons, Tab reaches the chosen one (arrows move between them).
        if (auto* r = qobject_cast<QRadioButton*>(w); r && r->autoExclusive() && !r->isChecked()) continue;
        QWidget* c = Control(w);
        if (std::find(out.begin(), out.end(), c) == out.end()) out.push_back(c);
    }
    return out;
}

// Shows the dialog as the program does, gives it the keyboard, and checks the first focus and the Tab
// order. Returns the controls in the order Tab visited them.
std::vector<QWidget*> CheckFocusOrder(QWidget* dialog) {
    dialog->show();
    dialog->activateWindow();
    QApplication::setActiveWindow(dialog);
    QCoreApplication::processEvents();
    std::vector<QWidget*> controls = TabControls(dialog);
    EXPECT_GE(controls.size(), 2u) << Name(dialog).toStdString();
    std::vector<QWidget*> reading = controls;
    // An insertion sort: the comparison is a reading order of pairs, not a strict weak order of all.
    for (size_t i = 1; i < reading.size(); ++i)
        for (size_t j = i; j > 0 && ReadsBefore(reading[j], reading[j - 1]); --j) std::swap(reading[j], reading[j - 1]);
    QWidget* first = Control(QApplication::focusWidget());
    EXPECT_EQ(Name(first), Name(reading.front())) << Name(dialog).toStdString() << ": the focus when it opens";
    std::vector<QWidget*> visited;
    QWidget* at = first;
    for (size_t n = 0; n < controls.size() + 2 && at; ++n) {
        visited.push_back(at);
        Key(QApplication::focusWidget(), Qt::Key_Tab);
        at = Control(QApplication::focusWidget());
        if (at == first) break;
    }
    QStringList got, want;
    for (QWidget* w : visited) got << Name(w);
    // The reading order from the control that has the focus on.
    auto start = std::find(reading.begin(), reading.end(), first);
    if (start != reading.end()) std::rotate(reading.begin(), start, reading.end());
    for (QWidget* w : reading) want << Name(w);
    EXPECT_EQ(got.join(QStringLiteral(", ")).toStdString(), want.join(QStringLiteral(", ")).toStdString())
        << Name(dialog).toStdString() << ": Tab does not follow the reading order";
    EXPECT_EQ(at, first) << Name(dialog).toStdString() << ": Tab does not come back to the first control";
    return visited;
}

QPushButton* DefaultButton(QWidget* dialog) {
    for (QPushButton* b : dialog->findChildren<QPushButton*>())
        if (b->isDefault() && b->isVisibleTo(dialog)) return b;
    return nullptr;
}

struct DialogFocus : ::testing::Test {
    TestWorkspace t;
    DialogFocus() {
        t.start();
        WireCoreCommands(*t.ws);
    }
    Workspace& ws() { return *t.ws; }
};

} // namespace

TEST_F(DialogFocus, ShortcutProperties) {
    const int c = t.newContainerAt(600, 600);
    AddShortcut(ws(), QStringLiteral("/opt/tools/editor"), ws().grpBorder(c));
    FrmEditLink form;
    LoadEditLink(ws(), form, ws().LinkCount - 1);
    form.Visible = true;
    EditLinkDialog dialog(ws(), form, nullptr);
    dialog.load();
    CheckFocusOrder(&dialog);
    EXPECT_EQ(Name(Control(QApplication::focusWidget())), QStringLiteral("txtLabel"));
    QPushButton* ok = DefaultButton(&dialog);
    ASSERT_NE(ok, nullptr);
    int pressed = 0;
    QObject::connect(ok, &QPushButton::clicked, [&] { ++pressed; });
    Key(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(pressed, 1);
}

TEST_F(DialogFocus, ShortcutPropertiesEscCancels) {
    const int c = t.newContainerAt(600, 600);
    AddShortcut(ws(), QStringLiteral("/opt/tools/editor"), ws().grpBorder(c));
    FrmEditLink form;
    LoadEditLink(ws(), form, ws().LinkCount - 1);
    form.Visible = true;
    EditLinkDialog dialog(ws(), form, nullptr);
    dialog.load();
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    QCoreApplication::processEvents();
    Key(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(form.Visible);
}

TEST_F(DialogFocus, ContainerColors) {
    ConColorsWindow dialog(ws());
    CheckFocusOrder(&dialog);
    Key(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(DialogFocus, DisplayProperties) {
    MenuView menus(ws().menus, nullptr);
    PropertiesWindow w(ws(), [&](const QString& n) { return menus.menu(n); });
    Themes(ws()).Properties.Loaded = true;
    CheckFocusOrder(&w);
    // Esc is Cancel: the window unloads.
    Key(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(Themes(ws()).Properties.Loaded);
}

TEST_F(DialogFocus, Reminder) {
    ReminderForm form(ws());
    ReminderDialog dialog(form, t.programDir());
    dialog.sync();
    CheckFocusOrder(&dialog);
    Key(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(DialogFocus, AddFeed) {
    FrmAddRSS form;
    AddRSSDialog dialog(ws(), form);
    CheckFocusOrder(&dialog);
    EXPECT_EQ(Name(Control(QApplication::focusWidget())), QStringLiteral("txtRSS"));
    // No default button: Enter in the address adds it to the list, so that several are typed in a row.
    EXPECT_EQ(DefaultButton(&dialog), nullptr);
    auto* list = dialog.findChild<QListWidget*>(QStringLiteral("lstFeeds"));
    ASSERT_NE(list, nullptr);
    dialog.findChild<QLineEdit*>(QStringLiteral("txtRSS"))->setText(QStringLiteral("http://feeds.test/a"));
    Key(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(list->count(), 1);
    Key(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(DialogFocus, FeedSearch) {
    FrmRSSSearch form;
    RSSSearch_Load(ws(), form);
    RSSSearchDialog dialog(ws(), form);
    CheckFocusOrder(&dialog);
    Key(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(DialogFocus, AddWebAddresses) {
    AddUrlDialog dialog([](const QString&) {});
    CheckFocusOrder(&dialog);
    Key(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(DialogFocus, InputDialog) {
    FrmInput form;
    form.Caption = QStringLiteral("Rename");
    form.lblCaption = QStringLiteral("New name:");
    form.txtInput = QStringLiteral("old");
    form.Visible = true;
    bool checked = false;
    // The dialog runs modally: it is looked at and answered from inside its own loop.
    QTimer::singleShot(0, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        CheckFocusOrder(dialog);
        EXPECT_EQ(Name(Control(QApplication::focusWidget())), QStringLiteral("txtInput"));
        checked = true;
        Key(QApplication::focusWidget(), Qt::Key_Escape);
    });
    ShowInputForm(form);
    EXPECT_TRUE(checked);
    EXPECT_FALSE(form.Visible);
    // Enter presses OK.
    form.Visible = true;
    QTimer::singleShot(0, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        auto* input = dialog->findChild<QLineEdit*>(QStringLiteral("txtInput"));
        ASSERT_NE(input, nullptr);
        input->setText(QStringLiteral("new"));
        Key(input, Qt::Key_Return);
    });
    ShowInputForm(form);
    EXPECT_EQ(form.txtInput, QStringLiteral("new"));
}

TEST_F(DialogFocus, JumpToPanel) {
    Workspace& w = ws();
    WireShortcutCommands(w);
    WireFindCommands(w);
    TopWindow main{w, w.frmMain(0), Qt::FramelessWindowHint | Qt::Tool};
    MenuView menus{w.menus, &main};
    ElementView view{w, {{&w.frmMain(0), &main}}};
    FindView find{w, view, menus, &main};
    w.menuSink = &menus;
    view.onWindowChanged = [&](Element& e, Prop p) {
        if (&e == &w.frmMain(0)) main.apply(p);
    };
    view.onWidgetCreated = [&](ElementWidget& ew) { find.wireWidget(ew); };
    view.attach();
    find.attach();
    w.frmMain(0).Move(0, 0, 9000, 6000);
    w.frmMain(0).Visible = true;
    w.picBack(0).Move(0, 0, 9000, 6000);
    const int c = t.newContainerAt(600, 600);
    AddShortcut(w, QStringLiteral("/opt/tools/editor"), w.grpBorder(c));
    main.show();
    QApplication::setActiveWindow(&main);
    QCoreApplication::processEvents();
    // A letter on the window opens the panel with the focus in its search field.
    QKeyEvent press(QEvent::KeyPress, Qt::Key_E, Qt::NoModifier, QStringLiteral("e"));
    QApplication::sendEvent(&main, &press);
    ASSERT_TRUE(w.JumpToOpen);
    auto* box = main.findChild<QComboBox*>(QStringLiteral("cboSearch"));
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(Control(QApplication::focusWidget()), box);
    EXPECT_EQ(box->lineEdit()->text(), QStringLiteral("e"));
    // Esc clears the field, a second Esc closes the panel.
    Key(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(box->lineEdit()->text().isEmpty());
    EXPECT_TRUE(w.JumpToOpen);
    Key(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(w.JumpToOpen);
    w.menuSink = nullptr;
}

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
