// Tags and launch marks on the fake platform: splitting, the tags menu with its "seen" test, the filter
// and its banner, the pop-up of one shortcut's tags, editing tags, the asterisk over a hovered icon,
// marks on launch and their borders.

#include "shortcuts/FindCommands.h"
#include "shortcuts/FindState.h"
#include "shortcuts/LinkMouse.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "shortcuts/Tags.h"
#include "support/TestWorkspace.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

constexpr int kLeft = 1;
constexpr int kRight = 2;

class Tags : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireFindCommands(ws());
        ws().menus["mnuDblClick"].setChecked(false);
        ws().menus["mnuCollapseBefore"].setChecked(false);
        a = t.newContainerAt(1000, 1000);
        b = t.newContainerAt(5000, 1000);
        Find(ws()).onPopupMenu = [this](const QString& menu) {
            popups.push_back(menu);
            QStringList shown;
            for (int k = 0; k < ws().menus.familyCount(QStringLiteral("mnuSubItem")); ++k)
                if (ws().menus(QStringLiteral("mnuSubItem"), k).Visible())
                    shown.push_back(ws().menus(QStringLiteral("mnuSubItem"), k).Caption());
            popupItems.push_back(shown);
        };
        t.platform.messages.clear();
    }
    Workspace& ws() { return *t.ws; }
    // A file shortcut with tags in container i (-1: the background), at (300, top).
    int AddLink(int i, const QString& label, const QString& tags, float top = -1) {
        AddShortcut(ws(), QStringLiteral("/opt/") + label, i < 0 ? ws().picBack(0) : ws().grpBorder(i));
        const int n = ws().LinkCount - 1;
        ws().Links[n].Tags = tags;
        ws().Link(n).Move(300, top >= 0 ? top : 300 + 400 * static_cast<float>(n));
        return n;
    }
    // The captions of the tags menu that show.
    QStringList TagsMenu() {
        QStringList out;
        for (int k = 0; k < ws().menus.familyCount(QStringLiteral("mnuTagsItem")); ++k)
            if (ws().menus(QStringLiteral("mnuTagsItem"), k).Visible())
                out.push_back(ws().menus(QStringLiteral("mnuTagsItem"), k).Caption());
        return out;
    }
    void Click(int n) {
        Link_MouseDown(ws(), kLeft, 0, n, 10, 10);
        Link_MouseUp(ws(), kLeft, 0, n, 10, 10);
    }
    bool IconVisible(int n) { return ws().PicIcon(ws().Links[n].IconIndex).Visible; }

    TestWorkspace t;
    int a = 0, b = 0;
    std::vector<QString> popups;
    std::vector<QStringList> popupItems;
};

} // namespace

TEST(SplitTags, PiecesAreTrimmedAndEmptyOnesDropped) {
    EXPECT_EQ(SplitTags(QStringLiteral(" a , b,,c ")), QStringList({"a", "b", "c"}));
    EXPECT_EQ(SplitTags(QStringLiteral("a,b,")), QStringList({"a", "b"}));
    EXPECT_EQ(SplitTags(QStringLiteral("single")), QStringList({"single"}));
    EXPECT_TRUE(SplitTags(QStringLiteral("")).isEmpty());
    EXPECT_TRUE(SplitTags(QStringLiteral(" , ,")).isEmpty());
}

TEST_F(Tags, TheMenuListsTagsInOrderOfFirstAppearanceWithTheSubstringSeenTest) {
    AddLink(a, QStringLiteral("one"), QStringLiteral("party, fun"));
    AddLink(a, QStringLiteral("two"), QStringLiteral("art"));
    AddLink(b, QStringLiteral("three"), QStringLiteral("Art,fun"));
    AddLink(b, QStringLiteral("four"), QStringLiteral("zeta"));
    BuildTagsMenu(ws());
    // "art" counts as seen once "party" is listed; "Art" differs by case and is an entry of its own.
    EXPECT_EQ(TagsMenu(), QStringList({"party", "fun", "Art", "zeta"}));
    EXPECT_EQ(Find(ws()).TagsItemCount, 4);
}

TEST_F(Tags, ATrailingCommaMakesNoEmptyMenuItem) {
    AddLink(a, QStringLiteral("one"), QStringLiteral("work,"));
    AddLink(a, QStringLiteral("two"), QStringLiteral("home, ,"));
    BuildTagsMenu(ws());
    EXPECT_EQ(TagsMenu(), QStringList({"work", "home"}));
    for (const QString& c : TagsMenu())
        EXPECT_FALSE(c.trimmed().isEmpty());
}

TEST_F(Tags, ARebuildHidesEntriesNoLongerUsedAndNoTagsShowsTheMarker) {
    const int n = AddLink(a, QStringLiteral("one"), QStringLiteral("x,y,z"));
    BuildTagsMenu(ws());
    EXPECT_EQ(TagsMenu().size(), 3);
    ws().Links[n].Tags = QStringLiteral("x");
    BuildTagsMenu(ws());
    EXPECT_EQ(TagsMenu(), QStringList({"x"}));
    ws().Links[n].Tags.clear();
    BuildTagsMenu(ws());
    EXPECT_EQ(TagsMenu(), QStringList({"[No Tags]"}));
    // Choosing "[No Tags]" does nothing.
    ws().menus(QStringLiteral("mnuTagsItem"), 0).Click();
    EXPECT_FALSE(ws().FrameLinkGroup(0).Visible);
    EXPECT_TRUE(ws().Link(n).Visible);
}

TEST_F(Tags, FilteringByArtKeepsPartyAndHidesTheRest) {
    const int party = AddLink(a, QStringLiteral("party"), QStringLiteral("Party, fun"), 900);
    const int art = AddLink(a, QStringLiteral("art"), QStringLiteral("art"), 500);
    const int other = AddLink(a, QStringLiteral("other"), QStringLiteral("misc"), 300);
    const int lone = AddLink(b, QStringLiteral("lone"), QStringLiteral("misc"));
    BuildTagsMenu(ws());
    // "art" is no entry of its own ("party" came first); the filter by it runs through FilterByTag.
    FilterByTag(ws(), 0, QStringLiteral("art"));
    EXPECT_TRUE(ws().Link(party).Visible) << "the filter is a case-insensitive substring test";
    EXPECT_TRUE(ws().Link(art).Visible);
    EXPECT_FALSE(ws().Link(other).Visible);
    EXPECT_FALSE(IconVisible(other));
    EXPECT_FALSE(ws().Link(lone).Visible);
    // The container left without a visible shortcut is hidden, with its flag.
    EXPECT_FALSE(ws().Group(b).Visible);
    EXPECT_TRUE(ws().Containers[b].TagHidden);
    EXPECT_TRUE(ws().Group(a).Visible);
    EXPECT_FALSE(ws().Containers[a].TagHidden);
    // The banner over the highest shortcut left, in the owner's inverted colours.
    Element& frame = ws().FrameLinkGroup(0);
    EXPECT_TRUE(frame.Visible);
    EXPECT_EQ(frame.Caption.get(), QStringLiteral("  Tag: art  "));
    EXPECT_EQ(frame.Container(), &ws().grpBorder(a));
    EXPECT_EQ(frame.Left.get(), ws().Link(art).Left.get());
    EXPECT_EQ(frame.Top.get(), 500.0f - 330.0f);
    EXPECT_EQ(frame.ForeColor.get(), ws().grpBorder(a).BackColor.get());
    EXPECT_EQ(frame.BackColor.get(), ws().grpBorder(a).ForeColor.get());
    EXPECT_GT(frame.Width.get(), 0.0f);
    EXPECT_TRUE(TagFilterOn(ws()));

    ShowAllTags(ws());
    for (int n : {party, art, other, lone}) {
        EXPECT_TRUE(ws().Link(n).Visible);
        EXPECT_TRUE(IconVisible(n));
    }
    EXPECT_TRUE(ws().Group(b).Visible);
    EXPECT_FALSE(ws().Containers[b].TagHidden);
    EXPECT_FALSE(frame.Visible);
}

TEST_F(Tags, ChoosingATagFromTheMenuFiltersAndASecondChoiceDoesNotStack) {
    const int w1 = AddLink(a, QStringLiteral("w1"), QStringLiteral("work"));
    const int h1 = AddLink(a, QStringLiteral("h1"), QStringLiteral("home"));
    BuildTagsMenu(ws());
    ASSERT_EQ(TagsMenu(), QStringList({"work", "home"}));
    ws().menus(QStringLiteral("mnuTagsItem"), 0).Click();
    EXPECT_TRUE(ws().Link(w1).Visible);
    EXPECT_FALSE(ws().Link(h1).Visible);
    ws().menus(QStringLiteral("mnuTagsItem"), 1).Click();
    EXPECT_FALSE(ws().Link(w1).Visible);
    EXPECT_TRUE(ws().Link(h1).Visible);
    EXPECT_EQ(ws().FrameLinkGroup(0).Caption.get(), QStringLiteral("  Tag: home  "));
    ws().menus["mnuUnhideTags"].Click();
    EXPECT_TRUE(ws().Link(w1).Visible);
    EXPECT_FALSE(ws().FrameLinkGroup(0).Visible);
}

TEST_F(Tags, ALeftClickOnTheBannerShowsAll) {
    const int w1 = AddLink(a, QStringLiteral("w1"), QStringLiteral("work"));
    const int h1 = AddLink(a, QStringLiteral("h1"), QStringLiteral("home"));
    FilterByTag(ws(), 0, QStringLiteral("work"));
    EXPECT_EQ(ws().FrameLinkGroup(0).ToolTipText.get(), QStringLiteral("Show All"));
    LblLinkGroup_Click(ws());
    EXPECT_TRUE(ws().Link(h1).Visible);
    EXPECT_TRUE(ws().Link(w1).Visible);
}

TEST_F(Tags, TheFilterUnselectsAllAndStopsShortcutDrags) {
    const int w1 = AddLink(a, QStringLiteral("w1"), QStringLiteral("work"));
    SetLinkSelected(ws(), w1, true);
    FilterByTag(ws(), 0, QStringLiteral("work"));
    EXPECT_TRUE(ws().SelectedLinks.empty());
    const float left = ws().Link(w1).Left;
    Link_MouseDown(ws(), kLeft, 0, w1, 10, 10);
    Link_MouseMove(ws(), kLeft, 0, w1, 400, 10);
    Link_MouseUp(ws(), kLeft, 0, w1, 400, 10);
    EXPECT_EQ(ws().Link(w1).Left.get(), left) << "filtered shortcuts are not dragged";
}

TEST_F(Tags, TheFilterHidesShortcutsOnTheBackgroundToo) {
    const int back = AddLink(-1, QStringLiteral("back"), QString());
    const int w1 = AddLink(-1, QStringLiteral("w1"), QStringLiteral("work"), 2000);
    FilterByTag(ws(), 0, QStringLiteral("work"));
    EXPECT_FALSE(ws().Link(back).Visible);
    EXPECT_TRUE(ws().Link(w1).Visible);
    // Both containers are empty of visible shortcuts: hidden.
    EXPECT_FALSE(ws().Group(a).Visible);
    EXPECT_EQ(ws().FrameLinkGroup(0).Container(), &ws().picBack(0));
    EXPECT_EQ(ws().FrameLinkGroup(0).Top.get(), 2000.0f - 330.0f);
}

TEST_F(Tags, AShortcutWithTagsAAndBShowsBothInItsPopupAndTheFilterByAHidesOthers) {
    const int ab = AddLink(a, QStringLiteral("ab"), QStringLiteral("a,b"));
    const int other = AddLink(a, QStringLiteral("other"), QStringLiteral("c"));
    ws().SelectedLink = static_cast<int16_t>(ab);
    ShowLinkTagsMenu(ws());
    ASSERT_EQ(popups.size(), 1u);
    EXPECT_EQ(popups[0], QStringLiteral("mnuTags"));
    EXPECT_EQ(popupItems[0], QStringList({"a", "b"}));
    // The entries above 0 go once the pop-up has closed.
    EXPECT_FALSE(ws().menus(QStringLiteral("mnuSubItem"), 1).Visible());
    // Choosing "a" in the pop-up filters by it.
    ShowLinkTagsMenu(ws());
    ws().menus(QStringLiteral("mnuSubItem"), 0).Click();
    EXPECT_TRUE(ws().Link(ab).Visible);
    EXPECT_FALSE(ws().Link(other).Visible);
}

TEST_F(Tags, EditTagsAsksBeforeDeletingAndKeepsTheListOnNo) {
    t.platform.inputAnswers = {QString()};
    t.platform.answers = {MsgAnswer::No};
    EXPECT_EQ(EditTags(ws(), QStringLiteral("a,b")), QStringLiteral("a,b"));
    ASSERT_EQ(t.platform.inputPrompts.size(), 1u);
    EXPECT_TRUE(t.platform.inputPrompts[0].startsWith(QStringLiteral("Edit Tags (separate with commas) -|")));
    EXPECT_TRUE(t.platform.inputPrompts[0].endsWith(QStringLiteral("|a,b")));
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Delete Tags?"));
    EXPECT_EQ(t.platform.messages[0].style, 4148 + 256) << "yes/no, exclamation, second button default";

    t.platform.inputAnswers = {QStringLiteral("  ")};
    t.platform.answers = {MsgAnswer::Yes};
    EXPECT_TRUE(EditTags(ws(), QStringLiteral("a,b")).trimmed().isEmpty());
    // A blank answer for a blank list asks nothing.
    t.platform.messages.clear();
    t.platform.inputAnswers = {QString()};
    EXPECT_TRUE(EditTags(ws(), QString()).isEmpty());
    EXPECT_TRUE(t.platform.messages.empty());
}

TEST_F(Tags, EditTagsFromTheMenuGoesToEverySelectedShortcut) {
    const int x = AddLink(a, QStringLiteral("x"), QStringLiteral("old"));
    const int y = AddLink(a, QStringLiteral("y"), QStringLiteral("mine"));
    SetLinkSelected(ws(), y, true);
    ws().SelectedLink = static_cast<int16_t>(x);
    t.platform.inputAnswers = {QStringLiteral("  new, tags  ")};
    ws().menus["mnuTag"].Click();
    EXPECT_TRUE(IsLinkSelected(ws(), x)) << "the shortcut under the menu joins the selection";
    EXPECT_EQ(ws().Links[x].Tags, QStringLiteral("new, tags"));
    EXPECT_EQ(ws().Links[y].Tags, QStringLiteral("new, tags"));
    EXPECT_TRUE(t.platform.inputPrompts[0].endsWith(QStringLiteral("|old")));
}

TEST_F(Tags, TheAsteriskShowsOverAHoveredIconWithItsLookAndTip) {
    const int plain = AddLink(a, QStringLiteral("plain"), QString());
    const int tagged = AddLink(a, QStringLiteral("tagged"), QStringLiteral("w"));
    Element& star = ws().ImgLinkGroup(0);
    const Element& owner = ws().grpBorder(a);
    PicIcon_MouseMove(ws(), ws().Links[plain].IconIndex);
    EXPECT_TRUE(star.Visible);
    EXPECT_EQ(star.Container(), &owner);
    EXPECT_EQ(star.BackStyle.get(), 0) << "without tags: transparent";
    EXPECT_EQ(star.ForeColor.get(), owner.ForeColor.get());
    const Element& icon = ws().PicIcon(ws().Links[plain].IconIndex);
    EXPECT_GE(star.Left.get(), icon.Left.get());
    EXPECT_LE(star.Left.get() + star.Width.get(), icon.Left.get() + icon.Width.get());
    EXPECT_EQ(star.Top.get(), icon.Top.get());

    PicIcon_MouseMove(ws(), ws().Links[tagged].IconIndex);
    EXPECT_EQ(star.BackStyle.get(), 1) << "with tags: opaque in the owner's inverted colours";
    EXPECT_EQ(star.ForeColor.get(), owner.BackColor.get());
    EXPECT_EQ(star.BackColor.get(), owner.ForeColor.get());
    EXPECT_EQ(star.ToolTipText.get(),
              QStringLiteral("Tags: w\r\nLeft Click: Select\r\nRight Click: Edit Tags"));
    // A hover on a label hides it.
    Link_MouseMove(ws(), 0, 0, plain, 5, 5);
    EXPECT_FALSE(star.Visible);
    // Not with the setting off, nor while a filter runs.
    ws().menus["mnuShowShortcutTags"].setChecked(false);
    PicIcon_MouseMove(ws(), ws().Links[tagged].IconIndex);
    EXPECT_FALSE(star.Visible);
    ws().menus["mnuShowShortcutTags"].setChecked(true);
    FilterByTag(ws(), 0, QStringLiteral("w"));
    PicIcon_MouseMove(ws(), ws().Links[tagged].IconIndex);
    EXPECT_FALSE(star.Visible);
}

TEST_F(Tags, AClickOnTheAsteriskGivesFirstTagsShowsOrEditsThem) {
    const int plain = AddLink(a, QStringLiteral("plain"), QString());
    const int tagged = AddLink(a, QStringLiteral("tagged"), QStringLiteral("p,q"));
    // No tags yet: either button asks for them; a blank answer stores nothing.
    PicIcon_MouseMove(ws(), ws().Links[plain].IconIndex);
    t.platform.inputAnswers = {QStringLiteral(" first ")};
    ImgLinkGroup_MouseUp(ws(), kLeft);
    EXPECT_EQ(ws().SelectedLink, plain);
    EXPECT_EQ(ws().Links[plain].Tags, QStringLiteral("first"));
    EXPECT_FALSE(ws().ImgLinkGroup(0).Visible);
    // With tags: the left button pops up the tags, the right edits them.
    PicIcon_MouseMove(ws(), ws().Links[tagged].IconIndex);
    ImgLinkGroup_MouseUp(ws(), kLeft);
    ASSERT_EQ(popupItems.size(), 1u);
    EXPECT_EQ(popupItems[0], QStringList({"p", "q"}));
    PicIcon_MouseMove(ws(), ws().Links[tagged].IconIndex);
    t.platform.inputAnswers = {QStringLiteral("p,q,r ")};
    ImgLinkGroup_MouseUp(ws(), kRight);
    EXPECT_EQ(ws().Links[tagged].Tags, QStringLiteral("p,q,r"));
    EXPECT_EQ(LinkForIcon(ws(), ws().Links[tagged].IconIndex), tagged);
}

TEST_F(Tags, MarkingASecondShortcutWithTheSameTagTakesTheMarkAndBorderOffTheFirst) {
    const int first = AddLink(a, QStringLiteral("first"), QString());
    const int second = AddLink(a, QStringLiteral("second"), QString());
    ws().SelectedLink = static_cast<int16_t>(first);
    LinkContextMenu(ws(), first);
    EXPECT_EQ(ws().menus["mnuLinkMakeExclusive"].Caption(), QStringLiteral("Mark on &Launch..."));
    t.platform.inputAnswers = {QStringLiteral(" Build ")};
    ws().menus["mnuLinkMakeExclusive"].Click();
    EXPECT_TRUE(
        t.platform.inputPrompts[0].startsWith(QStringLiteral("Enter Tag for Mark on Launch (see Help):|")));
    EXPECT_EQ(ws().Links[first].MarkTag, QStringLiteral("Build"));
    // Started: its border shows.
    Click(first);
    EXPECT_EQ(ws().Link(first).BorderStyle.get(), 1);

    LinkContextMenu(ws(), second);
    t.platform.inputAnswers = {QStringLiteral("build")};
    ws().menus["mnuLinkMakeExclusive"].Click();
    EXPECT_TRUE(ws().Links[first].MarkTag.isEmpty()) << "the tag is compared ignoring case";
    EXPECT_EQ(ws().Link(first).BorderStyle.get(), 0);
    EXPECT_EQ(ws().Links[second].MarkTag, QStringLiteral("build"));
    LinkContextMenu(ws(), second);
    EXPECT_EQ(ws().menus["mnuLinkMakeExclusive"].Caption(), QStringLiteral("Remove Mark on &Launch..."));
}

TEST_F(Tags, RemovingAMarkAsksFirst) {
    const int n = AddLink(a, QStringLiteral("n"), QString());
    ws().Links[n].MarkTag = QStringLiteral("deploy");
    ws().Link(n).BorderStyle = 1;
    ws().SelectedLink = static_cast<int16_t>(n);
    t.platform.answers = {MsgAnswer::No};
    ws().menus["mnuLinkMakeExclusive"].Click();
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text,
              QStringLiteral("Remove shortcut's Mark on Launch attribute? [tag: deploy]"));
    EXPECT_EQ(t.platform.messages[0].style, 4132);
    EXPECT_EQ(ws().Links[n].MarkTag, QStringLiteral("deploy"));
    t.platform.answers = {MsgAnswer::Yes};
    ws().menus["mnuLinkMakeExclusive"].Click();
    EXPECT_TRUE(ws().Links[n].MarkTag.isEmpty());
    EXPECT_EQ(ws().Link(n).BorderStyle.get(), 0);
    // A blank mark tag changes nothing.
    t.platform.inputAnswers = {QStringLiteral("   ")};
    ws().menus["mnuLinkMakeExclusive"].Click();
    EXPECT_TRUE(ws().Links[n].MarkTag.isEmpty());
}

TEST_F(Tags, MarkXIsClearedByTheStartOfAShortcutTaggedXY) {
    const int marked = AddLink(a, QStringLiteral("marked"), QString());
    const int starter = AddLink(a, QStringLiteral("starter"), QStringLiteral("xy"));
    const int unrelated = AddLink(a, QStringLiteral("unrelated"), QStringLiteral("q"));
    ws().Links[marked].MarkTag = QStringLiteral("x");
    Click(marked);
    EXPECT_EQ(ws().Link(marked).BorderStyle.get(), 1);
    Click(unrelated);
    EXPECT_EQ(ws().Link(marked).BorderStyle.get(), 1);
    Click(starter);
    EXPECT_EQ(ws().Link(marked).BorderStyle.get(), 0) << "the test is a substring test";
    // The border is not stored: the record keeps the mark.
    EXPECT_EQ(ws().Links[marked].MarkTag, QStringLiteral("x"));
}

TEST_F(Tags, AShortcutHoldingAMarkNeverClearsMarksByStarting) {
    const int one = AddLink(a, QStringLiteral("one"), QString());
    const int two = AddLink(a, QStringLiteral("two"), QStringLiteral("m1"));
    ws().Links[one].MarkTag = QStringLiteral("m1");
    ws().Links[two].MarkTag = QStringLiteral("m2");
    Click(one);
    Click(two);
    EXPECT_EQ(ws().Link(one).BorderStyle.get(), 1);
    EXPECT_EQ(ws().Link(two).BorderStyle.get(), 1);
}

TEST_F(Tags, TheShortcutMenuShowsItsOwnEntriesOnlyOnAShortcut) {
    const int n = AddLink(a, QStringLiteral("n"), QString());
    LinkContextMenu(ws(), n);
    PrepareLinkMenu(ws());
    EXPECT_TRUE(ws().menus["mnuTag"].Visible());
    EXPECT_TRUE(ws().menus["mnuLinkEdit"].Visible());
    EXPECT_EQ(ws().menus["mnuLinkEdit"].Caption(), QStringLiteral("&Properties"));
    EXPECT_EQ(ws().menus["mnuTag"].Caption(), QStringLiteral("Edit &Tags..."));
    ws().menus["mnuDeleteContainer"].setVisible(true);
    PrepareLinkMenu(ws());
    EXPECT_FALSE(ws().menus["mnuTag"].Visible());
    EXPECT_FALSE(ws().menus["mnuLinkMakeExclusive"].Visible());
    EXPECT_FALSE(ws().menus["mnuRelativePath"].Visible());
    EXPECT_EQ(ws().menus["mnuTagsMain"].Caption(), QStringLiteral("&Tags"));
    EXPECT_EQ(ws().menus["mnuUnhideTags"].Caption(), QStringLiteral("Show All"));
}

TEST_F(Tags, TheFilterIsNotSavedAndLosesNothing) {
    AddLink(a, QStringLiteral("w1"), QStringLiteral("work"));
    AddLink(b, QStringLiteral("h1"), QStringLiteral("home"));
    AddLink(-1, QStringLiteral("plain"), QString());
    FilterByTag(ws(), 0, QStringLiteral("work"));
    ASSERT_FALSE(ws().Group(b).Visible);
    t.exit();
    t.restart();
    t.start();
    EXPECT_EQ(ws().LinkCount, 3);
    EXPECT_EQ(ws().ContainerCount, 2);
    for (int n = 0; n < ws().LinkCount; ++n) {
        EXPECT_TRUE(ws().Link(n).Visible) << n;
        EXPECT_EQ(ws().Link(n).BorderStyle.get(), 0) << "no launch border after a load";
    }
    for (int i = 0; i < ws().ContainerCount; ++i)
        EXPECT_TRUE(ws().Group(i).Visible) << i;
    EXPECT_FALSE(ws().FrameLinkGroup(0).Visible);
    BuildTagsMenu(ws());
    EXPECT_EQ(TagsMenu(), QStringList({"work", "home"}));
}
