// Shortcut items: the creation menus, resolving .url and .lnk files, duplicates, the font size in a
// container, the size text and hover text, removal and the deletion of files to the trash, and the
// file whose icon a shortcut shows.

#include "app/WorkspaceFile.h"
#include "containers/Containers.h"
#include "shortcuts/LinkIcons.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class LinkItems : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        t.platform.messages.clear();
    }
    Workspace& ws() { return *t.ws; }
    // A file of `size` bytes in a temporary folder.
    QString MakeFile(const QString& name, qint64 size) {
        const QString path = QDir(files.path()).filePath(name);
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(QByteArray(static_cast<int>(size), 'x'));
        return path;
    }
    int Last() { return ws().LinkCount - 1; }
    TestWorkspace t;
    QTemporaryDir files;
};

QString Corpus() { return qEnvironmentVariable("PERCHDOCK_SHARED") + QStringLiteral("/corpus"); }

} // namespace

TEST(FormatFileSize, TheOddResultsStandAsTheyAre) {
    EXPECT_EQ(FormatFileSize(-1), QString());
    EXPECT_EQ(FormatFileSize(0), QStringLiteral("0"));
    EXPECT_EQ(FormatFileSize(5), QStringLiteral("5.00 Bytes"));
    EXPECT_EQ(FormatFileSize(12), QStringLiteral("12.0 Bytes"));
    EXPECT_EQ(FormatFileSize(999), QStringLiteral("999 Bytes"));
    EXPECT_EQ(FormatFileSize(1000), QStringLiteral("0.98 KB"));
    EXPECT_EQ(FormatFileSize(1023), QStringLiteral("1.00 KB"));
    EXPECT_EQ(FormatFileSize(1024), QStringLiteral("1.00 KB"));
    // 1.125 KB: a half rounds away from zero.
    EXPECT_EQ(FormatFileSize(1152), QStringLiteral("1.13 KB"));
    EXPECT_EQ(FormatFileSize(10 * 1024), QStringLiteral("10.0 KB"));
    EXPECT_EQ(FormatFileSize(1023999), QStringLiteral("1000 KB"));
    EXPECT_EQ(FormatFileSize(3LL * 1024 * 1024), QStringLiteral("3.00 MB"));
    EXPECT_EQ(FormatFileSize(5LL * 1024 * 1024 * 1024), QStringLiteral("5.00 GB"));
    EXPECT_EQ(FormatFileSize(250LL * 1024 * 1024 * 1024 * 1024), QStringLiteral("250 TB"));
    EXPECT_EQ(FormatFileSize(1000LL * 1024 * 1024 * 1024 * 1024), QStringLiteral("1 x10^15 bytes"));
}

TEST(GetFileName, TakesWhatFollowsTheLastSeparator) {
    EXPECT_EQ(GetFileName(QStringLiteral("C:\\")), QStringLiteral("C:\\"));
    EXPECT_EQ(GetFileName(QStringLiteral("/home/ann/notes.txt")), QStringLiteral("notes.txt"));
    EXPECT_EQ(GetFileName(QStringLiteral("C:\\Tools\\x.exe")), QStringLiteral("x.exe"));
    EXPECT_EQ(GetFileName(QStringLiteral("C:file")), QStringLiteral("file"));
    EXPECT_EQ(GetFileName(QStringLiteral("/home/ann/")), QString());
    EXPECT_EQ(GetFileName(QStringLiteral("plain")), QStringLiteral("plain"));
}

TEST_F(LinkItems, AUrlFileBecomesAWebShortcutWhenShortcutsAreResolved) {
    const QString url = QDir(files.path()).filePath(QStringLiteral("Foo.url"));
    QFile f(url);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("[InternetShortcut]\r\nURL=https://example.org/page\r\n");
    f.close();
    ws().menus["mnuExtractURL"].setChecked(true);
    AddShortcut(ws(), url, ws().picBack(0));
    ASSERT_EQ(ws().LinkCount, 1);
    EXPECT_EQ(ws().Links[0].LinkType, 1.0f);
    EXPECT_EQ(ws().Links[0].LinkPath, QStringLiteral("https://example.org/page"));
    EXPECT_EQ(ws().Link(0).Caption.get(), QStringLiteral("Foo.url"));

    ws().menus["mnuExtractURL"].setChecked(false);
    AddShortcut(ws(), url, ws().picBack(0));
    ASSERT_EQ(ws().LinkCount, 2);
    EXPECT_EQ(ws().Links[1].LinkType, 2.0f);
    EXPECT_EQ(ws().Links[1].LinkPath, url);
    EXPECT_EQ(ws().Link(1).Caption.get(), QStringLiteral("Foo.url"));
}

TEST_F(LinkItems, ALnkKeepsItsOwnLabelThroughTheMenuAndPointsAtItsTarget) {
    const QString sample = Corpus() + QStringLiteral("/lnk/libLNK-testWinXpSystemIni.lnk");
    if (!QFile::exists(sample)) GTEST_SKIP() << "the shared corpus is not present: " << sample.toStdString();
    const QString lnk = QDir(files.path()).filePath(QStringLiteral("Foo.lnk"));
    ASSERT_TRUE(QFile::copy(sample, lnk));
    ws().menus["mnuExtractURL"].setChecked(true);
    t.platform.fileAnswers.push_back(lnk);
    mnuAddFileLink_Click(ws());
    ASSERT_EQ(ws().LinkCount, 1);
    EXPECT_EQ(ws().Link(0).Caption.get(), QStringLiteral("Foo.lnk"));
    EXPECT_EQ(ws().Links[0].LinkPath, QStringLiteral("C:\\WINDOWS\\system.ini"));
    EXPECT_EQ(ws().Links[0].LinkType, 2.0f);
}

TEST_F(LinkItems, ALnkWhoseTargetCannotBeReadKeepsItsOwnPath) {
    const QString lnk = MakeFile(QStringLiteral("Broken.lnk"), 40);
    ws().menus["mnuExtractURL"].setChecked(true);
    AddShortcut(ws(), QStringLiteral("  ") + lnk + QStringLiteral(" "), ws().picBack(0));
    ASSERT_EQ(ws().LinkCount, 1);
    EXPECT_EQ(ws().Links[0].LinkPath, lnk);
    EXPECT_EQ(ws().Link(0).Caption.get(), QStringLiteral("Broken.lnk"));
}

TEST_F(LinkItems, TheNewRecordHoldsItsCreationValues) {
    const int c = t.newContainerAt(600, 600);
    ws().grpBorder(c).ForeColor = 0x00FF00;
    AddShortcut(ws(), QStringLiteral("/data/a.txt"), ws().grpBorder(c));
    const LinkRecord& r = ws().Links[0];
    EXPECT_EQ(r.LinkType, 2.0f);
    EXPECT_EQ(r.IconIndex, 0);
    EXPECT_EQ(r.LinkColor, -1);
    EXPECT_FALSE(r.Bold);
    EXPECT_EQ(r.Command, 0);
    EXPECT_EQ(r.Size, ws().LinkFontSize);
    EXPECT_EQ(ws().Link(0).ForeColor.get(), 0x00FF00);
    EXPECT_EQ(ws().Link(0).Container(), &ws().grpBorder(c));
    EXPECT_EQ(ws().PicIcon(0).Container(), &ws().grpBorder(c));
    EXPECT_TRUE(ws().Link(0).Visible.get());
    EXPECT_EQ(ws().IconCount, 1);
}

TEST_F(LinkItems, AWebShortcutTakesTheDropPositionAndTheAddressAsLabel) {
    ws().DropX = 1234;
    ws().DropY = 2345;
    AddURL(ws(), QStringLiteral("  https://example.org/  "), QString(), ws().picBack(0));
    EXPECT_EQ(ws().Links[0].LinkType, 1.0f);
    EXPECT_EQ(ws().Links[0].LinkPath, QStringLiteral("https://example.org/"));
    EXPECT_EQ(ws().Link(0).Caption.get(), QStringLiteral("https://example.org/"));
    EXPECT_EQ(ws().Link(0).Left.get(), 1234.0f);
    EXPECT_EQ(ws().Link(0).Top.get(), 2345.0f);
}

TEST_F(LinkItems, DuplicatesAreExactPathsOfVisibleFileShortcutsInTheSameOwner) {
    const int a = t.newContainerAt(600, 600);
    const int b = t.newContainerAt(4600, 600);
    AddShortcut(ws(), QStringLiteral("/data/Report.txt"), ws().grpBorder(a));
    EXPECT_TRUE(FindDuplicateLink(ws(), ws().grpBorder(a), QStringLiteral("/data/Report.txt")));
    // Letter case counts.
    EXPECT_FALSE(FindDuplicateLink(ws(), ws().grpBorder(a), QStringLiteral("/data/report.txt")));
    // Another container, or the background, is another owner.
    EXPECT_FALSE(FindDuplicateLink(ws(), ws().grpBorder(b), QStringLiteral("/data/Report.txt")));
    EXPECT_FALSE(FindDuplicateLink(ws(), ws().picBack(0), QStringLiteral("/data/Report.txt")));
    // A web shortcut never counts.
    AddURL(ws(), QStringLiteral("https://example.org/"), QString(), ws().grpBorder(b));
    EXPECT_FALSE(FindDuplicateLink(ws(), ws().grpBorder(b), QStringLiteral("https://example.org/")));
    // Nor does a hidden one (a tag filter hides shortcuts).
    ws().Link(0).Visible = false;
    EXPECT_FALSE(FindDuplicateLink(ws(), ws().grpBorder(a), QStringLiteral("/data/Report.txt")));
}

TEST_F(LinkItems, ANewShortcutInAContainerTakesTheSizeOfItsLatestNeighbour) {
    const int a = t.newContainerAt(600, 600);
    const int b = t.newContainerAt(4600, 600);
    EXPECT_EQ(FontSizeInContainer(ws(), a, 0), ws().LinkFontSize);
    AddShortcut(ws(), QStringLiteral("/data/1"), ws().grpBorder(a));
    AddShortcut(ws(), QStringLiteral("/data/2"), ws().grpBorder(a));
    AddShortcut(ws(), QStringLiteral("/data/3"), ws().grpBorder(b));
    ws().Link(0).FontSize = 14;
    ws().Link(1).FontSize = 12;
    ws().Link(2).FontSize = 20;
    EXPECT_EQ(FontSizeInContainer(ws(), a, 5), 12);
    // The new shortcut itself does not count.
    EXPECT_EQ(FontSizeInContainer(ws(), a, 1), 14);
    EXPECT_EQ(FontSizeInContainer(ws(), b, 2), ws().LinkFontSize);
}

TEST_F(LinkItems, TheFileMenuAsksAndPlacesTheShortcutAtTheDropPositionAndSaves) {
    mnuAddFileLink_Click(ws());
    ASSERT_EQ(t.platform.fileDialogs.size(), 1u);
    EXPECT_EQ(t.platform.fileDialogs[0], QStringLiteral("Add File Shortcut|All Files (*.*)|*.*"));
    EXPECT_EQ(ws().LinkCount, 0) << "a cancelled dialog makes nothing";

    const QString file = MakeFile(QStringLiteral("plan.odt"), 10);
    ws().DropX = 900;
    ws().DropY = 1500;
    t.platform.fileAnswers.push_back(file);
    mnuAddFileLink_Click(ws());
    ASSERT_EQ(ws().LinkCount, 1);
    EXPECT_EQ(ws().Link(0).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().Link(0).Caption.get(), QStringLiteral("plan.odt"));
    EXPECT_EQ(ws().Link(0).Left.get(), 900.0f);
    EXPECT_EQ(ws().Link(0).Top.get(), 1500.0f);
    EXPECT_TRUE(t.readData(QStringLiteral("Perchdock.REC")).contains(file.toUtf8())) << "saved at once";
}

TEST_F(LinkItems, TheMenusPutTheShortcutInTheContainerTheMenuWasOpenedOn) {
    const int c = t.newContainerAt(600, 600);
    ws().SelectedContainer = static_cast<int16_t>(c);
    ws().menus["mnuDeleteContainer"].setVisible(true);
    t.platform.folderAnswers.push_back(files.path());
    mnuAddFolderLink_Click(ws());
    ASSERT_EQ(ws().LinkCount, 1);
    EXPECT_EQ(ws().Link(0).Container(), &ws().grpBorder(c));
    EXPECT_EQ(ws().Link(0).Caption.get(), QDir(files.path()).dirName());
    EXPECT_EQ(t.platform.folderPrompts.back(), QStringLiteral("Add Folder Shortcut:"));

    ws().menus["mnuDeleteContainer"].setVisible(false);
    t.platform.folderAnswers.push_back(files.path());
    mnuAddFolderLink_Click(ws());
    EXPECT_EQ(ws().Link(1).Container(), &ws().picBack(0));
}

TEST_F(LinkItems, ABlankFolderAnswerDoesNothing) {
    t.platform.folderAnswers.push_back(QStringLiteral("   "));
    mnuAddFolderLink_Click(ws());
    EXPECT_EQ(ws().LinkCount, 0);
}

TEST_F(LinkItems, TheAddressDialogAddsEachAddressAndSavesWhenItCloses) {
    t.platform.urlDialogAnswers.push_back(
        {QStringLiteral("https://one.example/"), QStringLiteral("   "), QStringLiteral(" https://two.example/ ")});
    mnuAddLink_Click(ws());
    ASSERT_EQ(ws().LinkCount, 2);
    EXPECT_EQ(ws().Links[0].LinkPath, QStringLiteral("https://one.example/"));
    EXPECT_EQ(ws().Links[1].LinkPath, QStringLiteral("https://two.example/"));
    EXPECT_EQ(ws().Link(1).Caption.get(), QStringLiteral("https://two.example/"));
    const QByteArray file = t.readData(QStringLiteral("Perchdock.REC"));
    EXPECT_TRUE(file.contains("https://one.example/"));
    EXPECT_TRUE(file.contains("https://two.example/"));
}

TEST_F(LinkItems, HoverTextOfWebAndFileShortcuts) {
    AddURL(ws(), QStringLiteral("https://example.org/"), QStringLiteral("Example"), ws().picBack(0));
    EXPECT_EQ(LinkHoverText(ws(), 0), QStringLiteral("https://example.org/"));

    const QString file = MakeFile(QStringLiteral("data.bin"), 1000);
    AddShortcut(ws(), file, ws().picBack(0));
    EXPECT_EQ(LinkHoverText(ws(), 1), QStringLiteral(" Size: 0.98 KB\r\n Location: ") + files.path());

    // A folder and a missing file have no size; an empty file reads "0" and shows none either.
    AddShortcut(ws(), files.path(), ws().picBack(0));
    const QString parent = QFileInfo(files.path()).absolutePath();
    EXPECT_EQ(LinkHoverText(ws(), 2), QStringLiteral(" Location: ") + parent);
    AddShortcut(ws(), files.path() + QStringLiteral("/gone.txt"), ws().picBack(0));
    EXPECT_EQ(LinkHoverText(ws(), 3), QStringLiteral(" Location: ") + files.path());
    AddShortcut(ws(), MakeFile(QStringLiteral("empty"), 0), ws().picBack(0));
    EXPECT_EQ(LinkHoverText(ws(), 4), QStringLiteral(" Location: ") + files.path());
}

TEST_F(LinkItems, HoverUnderlinesOneShortcutAndSetsThePointer) {
    AddShortcut(ws(), QStringLiteral("/data/a"), ws().picBack(0));
    AddShortcut(ws(), QStringLiteral("/data/b"), ws().picBack(0));
    ws().menus["mnuDblClick"].setChecked(false);
    Link_Hover(ws(), 0, 0);
    EXPECT_TRUE(ws().Link(0).FontUnderline.get());
    EXPECT_EQ(ws().Link(0).MousePointer.get(), 99);
    EXPECT_EQ(ws().Link(0).ToolTipText.get(), QStringLiteral(" Location: /data"));
    Link_Hover(ws(), 2, 1);
    EXPECT_FALSE(ws().Link(0).FontUnderline.get());
    EXPECT_TRUE(ws().Link(1).FontUnderline.get());
    EXPECT_EQ(ws().Link(1).MousePointer.get(), 0) << "a modifier key gives the plain pointer";
    ws().menus["mnuDblClick"].setChecked(true);
    Link_Hover(ws(), 0, 0);
    EXPECT_EQ(ws().Link(0).MousePointer.get(), 0) << "with double-click starts the plain pointer";
}

TEST_F(LinkItems, ARemovedSlotStaysDeadAndIsNotReused) {
    AddShortcut(ws(), QStringLiteral("/data/a"), ws().picBack(0));
    AddShortcut(ws(), QStringLiteral("/data/b"), ws().picBack(0));
    ws().Links[0].LinkParam = QStringLiteral("-x");
    ws().Links[0].Tags = QStringLiteral("work");
    ws().Links[0].MarkTag = QStringLiteral("m");
    RemoveLink(ws(), 0);
    EXPECT_EQ(ws().LinkCount, 2);
    EXPECT_TRUE(ws().Links[0].LinkPath.isEmpty());
    EXPECT_TRUE(ws().Links[0].LinkParam.isEmpty());
    EXPECT_TRUE(ws().Links[0].Tags.isEmpty());
    EXPECT_EQ(ws().Links[0].MarkTag, QStringLiteral("m")) << "the other fields stay in the dead row";
    EXPECT_EQ(ws().Links[0].LinkType, 2.0f);
    EXPECT_TRUE(ws().Link(0).Caption.get().isEmpty());
    EXPECT_FALSE(ws().Link(0).Visible.get());
    EXPECT_FALSE(ws().PicIcon(0).Visible.get());
    AddShortcut(ws(), QStringLiteral("/data/c"), ws().picBack(0));
    EXPECT_EQ(ws().LinkCount, 3);
    EXPECT_EQ(ws().Links[2].LinkPath, QStringLiteral("/data/c"));
}

TEST_F(LinkItems, DeleteFromDiskAsksAndSendsToTheTrash) {
    const QString file = MakeFile(QStringLiteral("old.txt"), 3);
    t.platform.answers = {MsgAnswer::No, MsgAnswer::Cancel, MsgAnswer::Yes, MsgAnswer::Yes};
    EXPECT_EQ(DeleteFromDisk(ws(), file), 1);
    EXPECT_EQ(DeleteFromDisk(ws(), file), 999);
    EXPECT_EQ(DeleteFromDisk(ws(), file), 0);
    ASSERT_EQ(t.platform.trashed.size(), 1u);
    EXPECT_EQ(t.platform.trashed[0], file);
    ASSERT_GE(t.platform.messages.size(), 3u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Delete: 'old.txt' from disk?"));
    EXPECT_EQ(t.platform.messages[0].style, 4147);
    EXPECT_EQ(t.platform.messages[0].title, files.path() + QLatin1Char('/'));

    // A failed move still lets the shortcut go.
    t.platform.trashResult = 13;
    EXPECT_EQ(DeleteFromDisk(ws(), file), 0);
    EXPECT_EQ(t.platform.messages.back().text, QStringLiteral("Delete Failed: 13"));
    EXPECT_EQ(t.platform.messages.back().style, MsgStyle::CriticalBox);

    // A path that does not exist is reported and the shortcut goes.
    const QString gone = files.path() + QStringLiteral("/gone.txt");
    EXPECT_EQ(DeleteFromDisk(ws(), gone), 0);
    EXPECT_EQ(t.platform.messages.back().text, QStringLiteral("Error trying to read: ") + gone);
    EXPECT_EQ(t.platform.messages.back().style, MsgStyle::Exclamation);
}

TEST_F(LinkItems, CancelOnTheSecondOfThreeDiskDeletionsRemovesTheFirstOnly) {
    const int c = t.newContainerAt(600, 600);
    ws().Containers[c].CopyPath = files.path();
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) AddShortcut(ws(), MakeFile(QString::fromLatin1(name), 1), ws().grpBorder(c));
    // Newest first: the walk goes from the oldest selection, shortcut 0, to the newest.
    ws().SelectedLinks = {2, 1, 0};
    ws().ConfirmDelete = true;
    t.platform.answers = {MsgAnswer::Yes, MsgAnswer::Yes, MsgAnswer::Cancel};
    mnuDeleteSelected_Click(ws());
    EXPECT_TRUE(ws().Link(0).Caption.get().isEmpty());
    EXPECT_EQ(ws().Link(1).Caption.get(), QStringLiteral("b.txt"));
    EXPECT_EQ(ws().Link(2).Caption.get(), QStringLiteral("c.txt"));
    EXPECT_EQ(t.platform.trashed.size(), 1u);
    EXPECT_EQ(ws().SelectedLinks.size(), 3u) << "the selection stays until the next unselect";
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Delete Selected Shortcuts?"));
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Delete"));
}

TEST_F(LinkItems, ShortcutsOutsideFolderLinksGoWithoutTouchingTheDisk) {
    AddShortcut(ws(), QStringLiteral("/data/a"), ws().picBack(0));
    AddShortcut(ws(), QStringLiteral("/data/b"), ws().picBack(0));
    ws().SelectedLinks = {1, 0};
    ws().ConfirmDelete = false;
    mnuDeleteSelected_Click(ws());
    EXPECT_TRUE(ws().Link(0).Caption.get().isEmpty());
    EXPECT_TRUE(ws().Link(1).Caption.get().isEmpty());
    EXPECT_TRUE(t.platform.trashed.empty());
    EXPECT_TRUE(t.platform.messages.empty());
    EXPECT_FALSE(t.readData(QStringLiteral("Perchdock.REC")).contains("/data/a"));
}

TEST_F(LinkItems, RefusingTheQuestionKeepsEverything) {
    AddShortcut(ws(), QStringLiteral("/data/a"), ws().picBack(0));
    ws().SelectedLinks = {0};
    ws().ConfirmDelete = true;
    t.platform.answers = {MsgAnswer::No};
    mnuDeleteSelected_Click(ws());
    EXPECT_EQ(ws().Link(0).Caption.get(), QStringLiteral("a"));
}

TEST_F(LinkItems, TheIconFileOfEachKindOfShortcut) {
    const QString file = MakeFile(QStringLiteral("x.txt"), 1);
    AddShortcut(ws(), file, ws().picBack(0));
    DrawFileIcon(ws(), 0);
    EXPECT_EQ(ws().PicIcon(0).Picture.get(), QStringLiteral("fileicon:") + file);
    EXPECT_EQ(ws().PicIcon(0).BackStyle.get(), 0) << "on the background the wallpaper shows through";

    QFile page(QDir(t.programDir()).filePath(QStringLiteral("Perchdock Home Page.html")));
    ASSERT_TRUE(page.open(QIODevice::WriteOnly));
    page.close();
    AddURL(ws(), QStringLiteral("https://example.org/"), QString(), ws().picBack(0));
    DrawFileIcon(ws(), 1);
    EXPECT_EQ(ws().PicIcon(1).Picture.get(),
              QStringLiteral("fileicon:") + QDir(t.programDir()).filePath(QStringLiteral("Perchdock Home Page.html")))
        << "the page that ships with the program";

    AddShortcut(ws(), QStringLiteral("/data/missing"), ws().picBack(0));
    ws().Links[2].Command = 1;
    DrawFileIcon(ws(), 2);
    EXPECT_EQ(ws().PicIcon(2).Picture.get(), QStringLiteral("themeicon:utilities-terminal"));

    // A chosen icon wins over all three.
    const QString custom = MakeFile(QStringLiteral("mine.png"), 1);
    for (int n : {0, 1, 2}) {
        ws().Links[n].LinkIcon = custom;
        DrawFileIcon(ws(), n);
        EXPECT_EQ(ws().PicIcon(ws().Links[n].IconIndex).Picture.get(), QStringLiteral("fileicon:") + custom);
    }
}

TEST_F(LinkItems, AMissingTargetShowsTheNoIconPictureAndAContainerBoxTakesItsColour) {
    const int c = t.newContainerAt(600, 600);
    ws().grpBorder(c).BackColor = 0x123456;
    AddShortcut(ws(), QStringLiteral("/nowhere/at/all"), ws().grpBorder(c));
    DrawFileIcon(ws(), 0);
    EXPECT_EQ(ws().PicIcon(0).Picture.get(), QStringLiteral("noicon:"));
    EXPECT_EQ(ws().PicIcon(0).BackColor.get(), 0x123456);
    EXPECT_EQ(ws().PicIcon(0).BackStyle.get(), 1);
}

TEST_F(LinkItems, AShortcutsMenuOffersItsDeleteAndALockedOneThePadlock) {
    AddShortcut(ws(), QStringLiteral("/data/a"), ws().picBack(0));
    ws().Link(0).Move(1000, 2000);
    EXPECT_STREQ(LinkContextMenu(ws(), 0), "mnuLink");
    EXPECT_TRUE(ws().menus["mnuLinkDelete"].Visible());
    EXPECT_FALSE(ws().menus["mnuDeleteContainer"].Visible());
    EXPECT_FALSE(ws().menus["mnuStartAll"].Visible());
    EXPECT_FALSE(ws().ContextIsContainer);
    ws().menus["mnuLock"].setChecked(true);
    EXPECT_STREQ(LinkContextMenu(ws(), 0), "");
    EXPECT_TRUE(ws().ImgLock(0).Visible.get());
    EXPECT_EQ(ws().ImgLock(0).Left.get(), 1300.0f);
}
