// Folder-link containers: turning the link on and off, the rebuild from the folder (files, then
// subfolders, in the file managers' order), refresh on expand, the menu entries, a folder gone.

#include "containers/ContainerMenus.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Shrinking.h"
#include "shell/FolderLink.h"
#include "shell/ShellState.h"
#include "shell_test_util.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"

using namespace pd;
using namespace pd::test;

namespace {
class FolderLink : public ShellTest {
  protected:
    // The captions of the shortcuts in container c, top to bottom (then left to right).
    QStringList Captions(int c) {
        std::vector<int> ks;
        for (int k = 0; k < ws().Link.Count(); ++k)
            if (IsLinkLive(ws(), k) && ws().Link(k).Container() == &ws().grpBorder(c)) ks.push_back(k);
        std::sort(ks.begin(), ks.end(), [this](int a, int b) {
            const Element& x = ws().Link(a);
            const Element& y = ws().Link(b);
            return x.Left.get() != y.Left.get() ? x.Left.get() < y.Left.get() : x.Top.get() < y.Top.get();
        });
        QStringList out;
        for (int k : ks)
            out << ws().Link(k).Caption.get();
        return out;
    }
};
} // namespace

TEST_F(FolderLink, TurningOnAsksForTheFolderAndRenamesTheContainer) {
    const QString folder = MakeDir(QStringLiteral("Projects"));
    const int c = t.newContainerAt(600, 600);
    t.platform.folderAnswers = {folder};
    picCopy1_MouseDown(ws(), 1, c);
    ASSERT_EQ(t.platform.folderPrompts.size(), 1u);
    EXPECT_EQ(t.platform.folderPrompts[0], QStringLiteral("Set Container's Folder Link:"));
    EXPECT_EQ(ws().lblName(c).Caption.get(), QStringLiteral("Projects"));
    EXPECT_EQ(ws().Containers[c].CopyPath, folder);
    EXPECT_TRUE(ws().picCopy2(c).Visible.get());
    EXPECT_FALSE(ws().picCopy1(c).Visible.get());
    EXPECT_EQ(ws().picCopy2(c).ToolTipText.get(), QStringLiteral("Folder Link: ") + folder);
    EXPECT_EQ(ws().picCopy1(c).ToolTipText.get(), QStringLiteral("Turn ON Folder Link"));
    // A press with a link already set only mends the buttons.
    ws().picCopy1(c).Visible = true;
    picCopy1_MouseDown(ws(), 1, c);
    EXPECT_EQ(t.platform.folderPrompts.size(), 1u);
    EXPECT_FALSE(ws().picCopy1(c).Visible.get());
    // The right button does nothing.
    picCopy1_MouseDown(ws(), 2, c);
    EXPECT_EQ(t.platform.folderPrompts.size(), 1u);
}

TEST_F(FolderLink, ACancelledPromptLeavesTheContainerAlone) {
    const int c = t.newContainerAt(600, 600);
    ws().lblName(c).Caption = QStringLiteral("Mine");
    picCopy1_MouseDown(ws(), 1, c);
    EXPECT_EQ(ws().lblName(c).Caption.get(), QStringLiteral("Mine"));
    EXPECT_TRUE(ws().Containers[c].CopyPath.isEmpty());
    EXPECT_TRUE(ws().picCopy1(c).Visible.get());
}

TEST_F(FolderLink, TurningOffAndOnAgainAsksAnewAndRenames) {
    const QString first = MakeDir(QStringLiteral("First"));
    const QString second = MakeDir(QStringLiteral("Second"));
    const int c = t.newContainerAt(600, 600);
    AddShortcut(ws(), MakeFile(QStringLiteral("x.txt")), ws().grpBorder(c));
    t.platform.folderAnswers = {first, second};
    picCopy1_MouseDown(ws(), 1, c);
    picCopy2_Click(ws(), c);
    EXPECT_TRUE(ws().Containers[c].CopyPath.isEmpty());
    EXPECT_TRUE(ws().picCopy1(c).Visible.get());
    EXPECT_FALSE(ws().picCopy2(c).Visible.get());
    EXPECT_EQ(ws().LinkCount, 1);
    EXPECT_EQ(ws().Link(0).Caption.get(), QStringLiteral("x.txt")) << "the shortcuts stay as plain ones";
    picCopy1_MouseDown(ws(), 1, c);
    EXPECT_EQ(t.platform.folderPrompts.size(), 2u);
    EXPECT_EQ(ws().lblName(c).Caption.get(), QStringLiteral("Second"));
    EXPECT_EQ(ws().Containers[c].CopyPath, second);
}

TEST_F(FolderLink, TheRebuildListsFilesThenSubfoldersInTheFileManagersOrder) {
    const QString folder = MakeDir(QStringLiteral("mirror"));
    for (const char* n : {"b10.txt", "B2.txt", "a.txt", "Setup.EXE", "site.url", ".hidden"})
        MakeFile(QStringLiteral("mirror/") + QString::fromLatin1(n));
    for (const char* n : {"zeta", "Alpha", ".cache"})
        MakeDir(QStringLiteral("mirror/") + QString::fromLatin1(n));
    ws().menus["mnuExtractURL"].setChecked(false);
    const int c = LinkedContainer(folder);
    EXPECT_TRUE(RefreshFolderLink(ws(), c, false));
    QStringList files, folders;
    ASSERT_TRUE(ListFolder(folder, files, folders));
    EXPECT_EQ(files, (QStringList{folder + QStringLiteral("/a.txt"), folder + QStringLiteral("/B2.txt"),
                                  folder + QStringLiteral("/b10.txt"), folder + QStringLiteral("/Setup.EXE"),
                                  folder + QStringLiteral("/site.url")}));
    EXPECT_EQ(folders, (QStringList{folder + QStringLiteral("/Alpha"), folder + QStringLiteral("/zeta")}));
    ASSERT_EQ(ws().LinkCount, 7);
    // In the order made: files, then folders.
    QStringList made;
    for (int k = 0; k < 7; ++k)
        made << ws().Link(k).Caption.get();
    EXPECT_EQ(made, (QStringList{QStringLiteral("a.txt"), QStringLiteral("B2.txt"), QStringLiteral("b10.txt"),
                                 QStringLiteral("Setup"), QStringLiteral("site"), QStringLiteral("Alpha"),
                                 QStringLiteral("zeta")}));
    EXPECT_EQ(ws().Links[5].LinkPath, folder + QStringLiteral("/Alpha"));
    // Stacked from (600, 400), all selected.
    float top = 1e9f;
    for (int k = 0; k < 7; ++k) {
        EXPECT_TRUE(IsLinkSelected(ws(), k));
        top = std::min(top, ws().Link(k).Top.get());
    }
    EXPECT_EQ(top, 400.0f);
    EXPECT_EQ(ws().Link(0).Left.get(), 600.0f);
}

TEST_F(FolderLink, ARefreshLosesTagsAndColours) {
    const QString folder = MakeDir(QStringLiteral("mirror"));
    MakeFile(QStringLiteral("mirror/a.txt"));
    const int c = LinkedContainer(folder);
    RefreshFolderLink(ws(), c, false);
    ws().Links[0].Tags = QStringLiteral("work");
    ws().Links[0].LinkColor = 255;
    ws().Link(0).Move(3000, 3000);
    RefreshFolderLink(ws(), c, false);
    EXPECT_TRUE(ws().Link(0).Caption.get().isEmpty()) << "the old shortcut was removed";
    ASSERT_EQ(ws().LinkCount, 2);
    EXPECT_EQ(ws().Link(1).Caption.get(), QStringLiteral("a.txt"));
    EXPECT_TRUE(ws().Links[1].Tags.isEmpty());
    EXPECT_EQ(ws().Links[1].LinkColor, -1);
    EXPECT_EQ(ws().Link(1).Left.get(), 600.0f);
}

TEST_F(FolderLink, AFolderGoneKeepsTheOldShortcuts) {
    const QString folder = MakeDir(QStringLiteral("mirror"));
    MakeFile(QStringLiteral("mirror/a.txt"));
    const int c = LinkedContainer(folder);
    RefreshFolderLink(ws(), c, false);
    QDir(folder).removeRecursively();
    t.platform.messages.clear();
    EXPECT_FALSE(RefreshFolderLink(ws(), c, false));
    EXPECT_EQ(ws().Link(0).Caption.get(), QStringLiteral("a.txt"));
    EXPECT_TRUE(t.platform.messages.empty()) << "nothing is said";
    // No link: nothing.
    const int plain = t.newContainerAt(5000, 600);
    EXPECT_FALSE(RefreshFolderLink(ws(), plain, false));
}

TEST_F(FolderLink, AContainerThatRefreshesOnExpandRebuildsOnEachUnfold) {
    const QString folder = MakeDir(QStringLiteral("mirror"));
    MakeFile(QStringLiteral("mirror/a.txt"));
    const int c = LinkedContainer(folder);
    FoldContainer(ws(), c);
    UnfoldContainer(ws(), c);
    EXPECT_EQ(ws().LinkCount, 0) << "without the setting an unfold reads nothing";
    ws().SelectedContainer = static_cast<int16_t>(c);
    mnuRefreshOnExpand_Click(ws());
    EXPECT_TRUE(ws().Containers[c].RefreshOnExpand);
    EXPECT_TRUE(ws().menus["mnuRefreshOnExpand"].Checked());
    FoldContainer(ws(), c);
    UnfoldContainer(ws(), c);
    EXPECT_EQ(Captions(c), QStringList{QStringLiteral("a.txt")});
    MakeFile(QStringLiteral("mirror/b.txt"));
    FoldContainer(ws(), c);
    UnfoldContainer(ws(), c);
    QStringList shown = Captions(c);
    shown.sort();
    EXPECT_EQ(shown, (QStringList{QStringLiteral("a.txt"), QStringLiteral("b.txt")}));
    mnuRefreshOnExpand_Click(ws());
    EXPECT_FALSE(ws().Containers[c].RefreshOnExpand);
}

TEST_F(FolderLink, AShrunkContainerThatRefreshesOnExpandRebuildsWhenItExpands) {
    const QString folder = MakeDir(QStringLiteral("mirror"));
    const int c = LinkedContainer(folder);
    ws().Containers[c].RefreshOnExpand = true;
    ToggleShrink(ws(), c);
    ASSERT_TRUE(IsShrunkSize(ws(), c));
    MakeFile(QStringLiteral("mirror/late.txt"));
    EXPECT_EQ(ws().LinkCount, 0);
    ToggleShrink(ws(), c);
    EXPECT_FALSE(IsShrunkSize(ws(), c));
    EXPECT_EQ(Captions(c), QStringList{QStringLiteral("late.txt")});
}

TEST_F(FolderLink, TheFolderEntriesShowOnlyOnAFolderLinkContainer) {
    const QString folder = MakeDir(QStringLiteral("mirror"));
    const int plain = t.newContainerAt(5000, 600);
    const int c = LinkedContainer(folder);
    ws().Containers[c].RefreshOnExpand = true;
    ContainerBodyMenu(ws(), c);
    for (const char* n : {"mnuSepCopyPath", "mnuOpenFolder", "mnuRefreshFolder", "mnuRefreshOnExpand"})
        EXPECT_TRUE(ws().menus[QString::fromLatin1(n)].Visible()) << n;
    EXPECT_TRUE(ws().menus["mnuRefreshOnExpand"].Checked());
    EXPECT_EQ(ws().menus["mnuOpenFolder"].Caption(), QStringLiteral("&Explore Folder"));
    EXPECT_EQ(ws().menus["mnuRefreshFolder"].Caption(), QStringLiteral("&Refresh Folder"));
    EXPECT_EQ(ws().menus["mnuRefreshOnExpand"].Caption(), QStringLiteral("Refresh on Expand && Unfold"));
    ContainerBodyMenu(ws(), plain);
    for (const char* n : {"mnuSepCopyPath", "mnuOpenFolder", "mnuRefreshFolder", "mnuRefreshOnExpand"})
        EXPECT_FALSE(ws().menus[QString::fromLatin1(n)].Visible()) << n;
    // Explore opens the folder in the desktop's file manager; Refresh rebuilds.
    MakeFile(QStringLiteral("mirror/a.txt"));
    ws().SelectedContainer = static_cast<int16_t>(c);
    WireShell(ws());
    ws().menus["mnuOpenFolder"].Click();
    ASSERT_FALSE(t.platform.opened.empty());
    EXPECT_EQ(t.platform.opened.back(), folder);
    ws().menus["mnuRefreshFolder"].Click();
    EXPECT_EQ(Captions(c), QStringList{QStringLiteral("a.txt")});
}

TEST_F(FolderLink, DeletingAShortcutOfAFolderLinkContainerAsksToDeleteTheFile) {
    const QString folder = MakeDir(QStringLiteral("mirror"));
    const QString a = MakeFile(QStringLiteral("mirror/a.txt"));
    const int c = LinkedContainer(folder);
    RefreshFolderLink(ws(), c, false);
    ws().ConfirmDelete = false;
    t.platform.answers = {MsgAnswer::Yes};
    ws().SelectedLinks = {0};
    mnuDeleteSelected_Click(ws());
    ASSERT_FALSE(t.platform.messages.empty());
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Delete: 'a.txt' from disk?"));
    EXPECT_EQ(t.platform.trashed, std::vector<QString>{a});
    EXPECT_TRUE(ws().Link(0).Caption.get().isEmpty());
}

TEST_F(FolderLink, TheLinkSurvivesARestart) {
    const QString folder = MakeDir(QStringLiteral("Kept"));
    const int c = t.newContainerAt(600, 600);
    t.platform.folderAnswers = {folder};
    picCopy1_MouseDown(ws(), 1, c);
    t.exit();
    t.restart();
    t.start();
    EXPECT_EQ(t.ws->Containers[c].CopyPath, folder);
    EXPECT_TRUE(t.ws->picCopy2(c).Visible.get());
    EXPECT_EQ(t.ws->lblName(c).Caption.get(), QStringLiteral("Kept"));
}
