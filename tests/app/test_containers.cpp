// The life of a container: NewGroup and its members, "&Container" and "&Note", renaming, selection,
// deleting and "Clear Workspace".

#include "app/WorkspaceFile.h"
#include "containers/ContainerMenus.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Shrinking.h"
#include "desk/Pictures.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "themes/Buttons.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

const QString kRec = QStringLiteral("Perchdock.REC");

// Records what the families report, in order: loads and changes with the member's name and index.
struct Recorder : ElementSink {
    std::vector<std::pair<QString, int>> loaded;
    std::vector<std::pair<QString, int>> raised;
    void elementLoaded(Element& e) override { loaded.emplace_back(e.Name(), e.Index()); }
    void elementChanged(Element& e, Prop p) override {
        if (p == Prop::ZOrder) raised.emplace_back(e.Name(), e.Index());
    }
};

class ContainerLife : public ::testing::Test {
  protected:
    void SetUp() override { t.start(); }
    Workspace& ws() { return *t.ws; }
    // A container as the menu makes it, named with Enter.
    int NewContainer() {
        mnuNew_Click(ws());
        const int n = ws().ContainerCount - 1;
        RenameFinished(ws(), n, false);
        return n;
    }
    // A file shortcut in container i (or on the background for -1).
    int AddLinkIn(int i, const QString& path) {
        AddShortcut(ws(), path, i < 0 ? ws().picBack(0) : ws().grpBorder(i));
        return ws().LinkCount - 1;
    }
    TestWorkspace t;
};

} // namespace

// --- NewGroup ---

TEST_F(ContainerLife, TheFirstContainerTakesIndexZeroAndTheDesignMembers) {
    ASSERT_EQ(ws().ContainerCount, 0);
    // The rename field's design place, which the title edge then moves up to the head row.
    EXPECT_EQ(ws().groupName(0).Top.get(), 120.0f);
    NewGroup(ws(), -1);
    EXPECT_EQ(ws().ContainerCount, 1);
    // Member 0 exists by design: no member is loaded.
    EXPECT_EQ(ws().Group.Count(), 1);
    EXPECT_EQ(ws().lblName.Count(), 1);

    const Element& g = ws().Group(0);
    EXPECT_EQ(g.Container(), &ws().picBack(0));
    EXPECT_EQ(g.Left.get(), 600.0f);
    EXPECT_EQ(g.Top.get(), 200.0f);
    EXPECT_EQ(g.Width.get(), 3000.0f);
    EXPECT_EQ(g.Height.get(), 3000.0f);
    for (ElementFamily* f : {&ws().Group, &ws().grpBorder, &ws().chkFold, &ws().picShrink, &ws().picPinNote,
                             &ws().picCopy2, &ws().picCopy1, &ws().lblName})
        EXPECT_TRUE((*f)(0).Visible.get()) << f->name().toStdString();
    for (ElementFamily* f : {&ws().picPin, &ws().txtNote, &ws().ShrinkIcon, &ws().chkUnfold, &ws().groupName})
        EXPECT_FALSE((*f)(0).Visible.get()) << f->name().toStdString();
    EXPECT_EQ(ws().lblName(0).Caption.get(), QStringLiteral("Container"));
    EXPECT_FALSE(ws().lblName(0).FontBold.get());

    // The design sizes of the parts inside grpBorder.
    auto expectPlace = [](const Element& e, float l, float t, float w, float h) {
        EXPECT_EQ(e.Left.get(), l) << e.Name().toStdString();
        EXPECT_EQ(e.Top.get(), t) << e.Name().toStdString();
        EXPECT_EQ(e.Width.get(), w) << e.Name().toStdString();
        EXPECT_EQ(e.Height.get(), h) << e.Name().toStdString();
    };
    expectPlace(ws().grpBorder(0), 20, 20, 2970, 2970);
    expectPlace(ws().lblName(0), 600, 40, 2175, 200);
    expectPlace(ws().groupName(0), 600, 30, 1335, 250);
    expectPlace(ws().txtNote(0), 80, 340, 3300, 2415);
    // 720 by 720 in the design, 64 pixels from the window's load on.
    expectPlace(ws().ShrinkIcon(0), 80, 330, 960, 960);

    // The title at the top edge, and a fresh record with the geometry noted.
    EXPECT_EQ(ws().picShrink(0).Top.get(), 30.0f);
    EXPECT_EQ(ws().chkFold(0).Top.get(), 30.0f);
    const ContainerRecord& r = ws().Containers[0];
    EXPECT_EQ(r.X, 600);
    EXPECT_EQ(r.Y, 200);
    EXPECT_EQ(r.W, 3000);
    EXPECT_EQ(r.H, 3000);
    EXPECT_EQ(r.ParentIndex, -1);
    EXPECT_TRUE(r.CopyPath.isEmpty());
    EXPECT_FALSE(r.RefreshOnExpand);
    EXPECT_FALSE(r.KeepX);
    EXPECT_FALSE(r.Flipped);
    EXPECT_FALSE(r.TagHidden);
    // NewGroup itself sets no colours: the design's stay.
    EXPECT_EQ(ws().grpBorder(0).BackColor.get(), 0x290700);
    EXPECT_EQ(ws().grpBorder(0).ForeColor.get(), 0xFFFFFF);
}

TEST_F(ContainerLife, ALaterContainerLoadsItsMembersInOrderWithTheirVisibility) {
    NewGroup(ws(), -1);
    // The selected look of member 0 is not copied into the new title.
    ws().lblName(0).FontBold = true;
    ws().txtNote(0).Text = QStringLiteral("text of the first");
    ws().DropX = 1234;
    ws().DropY = 567;
    Recorder rec;
    ws().sink = &rec;
    NewGroup(ws(), 0);
    ws().sink = nullptr;
    EXPECT_EQ(ws().ContainerCount, 2);

    const std::vector<std::pair<QString, int>> order = {
        {"Group", 1},     {"grpBorder", 1}, {"txtNote", 1},  {"ShrinkIcon", 1}, {"chkFold", 1},
        {"chkUnfold", 1}, {"picShrink", 1}, {"picPin", 1},   {"picPinNote", 1}, {"picCopy2", 1},
        {"picCopy1", 1},  {"lblName", 1},   {"groupName", 1}};
    EXPECT_EQ(rec.loaded, order);
    // Each is brought to the top of its parent as it comes, but picCopy2.
    std::vector<std::pair<QString, int>> raisedOnce;
    for (const auto& r : rec.raised)
        if (raisedOnce.empty() || raisedOnce.back() != r) raisedOnce.push_back(r);
    std::vector<std::pair<QString, int>> expectedRaised;
    for (const auto& o : order)
        if (o.first != QLatin1String("picCopy2")) expectedRaised.push_back(o);
    EXPECT_EQ(raisedOnce, expectedRaised);

    EXPECT_EQ(ws().Group(1).Container(), ws().Group(0).Container());
    EXPECT_EQ(ws().grpBorder(1).Container(), &ws().Group(1));
    for (ElementFamily* f :
         {&ws().txtNote, &ws().ShrinkIcon, &ws().chkFold, &ws().chkUnfold, &ws().picShrink, &ws().picPin,
          &ws().picPinNote, &ws().picCopy2, &ws().picCopy1, &ws().lblName, &ws().groupName})
        EXPECT_EQ((*f)(1).Container(), &ws().grpBorder(1)) << f->name().toStdString();
    for (ElementFamily* f : {&ws().Group, &ws().grpBorder, &ws().chkFold, &ws().picShrink, &ws().picPinNote,
                             &ws().picCopy2, &ws().picCopy1, &ws().lblName})
        EXPECT_TRUE((*f)(1).Visible.get()) << f->name().toStdString();
    for (ElementFamily* f : {&ws().txtNote, &ws().ShrinkIcon, &ws().chkUnfold, &ws().picPin, &ws().groupName})
        EXPECT_FALSE((*f)(1).Visible.get()) << f->name().toStdString();
    EXPECT_TRUE(ws().Group(1).Enabled.get());
    EXPECT_TRUE(ws().txtNote(1).Text.get().isEmpty());
    EXPECT_EQ(ws().lblName(1).Caption.get(), QStringLiteral("Container"));
    EXPECT_FALSE(ws().lblName(1).FontBold.get());
    EXPECT_EQ(ws().groupName(1).Text.get(), QStringLiteral("Container"));

    EXPECT_EQ(ws().Group(1).Left.get(), 1234.0f);
    EXPECT_EQ(ws().Group(1).Top.get(), 567.0f);
    EXPECT_EQ(ws().Group(1).Width.get(), 3000.0f);
    EXPECT_EQ(ws().Group(1).Height.get(), 3000.0f);
    const ContainerRecord& r = ws().Containers[1];
    EXPECT_EQ(r.X, 1234);
    EXPECT_EQ(r.Y, 567);
    EXPECT_EQ(r.H, 3000);
    EXPECT_EQ(r.W, 3000);
    EXPECT_EQ(r.ParentIndex, 0);
    EXPECT_GE(ws().Containers.size(), 2u);
}

TEST_F(ContainerLife, ADeletedContainerKeepsItsIndexAndTheNextTakesContainerCount) {
    for (int k = 0; k < 3; ++k)
        NewContainer();
    ws().ConfirmDelete = false;
    ws().SelectedContainer = 1;
    mnuDeleteContainer_Click(ws());
    EXPECT_FALSE(ws().Group(1).Visible.get());
    EXPECT_TRUE(ws().Group.exists(1));
    EXPECT_EQ(ws().ContainerCount, 3);

    NewGroup(ws(), -1);
    EXPECT_EQ(ws().ContainerCount, 4);
    EXPECT_TRUE(ws().Group.exists(3));
    EXPECT_TRUE(ws().Group(3).Visible.get());
    // The freed slot stays dead.
    EXPECT_FALSE(ws().Group(1).Visible.get());
}

// --- "&Container" and "&Note" ---

TEST_F(ContainerLife, TheMenuGivesANewContainerTheColoursTheLayoutAndTheRenameField) {
    ws().ContainerColor = 0x123456;
    ws().ContainerLabelColor = 0x00FF00;
    std::vector<QString> focused;
    ws().onFocusRequest = [&focused](Element& e) {
        focused.push_back(e.Name() + QString::number(e.Index()));
    };
    mnuNew_Click(ws());
    const int n = 0;
    EXPECT_EQ(ws().ContainerCount, 1);
    EXPECT_EQ(ws().grpBorder(n).BackColor.get(), 0x123456);
    EXPECT_EQ(ws().grpBorder(n).ForeColor.get(), 0x00FF00);
    EXPECT_EQ(ws().lblName(n).ForeColor.get(), 0x00FF00);
    // SetColors: the frame one step lighter, the head's buttons on the container colour.
    EXPECT_EQ(ws().Group(n).BackColor.get(), Lighten(0x123456));
    EXPECT_EQ(ws().Group(n).BackColor.get(), 0x3A5C7E);
    for (ElementFamily* f : {&ws().picPinNote, &ws().picPin, &ws().picShrink, &ws().chkFold, &ws().chkUnfold,
                             &ws().groupName, &ws().ShrinkIcon, &ws().picCopy1, &ws().picCopy2})
        EXPECT_EQ((*f)(n).BackColor.get(), 0x123456) << f->name().toStdString();
    // SetObjectRelativeSize at 3000 by 3000.
    EXPECT_EQ(ws().lblName(n).Width.get(), 1620.0f);
    EXPECT_EQ(ws().groupName(n).Width.get(), 1620.0f);
    EXPECT_EQ(ws().chkFold(n).Left.get(), 2610.0f);
    EXPECT_EQ(ws().chkUnfold(n).Left.get(), 2610.0f);
    EXPECT_EQ(ws().picPinNote(n).Left.get(), 2400.0f);
    EXPECT_EQ(ws().picPin(n).Left.get(), 2400.0f);
    EXPECT_EQ(ws().grpBorder(n).Width.get(), 2970.0f);
    EXPECT_EQ(ws().grpBorder(n).Height.get(), 2970.0f);
    EXPECT_EQ(ws().txtNote(n).Width.get(), 2810.0f);
    EXPECT_EQ(ws().txtNote(n).Height.get(), 2530.0f);
    EXPECT_EQ(ws().Group(n).CornerRadius.get(), 12);
    EXPECT_EQ(ws().grpBorder(n).CornerRadius.get(), 12);
    // On the background, selected for the menu, and being renamed.
    EXPECT_EQ(ws().Group(n).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().SelectedContainer, n);
    EXPECT_TRUE(ws().groupName(n).Visible.get());
    EXPECT_EQ(ws().groupName(n).Text.get(), QStringLiteral("Container"));
    EXPECT_EQ(ws().groupName(n).ForeColor.get(), 0x00FF00);
    EXPECT_EQ(ws().groupName(n).Top.get(), 50.0f);
    EXPECT_EQ(focused, std::vector<QString>{QStringLiteral("groupName0")});
    // The empty icon stands for it when shrunk.
    EXPECT_EQ(ws().Containers[n].IconPath, QDir(t.programDir()).filePath(QStringLiteral("emptyicon.ico")));
    EXPECT_EQ(ws().ShrinkIcon(n).Width.get(), 960.0f);
    EXPECT_EQ(ws().ShrinkIcon(n).Height.get(), 960.0f);
    // The command does not save: the rename field's focus loss does.
    EXPECT_FALSE(t.dataExists(kRec));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Containers/0.con")));
}

TEST_F(ContainerLife, ANewNoteIsNamedNoteShowsItsTextBoxAndSaves) {
    mnuNewNote_Click(ws());
    const int n = 0;
    EXPECT_EQ(ws().lblName(n).Caption.get(), QStringLiteral("Note"));
    EXPECT_TRUE(ws().txtNote(n).Visible.get());
    EXPECT_TRUE(ws().picPin(n).Visible.get());
    EXPECT_FALSE(ws().picPinNote(n).Visible.get());
    EXPECT_TRUE(t.dataExists(kRec));
    const QByteArray file = t.readData(QStringLiteral("Containers/0.con"));
    EXPECT_TRUE(file.contains("[Name]\r\nNote\r\n")) << file.toStdString();
    EXPECT_TRUE(file.contains("[NOTE ON]\r\n1\r\n")) << file.toStdString();

    // Nothing numbers them: a second note and a container bear the same names as the first.
    mnuNewNote_Click(ws());
    EXPECT_EQ(ws().lblName(1).Caption.get(), QStringLiteral("Note"));
    mnuNew_Click(ws());
    mnuNew_Click(ws());
    EXPECT_EQ(ws().lblName(2).Caption.get(), QStringLiteral("Container"));
    EXPECT_EQ(ws().lblName(3).Caption.get(), QStringLiteral("Container"));
}

// --- renaming ---

TEST_F(ContainerLife, RenamingCopiesEachChangeAndSavesWhenTheFieldLosesTheFocus) {
    mnuNew_Click(ws());
    Element& field = ws().groupName(0);
    ASSERT_TRUE(field.Visible.get());
    field.Text = QStringLiteral("W");
    RenameTextChanged(ws(), 0);
    EXPECT_EQ(ws().lblName(0).Caption.get(), QStringLiteral("W"));
    field.Text = QStringLiteral("Work");
    RenameTextChanged(ws(), 0);
    EXPECT_EQ(ws().lblName(0).Caption.get(), QStringLiteral("Work"));
    // Enter hides the field, which takes its focus away: saved.
    RenameFinished(ws(), 0, false);
    EXPECT_FALSE(field.Visible.get());
    EXPECT_TRUE(t.readData(QStringLiteral("Containers/0.con")).contains("[Name]\r\nWork\r\n"));

    // The menu entry starts it again on the selected container; the focus loss saves.
    ws().lblName(0).ForeColor = 0x0000FF;
    const int64_t zBefore = ws().Group(0).zValue();
    StartRename(ws(), 0);
    EXPECT_GT(ws().Group(0).zValue(), zBefore);
    EXPECT_TRUE(field.Visible.get());
    EXPECT_EQ(field.Text.get(), QStringLiteral("Work"));
    EXPECT_EQ(field.ForeColor.get(), 0x0000FF);
    field.Text = QStringLiteral("Games");
    RenameTextChanged(ws(), 0);
    RenameFinished(ws(), 0, true);
    EXPECT_FALSE(field.Visible.get());
    EXPECT_TRUE(t.readData(QStringLiteral("Containers/0.con")).contains("[Name]\r\nGames\r\n"));
}

TEST_F(ContainerLife, TheRenameFieldOfATitleAtTheBottomSitsAtTheBottom) {
    const int n = NewContainer();
    SetTitleEdge(ws(), true, n);
    StartRename(ws(), n);
    EXPECT_EQ(ws().groupName(n).Top.get(), 3000.0f - 300.0f);
}

TEST_F(ContainerLife, ARightClickOnATitleOffersRenameUnlessTheWorkspaceIsLocked) {
    const int a = NewContainer();
    const int b = NewContainer();
    ws().SelectedContainer = static_cast<int16_t>(a);
    ws().menus["mnuLock"].setChecked(true);
    EXPECT_EQ(std::string(TitleContextMenu(ws(), b)), std::string());
    EXPECT_EQ(ws().SelectedContainer, a);
    ws().menus["mnuLock"].setChecked(false);
    ws().menus["mnuLinkEdit"].setCaption(QStringLiteral("Edit"));
    EXPECT_EQ(std::string(TitleContextMenu(ws(), b)), std::string("mnuLink"));
    EXPECT_EQ(ws().SelectedContainer, b);
    EXPECT_EQ(ws().menus["mnuLinkEdit"].Caption(), QStringLiteral("Rename"));
}

// --- selection ---

TEST_F(ContainerLife, SelectingShowsTheWorkspaceTextColourOnTheFrameOfAContainerOnTheBackground) {
    const int a = NewContainer();
    const int b = NewContainer();
    ws().picBack(0).ForeColor = 0x00FFFF;
    ws().Group(b).setContainer(&ws().Group(a));
    const int32_t nestedFrame = ws().Group(b).BackColor;

    SelectGroup(ws(), a);
    SelectGroup(ws(), b);
    EXPECT_TRUE(ws().lblName(a).FontBold.get());
    EXPECT_TRUE(ws().lblName(b).FontBold.get());
    EXPECT_EQ(ws().Group(a).BackColor.get(), 0x00FFFF);
    // A nested container's frame does not change.
    EXPECT_EQ(ws().Group(b).BackColor.get(), nestedFrame);

    UnselectGroup(ws(), a);
    EXPECT_FALSE(ws().lblName(a).FontBold.get());
    EXPECT_EQ(ws().Group(a).BackColor.get(), Lighten(ws().grpBorder(a).BackColor));
    SelectGroup(ws(), a);
    UnselectAllGroups(ws());
    EXPECT_FALSE(ws().lblName(a).FontBold.get());
    EXPECT_FALSE(ws().lblName(b).FontBold.get());
    EXPECT_EQ(ws().Group(b).BackColor.get(), nestedFrame);
}

// --- deleting ---

TEST_F(ContainerLife, DeletingAsksFirstAndAYesDeletesTheSelectedContainers) {
    const int a = NewContainer();
    const int b = NewContainer();
    ws().txtNote(a).Text = QStringLiteral("gone");
    ws().SelectedContainer = static_cast<int16_t>(a);
    t.platform.answers = {MsgAnswer::Yes};
    mnuDeleteContainer_Click(ws());

    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Delete Selected Containers?"));
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Delete"));
    EXPECT_EQ(t.platform.messages[0].style, 4148);
    EXPECT_FALSE(ws().Group(a).Visible.get());
    EXPECT_TRUE(ws().txtNote(a).Text.get().isEmpty());
    EXPECT_TRUE(ws().Containers[a].IconPath.isEmpty());
    // The selection is forgotten.
    EXPECT_FALSE(ws().lblName(a).FontBold.get());
    EXPECT_TRUE(ws().Group(b).Visible.get());
    // Saved: one container file is left, and it is b's.
    EXPECT_TRUE(t.dataExists(kRec));
    EXPECT_TRUE(t.dataExists(QStringLiteral("Containers/0.con")));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Containers/1.con")));
    // The auto-hide is held during the question and running again afterwards.
    EXPECT_TRUE(ws().TimerHide.Enabled());
}

TEST_F(ContainerLife, DeletingAnsweredNoKeepsEverythingButStillSaves) {
    const int a = NewContainer();
    const int k = AddLinkIn(a, QStringLiteral("/data/report.txt"));
    ws().txtNote(a).Text = QStringLiteral("kept");
    ws().SelectedContainer = static_cast<int16_t>(a);
    t.platform.answers = {MsgAnswer::No};
    mnuDeleteContainer_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_TRUE(ws().Group(a).Visible.get());
    EXPECT_EQ(ws().txtNote(a).Text.get(), QStringLiteral("kept"));
    EXPECT_FALSE(ws().Containers[a].IconPath.isEmpty());
    EXPECT_EQ(ws().Links[k].LinkPath, QStringLiteral("/data/report.txt"));
    EXPECT_TRUE(ws().Link(k).Visible.get());
    // The right-clicked container was added to the selection, and stays in it.
    EXPECT_TRUE(ws().lblName(a).FontBold.get());
    EXPECT_TRUE(t.dataExists(kRec));
    EXPECT_TRUE(t.dataExists(QStringLiteral("Containers/0.con")));
}

TEST_F(ContainerLife, WithoutDeleteConfirmationNothingIsAsked) {
    const int a = NewContainer();
    ws().ConfirmDelete = false;
    ws().SelectedContainer = static_cast<int16_t>(a);
    mnuDeleteContainer_Click(ws());
    EXPECT_TRUE(t.platform.messages.empty());
    EXPECT_FALSE(ws().Group(a).Visible.get());
    EXPECT_FALSE(t.dataExists(QStringLiteral("Containers/0.con")));
    EXPECT_TRUE(t.dataExists(kRec));
}

TEST_F(ContainerLife, DeletingAContainerOutsideTheSelectionTakesTheSelectionToo) {
    const int a = NewContainer();
    const int b = NewContainer();
    const int c = NewContainer();
    const int d = NewContainer();
    SelectGroup(ws(), a);
    SelectGroup(ws(), c);
    ws().SelectedContainer = static_cast<int16_t>(b);
    ws().ConfirmDelete = false;
    mnuDeleteContainer_Click(ws());
    EXPECT_FALSE(ws().Group(a).Visible.get());
    EXPECT_FALSE(ws().Group(b).Visible.get());
    EXPECT_FALSE(ws().Group(c).Visible.get());
    EXPECT_TRUE(ws().Group(d).Visible.get());
    EXPECT_FALSE(ws().lblName(d).FontBold.get());
    EXPECT_TRUE(t.dataExists(QStringLiteral("Containers/0.con")));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Containers/1.con")));
}

TEST_F(ContainerLife, TheShortcutsOfADeletedContainerAreRemovedAndVanishAtTheNextSave) {
    const int a = NewContainer();
    const int b = NewContainer();
    const int inA = AddLinkIn(a, QStringLiteral("/data/inside.txt"));
    ws().Links[inA].Tags = QStringLiteral("work");
    ws().Links[inA].LinkParam = QStringLiteral("-x");
    ws().Links[inA].LinkIcon = QStringLiteral("/data/icon.png");
    const int inB = AddLinkIn(b, QStringLiteral("/data/other.txt"));
    const int onBack = AddLinkIn(-1, QStringLiteral("/data/loose.txt"));
    SaveDesktop(ws(), true, false);
    ASSERT_TRUE(t.readData(QStringLiteral("Containers/0.con")).contains("/data/inside.txt"));

    ws().ConfirmDelete = false;
    ws().SelectedContainer = static_cast<int16_t>(a);
    mnuDeleteContainer_Click(ws());
    // RemoveLink: the slot stays, empty.
    const LinkRecord& r = ws().Links[inA];
    EXPECT_TRUE(r.LinkPath.isEmpty());
    EXPECT_TRUE(r.LinkParam.isEmpty());
    EXPECT_TRUE(r.LinkIcon.isEmpty());
    EXPECT_TRUE(r.Tags.isEmpty());
    EXPECT_EQ(r.LinkType, 2.0f);
    EXPECT_TRUE(ws().Link(inA).Caption.get().isEmpty());
    EXPECT_FALSE(ws().Link(inA).Visible.get());
    EXPECT_FALSE(ws().PicIcon(r.IconIndex).Visible.get());
    EXPECT_TRUE(ws().PicIcon(r.IconIndex).Picture.get().isEmpty());
    EXPECT_EQ(ws().LinkCount, 3);
    // The others stay.
    EXPECT_EQ(ws().Links[inB].LinkPath, QStringLiteral("/data/other.txt"));
    EXPECT_EQ(ws().Links[onBack].LinkPath, QStringLiteral("/data/loose.txt"));

    // Gone from every file: b's file is now 0.con and holds only its own shortcut.
    const QByteArray zero = t.readData(QStringLiteral("Containers/0.con"));
    EXPECT_FALSE(zero.contains("/data/inside.txt"));
    EXPECT_TRUE(zero.contains("/data/other.txt"));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Containers/1.con")));
    EXPECT_FALSE(t.readData(kRec).contains("/data/inside.txt"));
    EXPECT_TRUE(t.readData(kRec).contains("/data/loose.txt"));
}

TEST_F(ContainerLife, PicturesAndContainersInsideADeletedContainerVanishAtTheNextSave) {
    const int a = NewContainer();
    const int inner = NewContainer();
    const int other = NewContainer();
    ws().Group(inner).setContainer(&ws().Group(a));
    ws().Group(inner).Move(100, 400);
    const QString png = QStringLiteral("/pictures/cat.png");
    t.platform.images[png] = QSize(40, 30);
    ASSERT_TRUE(AddPicture(ws(), png));
    ws().picPlaceholder(0).setContainer(&ws().grpBorder(a));
    ws().picTemp(0).setContainer(&ws().grpBorder(a));
    SaveDesktop(ws(), true, false);
    ASSERT_TRUE(t.dataExists(QStringLiteral("Containers/2.con")));
    ASSERT_TRUE(t.readData(QStringLiteral("Containers/0.con")).contains("/pictures/cat.png"));

    ws().ConfirmDelete = false;
    ws().SelectedContainer = static_cast<int16_t>(a);
    mnuDeleteContainer_Click(ws());
    // No step touched them: the nested container keeps its own flag, and goes with its parent.
    EXPECT_TRUE(ws().Group(inner).Visible.get());
    EXPECT_FALSE(IsContainerLive(ws(), inner));
    EXPECT_TRUE(IsContainerLive(ws(), other));
    EXPECT_TRUE(t.dataExists(QStringLiteral("Containers/0.con")));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Containers/1.con")));
    EXPECT_FALSE(t.readData(QStringLiteral("Containers/0.con")).contains("/pictures/cat.png"));
    EXPECT_FALSE(t.readData(kRec).contains("/pictures/cat.png"));
}

// --- "Clear Workspace" ---

TEST_F(ContainerLife, ClearWorkspaceAnsweredNoChangesNothing) {
    const int a = NewContainer();
    const int k = AddLinkIn(-1, QStringLiteral("/data/loose.txt"));
    mnuClearWorkSpace_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text,
              QStringLiteral("Are you sure you want to delete all objects and start from scratch?"));
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Clear Workspace"));
    EXPECT_EQ(t.platform.messages[0].style, 4148);
    EXPECT_TRUE(ws().Group(a).Visible.get());
    EXPECT_TRUE(ws().Link(k).Visible.get());
    EXPECT_EQ(ws().Links[k].LinkPath, QStringLiteral("/data/loose.txt"));
    EXPECT_TRUE(ws().TimerHide.Enabled());
}

TEST_F(ContainerLife, ClearWorkspaceAnsweredYesHidesEverythingAndTheNextSaveRemovesTheFiles) {
    const int a = NewContainer();
    const int b = NewContainer();
    ws().Containers[b].TagHidden = true;
    ws().Group(b).Visible = false;
    const int k = AddLinkIn(a, QStringLiteral("/data/inside.txt"));
    const int l = AddLinkIn(-1, QStringLiteral("/data/loose.txt"));
    const QString png = QStringLiteral("/pictures/cat.png");
    t.platform.images[png] = QSize(40, 30);
    ASSERT_TRUE(AddPicture(ws(), png));
    ws().DeskObjects[0].Time = QStringLiteral("12:00");
    SaveDesktop(ws(), true, false);
    ASSERT_TRUE(t.dataExists(QStringLiteral("Containers/1.con")));
    const QByteArray before = t.readData(kRec);

    t.platform.answers = {MsgAnswer::Yes};
    mnuClearWorkSpace_Click(ws());
    // No wallpaper: only the one question.
    EXPECT_EQ(t.platform.messages.size(), 1u);
    EXPECT_FALSE(ws().Group(a).Visible.get());
    EXPECT_FALSE(ws().lblName(a).Visible.get());
    EXPECT_FALSE(ws().Link(k).Visible.get());
    EXPECT_FALSE(ws().Link(l).Visible.get());
    EXPECT_FALSE(ws().PicIcon(0).Visible.get());
    EXPECT_FALSE(ws().picPlaceholder(0).Visible.get());
    EXPECT_FALSE(ws().imgPicture(0).Visible.get());
    EXPECT_TRUE(ws().Links[k].LinkPath.isEmpty());
    EXPECT_TRUE(ws().Links[l].LinkPath.isEmpty());
    EXPECT_TRUE(ws().DeskObjects[0].Time.isEmpty());
    // The background, the wallpaper and the window's own buttons stay.
    EXPECT_TRUE(ws().picBack(0).Visible.get());
    EXPECT_TRUE(ws().imgBack(0).Visible.get());
    EXPECT_TRUE(ws().picMoveMe(0).Visible.get());
    EXPECT_TRUE(ws().lblCaption(0).Visible.get());
    EXPECT_TRUE(ws().PicDock(0).Visible.get());
    EXPECT_TRUE(ws().PicFoldUnfoldAllToolbar(0).Visible.get());
    EXPECT_TRUE(ws().PicShrinkExpandAllToolbar(0).Visible.get());
    // It does not save by itself.
    EXPECT_EQ(t.readData(kRec), before);
    EXPECT_TRUE(t.dataExists(QStringLiteral("Containers/0.con")));

    // The next save point removes the files; the container hidden by the tag filter does not come back.
    SaveDesktop(ws(), true, false);
    EXPECT_FALSE(t.dataExists(QStringLiteral("Containers/0.con")));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Containers/1.con")));
    EXPECT_FALSE(t.readData(kRec).contains("[Link]"));
    EXPECT_FALSE(t.readData(kRec).contains("[Picture]"));
}

TEST_F(ContainerLife, ClearWorkspaceWithAWallpaperOffersADifferentTheme) {
    NewContainer();
    ws().WallpaperPath = QStringLiteral("/themes/blue.jpg");
    int opened = 0;
    ws().menus["mnuProperties"].onClick = [&opened] { ++opened; };
    t.platform.answers = {MsgAnswer::Yes, MsgAnswer::Yes};
    mnuClearWorkSpace_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 2u);
    EXPECT_EQ(t.platform.messages[1].text, QStringLiteral("Select a different theme?"));
    EXPECT_EQ(t.platform.messages[1].style, 4132);
    EXPECT_EQ(opened, 1);

    // Answered no, the dialog stays closed.
    t.platform.messages.clear();
    t.platform.answers = {MsgAnswer::Yes, MsgAnswer::No};
    mnuClearWorkSpace_Click(ws());
    EXPECT_EQ(t.platform.messages.size(), 2u);
    EXPECT_EQ(opened, 1);

    // A wallpaper path of blanks counts as none.
    t.platform.messages.clear();
    ws().WallpaperPath = QStringLiteral("   ");
    t.platform.answers = {MsgAnswer::Yes};
    mnuClearWorkSpace_Click(ws());
    EXPECT_EQ(t.platform.messages.size(), 1u);
}

TEST_F(ContainerLife, AContainerMadeAfterClearingShowsAgain) {
    NewContainer();
    t.platform.answers = {MsgAnswer::Yes};
    mnuClearWorkSpace_Click(ws());
    const int n = NewContainer();
    EXPECT_EQ(n, 1);
    EXPECT_TRUE(IsContainerLive(ws(), n));
    EXPECT_TRUE(ws().lblName(n).Visible.get());
    EXPECT_TRUE(ws().chkFold(n).Visible.get());
    SaveDesktop(ws(), true, false);
    EXPECT_TRUE(t.dataExists(QStringLiteral("Containers/0.con")));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Containers/1.con")));
}
