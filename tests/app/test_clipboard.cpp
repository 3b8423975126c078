// The clipboard: file shortcuts copied as a file list, the paste entry's captions, pasting files as
// shortcuts (copied into a folder link) and text as a note, Ctrl+V.

#include "containers/ContainerMenus.h"
#include "shell/Clipboard.h"
#include "shell/ShellState.h"
#include "shell_test_util.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "window/WindowServices.h"

using namespace pd;
using namespace pd::test;

namespace {
class Clipboard : public ShellTest {};
} // namespace

TEST_F(Clipboard, CopyWithOnlyWebShortcutsWritesAnEmptyList) {
    ws().DropX = 100;
    AddURL(ws(), QStringLiteral("http://example.org/"), QString(), ws().picBack(0));
    AddURL(ws(), QStringLiteral("http://example.com/"), QString(), ws().picBack(0));
    SetLinkSelected(ws(), 1, true);
    ws().SelectedLink = 0;
    t.platform.clipboardFileList = {QStringLiteral("/stale")};
    mnuCopy_Click(ws());
    EXPECT_EQ(t.platform.clipboardFileWrites, 1);
    EXPECT_TRUE(t.platform.clipboardFileList.isEmpty());
    EXPECT_TRUE(t.platform.messages.empty()) << "no error";
}

TEST_F(Clipboard, CopyListsTheSelectedFileShortcutsOldestSelectionFirst) {
    for (const char* p : {"/data/a.txt", "/data/b.txt", "@/data/c.txt"})
        AddShortcut(ws(), QString::fromLatin1(p), ws().picBack(0));
    AddURL(ws(), QStringLiteral("http://example.org/"), QString(), ws().picBack(0));
    SetLinkSelected(ws(), 2, true);
    SetLinkSelected(ws(), 3, true);
    SetLinkSelected(ws(), 0, true);
    ws().SelectedLink = 1;
    mnuCopy_Click(ws());
    EXPECT_TRUE(IsLinkSelected(ws(), 1)) << "the shortcut under the menu joins the selection";
    EXPECT_EQ(t.platform.clipboardFileList,
              (QStringList{QStringLiteral("@/data/c.txt"), QStringLiteral("/data/a.txt"),
                           QStringLiteral("/data/b.txt")}));
}

TEST_F(Clipboard, AFailedCopyUnselectsAndSaysSo) {
    AddShortcut(ws(), QStringLiteral("/data/a.txt"), ws().picBack(0));
    ws().SelectedLink = 0;
    t.platform.clipboardFilesFail = true;
    mnuCopy_Click(ws());
    EXPECT_FALSE(IsLinkSelected(ws(), 0));
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Error copying Files or Folders to clipboard"));
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Error"));
    EXPECT_EQ(t.platform.messages[0].style, 4112);
}

TEST_F(Clipboard, TheCopyEntryIsHiddenOnAWebShortcut) {
    AddShortcut(ws(), QStringLiteral("/data/a.txt"), ws().picBack(0));
    AddURL(ws(), QStringLiteral("http://example.org/"), QString(), ws().picBack(0));
    LinkContextMenu(ws(), 1);
    EXPECT_FALSE(ws().menus["mnuCopy"].Visible());
    LinkContextMenu(ws(), 0);
    EXPECT_TRUE(ws().menus["mnuCopy"].Visible());
    EXPECT_EQ(ws().menus["mnuCopy"].Caption(), QStringLiteral("&Copy"));
}

TEST_F(Clipboard, ThePasteCaptionFollowsTheClipboardAndTextWins) {
    const int c = t.newContainerAt(600, 600);
    const int linked = LinkedContainer(MakeDir(QStringLiteral("linked")));
    MenuEntry& paste = ws().menus["mnuPaste"];
    SetPasteMenu(ws(), -1);
    EXPECT_FALSE(paste.Visible());
    t.platform.clipboardFileList = {QStringLiteral("/data/a.txt")};
    SetPasteMenu(ws(), -1);
    EXPECT_TRUE(paste.Visible());
    EXPECT_EQ(paste.Caption(), QStringLiteral("Paste Shortcuts..."));
    ContainerBodyMenu(ws(), c);
    EXPECT_EQ(paste.Caption(), QStringLiteral("Paste Shortcuts..."));
    ContainerBodyMenu(ws(), linked);
    EXPECT_EQ(paste.Caption(), QStringLiteral("Paste Clipboard Files..."));
    t.platform.clipboard = QStringLiteral(" \r\n ");
    SetPasteMenu(ws(), linked);
    EXPECT_EQ(paste.Caption(), QStringLiteral("Paste Clipboard Files...")) << "blank text is no text";
    t.platform.clipboard = QStringLiteral("words");
    ContainerBodyMenu(ws(), linked);
    EXPECT_EQ(paste.Caption(), QStringLiteral("Paste Text..."));
    EXPECT_TRUE(paste.Visible());
}

TEST_F(Clipboard, TextWinsOverFilesOnPaste) {
    t.platform.clipboardFileList = {MakeFile(QStringLiteral("a.txt"))};
    t.platform.clipboard = QStringLiteral("some words");
    SetPasteMenu(ws(), -1);
    const int before = ws().ContainerCount;
    mnuPaste_Click(ws());
    ASSERT_EQ(ws().ContainerCount, before + 1);
    const int n = ws().ContainerCount - 1;
    EXPECT_EQ(ws().lblName(n).Caption.get(), QStringLiteral("Clipboard Text"));
    EXPECT_EQ(ws().txtNote(n).Text.get(), QStringLiteral("some words"));
    EXPECT_TRUE(ws().txtNote(n).Visible.get());
    EXPECT_EQ(ws().LinkCount, 0);
}

TEST_F(Clipboard, PastedFilesBecomeShortcutsWhereTheMenuOpened) {
    const QString a = MakeFile(QStringLiteral("a.txt"));
    const QString tool = MakeFile(QStringLiteral("tool.exe"));
    t.platform.clipboardFileList = {tool, a};
    ws().DropX = 2000;
    ws().DropY = 1500;
    SetPasteMenu(ws(), -1);
    ws().menus["mnuDeleteContainer"].setVisible(false);
    mnuPaste_Click(ws());
    ASSERT_EQ(ws().LinkCount, 2);
    EXPECT_EQ(ws().Link(0).Caption.get(), QStringLiteral("tool"));
    EXPECT_EQ(ws().Link(0).Container(), &ws().picBack(0));
    EXPECT_LT(ws().Link(1).Top.get(), ws().Link(0).Top.get()) << "sorted A to Z";
    EXPECT_TRUE(t.platform.fileOps.empty());
    // Again: both are duplicates now.
    mnuPaste_Click(ws());
    EXPECT_EQ(ws().LinkCount, 2);
    EXPECT_EQ(t.platform.messages.back().text, QStringLiteral("Duplicate items were not added"));
}

TEST_F(Clipboard, PasteOnAFolderLinkContainerCopiesTheFilesIn) {
    const QString folder = MakeDir(QStringLiteral("linked"));
    const QString a = MakeFile(QStringLiteral("src/a.txt"));
    const QString b = MakeFile(QStringLiteral("src/b.txt"));
    const int c = LinkedContainer(folder);
    t.platform.clipboardFileList = {a, b};
    ContainerBodyMenu(ws(), c);
    EXPECT_EQ(ws().menus["mnuPaste"].Caption(), QStringLiteral("Paste Clipboard Files..."));
    mnuPaste_Click(ws());
    ASSERT_EQ(ws().LinkCount, 2);
    EXPECT_EQ(ws().Link(0).Container(), &ws().grpBorder(c));
    EXPECT_EQ(ws().Links[0].LinkPath, folder + QStringLiteral("/a.txt"));
    EXPECT_EQ(ws().Links[1].LinkPath, folder + QStringLiteral("/b.txt"));
    EXPECT_TRUE(QFileInfo::exists(folder + QStringLiteral("/b.txt")));
    ASSERT_EQ(t.platform.fileOps.size(), 2u);
    EXPECT_EQ(t.platform.fileOps[0].flags, 264);
    EXPECT_EQ(t.platform.fileOps[0].title, QStringLiteral("File Copy in Progress.."));
    EXPECT_TRUE(t.platform.trashed.empty()) << "a paste never moves";
    EXPECT_TRUE(QFileInfo::exists(a));
}

TEST_F(Clipboard, CtrlVRunsThePaste) {
    t.platform.clipboardFileList = {MakeFile(QStringLiteral("a.txt"))};
    SetPasteMenu(ws(), -1);
    WireShell(ws());
    EXPECT_TRUE(Form_KeyDown(ws(), 'V', 2));
    EXPECT_EQ(ws().LinkCount, 1);
}
