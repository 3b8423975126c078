// Drag and drop with other programs: drops on containers (files, text, folder links, Ctrl for a move),
// drops on the background (Shift for pictures and .txt notes, text snippets, web addresses), the
// effects and the folder label of a drag over, and shortcuts dragged out as files.

#include "containers/Containers.h"
#include "containers/Moving.h"
#include "desk/DeskState.h"
#include "desk/Lock.h"
#include "desk/ReminderForm.h"
#include "shell/DragDrop.h"
#include "shell/ShellState.h"
#include "shell_test_util.h"
#include "shortcuts/Launch.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"

using namespace pd;
using namespace pd::test;

namespace {
class DragDrop : public ShellTest {
  protected:
    DropData Files(const QStringList& f) { return DropData{f, false, QString()}; }
    DropData Text(const QString& s) { return DropData{{}, true, s}; }
};
} // namespace

TEST_F(DragDrop, CtrlDropOnAFolderLinkContainerCopiesThenTrashesTheSource) {
    const QString folder = MakeDir(QStringLiteral("linked"));
    const QString src = MakeFile(QStringLiteral("src/report.txt"), "r");
    const int c = LinkedContainer(folder);
    grpBorder_OLEDragDrop(ws(), c, Files({src}), 2, 450, 900);
    ASSERT_EQ(ws().LinkCount, 1);
    EXPECT_EQ(ws().Link(0).Caption.get(), QStringLiteral("report.txt"));
    EXPECT_EQ(ws().Links[0].LinkPath, folder + QStringLiteral("/report.txt"));
    EXPECT_TRUE(QFileInfo::exists(folder + QStringLiteral("/report.txt")));
    ASSERT_EQ(t.platform.fileOps.size(), 2u);
    EXPECT_EQ(t.platform.fileOps[0].title, QStringLiteral("File Copy in Progress.."));
    EXPECT_EQ(t.platform.fileOps[1].title, QStringLiteral("Moving..."));
    EXPECT_EQ(t.platform.trashed, std::vector<QString>{src});
}

TEST_F(DragDrop, APlainDropOnAFolderLinkContainerCopiesAndKeepsTheSource) {
    const QString folder = MakeDir(QStringLiteral("linked"));
    const QString src = MakeFile(QStringLiteral("src/report.txt"));
    const int c = LinkedContainer(folder);
    grpBorder_OLEDragDrop(ws(), c, Files({src}), 0, 450, 900);
    EXPECT_EQ(t.platform.fileOps.size(), 1u);
    EXPECT_TRUE(t.platform.trashed.empty());
    EXPECT_EQ(ws().Links[0].LinkPath, folder + QStringLiteral("/report.txt"));
}

TEST_F(DragDrop, CtrlDropOnAnOrdinaryContainerOnlyMakesAShortcut) {
    const QString src = MakeFile(QStringLiteral("src/report.txt"));
    const int c = t.newContainerAt(600, 600);
    grpBorder_OLEDragDrop(ws(), c, Files({src}), 2, 450, 900);
    ASSERT_EQ(ws().LinkCount, 1);
    EXPECT_EQ(ws().Links[0].LinkPath, src);
    EXPECT_EQ(ws().Link(0).Container(), &ws().grpBorder(c));
    EXPECT_TRUE(t.platform.fileOps.empty());
    EXPECT_TRUE(QFileInfo::exists(src));
}

TEST_F(DragDrop, DroppingALinkFileCutsItsExtensionFromTheLabel) {
    const QString lnk = MakeFile(QStringLiteral("a.lnk"), "not a shell link");
    const QString exe = MakeFile(QStringLiteral("tool.EXE"));
    const QString url =
        MakeFile(QStringLiteral("site.url"), "[InternetShortcut]\r\nURL=http://example.org/\r\n");
    const int c = t.newContainerAt(600, 600);
    grpBorder_OLEDragDrop(ws(), c, Files({lnk, exe, url}), 0, 450, 900);
    ASSERT_EQ(ws().LinkCount, 3);
    EXPECT_EQ(ws().Link(0).Caption.get(), QStringLiteral("a"));
    // An unreadable link keeps its own path as the target.
    EXPECT_EQ(ws().Links[0].LinkPath, lnk);
    EXPECT_EQ(ws().Link(1).Caption.get(), QStringLiteral("tool"));
    EXPECT_EQ(ws().Link(2).Caption.get(), QStringLiteral("site"));
    EXPECT_EQ(ws().Links[2].LinkType, 1.0f) << "resolved shortcuts turn a .url into a web shortcut";
    EXPECT_EQ(ws().Links[2].LinkPath, QStringLiteral("http://example.org/"));

    // With resolving off the .url stays a file shortcut, still without its extension.
    ws().menus["mnuExtractURL"].setChecked(false);
    const QString url2 =
        MakeFile(QStringLiteral("other.url"), "[InternetShortcut]\r\nURL=http://example.com/\r\n");
    grpBorder_OLEDragDrop(ws(), c, Files({url2}), 0, 450, 900);
    EXPECT_EQ(ws().Link(3).Caption.get(), QStringLiteral("other"));
    EXPECT_EQ(ws().Links[3].LinkPath, url2);
}

TEST_F(DragDrop, AShortcutsOwnFileDroppedOnItsOwnContainerDoesNothing) {
    const QString src = MakeFile(QStringLiteral("src/report.txt"));
    const int c = t.newContainerAt(600, 600);
    AddShortcut(ws(), src, ws().grpBorder(c));
    ws().SelectedLink = 0;
    const int other = t.newContainerAt(5000, 600);
    t.platform.messages.clear();
    const QByteArray before = t.readData(QStringLiteral("Perchdock.REC"));
    grpBorder_OLEDragDrop(ws(), c, Files({src}), 0, 450, 900);
    EXPECT_EQ(ws().LinkCount, 1);
    EXPECT_TRUE(t.platform.messages.empty()) << "not even the duplicates message";
    EXPECT_EQ(t.readData(QStringLiteral("Perchdock.REC")), before) << "nothing is saved";
    // The same file on another container is a new shortcut there.
    grpBorder_OLEDragDrop(ws(), other, Files({src}), 0, 450, 900);
    EXPECT_EQ(ws().LinkCount, 2);
}

TEST_F(DragDrop, AFeedContainerRefusesDrops) {
    const QString src = MakeFile(QStringLiteral("src/report.txt"));
    const int c = t.newContainerAt(600, 600);
    ws().Containers[static_cast<size_t>(c)].IsFeed = true;
    EXPECT_EQ(grpBorder_OLEDragOver(ws(), c, Files({src}), 0), 0);
    EXPECT_EQ(grpBorder_OLEDragOver(ws(), c, Text(QStringLiteral("hello")), 0), 0);
    grpBorder_OLEDragDrop(ws(), c, Files({src}), 0, 450, 900);
    EXPECT_EQ(ws().LinkCount, 0);
}

TEST_F(DragDrop, TheDragOverAFolderLinkContainerNamesWhereTheFilesGo) {
    const QString folder = MakeDir(QStringLiteral("linked"));
    const QString src = MakeFile(QStringLiteral("src/report.txt"));
    const int c = LinkedContainer(folder, QStringLiteral("Inbox"));
    ws().grpBorder(c).ForeColor = 0x00FF00;
    EXPECT_EQ(grpBorder_OLEDragOver(ws(), c, Files({src}), 0), 1);
    Element& label = Shell(ws()).lblPath(0);
    EXPECT_TRUE(label.Visible.get());
    EXPECT_EQ(label.Caption.get(), QStringLiteral("Copy to Inbox"));
    EXPECT_EQ(label.Container(), &ws().grpBorder(c));
    EXPECT_EQ(label.ForeColor.get(), 0x00FF00);
    EXPECT_EQ(grpBorder_OLEDragOver(ws(), c, Files({src}), 2), 2);
    EXPECT_EQ(label.Caption.get(), QStringLiteral("Move to Inbox"));
    // Elsewhere it hides: an ordinary container takes a copy, text is a copy too.
    const int plain = t.newContainerAt(5000, 600);
    EXPECT_EQ(grpBorder_OLEDragOver(ws(), plain, Files({src}), 2), 1);
    EXPECT_FALSE(label.Visible.get());
    EXPECT_EQ(grpBorder_OLEDragOver(ws(), c, Text(QStringLiteral("t")), 0), 1);
    EXPECT_FALSE(label.Visible.get());
    EXPECT_EQ(grpBorder_OLEDragOver(ws(), c, DropData{}, 0), 0);
    // The drop hides it.
    grpBorder_OLEDragOver(ws(), c, Files({src}), 0);
    grpBorder_OLEDragDrop(ws(), c, Files({src}), 0, 450, 900);
    EXPECT_FALSE(label.Visible.get());
}

TEST_F(DragDrop, TheBackgroundTakesPicturesAndNotesOnlyWithShift) {
    const QString jpg = MakeFile(QStringLiteral("photo.JPG"));
    const QString doc = MakeFile(QStringLiteral("letter.doc"));
    EXPECT_EQ(picBack_OLEDragOver(ws(), Files({jpg}), 1), 1);
    EXPECT_EQ(picBack_OLEDragOver(ws(), Files({doc}), 1), 0);
    EXPECT_EQ(picBack_OLEDragOver(ws(), Files({doc}), 0), 1);
    EXPECT_EQ(picBack_OLEDragOver(ws(), Text(QStringLiteral("x")), 1), 1);
    EXPECT_EQ(picBack_OLEDragOver(ws(), DropData{}, 0), 0);
}

TEST_F(DragDrop, ShiftDropOfATextFileOnTheBackgroundMakesANote) {
    const QString txt = MakeFile(QStringLiteral("todo.txt"), "first line\r\nsecond line\nthird");
    const int before = ws().ContainerCount;
    picBack_OLEDragDrop(ws(), Files({txt}), 1, 3000, 2000);
    ASSERT_EQ(ws().ContainerCount, before + 1);
    const int n = ws().ContainerCount - 1;
    EXPECT_EQ(ws().lblName(n).Caption.get(), QStringLiteral("todo.txt"));
    EXPECT_EQ(ws().txtNote(n).Text.get(), QStringLiteral("first linesecond linethird"));
    EXPECT_TRUE(ws().txtNote(n).Visible.get());
    EXPECT_EQ(ws().Group(n).Left.get(), 3000.0f);
    EXPECT_EQ(ws().Group(n).Top.get(), 2000.0f);
    EXPECT_EQ(ws().LinkCount, 0);
}

TEST_F(DragDrop, WithoutShiftATextFileOnTheBackgroundIsAShortcut) {
    const QString txt = MakeFile(QStringLiteral("todo.txt"), "line");
    const int before = ws().ContainerCount;
    picBack_OLEDragDrop(ws(), Files({txt}), 0, 3000, 2000);
    EXPECT_EQ(ws().ContainerCount, before);
    ASSERT_EQ(ws().LinkCount, 1);
    EXPECT_EQ(ws().Link(0).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().Links[0].LinkPath, txt);
    EXPECT_TRUE(t.platform.fileOps.empty()) << "the background copies nothing";
}

TEST_F(DragDrop, ShiftDropOfAnotherFileOnTheBackgroundDoesNothing) {
    const QString doc = MakeFile(QStringLiteral("letter.doc"));
    const int before = ws().ContainerCount;
    picBack_OLEDragDrop(ws(), Files({doc}), 1, 3000, 2000);
    EXPECT_EQ(ws().ContainerCount, before);
    EXPECT_EQ(ws().LinkCount, 0);
}

TEST_F(DragDrop, ShiftDropOfAPictureOnTheBackgroundPlacesIt) {
    const QString gif = MakeFile(QStringLiteral("cat.gif"));
    t.platform.images[gif] = QSize(40, 30);
    const int before = ws().DeskObjectCount;
    picBack_OLEDragDrop(ws(), Files({gif}), 1, 3000, 2000);
    EXPECT_EQ(ws().DeskObjectCount, before + 1);
    EXPECT_EQ(ws().picPlaceholder(ws().DeskObjectCount - 1).Left.get(), 3000.0f);
}

TEST_F(DragDrop, TextOnTheBackgroundBecomesASnippetOrAWebShortcut) {
    const int before = ws().ContainerCount;
    picBack_OLEDragDrop(ws(), Text(QStringLiteral("remember the milk")), 0, 3000, 2000);
    ASSERT_EQ(ws().ContainerCount, before + 1);
    const int n = ws().ContainerCount - 1;
    EXPECT_EQ(ws().lblName(n).Caption.get(), QStringLiteral("Text Snippet"));
    EXPECT_EQ(ws().txtNote(n).Text.get(), QStringLiteral("remember the milk"));
    EXPECT_TRUE(ws().txtNote(n).Visible.get());

    ws().DropX = 1234;
    ws().DropY = 567;
    picBack_OLEDragDrop(ws(), Text(QStringLiteral("https://example.org/page")), 0, 3000, 2000);
    ASSERT_EQ(ws().LinkCount, 1);
    EXPECT_EQ(ws().Links[0].LinkType, 1.0f);
    EXPECT_EQ(ws().Links[0].LinkPath, QStringLiteral("https://example.org/page"));
    EXPECT_EQ(ws().Link(0).Caption.get(), QStringLiteral("https://example.org/page"));
    EXPECT_EQ(ws().Link(0).Left.get(), 1234.0f) << "the web address lands where the pointer last was";
    EXPECT_EQ(ws().ContainerCount, before + 1);
}

TEST_F(DragDrop, TextOnAContainerGoesToItsNote) {
    const int c = t.newContainerAt(600, 600);
    ws().txtNote(c).Text = QStringLiteral("  old\r\n");
    grpBorder_OLEDragDrop(ws(), c, Text(QStringLiteral("new")), 0, 100, 100);
    EXPECT_EQ(ws().txtNote(c).Text.get(), QStringLiteral("old\r\n\r\nnew"));
    EXPECT_TRUE(ws().txtNote(c).Visible.get());
    const int d = t.newContainerAt(5000, 600);
    grpBorder_OLEDragDrop(ws(), d, Text(QStringLiteral("first")), 0, 100, 100);
    EXPECT_EQ(ws().txtNote(d).Text.get(), QStringLiteral("first"));
}

TEST_F(DragDrop, DroppedFilesSortAToZAndDuplicatesAreReported) {
    const QString b = MakeFile(QStringLiteral("b.txt"));
    const QString a = MakeFile(QStringLiteral("A.txt"));
    const QString c2 = MakeFile(QStringLiteral("c.txt"));
    const int c = t.newContainerAt(600, 600);
    grpBorder_OLEDragDrop(ws(), c, Files({b, a}), 0, 450, 900);
    ASSERT_EQ(ws().LinkCount, 2);
    EXPECT_LT(ws().Link(1).Top.get(), ws().Link(0).Top.get()) << "A above b";
    EXPECT_TRUE(IsLinkSelected(ws(), 0));
    EXPECT_TRUE(IsLinkSelected(ws(), 1));
    t.platform.messages.clear();
    // (A list that starts with the file of the shortcut last pressed would count as dragged from here.)
    grpBorder_OLEDragDrop(ws(), c, Files({c2, a}), 0, 450, 900);
    EXPECT_EQ(ws().LinkCount, 3);
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Duplicate items were not added"));
    EXPECT_EQ(t.platform.messages[0].style, 4144);
    EXPECT_FALSE(IsLinkSelected(ws(), 0)) << "the earlier selection went";
    // On the background too.
    t.platform.messages.clear();
    picBack_OLEDragDrop(ws(), Files({a, a}), 0, 450, 900);
    EXPECT_EQ(ws().LinkCount, 4);
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Duplicate items were not added"));
}

TEST_F(DragDrop, ANewShortcutInAContainerTakesTheContainersFontSize) {
    const int c = t.newContainerAt(600, 600);
    AddShortcut(ws(), MakeFile(QStringLiteral("one.txt")), ws().grpBorder(c));
    ws().Link(0).FontSize = 14;
    grpBorder_OLEDragDrop(ws(), c, Files({MakeFile(QStringLiteral("two.txt"))}), 0, 450, 900);
    EXPECT_EQ(ws().Link(1).FontSize.get(), 14.0f);
    EXPECT_EQ(ws().Links[1].Size, 14.0f);
}

TEST_F(DragDrop, AShortcutDraggedOutListsTheSelectionOfItsOwner) {
    const int c = t.newContainerAt(600, 600);
    const int d = t.newContainerAt(5000, 600);
    for (const char* n : {"a.txt", "b.txt"})
        AddShortcut(ws(), MakeFile(QString::fromLatin1(n)), ws().grpBorder(c));
    AddShortcut(ws(), MakeFile(QStringLiteral("other.txt")), ws().grpBorder(d));
    AddShortcut(ws(), ws().Links[0].LinkPath, ws().grpBorder(c));
    for (int k = 0; k < 4; ++k)
        SetLinkSelected(ws(), k, true);
    const QStringList paths = Link_OLEStartDrag(ws(), 1);
    EXPECT_EQ(paths, (QStringList{ws().Links[1].LinkPath, ws().Links[0].LinkPath}));
}

TEST_F(DragDrop, AShortcutOfAFolderLinkContainerLeavesOverTheBackgroundAsAFileDrag) {
    const QString folder = MakeDir(QStringLiteral("linked"));
    const int c = LinkedContainer(folder);
    AddShortcut(ws(), MakeFile(QStringLiteral("linked/a.txt")), ws().grpBorder(c));
    StartLinkDrag(ws(), 0);
    EXPECT_TRUE(picBack_DragOver(ws()));
    ASSERT_EQ(t.platform.fileDrags.size(), 1u);
    EXPECT_EQ(t.platform.fileDrags[0], QStringList{folder + QStringLiteral("/a.txt")});
    EXPECT_EQ(ws().DragSource, nullptr) << "the in-program drag has ended";
    EXPECT_EQ(ws().Link(0).Container(), &ws().grpBorder(c));

    // From an ordinary container the drag stays in the program.
    const int plain = t.newContainerAt(5000, 600);
    AddShortcut(ws(), MakeFile(QStringLiteral("b.txt")), ws().grpBorder(plain));
    StartLinkDrag(ws(), 1);
    EXPECT_FALSE(picBack_DragOver(ws()));
    EXPECT_EQ(ws().DragSource, &ws().Link(1));
    EXPECT_EQ(t.platform.fileDrags.size(), 1u);
}

TEST_F(DragDrop, TheInProgramDragOverAContainerHidesTheGuidesAndShowsTheIcons) {
    const int c = t.newContainerAt(600, 600);
    AddShortcut(ws(), MakeFile(QStringLiteral("a.txt")), ws().grpBorder(c));
    ws().ShapeMove(0).Visible = true;
    ws().LinkLine(0).Visible = true;
    IconBox(ws(), 0).Visible = false;
    grpBorder_DragOver(ws(), c);
    EXPECT_FALSE(ws().ShapeMove(0).Visible.get());
    EXPECT_FALSE(ws().LinkLine(0).Visible.get());
    EXPECT_TRUE(IconBox(ws(), 0).Visible.get());
}

TEST_F(DragDrop, AShortcutDroppedOnAShortcutAsksToOpenItWithTheOther) {
    const QString doc = MakeFile(QStringLiteral("doc.txt"));
    const QString app = MakeFile(QStringLiteral("viewer"));
    AddShortcut(ws(), doc, ws().picBack(0));
    AddShortcut(ws(), app, ws().picBack(0));
    t.platform.answers = {MsgAnswer::Yes};
    OpenLinkWithLink(ws(), 0, 1);
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Open: doc.txt with: viewer?"));
    EXPECT_EQ(t.platform.messages[0].style, 4132);
    ASSERT_EQ(t.platform.launches.size(), 1u);
    EXPECT_EQ(t.platform.launches[0].file, app);
    EXPECT_EQ(t.platform.launches[0].params, QLatin1Char('"') + doc + QLatin1Char('"'));
}

TEST_F(DragDrop, ShiftTextOnTheBackgroundOpensTheReminderDialogWithIt) {
    QString shown;
    int forms = 0;
    Desk(ws()).showReminderForm = [&](ReminderForm& form) {
        ++forms;
        shown = form.txtReminder;
    };
    picBack_OLEDragDrop(ws(), Text(QStringLiteral("call Anna")), 1, 3000, 2000);
    EXPECT_EQ(forms, 1);
    EXPECT_EQ(shown, QStringLiteral("call Anna"));
    EXPECT_EQ(ws().DropX, 3000.0f);
    EXPECT_EQ(ws().DropY, 2000.0f);
}

TEST_F(DragDrop, ADropOnALockedWorkspaceUnlocksItBriefly) {
    const int c = t.newContainerAt(600, 600);
    LockWorkspace(ws());
    ASSERT_TRUE(ws().menus["mnuLock"].Checked());
    grpBorder_OLEDragDrop(ws(), c, Files({MakeFile(QStringLiteral("a.txt"))}), 0, 450, 900);
    EXPECT_EQ(ws().LinkCount, 1);
    EXPECT_FALSE(ws().menus["mnuLock"].Checked());
    EXPECT_TRUE(Desk(ws()).TimerBrieflyUnlock.Enabled());
    t.clock.advance(10000);
    EXPECT_TRUE(ws().menus["mnuLock"].Checked()) << "locked again ten seconds later";
}
