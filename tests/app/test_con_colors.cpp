// The Container Colors dialog and ApplyContainerColors: the boxes at the load, the chooser, Switch,
// Reset, OK for one container or every selected one, and what a container's colours reach.

#include "app/MainWindow.h"
#include "app/WorkspaceFile.h"
#include "containers/Containers.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "themes/Buttons.h"
#include "themes/ConColors.h"
#include "themes/ThemeState.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

class ConColors : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireCoreCommands(ws());
        a = t.newContainerAt(600, 600);
        b = t.newContainerAt(6000, 600);
        ws().grpBorder(a).BackColor = 0x112233;
        ws().grpBorder(a).ForeColor = 0x445566;
        ws().SelectedContainer = static_cast<int16_t>(a);
    }
    Workspace& ws() { return *t.ws; }
    FrmConColors& dlg() { return Themes(ws()).ConColors; }
    TestWorkspace t;
    int a = 0;
    int b = 0;
};

} // namespace

TEST_F(ConColors, TheMenuOpensTheDialogOnTheSelectedContainersColours) {
    int shown = 0;
    Themes(ws()).onShowConColors = [&] { ++shown; };
    ws().menus["mnuContainerColors"].Click();
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(dlg().Loaded);
    EXPECT_EQ(dlg().Container, a);
    EXPECT_EQ(dlg().picBack, 0x112233);
    EXPECT_EQ(dlg().picFore, 0x445566);
}

TEST_F(ConColors, ABoxOpensTheChooserOnItsColourAndACancelKeepsIt) {
    mnuContainerColors_Click(ws());
    t.platform.colorAnswers = {0x00FF00, -1};
    picBack_Click(ws());
    picFore_Click(ws());
    EXPECT_EQ(t.platform.colorDialogs, (std::vector<int32_t>{0x112233, 0x445566}));
    EXPECT_EQ(dlg().picBack, 0x00FF00);
    EXPECT_EQ(dlg().picFore, 0x445566);
}

TEST_F(ConColors, SwitchExchangesTheBoxes) {
    mnuContainerColors_Click(ws());
    CmdSwitch_Click(ws());
    EXPECT_EQ(dlg().picBack, 0x445566);
    EXPECT_EQ(dlg().picFore, 0x112233);
    EXPECT_EQ(ws().grpBorder(a).BackColor.get(), 0x112233); // nothing before OK
}

TEST_F(ConColors, ResetAsksAndOnYesAppliesTheColoursOfNewContainers) {
    ws().ContainerColor = 0x290700;
    ws().ContainerLabelColor = 0xFFFFFF;
    mnuContainerColors_Click(ws());
    t.platform.answers = {MsgAnswer::No};
    Command1_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Reset Container's colors to defualt values?"));
    EXPECT_EQ(t.platform.messages[0].style, 4148);
    EXPECT_TRUE(dlg().Loaded);
    EXPECT_EQ(dlg().picBack, 0x112233);
    t.platform.answers = {MsgAnswer::Yes};
    Command1_Click(ws());
    EXPECT_FALSE(dlg().Loaded);
    EXPECT_EQ(ws().grpBorder(a).BackColor.get(), 0x290700);
    EXPECT_EQ(ws().grpBorder(a).ForeColor.get(), 0xFFFFFF);
}

TEST_F(ConColors, OkWithOneSelectedContainerColoursItWithoutAsking) {
    SelectGroup(ws(), b);
    mnuContainerColors_Click(ws());
    dlg().picBack = 0x000080;
    dlg().picFore = 0x00FFFF;
    ConColors_OKButton_Click(ws());
    EXPECT_TRUE(t.platform.messages.empty());
    EXPECT_FALSE(dlg().Loaded);
    EXPECT_EQ(ws().grpBorder(a).BackColor.get(), 0x000080);
    EXPECT_EQ(ws().grpBorder(a).ForeColor.get(), 0x00FFFF);
    EXPECT_EQ(ws().lblName(a).ForeColor.get(), 0x00FFFF);
    EXPECT_NE(ws().grpBorder(b).BackColor.get(), 0x000080);
    // Saved to the recovery file.
    EXPECT_TRUE(t.dataExists(QString::fromLatin1(kRecoveryFile)));
}

TEST_F(ConColors, WithTwoSelectedANoColoursOnlyTheContainerOfTheMenu) {
    const int c = t.newContainerAt(600, 6000);
    ws().SelectedContainer = static_cast<int16_t>(a);
    SelectGroup(ws(), b);
    SelectGroup(ws(), c);
    mnuContainerColors_Click(ws());
    dlg().picBack = 0x000080;
    t.platform.answers = {MsgAnswer::No};
    ConColors_OKButton_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Apply colors to all selected containers?"));
    EXPECT_EQ(t.platform.messages[0].style, 36);
    EXPECT_EQ(ws().grpBorder(a).BackColor.get(), 0x000080);
    EXPECT_NE(ws().grpBorder(b).BackColor.get(), 0x000080);
    EXPECT_NE(ws().grpBorder(c).BackColor.get(), 0x000080);
    EXPECT_FALSE(ws().lblName(a).FontBold);
}

TEST_F(ConColors, WithTwoSelectedAYesColoursEverySelectedOneAndSelectsTheMenusToo) {
    const int c = t.newContainerAt(600, 6000);
    const int other = t.newContainerAt(6000, 6000);
    ws().SelectedContainer = static_cast<int16_t>(a);
    SelectGroup(ws(), b);
    SelectGroup(ws(), c);
    mnuContainerColors_Click(ws());
    dlg().picBack = 0x000080;
    dlg().picFore = 0x00FF00;
    t.platform.answers = {MsgAnswer::Yes};
    ConColors_OKButton_Click(ws());
    EXPECT_TRUE(ws().lblName(a).FontBold);
    for (int i : {a, b, c}) {
        EXPECT_EQ(ws().grpBorder(i).BackColor.get(), 0x000080) << i;
        EXPECT_EQ(ws().lblName(i).ForeColor.get(), 0x00FF00) << i;
    }
    EXPECT_NE(ws().grpBorder(other).BackColor.get(), 0x000080);
}

TEST_F(ConColors, CancelChangesNothing) {
    mnuContainerColors_Click(ws());
    t.platform.colorAnswers = {0x00FF00};
    picBack_Click(ws());
    ConColors_CancelButton_Click(ws());
    EXPECT_FALSE(dlg().Loaded);
    EXPECT_EQ(ws().grpBorder(a).BackColor.get(), 0x112233);
    EXPECT_TRUE(t.platform.messages.empty());
}

TEST_F(ConColors, ApplyContainerColorsReachesTheHeadTheFrameAndShortcutsWithoutAColour) {
    AddShortcut(ws(), QStringLiteral("/data/a.txt"), ws().grpBorder(a));
    const int plain = ws().LinkCount - 1;
    AddShortcut(ws(), QStringLiteral("/data/b.txt"), ws().grpBorder(a));
    const int own = ws().LinkCount - 1;
    ws().Links[own].LinkColor = 0x0000FF;
    ws().Link(own).ForeColor = 0x0000FF;
    ApplyContainerColors(ws(), a, 0x290700, 0xFFFFFF);
    EXPECT_EQ(ws().Group(a).BackColor.get(), Lighten(0x290700));
    EXPECT_EQ(ws().Group(a).BackColor.get(), 0x512F28);
    for (ElementFamily* f : {&ws().picPinNote, &ws().picPin, &ws().picShrink, &ws().chkFold, &ws().chkUnfold,
                             &ws().groupName, &ws().ShrinkIcon, &ws().picCopy1, &ws().picCopy2})
        EXPECT_EQ((*f)(a).BackColor.get(), 0x290700) << f->name().toStdString();
    EXPECT_EQ(ws().Link(plain).ForeColor.get(), 0xFFFFFF);
    EXPECT_EQ(ws().Link(own).ForeColor.get(), 0x0000FF);
}

TEST_F(ConColors, AContainerWithAnIconHasItsTileDrawnAgain) {
    ws().Containers[a].IconPath = QStringLiteral("/data/box.png");
    ws().ShrinkIcon(a).Picture = QString();
    ApplyContainerColors(ws(), a, 0x101010, 0xFFFFFF);
    EXPECT_EQ(ws().ShrinkIcon(a).Picture.get(), QStringLiteral("fileicon:/data/box.png"));
}

TEST_F(ConColors, AFeedContainersSurroundDateLineAndIconFollow) {
    ws().Containers[a].IsFeed = true;
    ws().Containers[a].FeedIndex = 1;
    ws().Containers[a].CopyPath = QStringLiteral("http://example.org/feed");
    ws().Containers[a].IconPath = QStringLiteral("favicon.ico");
    ws().LstRSS.Load(1);
    ws().lblRSSLastUpdate.Load(1);
    std::vector<std::pair<QString, int>> drawn;
    Themes(ws()).AddRSSShrinkIcon = [&](const QString& url, int i) { drawn.emplace_back(url, i); };
    ApplyContainerColors(ws(), a, 0x303030, 0x00FFFF);
    EXPECT_EQ(ws().LstRSS(1).BackColor.get(), 0x303030);
    EXPECT_EQ(ws().lblRSSLastUpdate(1).ForeColor.get(), 0x00FFFF);
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].first, QStringLiteral("http://example.org/feed"));
    EXPECT_EQ(drawn[0].second, a);
}

TEST(Lighten, WhiteStaysWhiteAndTheDefaultContainerColourLightens) {
    EXPECT_EQ(Lighten(0xFFFFFF), 0xFFFFFF);
    EXPECT_EQ(Lighten(0x290700), 0x512F28);
}
