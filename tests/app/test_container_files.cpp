// The container files Containers/<n>.con: the bytes written for each kind and state of container, the
// numbering and the files removed or kept, and the reading of every key with its restore steps and the
// nesting pass.

#include "app/WorkspaceFile.h"
#include "containers/ContainerFiles.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Shrinking.h"
#include "desk/Notes.h"
#include "desk/Pictures.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "themes/Buttons.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

// Lines joined with CR LF, each line ended, as UTF-8.
QByteArray Lines(const QStringList& lines) {
    QByteArray out;
    for (const QString& l : lines)
        out += l.toUtf8() + "\r\n";
    return out;
}

QString Con(int n) {
    return QStringLiteral("Containers/") + QString::number(n) + QStringLiteral(".con");
}

ino_t Inode(const QString& path) {
    struct stat st {};
    return ::stat(path.toLocal8Bit().constData(), &st) == 0 ? st.st_ino : 0;
}

// The lines of a container file from [Name] to [H], for the common case.
struct Body {
    QString name = QStringLiteral("Container");
    QString back = QStringLiteral(" 2688768 ");
    QString fore = QStringLiteral(" 16777215 ");
    QString icon;
    QString copyPath;
    QString refresh = QStringLiteral("False");
    QString noteOn = QStringLiteral("0");
    QStringList note = {QString()};
    QString folded = QStringLiteral("0");
    QString flipped = QStringLiteral("0");
    QString shrink = QStringLiteral("0");
    QString x = QStringLiteral(" 600 ");
    QString y = QStringLiteral(" 200 ");
    QString w = QStringLiteral(" 3000 ");
    QString h = QStringLiteral(" 3000 ");
    QStringList lines() const {
        QStringList l = {QStringLiteral("[Name]"),
                         name,
                         QStringLiteral("[Backcolor]"),
                         back,
                         QStringLiteral("[Forecolor]"),
                         fore,
                         QStringLiteral("[Icon]"),
                         icon,
                         QStringLiteral("[CopyPath]"),
                         copyPath,
                         QStringLiteral("[RefreshOnExpand]"),
                         refresh,
                         QStringLiteral("[NOTE ON]"),
                         noteOn,
                         QStringLiteral("[START Note]")};
        l += note;
        l += {QStringLiteral("[END Note]"),
              QStringLiteral("[Folded]"),
              folded,
              QStringLiteral("[Flipped]"),
              flipped,
              QStringLiteral("[Shrink]"),
              shrink,
              QStringLiteral("[X]"),
              x,
              QStringLiteral("[Y]"),
              y,
              QStringLiteral("[W]"),
              w,
              QStringLiteral("[H]"),
              h};
        return l;
    }
};

QByteArray PlainFile(const Body& b, const QString& parent = QStringLiteral("-1")) {
    return Lines(QStringList{QStringLiteral("[1.05]"), QStringLiteral("[Container]"), parent} + b.lines());
}

class ContainerFiles : public ::testing::Test {
  protected:
    void SetUp() override { t.start(); }
    Workspace& ws() { return *t.ws; }
    int NewContainerAt(float left, float top) { return t.newContainerAt(left, top); }
    QString EmptyIcon() const { return QDir(t.programDir()).filePath(QStringLiteral("emptyicon.ico")); }
    Body Made() const {
        Body b;
        b.icon = EmptyIcon();
        return b;
    }
    void Save() { SaveDesktop(ws(), true, false); }
    std::string Read(int n) const { return t.readData(Con(n)).toStdString(); }
    // Writes container files and starts a fresh workspace over them.
    void LoadFiles(const std::vector<QByteArray>& files) {
        for (size_t k = 0; k < files.size(); ++k)
            t.writeData(Con(static_cast<int>(k)), files[k]);
        t.restart();
        t.start();
    }
    TestWorkspace t;
};

} // namespace

// --- the bytes of each kind and state ---

TEST_F(ContainerFiles, APlainContainer) {
    NewContainerAt(600, 200);
    Save();
    EXPECT_EQ(Read(0), PlainFile(Made()).toStdString());
    EXPECT_FALSE(t.dataExists(Con(1)));
}

TEST_F(ContainerFiles, ANoteWithSeveralLines) {
    mnuNewNote_Click(ws());
    ws().txtNote(0).Text = QStringLiteral("  first line\r\nsecond line\nthird\r\n\r\n  ");
    Save();
    Body b = Made();
    b.name = QStringLiteral("Note");
    b.noteOn = QStringLiteral("1");
    b.note = {QStringLiteral("first line"), QStringLiteral("second line"), QStringLiteral("third")};
    EXPECT_EQ(Read(0), PlainFile(b).toStdString());
}

TEST_F(ContainerFiles, AnEmptyNoteWritesABlankLineBetweenItsKeys) {
    mnuNewNote_Click(ws());
    Save();
    const QByteArray bytes = t.readData(Con(0));
    EXPECT_TRUE(bytes.contains("[NOTE ON]\r\n1\r\n[START Note]\r\n\r\n[END Note]\r\n"))
        << bytes.toStdString();
    // Blanks and line ends alone are an empty note too.
    ws().txtNote(0).Text = QStringLiteral(" \r\n \r\n ");
    Save();
    EXPECT_TRUE(t.readData(Con(0)).contains("[START Note]\r\n\r\n[END Note]\r\n"));
}

TEST_F(ContainerFiles, AFoldedContainerStoresTheSizeItOpensTo) {
    const int n = NewContainerAt(600, 200);
    ws().Group(n).Width = 3501.5f;
    ws().Group(n).Height = 2750.5f;
    Save();
    Body open = Made();
    open.w = QStringLiteral(" 3501.5 ");
    open.h = QStringLiteral(" 2750.5 ");
    EXPECT_EQ(Read(0), PlainFile(open).toStdString());

    FoldContainer(ws(), n);
    Save();
    Body b = Made();
    b.folded = QStringLiteral("1");
    // The record's whole twips: halves round to even.
    b.w = QStringLiteral(" 3502 ");
    b.h = QStringLiteral(" 2750 ");
    EXPECT_EQ(Read(0), PlainFile(b).toStdString());
    EXPECT_EQ(ws().Group(n).Height.get(), 350.0f);
}

TEST_F(ContainerFiles, AShrunkContainerStoresTheTilesPlaceAndTheOpenSize) {
    const int n = NewContainerAt(1500, 900);
    ws().Group(n).Width = 4000;
    ToggleShrink(ws(), n);
    Save();
    Body b = Made();
    b.shrink = QStringLiteral("1");
    b.x = QStringLiteral(" 1500 ");
    b.y = QStringLiteral(" 900 ");
    b.w = QStringLiteral(" 4000 ");
    EXPECT_EQ(Read(0), PlainFile(b).toStdString());
}

TEST_F(ContainerFiles, AFlippedContainerStoresItsPlaceAsOpen) {
    const int n = NewContainerAt(600, 4000);
    FoldContainer(ws(), n);
    UnfoldContainer(ws(), n);
    Save();
    Body b = Made();
    b.flipped = QStringLiteral("1");
    b.y = QStringLiteral(" 1350 ");
    EXPECT_EQ(Read(0), PlainFile(b).toStdString());
}

TEST_F(ContainerFiles, ANestedContainerNamesItsParentAsAWord) {
    const int parent = NewContainerAt(600, 200);
    const int child = NewContainerAt(0, 0);
    ws().Group(child).setContainer(&ws().Group(parent));
    ws().Group(child).Move(100, 400);
    Save();
    Body b = Made();
    b.x = QStringLiteral(" 100 ");
    b.y = QStringLiteral(" 400 ");
    EXPECT_EQ(Read(1), PlainFile(b, QStringLiteral(" 0 ")).toStdString());
    EXPECT_EQ(Read(0), PlainFile(Made()).toStdString());
}

TEST_F(ContainerFiles, AFolderLinkStoresItsFolder) {
    QTemporaryDir folder;
    const int n = NewContainerAt(600, 200);
    ws().Containers[n].CopyPath = folder.path();
    ws().Containers[n].RefreshOnExpand = true;
    Save();
    Body b = Made();
    b.copyPath = folder.path();
    b.refresh = QStringLiteral("True");
    EXPECT_EQ(Read(0), PlainFile(b).toStdString());

    // It loads as a folder link; one whose folder has gone loads as a plain container.
    t.restart();
    t.start();
    EXPECT_EQ(t.ws->Containers[0].CopyPath, folder.path());
    EXPECT_TRUE(t.ws->Containers[0].RefreshOnExpand);
    EXPECT_TRUE(t.ws->picCopy2(0).Visible.get());
    EXPECT_FALSE(t.ws->picCopy1(0).Visible.get());
    EXPECT_EQ(t.ws->picCopy2(0).ToolTipText.get(), QStringLiteral("Folder Link: ") + folder.path());
    const QString gone = folder.path();
    folder.remove();
    t.restart();
    t.start();
    EXPECT_TRUE(t.ws->Containers[0].CopyPath.isEmpty());
    EXPECT_TRUE(t.ws->picCopy1(0).Visible.get());
    SaveDesktop(*t.ws, true, false);
    EXPECT_FALSE(t.readData(Con(0)).contains(gone.toUtf8()));
}

TEST_F(ContainerFiles, ShortcutsAndPicturesFollowTheHeadInRecords) {
    const int n = NewContainerAt(600, 200);
    const QString png = QStringLiteral("/pictures/cat.png");
    t.platform.images[png] = QSize(40, 30);
    ASSERT_TRUE(AddPicture(ws(), png));
    ws().picPlaceholder(0).setContainer(&ws().grpBorder(n));
    ws().picTemp(0).setContainer(&ws().grpBorder(n));
    ws().picPlaceholder(0).Move(300, 500, 900, 700);
    AddShortcut(ws(), QStringLiteral("/data/report.txt"), ws().grpBorder(n));
    ws().Link(0).Move(600, 1500);
    AddURL(ws(), QStringLiteral("https://example.org/"), QStringLiteral("Example"), ws().grpBorder(n));
    ws().Link(1).Move(600, 1800);
    // A reminder is never stored in a container file, and a shortcut on the background neither.
    ASSERT_TRUE(AddPicture(ws(), png, true));
    ws().picPlaceholder(1).setContainer(&ws().grpBorder(n));
    ws().picTemp(1).setContainer(&ws().grpBorder(n));
    AddShortcut(ws(), QStringLiteral("/data/loose.txt"), ws().picBack(0));
    Save();

    QStringList l =
        QStringList{QStringLiteral("[1.05]"), QStringLiteral("[Container]"), QStringLiteral("-1")} +
        Made().lines();
    l += {QStringLiteral("[Picture]"),
          QStringLiteral("[Locked]"),
          QStringLiteral("0"),
          QStringLiteral("[PicX]"),
          QStringLiteral(" 300 "),
          QStringLiteral("[PicY]"),
          QStringLiteral(" 500 "),
          QStringLiteral("[PicW]"),
          QStringLiteral(" 900 "),
          QStringLiteral("[PicH]"),
          QStringLiteral(" 700 "),
          QStringLiteral("[PicPath]"),
          png,
          QStringLiteral("TEMP"),
          QStringLiteral("TEMP"),
          QStringLiteral("TEMP"),
          QStringLiteral("TEMP")};
    auto link = [&](const char* x, const char* y, const char* label, const char* type, const char* path) {
        l += {QStringLiteral("[Link]"),
              QStringLiteral("[Size]"),
              QStringLiteral(" 10 "),
              QStringLiteral("[LinkX]"),
              QString::fromLatin1(x),
              QStringLiteral("[LinkY]"),
              QString::fromLatin1(y),
              QStringLiteral("[LinkLabel]"),
              QString::fromLatin1(label),
              QStringLiteral("[LinkType]"),
              QString::fromLatin1(type),
              QStringLiteral("[LinkPath]"),
              QString::fromLatin1(path),
              QStringLiteral("[LinkParam]"),
              QString(),
              QStringLiteral("[Color]"),
              QStringLiteral("-1"),
              QStringLiteral("[Bold]"),
              QStringLiteral("0"),
              QStringLiteral("[Confirm]"),
              QStringLiteral("0"),
              QStringLiteral("[Command]"),
              QStringLiteral(" 0 "),
              QStringLiteral("[Icon]"),
              QString(),
              QStringLiteral("[GROUP]"),
              QString(),
              QStringLiteral("[EXCLUSIVE]"),
              QString()};
    };
    link(" 600 ", " 1500 ", "report.txt", " 2 ", "/data/report.txt");
    link(" 600 ", " 1800 ", "Example", " 1 ", "https://example.org/");
    EXPECT_EQ(Read(0), Lines(l).toStdString());
}

TEST_F(ContainerFiles, AFeedContainerWritesItsRSSBlock) {
    Body b;
    b.name = QStringLiteral("News");
    b.icon = QDir(t.programDir()).filePath(QStringLiteral("rss.ico"));
    b.copyPath = QStringLiteral("http://127.0.0.1:8080/feed.xml");
    const QByteArray file = Lines(QStringList{QStringLiteral("[1.05]"), QStringLiteral("[RSS]"),
                                              QStringLiteral("http://127.0.0.1:8080/feed.xml"),
                                              QStringLiteral("News"), QStringLiteral("-1")} +
                                  b.lines());
    LoadFiles({file});
    ASSERT_EQ(ws().ContainerCount, 1);
    const ContainerRecord& r = ws().Containers[0];
    EXPECT_TRUE(r.IsFeed);
    EXPECT_EQ(r.CopyPath, QStringLiteral("http://127.0.0.1:8080/feed.xml"));
    EXPECT_EQ(ws().lblName(0).Caption.get(), QStringLiteral("News"));
    // Its last-update label sits at the foot of an open feed.
    ASSERT_TRUE(ws().lblRSSLastUpdate.exists(r.FeedIndex));
    EXPECT_EQ(ws().lblRSSLastUpdate(r.FeedIndex).Left.get(), 100.0f);
    EXPECT_EQ(ws().lblRSSLastUpdate(r.FeedIndex).Top.get(), 2970.0f - 250.0f);
    EXPECT_EQ(ws().lblRSSLastUpdate(r.FeedIndex).ForeColor.get(), 0xFFFFFF);
    EXPECT_EQ(ws().LstRSS(r.FeedIndex).BackColor.get(), 0x290700);
    Save();
    EXPECT_EQ(Read(0), file.toStdString());
}

TEST_F(ContainerFiles, AFeedIgnoresItsCopyPathAndTakesTheRssIconForAFavicon) {
    Body b;
    b.name = QStringLiteral("News");
    b.icon = QStringLiteral("http://127.0.0.1/favicon.ico");
    b.copyPath = QStringLiteral("http://elsewhere/other.xml");
    const QByteArray file = Lines(QStringList{QStringLiteral("[1.05]"), QStringLiteral("[RSS]"),
                                              QStringLiteral("http://127.0.0.1/feed.xml"),
                                              QStringLiteral("News"), QStringLiteral("-1")} +
                                  b.lines());
    LoadFiles({file});
    EXPECT_EQ(ws().Containers[0].CopyPath, QStringLiteral("http://127.0.0.1/feed.xml"));
    EXPECT_EQ(ws().Containers[0].IconPath, QDir(t.programDir()).filePath(QStringLiteral("rss.ico")));

    // A fetched favicon waiting in the data folder is taken, and the file goes.
    t.writeData(QStringLiteral("favicon.ico"), "icon");
    t.restart();
    t.writeData(Con(0), file);
    t.start();
    EXPECT_EQ(ws().Containers[0].IconPath, t.dataFile(QStringLiteral("favicon.ico")));
    EXPECT_FALSE(t.dataExists(QStringLiteral("favicon.ico")));
}

// --- numbering and the files on disk ---

TEST_F(ContainerFiles, FilesAreNumberedInFamilyOrderSkippingDeadContainers) {
    const int a = NewContainerAt(600, 200);
    const int b = NewContainerAt(3700, 200);
    const int c = NewContainerAt(6800, 200);
    ws().lblName(a).Caption = QStringLiteral("A");
    ws().lblName(b).Caption = QStringLiteral("B");
    ws().lblName(c).Caption = QStringLiteral("C");
    Save();
    ASSERT_TRUE(t.dataExists(Con(2)));
    ws().ConfirmDelete = false;
    ws().SelectedContainer = static_cast<int16_t>(b);
    mnuDeleteContainer_Click(ws());
    EXPECT_TRUE(t.readData(Con(0)).contains("[Name]\r\nA\r\n"));
    EXPECT_TRUE(t.readData(Con(1)).contains("[Name]\r\nC\r\n"));
    // The file no longer needed is removed.
    EXPECT_FALSE(t.dataExists(Con(2)));
    // Only container files are touched in the folder.
    t.writeData(QStringLiteral("Containers/notes.txt"), "mine");
    Save();
    EXPECT_TRUE(t.dataExists(QStringLiteral("Containers/notes.txt")));
}

TEST_F(ContainerFiles, AFileWhoseBytesDidNotChangeIsNotRewritten) {
    const int a = NewContainerAt(600, 200);
    const int b = NewContainerAt(3700, 200);
    Save();
    const ino_t first = Inode(t.dataFile(Con(0)));
    const ino_t second = Inode(t.dataFile(Con(1)));
    ASSERT_NE(first, 0u);
    ASSERT_NE(second, 0u);
    Save();
    EXPECT_EQ(Inode(t.dataFile(Con(0))), first);
    EXPECT_EQ(Inode(t.dataFile(Con(1))), second);

    ws().lblName(b).Caption = QStringLiteral("Renamed");
    Save();
    EXPECT_EQ(Inode(t.dataFile(Con(0))), first);
    EXPECT_NE(Inode(t.dataFile(Con(1))), second);
    EXPECT_TRUE(t.readData(Con(1)).contains("Renamed"));
    (void)a;
}

TEST_F(ContainerFiles, NoFilesBeforeTheFirstSaveAndTheFolderIsMadeWhenNeeded) {
    EXPECT_FALSE(QDir(t.dataFile(QStringLiteral("Containers"))).exists());
    Save();
    EXPECT_TRUE(QDir(t.dataFile(QStringLiteral("Containers"))).exists());
    EXPECT_FALSE(t.dataExists(Con(0)));
}

TEST_F(ContainerFiles, AContainerHiddenByTheTagFilterIsShownAndWritten) {
    const int a = NewContainerAt(600, 200);
    ws().Containers[a].TagHidden = true;
    ws().Group(a).Visible = false;
    Save();
    EXPECT_TRUE(ws().Group(a).Visible.get());
    EXPECT_TRUE(t.dataExists(Con(0)));
}

// --- reading ---

TEST_F(ContainerFiles, ReadingAppliesEveryKey) {
    QTemporaryDir folder;
    const QString png = QStringLiteral("/pictures/cat.png");
    t.platform.images[png] = QSize(40, 30);
    const QByteArray file = Lines({
        QStringLiteral("[1.05]"),
        QStringLiteral("[Container]"),
        QStringLiteral("-1"),
        QStringLiteral("[Name]"),
        QStringLiteral("Projects"),
        QStringLiteral("[Backcolor]"),
        QStringLiteral(" 1193046 "),
        QStringLiteral("[Forecolor]"),
        QStringLiteral(" 65280 "),
        QStringLiteral("[Icon]"),
        QStringLiteral("  /icons/box.png  "),
        QStringLiteral("[CopyPath]"),
        folder.path(),
        QStringLiteral("[RefreshOnExpand]"),
        QStringLiteral("True"),
        QStringLiteral("[NOTE ON]"),
        QStringLiteral(" 1 "),
        QStringLiteral("[START Note]"),
        QStringLiteral("one"),
        QString(),
        QStringLiteral("three"),
        QStringLiteral("[END Note]"),
        QStringLiteral("[Folded]"),
        QStringLiteral("0"),
        QStringLiteral("[Flipped]"),
        QStringLiteral("0"),
        QStringLiteral("[Shrink]"),
        QStringLiteral("0"),
        QStringLiteral("[X]"),
        QStringLiteral(" 1200 "),
        QStringLiteral("[Y]"),
        QStringLiteral(" 450,5 "),
        QStringLiteral("[W]"),
        QStringLiteral(" 4000 "),
        QStringLiteral("[H]"),
        QStringLiteral(" 2500 "),
        QStringLiteral("[an unknown key]"),
        QStringLiteral("[Picture]"),
        QStringLiteral("[Locked]"),
        QStringLiteral("1"),
        QStringLiteral("[PicX]"),
        QStringLiteral(" 300 "),
        QStringLiteral("[PicY]"),
        QStringLiteral(" 500 "),
        QStringLiteral("[PicW]"),
        QStringLiteral(" 900 "),
        QStringLiteral("[PicH]"),
        QStringLiteral(" 700 "),
        QStringLiteral("[PicPath]"),
        png,
        QStringLiteral("TEMP"),
        QStringLiteral("TEMP"),
        QStringLiteral("TEMP"),
        QStringLiteral("TEMP"),
        QStringLiteral("[Link]"),
        QStringLiteral("[Size]"),
        QStringLiteral(" 12 "),
        QStringLiteral("[LinkX]"),
        QStringLiteral(" 600 "),
        QStringLiteral("[LinkY]"),
        QStringLiteral(" 1500 "),
        QStringLiteral("[LinkLabel]"),
        QStringLiteral("Report"),
        QStringLiteral("[LinkType]"),
        QStringLiteral(" 2 "),
        QStringLiteral("[LinkPath]"),
        QStringLiteral("/data/report.txt"),
        QStringLiteral("[LinkParam]"),
        QStringLiteral("-v"),
        QStringLiteral("[Color]"),
        QStringLiteral("-1"),
        QStringLiteral("[Bold]"),
        QStringLiteral("1"),
        QStringLiteral("[Confirm]"),
        QStringLiteral("1"),
        QStringLiteral("[Command]"),
        QStringLiteral(" 0 "),
        QStringLiteral("[Icon]"),
        QString(),
        QStringLiteral("[GROUP]"),
        QStringLiteral("work,home"),
        QStringLiteral("[EXCLUSIVE]"),
        QStringLiteral("0"),
    });
    LoadFiles({file});
    ASSERT_EQ(ws().ContainerCount, 1);
    const ContainerRecord& r = ws().Containers[0];
    EXPECT_EQ(ws().lblName(0).Caption.get(), QStringLiteral("Projects"));
    EXPECT_EQ(ws().grpBorder(0).BackColor.get(), 1193046);
    EXPECT_EQ(ws().Group(0).BackColor.get(), Lighten(1193046));
    EXPECT_EQ(ws().picShrink(0).BackColor.get(), 1193046);
    EXPECT_EQ(ws().grpBorder(0).ForeColor.get(), 65280);
    EXPECT_EQ(ws().lblName(0).ForeColor.get(), 65280);
    EXPECT_EQ(r.IconPath, QStringLiteral("/icons/box.png"));
    EXPECT_EQ(r.CopyPath, folder.path());
    EXPECT_TRUE(ws().picCopy2(0).Visible.get());
    EXPECT_TRUE(r.RefreshOnExpand);
    // A container can be a note and a folder link at once.
    EXPECT_TRUE(ws().txtNote(0).Visible.get());
    EXPECT_TRUE(ws().picPin(0).Visible.get());
    EXPECT_FALSE(ws().picPinNote(0).Visible.get());
    EXPECT_EQ(ws().txtNote(0).Text.get(), QStringLiteral("one\r\n\r\nthree\r\n"));
    EXPECT_EQ(ws().Group(0).Left.get(), 1200.0f);
    EXPECT_EQ(ws().Group(0).Top.get(), 450.5f);
    EXPECT_EQ(ws().Group(0).Width.get(), 4000.0f);
    EXPECT_EQ(ws().Group(0).Height.get(), 2500.0f);
    EXPECT_EQ(r.X, 1200);
    EXPECT_EQ(r.Y, 450);
    EXPECT_EQ(r.W, 4000);
    EXPECT_EQ(r.H, 2500);
    EXPECT_FALSE(r.Flipped);
    EXPECT_FALSE(IsFolded(ws(), 0));
    EXPECT_TRUE(ws().lblName(0).Visible.get());
    // Laid out from its size.
    EXPECT_EQ(ws().lblName(0).Width.get(), 2620.0f);
    EXPECT_EQ(ws().txtNote(0).Height.get(), 2470.0f - 440.0f);
    // The picture lies in the container, locked.
    ASSERT_EQ(ws().DeskObjectCount, 1);
    EXPECT_EQ(ws().picPlaceholder(0).Container(), &ws().grpBorder(0));
    EXPECT_EQ(ws().picTemp(0).Container(), &ws().grpBorder(0));
    EXPECT_TRUE(ws().picTemp(0).Visible.get());
    EXPECT_EQ(ws().picPlaceholder(0).Left.get(), 300.0f);
    // The shortcut too, with the container's fore colour.
    ASSERT_EQ(ws().LinkCount, 1);
    EXPECT_EQ(ws().Link(0).Container(), &ws().grpBorder(0));
    EXPECT_EQ(ws().Link(0).Caption.get(), QStringLiteral("Report"));
    EXPECT_EQ(ws().Link(0).ForeColor.get(), 65280);
    EXPECT_EQ(ws().Link(0).FontSize.get(), 12.0f);
    EXPECT_TRUE(ws().Link(0).FontBold.get());
    EXPECT_EQ(ws().Links[0].LinkParam, QStringLiteral("-v"));
    EXPECT_EQ(ws().Links[0].Tags, QStringLiteral("work,home"));
    EXPECT_TRUE(ws().Links[0].MarkTag.isEmpty());
    EXPECT_TRUE(ws().Links[0].Confirm);
}

TEST_F(ContainerFiles, AnEmptyNoteLoadsAsOneLineEnd) {
    Body b;
    b.noteOn = QStringLiteral("1");
    LoadFiles({PlainFile(b)});
    EXPECT_EQ(ws().txtNote(0).Text.get(), QStringLiteral("\r\n"));
    EXPECT_TRUE(ws().txtNote(0).Visible.get());
}

TEST_F(ContainerFiles, ANegativeXLoadsAtZeroWhileANegativeYStays) {
    Body b;
    b.x = QStringLiteral("-250 ");
    b.y = QStringLiteral("-300 ");
    LoadFiles({PlainFile(b)});
    EXPECT_EQ(ws().Group(0).Left.get(), 0.0f);
    EXPECT_EQ(ws().Containers[0].X, 0);
    EXPECT_EQ(ws().Group(0).Top.get(), -300.0f);
    EXPECT_EQ(ws().Containers[0].Y, -300);
}

TEST_F(ContainerFiles, AValueThatDoesNotConvertLeavesItsTargetAlone) {
    Body b;
    b.x = QStringLiteral("left");
    b.back = QStringLiteral("blue");
    b.refresh = QString();
    LoadFiles({PlainFile(b)});
    ASSERT_EQ(ws().ContainerCount, 1);
    // The drop position of NewGroup stays.
    EXPECT_EQ(ws().Group(0).Left.get(), 600.0f);
    EXPECT_EQ(ws().grpBorder(0).BackColor.get(), 0x290700);
    EXPECT_FALSE(ws().Containers[0].RefreshOnExpand);
}

TEST_F(ContainerFiles, AGapInTheNumberingEndsTheLoadAndTheNextSaveDeletesTheLaterFiles) {
    Body a, b, c;
    a.name = QStringLiteral("A");
    b.name = QStringLiteral("B");
    c.name = QStringLiteral("C");
    t.writeData(Con(0), PlainFile(a));
    t.writeData(Con(1), PlainFile(b));
    t.writeData(Con(3), PlainFile(c));
    t.restart();
    t.start();
    EXPECT_EQ(ws().ContainerCount, 2);
    EXPECT_EQ(ws().lblName(1).Caption.get(), QStringLiteral("B"));
    Save();
    EXPECT_TRUE(t.dataExists(Con(0)));
    EXPECT_TRUE(t.dataExists(Con(1)));
    EXPECT_FALSE(t.dataExists(Con(2)));
    EXPECT_FALSE(t.dataExists(Con(3)));

    // Without 0.con nothing loads at all.
    t.restart();
    QFile::remove(t.dataFile(Con(0)));
    t.start();
    EXPECT_EQ(ws().ContainerCount, 0);
}

TEST_F(ContainerFiles, TheStateIsRestoredAtTheEndOfTheFileWhateverTheKeyOrder) {
    // [Folded] comes before the size it folds from.
    const QByteArray early = Lines(
        {QStringLiteral("[1.05]"), QStringLiteral("[Container]"), QStringLiteral("-1"),
         QStringLiteral("[Folded]"), QStringLiteral("1"), QStringLiteral("[Shrink]"), QStringLiteral("0"),
         QStringLiteral("[X]"), QStringLiteral(" 700 "), QStringLiteral("[Y]"), QStringLiteral(" 300 "),
         QStringLiteral("[W]"), QStringLiteral(" 3500 "), QStringLiteral("[H]"), QStringLiteral(" 2500 ")});
    LoadFiles({early});
    EXPECT_TRUE(IsFolded(ws(), 0));
    EXPECT_EQ(ws().Group(0).Height.get(), 350.0f);
    EXPECT_EQ(ws().Group(0).Width.get(), 3500.0f);
    EXPECT_EQ(ws().Containers[0].H, 2500);
    UnfoldContainer(ws(), 0);
    EXPECT_EQ(ws().Group(0).Height.get(), 2500.0f);
}

TEST_F(ContainerFiles, ShrinkWinsOverFoldAndAShrunkNoteStaysANote) {
    Body b;
    b.shrink = QStringLiteral("1");
    b.folded = QStringLiteral("1");
    b.flipped = QStringLiteral("1");
    b.noteOn = QStringLiteral("1");
    b.x = QStringLiteral(" 1500 ");
    b.y = QStringLiteral(" 900 ");
    LoadFiles({PlainFile(b)});
    EXPECT_TRUE(IsShrunkSize(ws(), 0));
    EXPECT_FALSE(ws().lblName(0).Visible.get());
    EXPECT_FALSE(ws().chkUnfold(0).Visible.get());
    EXPECT_FALSE(ws().Containers[0].Flipped);
    EXPECT_EQ(ws().Group(0).Left.get(), 1500.0f);
    EXPECT_EQ(ws().Group(0).Top.get(), 900.0f);
    EXPECT_TRUE(ws().txtNote(0).Visible.get());
    // The layout ran at the open size before the shrink.
    EXPECT_EQ(ws().txtNote(0).Height.get(), 2530.0f);
    // No shrink sound while loading.
    EXPECT_TRUE(t.platform.sounds.empty());
    // It opens unfolded at the size of the file.
    ToggleShrink(ws(), 0);
    EXPECT_FALSE(IsFolded(ws(), 0));
    EXPECT_EQ(ws().Group(0).Height.get(), 3000.0f);
}

TEST_F(ContainerFiles, FlippedAppliesOnlyToAnOpenContainer) {
    Body folded;
    folded.folded = QStringLiteral("1");
    folded.flipped = QStringLiteral("1");
    Body open;
    open.flipped = QStringLiteral("1");
    open.y = QStringLiteral(" 1350 ");
    LoadFiles({PlainFile(folded), PlainFile(open)});
    EXPECT_TRUE(IsFolded(ws(), 0));
    EXPECT_FALSE(ws().Containers[0].Flipped);
    EXPECT_TRUE(TitleAtTop(ws(), 0));

    EXPECT_FALSE(IsFolded(ws(), 1));
    EXPECT_TRUE(ws().Containers[1].Flipped);
    EXPECT_FALSE(TitleAtTop(ws(), 1));
    EXPECT_EQ(ws().lblName(1).Top.get(), 2700.0f);
    EXPECT_EQ(ws().Containers[1].Y, 1350 + 3000 - 350);
    // Folding it returns it to its bar.
    FoldContainer(ws(), 1);
    EXPECT_EQ(ws().Group(1).Top.get(), 4000.0f);
}

TEST_F(ContainerFiles, TheNestingPassPutsEachContainerIntoTheOneItsFileNames) {
    Body a, b, c;
    a.x = QStringLiteral(" 100 ");
    a.y = QStringLiteral(" 400 ");
    c.x = QStringLiteral(" 50 ");
    c.y = QStringLiteral(" 60 ");
    // 0 names 1, which comes later; 2 names 0.
    LoadFiles({PlainFile(a, QStringLiteral(" 1 ")), PlainFile(b), PlainFile(c, QStringLiteral(" 0 "))});
    ASSERT_EQ(ws().ContainerCount, 3);
    EXPECT_EQ(ws().Group(0).Container(), &ws().Group(1));
    EXPECT_EQ(ws().Group(1).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().Group(2).Container(), &ws().Group(0));
    EXPECT_EQ(ws().Containers[0].ParentIndex, 1);
    EXPECT_EQ(ws().Containers[2].ParentIndex, 0);
    // Places are the parent's.
    EXPECT_EQ(ws().Group(0).Left.get(), 100.0f);
    EXPECT_EQ(ws().Group(2).Top.get(), 60.0f);
    Save();
    EXPECT_EQ(Read(0), PlainFile(a, QStringLiteral(" 1 ")).toStdString());
    EXPECT_EQ(Read(2), PlainFile(c, QStringLiteral(" 0 ")).toStdString());
}

TEST_F(ContainerFiles, AFileNamingItselfOrALoopAsParentLoadsOnTheBackground) {
    Body b;
    // 0 names itself; 1 and 2 name each other; 3 names a container that does not exist.
    LoadFiles({PlainFile(b, QStringLiteral(" 0 ")), PlainFile(b, QStringLiteral(" 2 ")),
               PlainFile(b, QStringLiteral(" 1 ")), PlainFile(b, QStringLiteral(" 9 "))});
    ASSERT_EQ(ws().ContainerCount, 4);
    EXPECT_EQ(ws().Group(0).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().Containers[0].ParentIndex, -1);
    // One of the pair nests in the other; the other stays on the background.
    EXPECT_EQ(ws().Group(1).Container(), &ws().Group(2));
    EXPECT_EQ(ws().Group(2).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().Containers[2].ParentIndex, -1);
    EXPECT_EQ(ws().Group(3).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().Containers[3].ParentIndex, -1);
    // Everything stays usable.
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(IsContainerLive(ws(), i));
    mnuFoldAll_Click(ws());
    mnuShrinkAll_Click(ws());
    ws().menus["mnuCaptureContainers"].setChecked(true);
    mnuCaptureContainers_Click(ws());
    EXPECT_EQ(ws().Group(1).Container(), &ws().picBack(0));
    EXPECT_TRUE(t.dataExists(Con(3)));
}

TEST_F(ContainerFiles, AFileWithoutAContainerKeyMakesNothing) {
    LoadFiles({Lines({QStringLiteral("[1.05]"), QStringLiteral("[Name]"), QStringLiteral("Lost")})});
    EXPECT_EQ(ws().ContainerCount, 0);
}

// --- "&Capture/Nested Containers" ---

TEST_F(ContainerFiles, SwitchingCaptureOffTakesEveryNestedContainerOut) {
    const int a = NewContainerAt(600, 200);
    const int b = NewContainerAt(0, 0);
    const int c = NewContainerAt(0, 0);
    // c in b in a: c comes later in the family than its parent, and a two-deep one keeps its place too.
    ws().Group(b).setContainer(&ws().Group(a));
    ws().Group(b).Move(100, 400);
    ws().Group(c).setContainer(&ws().Group(b));
    ws().Group(c).Move(50, 60);
    ws().Containers[b].ParentIndex = static_cast<int16_t>(a);
    ASSERT_FALSE(ws().menus["mnuCaptureContainers"].Checked());

    // Switching on changes nothing at once, and saves.
    mnuCaptureContainers_Click(ws());
    EXPECT_TRUE(ws().menus["mnuCaptureContainers"].Checked());
    EXPECT_EQ(ws().Group(b).Container(), &ws().Group(a));
    EXPECT_TRUE(t.readData(QStringLiteral("Perchdock.REC")).contains("[Capture]\r\n1\r\n"));

    mnuCaptureContainers_Click(ws());
    EXPECT_FALSE(ws().menus["mnuCaptureContainers"].Checked());
    EXPECT_EQ(ws().Group(b).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().Group(c).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().Group(b).Left.get(), 700.0f);
    EXPECT_EQ(ws().Group(b).Top.get(), 600.0f);
    EXPECT_EQ(ws().Group(c).Left.get(), 750.0f);
    EXPECT_EQ(ws().Group(c).Top.get(), 660.0f);
    EXPECT_EQ(ws().Group(a).Left.get(), 600.0f);
    EXPECT_EQ(ws().Containers[b].ParentIndex, -1);
    EXPECT_TRUE(t.readData(QStringLiteral("Perchdock.REC")).contains("[Capture]\r\n0\r\n"));
    EXPECT_EQ(Read(1).substr(0, 25), std::string("[1.05]\r\n[Container]\r\n-1\r\n"));
    EXPECT_EQ(Read(2).substr(0, 25), std::string("[1.05]\r\n[Container]\r\n-1\r\n"));
}
