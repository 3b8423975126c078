// The shell exchange on the offscreen platform: drops of file lists, web addresses and text on the
// background and in containers (the folder label over a folder-link container), the clipboard's file
// list in the forms file managers use, and a copy under its progress window, cancelled.

#include "platform/qt/QtPlatform.h"
#include "platform/qt/ShellExchange.h"
#include "shell/Clipboard.h"
#include "shell/DragDrop.h"
#include "shell/ShellState.h"
#include "support/TestWorkspace.h"
#include "view/DropInput.h"
#include "view/ElementInput.h"
#include "view/ElementView.h"
#include "view/ElementWidget.h"
#include "view/MainView.h"
#include "view/MenuView.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFile>
#include <QMimeData>
#include <QMouseEvent>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QUrl>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

struct ShellView : ::testing::Test {
    TestWorkspace t;
    Workspace& ws = *t.ws;
    TopWindow main{ws, ws.frmMain(0), Qt::FramelessWindowHint | Qt::Tool};
    ElementView view{ws, {{&ws.frmMain(0), &main}}};
    MenuView menus{ws.menus, &main};
    InputContext ctx{ws, main, menus};
    QTemporaryDir files;

    ShellView() {
        view.onWidgetCreated = [this](ElementWidget& w) { WireDropInput(ctx, w); };
        view.attach();
        for (ElementFamily* f : ws.families())
            for (int i = 0; i < f->Count(); ++i)
                if (f->exists(i))
                    if (auto* w = qobject_cast<ElementWidget*>(view.widget((*f)(i)))) WireDropInput(ctx, *w);
        ws.frmMain(0).Move(0, 0, 9000, 9000);
        ws.picBack(0).Move(0, 0, 9000, 9000);
        t.start();
    }
    ElementWidget* Widget(Element& e) { return qobject_cast<ElementWidget*>(view.widget(e)); }
    QString MakeFile(const QString& name, const QByteArray& text = "x") {
        const QString path = QDir(files.path()).filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(text);
        return path;
    }
    // A drag that enters the widget at `at` (pixels) and is dropped there; returns whether the widget
    // took it and which action it answered.
    std::pair<bool, Qt::DropAction> Drop(QWidget* w, QMimeData* data, QPoint at,
                                         Qt::KeyboardModifiers mods = {}) {
        QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton, mods);
        QApplication::sendEvent(w, &enter);
        if (!enter.isAccepted()) return {false, Qt::IgnoreAction};
        QDropEvent drop(QPointF(at), Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton, mods);
        QApplication::sendEvent(w, &drop);
        // The drop's work runs just after the answer.
        for (int k = 0; k < 5; ++k)
            QApplication::processEvents();
        return {drop.isAccepted(), drop.dropAction()};
    }
};

QMimeData* FileList(const QStringList& paths) {
    auto* d = new QMimeData;
    QList<QUrl> urls;
    for (const QString& p : paths)
        urls << QUrl::fromLocalFile(p);
    d->setUrls(urls);
    // File managers also offer the paths as text.
    d->setText(paths.join(QLatin1Char('\n')));
    return d;
}

} // namespace

TEST_F(ShellView, TheBackgroundAndTheContainersTakeDrops) {
    EXPECT_TRUE(Widget(ws.picBack(0))->acceptDrops());
    const int c = t.newContainerAt(600, 600);
    ASSERT_NE(Widget(ws.grpBorder(c)), nullptr);
    WireDropInput(ctx, *Widget(ws.grpBorder(c)));
    EXPECT_TRUE(Widget(ws.grpBorder(c))->acceptDrops());
    EXPECT_FALSE(Widget(ws.lblName(c))->acceptDrops());
}

TEST_F(ShellView, FilesDroppedOnTheBackgroundBecomeShortcutsAtTheDropPoint) {
    const QString a = MakeFile(QStringLiteral("a.txt"));
    std::unique_ptr<QMimeData> data(FileList({a}));
    const auto [taken, action] = Drop(Widget(ws.picBack(0)), data.get(), QPoint(100, 80));
    EXPECT_TRUE(taken);
    EXPECT_EQ(action, Qt::CopyAction);
    ASSERT_EQ(ws.LinkCount, 1);
    EXPECT_EQ(ws.Links[0].LinkPath, a);
    EXPECT_EQ(ws.Link(0).Caption.get(), QStringLiteral("a.txt"));
    EXPECT_NEAR(ws.Link(0).Left.get(), 1500.0f, 15.0f) << "100 pixels are 1500 twips";
    EXPECT_NEAR(ws.Link(0).Top.get(), 1200.0f, 15.0f);
}

TEST_F(ShellView, AWebAddressDroppedOnTheBackgroundIsAWebShortcut) {
    std::unique_ptr<QMimeData> data(new QMimeData);
    data->setUrls({QUrl(QStringLiteral("https://example.org/news"))});
    data->setText(QStringLiteral("https://example.org/news"));
    Drop(Widget(ws.picBack(0)), data.get(), QPoint(100, 80));
    ASSERT_EQ(ws.LinkCount, 1);
    EXPECT_EQ(ws.Links[0].LinkType, 1.0f);
    EXPECT_EQ(ws.Links[0].LinkPath, QStringLiteral("https://example.org/news"));
}

TEST_F(ShellView, ShiftTextOnTheBackgroundAndFilesOnAFeedAreRefused) {
    const QString doc = MakeFile(QStringLiteral("letter.doc"));
    std::unique_ptr<QMimeData> data(FileList({doc}));
    EXPECT_FALSE(Drop(Widget(ws.picBack(0)), data.get(), QPoint(100, 80), Qt::ShiftModifier).first);
    const int c = t.newContainerAt(600, 600);
    WireDropInput(ctx, *Widget(ws.grpBorder(c)));
    ws.Containers[static_cast<size_t>(c)].IsFeed = true;
    // The container takes the drag with no action, so that the background beneath does not get it.
    const auto [taken, action] = Drop(Widget(ws.grpBorder(c)), data.get(), QPoint(30, 30));
    EXPECT_EQ(action, Qt::IgnoreAction);
    EXPECT_EQ(ws.LinkCount, 0);
}

TEST_F(ShellView, CtrlDropOnAFolderLinkContainerMovesTheFileButAnswersACopy) {
    const QString folder = QDir(files.path()).filePath(QStringLiteral("linked"));
    QDir().mkpath(folder);
    const QString src = MakeFile(QStringLiteral("src/report.txt"), "r");
    const int c = t.newContainerAt(600, 600);
    ws.lblName(c).Caption = QStringLiteral("Inbox");
    ws.Containers[static_cast<size_t>(c)].CopyPath = folder;
    ElementWidget* border = Widget(ws.grpBorder(c));
    WireDropInput(ctx, *border);
    std::unique_ptr<QMimeData> data(FileList({src}));
    // Over the container the folder label shows where the file would go.
    QDragEnterEvent enter(QPoint(30, 30), Qt::CopyAction | Qt::MoveAction, data.get(), Qt::LeftButton,
                          Qt::ControlModifier);
    QApplication::sendEvent(border, &enter);
    Element& label = Shell(ws).lblPath(0);
    EXPECT_TRUE(label.Visible.get());
    EXPECT_EQ(label.Caption.get(), QStringLiteral("Move to Inbox"));
    QWidget* shown = view.widget(label);
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->parentWidget(), border);
    EXPECT_TRUE(shown->isVisibleTo(border));
    const auto [taken, action] = Drop(border, data.get(), QPoint(30, 30), Qt::ControlModifier);
    EXPECT_TRUE(taken);
    EXPECT_EQ(action, Qt::CopyAction) << "the source must not delete the file a second time";
    ASSERT_EQ(ws.LinkCount, 1);
    EXPECT_EQ(ws.Links[0].LinkPath, folder + QStringLiteral("/report.txt"));
    EXPECT_TRUE(QFileInfo::exists(folder + QStringLiteral("/report.txt")));
    EXPECT_EQ(t.platform.trashed, std::vector<QString>{src});
    EXPECT_FALSE(label.Visible.get());
}

TEST_F(ShellView, TextDroppedOnAnOpenNoteGoesThroughItsContainer) {
    const int c = t.newContainerAt(600, 600);
    ElementWidget* note = Widget(ws.txtNote(c));
    ASSERT_NE(note, nullptr);
    WireDropInput(ctx, *note);
    WireDropInput(ctx, *Widget(ws.grpBorder(c)));
    ws.txtNote(c).Text = QStringLiteral("first");
    ws.txtNote(c).Visible = true;
    for (QWidget* child : note->findChildren<QWidget*>())
        EXPECT_FALSE(child->acceptDrops());
    std::unique_ptr<QMimeData> data(new QMimeData);
    data->setText(QStringLiteral("second"));
    // The drag reaches the note's editor; refused there, it goes on to the container.
    QWidget* target = note->findChildren<QWidget*>().isEmpty() ? note : note->findChildren<QWidget*>().last();
    const auto [taken, action] = Drop(target, data.get(), QPoint(5, 5));
    EXPECT_TRUE(taken);
    EXPECT_EQ(ws.txtNote(c).Text.get(), QStringLiteral("first\r\n\r\nsecond"));
}

TEST_F(ShellView, TheFolderLinkButtonsTurnTheLinkOnAndOff) {
    const QString folder = QDir(files.path()).filePath(QStringLiteral("Music"));
    QDir().mkpath(folder);
    const int c = t.newContainerAt(600, 600);
    ElementWidget* on = Widget(ws.picCopy1(c));
    ElementWidget* off = Widget(ws.picCopy2(c));
    ASSERT_NE(on, nullptr);
    ASSERT_NE(off, nullptr);
    WireElementInput(ctx, *on);
    WireElementInput(ctx, *off);
    t.platform.folderAnswers = {folder};
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(3, 3), on->mapToGlobal(QPointF(3, 3)), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(on, &press);
    EXPECT_EQ(t.platform.folderPrompts, std::vector<QString>{QStringLiteral("Set Container's Folder Link:")});
    EXPECT_EQ(ws.lblName(c).Caption.get(), QStringLiteral("Music"));
    EXPECT_EQ(off->toolTip(), QStringLiteral("Folder Link: ") + folder);
    QMouseEvent down(QEvent::MouseButtonPress, QPointF(3, 3), off->mapToGlobal(QPointF(3, 3)), Qt::LeftButton,
                     Qt::LeftButton, Qt::NoModifier);
    QMouseEvent up(QEvent::MouseButtonRelease, QPointF(3, 3), off->mapToGlobal(QPointF(3, 3)), Qt::LeftButton,
                   Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(off, &down);
    QApplication::sendEvent(off, &up);
    EXPECT_TRUE(ws.Containers[static_cast<size_t>(c)].CopyPath.isEmpty());
    EXPECT_TRUE(ws.picCopy1(c).Visible.get());
    EXPECT_FALSE(ws.picCopy2(c).Visible.get());
}

TEST_F(ShellView, ThePasteEntryShowsItsCaptionInTheMenus) {
    ws.menuSink = &menus;
    t.platform.clipboardFileList = {QStringLiteral("/tmp/a.txt")};
    SetPasteMenu(ws, -1);
    QAction* paste = menus.action(QStringLiteral("mnuPaste"));
    ASSERT_NE(paste, nullptr);
    EXPECT_EQ(paste->text(), QStringLiteral("Paste Shortcuts..."));
    EXPECT_TRUE(paste->isVisible());
    t.platform.clipboard = QStringLiteral("text");
    SetPasteMenu(ws, -1);
    EXPECT_EQ(paste->text(), QStringLiteral("Paste Text..."));
    ASSERT_NE(menus.action(QStringLiteral("mnuCopy")), nullptr);
    EXPECT_EQ(menus.action(QStringLiteral("mnuOpenFolder"))->text(), QStringLiteral("&Explore Folder"));
    ws.menuSink = nullptr;
}

TEST_F(ShellView, TheDragDataIsReadAsFilesOrText) {
    QMimeData files;
    files.setUrls(
        {QUrl::fromLocalFile(QStringLiteral("/tmp/a b.txt")), QUrl(QStringLiteral("https://x.org/"))});
    files.setText(QStringLiteral("/tmp/a b.txt"));
    DropData d = DropDataOf(&files);
    EXPECT_EQ(d.files, QStringList{QStringLiteral("/tmp/a b.txt")});
    EXPECT_FALSE(d.hasText) << "the text of a file list is the file list";
    QMimeData gnome;
    gnome.setData(QStringLiteral("x-special/gnome-copied-files"), "cut\nfile:///tmp/x%20y\nfile:///tmp/z\n");
    EXPECT_EQ(LocalFilesOf(&gnome), (QStringList{QStringLiteral("/tmp/x y"), QStringLiteral("/tmp/z")}));
    QMimeData text;
    text.setText(QStringLiteral("hello"));
    d = DropDataOf(&text);
    EXPECT_TRUE(d.files.isEmpty());
    EXPECT_TRUE(d.hasText);
    EXPECT_EQ(d.text, QStringLiteral("hello"));
}

TEST(ShellPlatform, TheClipboardHoldsAFileListAsFileManagersReadIt) {
    QtPlatform p;
    ASSERT_TRUE(p.setClipboardFiles({QStringLiteral("/tmp/one.txt"), QStringLiteral("/tmp/two words.txt")}));
    const QMimeData* d = QGuiApplication::clipboard()->mimeData();
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->data(QStringLiteral("text/uri-list")).trimmed(),
              QByteArray("file:///tmp/one.txt\r\nfile:///tmp/two%20words.txt"));
    EXPECT_EQ(d->data(QStringLiteral("x-special/gnome-copied-files")),
              QByteArray("copy\nfile:///tmp/one.txt\nfile:///tmp/two%20words.txt"));
    EXPECT_EQ(p.clipboardFiles(),
              (QStringList{QStringLiteral("/tmp/one.txt"), QStringLiteral("/tmp/two words.txt")}));
    EXPECT_TRUE(p.clipboardText().isEmpty()) << "a file list is no text";
    // An empty list is written too, and holds no files.
    ASSERT_TRUE(p.setClipboardFiles({}));
    EXPECT_TRUE(p.clipboardFiles().isEmpty());
    p.setClipboardText(QStringLiteral("words"));
    EXPECT_EQ(p.clipboardText(), QStringLiteral("words"));
    EXPECT_TRUE(p.clipboardFiles().isEmpty());
}

TEST(ShellPlatform, ACopyRunsUnderItsProgressWindowAndTheWindowKeepsRunning) {
    QTemporaryDir dir;
    const QString src = dir.filePath(QStringLiteral("big.bin"));
    {
        QFile f(src);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(QByteArray(6 << 20, 'b'));
    }
    const QString to = dir.filePath(QStringLiteral("to"));
    QDir().mkpath(to);
    QtPlatform p;
    p.fileOpChunkPauseMs = 60;
    int ticks = 0;
    QString title;
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, [&] {
        ++ticks;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->objectName() == QLatin1String("frmFileProgress")) title = w->windowTitle();
    });
    tick.start(20);
    const FileOpResult r =
        p.fileOperation({FileOp::Copy, {src}, to, 264, QStringLiteral("File Copy in Progress..")});
    tick.stop();
    EXPECT_EQ(r.result, 0);
    EXPECT_FALSE(r.aborted);
    EXPECT_EQ(r.made, QStringList{to + QStringLiteral("/big.bin")});
    EXPECT_EQ(QFileInfo(to + QStringLiteral("/big.bin")).size(), 6 << 20);
    EXPECT_GT(ticks, 3) << "events ran during the copy";
    EXPECT_EQ(title, QStringLiteral("File Copy in Progress.."));
}

TEST(ShellPlatform, CancelInTheProgressWindowAbortsTheCopy) {
    QTemporaryDir dir;
    const QString src = dir.filePath(QStringLiteral("big.bin"));
    {
        QFile f(src);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(QByteArray(8 << 20, 'b'));
    }
    const QString to = dir.filePath(QStringLiteral("to"));
    QDir().mkpath(to);
    QtPlatform p;
    p.fileOpChunkPauseMs = 100;
    QTimer press;
    bool pressed = false;
    QObject::connect(&press, &QTimer::timeout, [&] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->objectName() == QLatin1String("frmFileProgress"))
                if (auto* button = w->findChild<QPushButton*>(); button && !pressed) {
                    button->click();
                    pressed = true;
                }
    });
    press.start(30);
    const FileOpResult r =
        p.fileOperation({FileOp::Copy, {src}, to, 264, QStringLiteral("File Copy in Progress..")});
    press.stop();
    EXPECT_TRUE(pressed);
    EXPECT_TRUE(r.aborted);
    EXPECT_FALSE(QFileInfo::exists(to + QStringLiteral("/big.bin"))) << "no part of the copy stays";
}

TEST(ShellPlatform, ADeleteGoesToTheTrash) {
    QTemporaryDir home;
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("old.txt"));
    {
        QFile f(file);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    }
    QtPlatform p;
    const FileOpResult r =
        p.fileOperation({FileOp::Delete, {file}, QString(), 320, QStringLiteral("Deleting...")});
    EXPECT_EQ(r.result, 0);
    EXPECT_FALSE(QFileInfo::exists(file));
}

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
