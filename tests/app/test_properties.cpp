// The Display Properties dialog: what it shows at its load, its colour, wallpaper, font and button
// controls, its five settings buttons, and ApplyProperties with its question and its order.

#include "app/MainWindow.h"
#include "app/WorkspaceFile.h"
#include "containers/Containers.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "themes/Buttons.h"
#include "themes/ColorFile.h"
#include "themes/Properties.h"
#include "themes/ThemeState.h"
#include "window/WindowServices.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class Properties : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireCoreCommands(ws());
    }
    Workspace& ws() { return *t.ws; }
    FrmProperties& dlg() { return Themes(ws()).Properties; }
    // The value line after `key` in the recovery file SaveDesktop wrote.
    QString Saved(const char* key) {
        const QStringList lines =
            QString::fromUtf8(t.readData(QString::fromLatin1(kRecoveryFile))).split(QStringLiteral("\r\n"));
        const qsizetype at = lines.indexOf(QString::fromLatin1(key));
        return at < 0 || at + 1 >= lines.size() ? QStringLiteral("<missing>") : lines[at + 1];
    }
    void ProvideWallpaper(const char* name) {
        t.writeData(QStringLiteral("Skin/Wallpaper/") + name, QByteArray("picture"));
        t.platform.images[t.dataFile(QStringLiteral("Skin/Wallpaper/") + name)] = QSize(800, 600);
    }
    TestWorkspace t;
};

} // namespace

TEST_F(Properties, F4LoadsTheDialogWithTheWorkspacesValuesAndStopsTheAutoHide) {
    int shown = 0;
    Themes(ws()).onShowProperties = [&] { ++shown; };
    ws().picBack(0).BackColor = 0x010203;
    ws().picBack(0).ForeColor = 0x040506;
    ws().ContainerColor = 0x070809;
    ws().ContainerLabelColor = 0x0A0B0C;
    ws().txtNote(0).BackColor = 0x0D0E0F;
    ws().txtNote(0).ForeColor = 0x101112;
    ws().picPlaceholder(0).BackColor = 0x131415;
    ws().DockingColor = 0x161718;
    ws().LargeIconSize = 48;
    ws().LinkFontName = QStringLiteral("Verdana");
    ws().LinkFontSize = 11;
    ws().ButtonSet = QStringLiteral("Sea Glass");
    ws().TimerHide.setEnabled(true);
    t.writeData(QStringLiteral("Skin/Colors/one.pkc"), "x");
    t.writeData(QStringLiteral("Skin/two.pkt"), "x");
    t.writeData(QStringLiteral("Skin/Buttons/Sea Glass/fold.gif"), "x");
    ASSERT_TRUE(Form_KeyDown(ws(), 115, 0));
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(dlg().Loaded);
    EXPECT_EQ(dlg().picBackColor, 0x010203);
    EXPECT_EQ(dlg().picWallpaperBackColor, 0x010203);
    EXPECT_EQ(dlg().PicLinkColor, 0x040506);
    EXPECT_EQ(dlg().lblWallpaperForeColor, 0x040506);
    EXPECT_EQ(dlg().picConFor, 0x070809);
    EXPECT_EQ(dlg().picContainerLabelColor, 0x0A0B0C);
    EXPECT_EQ(dlg().picContainerTextBack, 0x0D0E0F);
    EXPECT_EQ(dlg().picContainerTextFor, 0x101112);
    EXPECT_EQ(dlg().picBorderColor, 0x131415);
    EXPECT_EQ(dlg().picDockBorder, 0x161718);
    EXPECT_EQ(dlg().txtIconSize, QStringLiteral("48"));
    EXPECT_EQ(dlg().FontName, QStringLiteral("Verdana"));
    EXPECT_EQ(dlg().FontSize, 11);
    EXPECT_EQ(dlg().CboButtons, QStringLiteral("Sea Glass"));
    EXPECT_EQ(dlg().ListColors, QStringList{"one"});
    EXPECT_EQ(dlg().CboThemes, QStringList{"two"});
    EXPECT_EQ(dlg().CboButtonsList, QStringList{"Sea Glass"});
    EXPECT_FALSE(dlg().chkWallpaper);
    EXPECT_FALSE(dlg().cmdApplyEnabled);
    EXPECT_FALSE(dlg().ColorsChanged);
    EXPECT_FALSE(ws().TimerHide.Enabled());
    EXPECT_TRUE(t.platform.onTop[QStringLiteral("frmProperties")]);
    // Closing lets the auto-hide run again.
    cmdCancel_Click(ws());
    EXPECT_FALSE(dlg().Loaded);
    EXPECT_TRUE(ws().TimerHide.Enabled());
    EXPECT_FALSE(t.platform.onTop[QStringLiteral("frmProperties")]);
}

TEST_F(Properties, TheFloatingToolbarsEntryOpensTheDialogToo) {
    ws().menus["mnuProperties"].Click();
    EXPECT_TRUE(dlg().Loaded);
}

TEST_F(Properties, AColourBoxOpensTheChooserOnItsColourAndKeepsTheChoice) {
    FrmProperties_Load(ws());
    dlg().picConFor = 0x112233;
    t.platform.colorAnswers = {0x445566};
    ColorBox_Click(ws(), QStringLiteral("picConFor"));
    ASSERT_EQ(t.platform.colorDialogs.size(), 1u);
    EXPECT_EQ(t.platform.colorDialogs[0], 0x112233);
    EXPECT_EQ(dlg().picConFor, 0x445566);
    EXPECT_TRUE(dlg().ColorsChanged);
    EXPECT_TRUE(dlg().cmdApplyEnabled);
    // The preview of the wallpaper follows the background and the text colour.
    t.platform.colorAnswers = {0x0000FF, 0x00FF00};
    ColorBox_Click(ws(), QStringLiteral("picBackColor"));
    ColorBox_Click(ws(), QStringLiteral("PicLinkColor"));
    EXPECT_EQ(dlg().picWallpaperBackColor, 0x0000FF);
    EXPECT_EQ(dlg().lblWallpaperForeColor, 0x00FF00);
}

TEST_F(Properties, ACancelledChooserChangesNothing) {
    FrmProperties_Load(ws());
    const int32_t before = dlg().picDockBorder;
    ColorBox_Click(ws(), QStringLiteral("picDockBorder"));
    EXPECT_EQ(t.platform.colorDialogs.size(), 1u);
    EXPECT_EQ(dlg().picDockBorder, before);
    EXPECT_FALSE(dlg().ColorsChanged);
    EXPECT_FALSE(dlg().cmdApplyEnabled);
}

TEST_F(Properties, CancelAfterChoosingAColourChangesNothingInTheWorkspace) {
    const int c = t.newContainerAt(600, 600);
    const QByteArray fileBefore = WorkspaceFileBytes(ws(), false);
    const int32_t back = ws().picBack(0).BackColor;
    const int32_t border = ws().grpBorder(c).BackColor;
    FrmProperties_Load(ws());
    t.platform.colorAnswers = {0x00FF00, 0x0000FF};
    ColorBox_Click(ws(), QStringLiteral("picBackColor"));
    ColorBox_Click(ws(), QStringLiteral("picConFor"));
    t.platform.messages.clear();
    cmdCancel_Click(ws());
    EXPECT_TRUE(t.platform.messages.empty());
    EXPECT_EQ(ws().picBack(0).BackColor.get(), back);
    EXPECT_EQ(ws().grpBorder(c).BackColor.get(), border);
    EXPECT_NE(ws().ContainerColor, 0x0000FF);
    EXPECT_EQ(WorkspaceFileBytes(ws(), false), fileBefore);
}

TEST_F(Properties, ApplyAsksOnlyWhenAColourChangedAndThenOnlyOnce) {
    FrmProperties_Load(ws());
    txtIconSize_Change(ws(), QStringLiteral("40"));
    cmdApply_Click(ws());
    EXPECT_TRUE(t.platform.messages.empty());
    EXPECT_FALSE(dlg().cmdApplyEnabled);
    t.platform.colorAnswers = {0x123456};
    ColorBox_Click(ws(), QStringLiteral("picBorderColor"));
    cmdApply_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Apply new colors to existing containers?"));
    EXPECT_EQ(t.platform.messages[0].style, 4132);
    EXPECT_FALSE(dlg().ColorsChanged);
    cmdApply_Click(ws());
    EXPECT_EQ(t.platform.messages.size(), 1u);
}

TEST_F(Properties, NoToTheQuestionChangesOnlyNewContainersAndTheNotes) {
    const int c = t.newContainerAt(600, 600);
    mnuNewNote_Click(ws());
    const int note = ws().ContainerCount - 1;
    RenameFinished(ws(), note, false);
    const int32_t oldBack = ws().grpBorder(c).BackColor;
    const int32_t oldFore = ws().grpBorder(c).ForeColor;
    FrmProperties_Load(ws());
    t.platform.colorAnswers = {0x202020, 0x00FFFF, 0xEEEEEE, 0x111111, 0x000080};
    ColorBox_Click(ws(), QStringLiteral("picConFor"));
    ColorBox_Click(ws(), QStringLiteral("picContainerLabelColor"));
    ColorBox_Click(ws(), QStringLiteral("picContainerTextBack"));
    ColorBox_Click(ws(), QStringLiteral("picContainerTextFor"));
    ColorBox_Click(ws(), QStringLiteral("picBorderColor"));
    t.platform.answers = {MsgAnswer::No};
    cmdApply_Click(ws());
    EXPECT_EQ(ws().ContainerColor, 0x202020);
    EXPECT_EQ(ws().ContainerLabelColor, 0x00FFFF);
    // The containers already there keep theirs.
    EXPECT_EQ(ws().grpBorder(c).BackColor.get(), oldBack);
    EXPECT_EQ(ws().grpBorder(c).ForeColor.get(), oldFore);
    EXPECT_EQ(ws().lblName(c).ForeColor.get(), oldFore);
    // Every note, and member 0 for the notes to come, takes the new note colours.
    for (int i : {0, c, note}) {
        EXPECT_EQ(ws().txtNote(i).BackColor.get(), 0xEEEEEE) << i;
        EXPECT_EQ(ws().txtNote(i).ForeColor.get(), 0x111111) << i;
    }
    EXPECT_EQ(ws().LstRSS(0).TextBackColor.get(), 0xEEEEEE);
    EXPECT_EQ(ws().LstRSS(0).ForeColor.get(), 0x111111);
    EXPECT_EQ(ws().picPlaceholder(0).BackColor.get(), 0x000080);
    // A new container is made in the new colours.
    const int fresh = t.newContainerAt(6000, 600);
    EXPECT_EQ(ws().grpBorder(fresh).BackColor.get(), 0x202020);
    EXPECT_EQ(ws().lblName(fresh).ForeColor.get(), 0x00FFFF);
    EXPECT_EQ(ws().Group(fresh).BackColor.get(), Lighten(0x202020));
}

TEST_F(Properties, YesToTheQuestionRecoloursEveryLiveContainer) {
    const int a = t.newContainerAt(600, 600);
    const int b = t.newContainerAt(6000, 600);
    const int dead = t.newContainerAt(600, 6000);
    ws().Group(dead).Visible = false;
    const int32_t deadBack = ws().grpBorder(dead).BackColor;
    AddShortcut(ws(), QStringLiteral("/data/plain.txt"), ws().grpBorder(a));
    const int plain = ws().LinkCount - 1;
    AddShortcut(ws(), QStringLiteral("/data/red.txt"), ws().grpBorder(a));
    const int red = ws().LinkCount - 1;
    ws().Links[red].LinkColor = 0x0000FF;
    ws().Link(red).ForeColor = 0x0000FF;
    FrmProperties_Load(ws());
    t.platform.colorAnswers = {0x303030, 0x00FF00};
    ColorBox_Click(ws(), QStringLiteral("picConFor"));
    ColorBox_Click(ws(), QStringLiteral("picContainerLabelColor"));
    t.platform.answers = {MsgAnswer::Yes};
    cmdApply_Click(ws());
    for (int i : {a, b}) {
        EXPECT_EQ(ws().grpBorder(i).BackColor.get(), 0x303030) << i;
        EXPECT_EQ(ws().grpBorder(i).ForeColor.get(), 0x00FF00) << i;
        EXPECT_EQ(ws().lblName(i).ForeColor.get(), 0x00FF00) << i;
        EXPECT_EQ(ws().Group(i).BackColor.get(), Lighten(0x303030)) << i;
        EXPECT_EQ(ws().chkFold(i).BackColor.get(), 0x303030) << i;
    }
    EXPECT_EQ(ws().grpBorder(dead).BackColor.get(), deadBack);
    EXPECT_EQ(ws().Link(plain).ForeColor.get(), 0x00FF00);
    EXPECT_EQ(ws().Link(red).ForeColor.get(), 0x0000FF);
}

TEST_F(Properties, TheBackgroundColoursGoToTheWindowAndItsShortcutsWithoutAColour) {
    AddShortcut(ws(), QStringLiteral("/data/a.txt"), ws().picBack(0));
    const int plain = ws().LinkCount - 1;
    AddShortcut(ws(), QStringLiteral("/data/b.txt"), ws().picBack(0));
    const int own = ws().LinkCount - 1;
    ws().Links[own].LinkColor = 0x0000FF;
    ws().Link(own).ForeColor = 0x0000FF;
    FrmProperties_Load(ws());
    t.platform.colorAnswers = {0x400000, 0x00C0C0, 0x00FF00};
    ColorBox_Click(ws(), QStringLiteral("picBackColor"));
    ColorBox_Click(ws(), QStringLiteral("PicLinkColor"));
    ColorBox_Click(ws(), QStringLiteral("picDockBorder"));
    cmdApply_Click(ws());
    for (Element* e : {&ws().picBack(0), &ws().frmMain(0), &ws().picMoveMe(0), &ws().PicDock(0)})
        EXPECT_EQ(e->BackColor.get(), 0x400000) << e->Name().toStdString();
    EXPECT_EQ(ws().picBack(0).ForeColor.get(), 0x00C0C0);
    EXPECT_EQ(ws().lblCaption(0).ForeColor.get(), 0x00C0C0);
    EXPECT_EQ(ws().Link(plain).ForeColor.get(), 0x00C0C0);
    EXPECT_EQ(ws().Link(own).ForeColor.get(), 0x0000FF);
    EXPECT_EQ(ws().DockingColor, 0x00FF00);
    // Step 12 saved the recovery file with the new values.
    EXPECT_EQ(Saved("[Background]"), QStringLiteral(" 4194304 "));
    EXPECT_EQ(Saved("[DockingColor]"), QStringLiteral(" 65280 "));
}

TEST_F(Properties, UncheckingTheWallpaperWritesAnEmptyWallpaperKey) {
    ProvideWallpaper("Ocean.jpg");
    const QString pic = t.dataFile(QStringLiteral("Skin/Wallpaper/Ocean.jpg"));
    ws().WallpaperPath = pic;
    ws().imgBack(0).Picture = pic;
    FrmProperties_Load(ws());
    EXPECT_TRUE(dlg().chkWallpaper);
    EXPECT_EQ(dlg().imgWallpaper, pic);
    chkWallpaper_Click(ws(), false);
    EXPECT_TRUE(dlg().cmdApplyEnabled);
    OKButton_Click(ws());
    EXPECT_FALSE(dlg().Loaded);
    EXPECT_TRUE(ws().WallpaperPath.isEmpty());
    EXPECT_TRUE(ws().imgBack(0).Picture.get().isEmpty());
    EXPECT_TRUE(ws().picBack(0).Picture.get().isEmpty());
    EXPECT_EQ(Saved("[Wallpaper]"), QString());
}

TEST_F(Properties, TheWallpaperChooserOpensInSkinWallpaperAndAStretchedPictureGoesToImgBack) {
    ProvideWallpaper("Ocean.jpg");
    const QString pic = t.dataFile(QStringLiteral("Skin/Wallpaper/Ocean.jpg"));
    FrmProperties_Load(ws());
    t.platform.fileAnswers = {pic};
    picWallpaper_Click(ws());
    ASSERT_EQ(t.platform.fileDialogs.size(), 1u);
    EXPECT_EQ(t.platform.fileDialogs[0], QStringLiteral("Open Picture|Picture Files|*.jpg; *.bmp; *.gif"));
    EXPECT_EQ(t.platform.fileDialogFolders[0], t.dataFile(QStringLiteral("Skin/Wallpaper")));
    EXPECT_EQ(dlg().imgWallpaper, pic);
    EXPECT_TRUE(dlg().chkWallpaper);
    chkStretch_Click(ws(), true);
    cmdApply_Click(ws());
    EXPECT_EQ(ws().WallpaperPath, pic);
    EXPECT_EQ(ws().imgBack(0).Picture.get(), pic);
    EXPECT_TRUE(ws().StretchWallpaper);
    EXPECT_EQ(Saved("[Wallpaper]"), pic);
    EXPECT_EQ(Saved("[Stretch]"), QStringLiteral("1"));
}

TEST_F(Properties, AnUnstretchedPictureGoesToPicBackAndEmptiesImgBack) {
    ProvideWallpaper("Tile.gif");
    const QString pic = t.dataFile(QStringLiteral("Skin/Wallpaper/Tile.gif"));
    ws().imgBack(0).Picture = QStringLiteral("/old.jpg");
    FrmProperties_Load(ws());
    t.platform.fileAnswers = {pic};
    picWallpaper_Click(ws());
    chkStretch_Click(ws(), false);
    cmdApply_Click(ws());
    EXPECT_EQ(ws().picBack(0).Picture.get(), pic);
    EXPECT_TRUE(ws().imgBack(0).Picture.get().isEmpty());
    EXPECT_FALSE(ws().StretchWallpaper);
    EXPECT_EQ(Saved("[Stretch]"), QStringLiteral("0"));
}

TEST_F(Properties, APictureThatCannotBeShownIsRefused) {
    t.writeData(QStringLiteral("Skin/Wallpaper/broken.jpg"), "not a picture");
    FrmProperties_Load(ws());
    const QString before = dlg().imgWallpaper;
    t.platform.fileAnswers = {t.dataFile(QStringLiteral("Skin/Wallpaper/broken.jpg"))};
    picWallpaper_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Unable to load selected picture"));
    EXPECT_EQ(dlg().imgWallpaper, before);
    EXPECT_FALSE(dlg().cmdApplyEnabled);
    // A cancelled chooser does nothing at all.
    picWallpaper_Click(ws());
    EXPECT_EQ(t.platform.messages.size(), 1u);
}

TEST_F(Properties, TheIconSizeTakesANumberAboveZeroAndIgnoresOtherText) {
    FrmProperties_Load(ws());
    for (const char* text : {"abc", "0", "-5", ""}) {
        txtIconSize_Change(ws(), QString::fromLatin1(text));
        cmdApply_Click(ws());
        EXPECT_EQ(ws().LargeIconSize, 32) << text;
    }
    EXPECT_TRUE(t.platform.messages.empty());
    txtIconSize_Change(ws(), QStringLiteral("48"));
    cmdApply_Click(ws());
    EXPECT_EQ(ws().LargeIconSize, 48);
    EXPECT_EQ(Saved("[Large Icon Size]"), QStringLiteral(" 48 "));
}

TEST_F(Properties, TheFontChooserStartsOnTheWorkspacesFontAndApplyKeepsTheChoice) {
    AddShortcut(ws(), QStringLiteral("/data/a.txt"), ws().picBack(0));
    const int n = ws().LinkCount - 1;
    FrmProperties_Load(ws());
    t.platform.fontAnswers = {{QStringLiteral("DejaVu Serif"), 12}};
    CmdFont_Click(ws());
    ASSERT_EQ(t.platform.fontDialogs.size(), 1u);
    EXPECT_EQ(t.platform.fontDialogs[0].first, QStringLiteral("Verdana"));
    EXPECT_EQ(t.platform.fontDialogs[0].second, 10);
    EXPECT_EQ(ws().LinkFontName, QStringLiteral("Verdana")); // nothing before apply
    EXPECT_TRUE(dlg().cmdApplyEnabled);
    cmdApply_Click(ws());
    EXPECT_EQ(ws().LinkFontName, QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(ws().LinkFontSize, 12);
    EXPECT_EQ(ws().Link(n).FontName.get(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(Saved("[Font Name]"), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(Saved("[Font Size]"), QStringLiteral(" 12 "));
    // A cancelled chooser leaves the font.
    CmdFont_Click(ws());
    EXPECT_FALSE(dlg().cmdApplyEnabled);
}

TEST_F(Properties, TheButtonSetShowsItsPreviewAndApplyLoadsItIntoTheWorkspace) {
    const QString set = QStringLiteral("Amber");
    for (const char* f : kButtonFiles)
        t.platform.images[t.dataFile(QStringLiteral("Skin/Buttons/Amber/") + QString::fromLatin1(f))] =
            QSize(16, 16);
    const int c = t.newContainerAt(600, 600);
    FrmProperties_Load(ws());
    CboButtons_Click(ws(), set);
    EXPECT_EQ(dlg().PicButton[11], t.dataFile(QStringLiteral("Skin/Buttons/Amber/fold.gif")));
    EXPECT_NE(ws().chkFold(c).Picture.get(), dlg().PicButton[11]);
    OKButton_Click(ws());
    EXPECT_EQ(ws().ButtonSet, set);
    EXPECT_EQ(ws().chkFold(c).Picture.get(), t.dataFile(QStringLiteral("Skin/Buttons/Amber/fold.gif")));
    EXPECT_EQ(ws().PicLockToolbar(0).Picture.get(),
              t.dataFile(QStringLiteral("Skin/Buttons/Amber/lock.gif")));
    EXPECT_EQ(Saved("[Buttons]"), set);
}

TEST_F(Properties, OkWithoutAChangeAppliesNothing) {
    FrmProperties_Load(ws());
    OKButton_Click(ws());
    EXPECT_FALSE(t.dataExists(QString::fromLatin1(kRecoveryFile)));
    EXPECT_FALSE(dlg().Loaded);
}

TEST_F(Properties, TheFiveSettingsButtonsOpenTheirMenusUnderThemselves) {
    std::vector<std::pair<QString, QString>> popups;
    Themes(ws()).onPopupMenu = [&](const QString& m, const QString& b) { popups.emplace_back(m, b); };
    FrmProperties_Load(ws());
    cmdContainersSettings_Click(ws());
    cmdDockSettings_Click(ws());
    cmdGlobalSettings_Click(ws());
    cmdRemindersSettings_Click(ws());
    cmdShortcutsSettings_Click(ws());
    const std::vector<std::pair<QString, QString>> expected = {{"mnuContainers", "cmdContainersSettings"},
                                                               {"mnuDock", "cmdDockSettings"},
                                                               {"mnuGlobalSettings", "cmdGlobalSettings"},
                                                               {"mnuReminders", "cmdRemindersSettings"},
                                                               {"mnuShortcuts", "cmdShortcutsSettings"}};
    EXPECT_EQ(popups, expected);
    // Opening a menu changes nothing in the dialog.
    EXPECT_FALSE(dlg().cmdApplyEnabled);
}

TEST_F(Properties, AThemeChosenInTheDialogReachesTheWorkspaceAndTheFile) {
    ProvideWallpaper("Ocean.jpg");
    for (const char* f : kButtonFiles)
        t.platform.images[t.dataFile(QStringLiteral("Skin/Buttons/Sea/") + QString::fromLatin1(f))] =
            QSize(16, 16);
    t.writeData(QStringLiteral("Skin/Ocean.pkt"), CrLf({"[1.01]",    "[Background]",
                                                        " 100 ",     "[PictureBorder]",
                                                        " 200 ",     "[ContainerFor]",
                                                        " 300 ",     "[ContainerLabel]",
                                                        " 400 ",     "[ContainerTextBack]",
                                                        " 500 ",     "[ContainerTextFor]",
                                                        " 600 ",     "[Foreground]",
                                                        " 700 ",     "[Wallpaper]",
                                                        "Ocean.jpg", "1",
                                                        "[Buttons]", "Sea"}));
    FrmProperties_Load(ws());
    ASSERT_EQ(dlg().CboThemes, QStringList{"ocean"});
    CboThemes_Click(ws(), 0);
    t.platform.answers = {MsgAnswer::Yes};
    OKButton_Click(ws());
    EXPECT_EQ(Saved("[Background]"), QStringLiteral(" 100 "));
    EXPECT_EQ(Saved("[PictureBorder]"), QStringLiteral(" 200 "));
    EXPECT_EQ(Saved("[ContainerFor]"), QStringLiteral(" 300 "));
    EXPECT_EQ(Saved("[ContainerLabel]"), QStringLiteral(" 400 "));
    EXPECT_EQ(Saved("[ContainerTextBack]"), QStringLiteral(" 500 "));
    EXPECT_EQ(Saved("[ContainerTextFor]"), QStringLiteral(" 600 "));
    EXPECT_EQ(Saved("[Foreground]"), QStringLiteral(" 700 "));
    EXPECT_EQ(Saved("[Wallpaper]"), t.dataFile(QStringLiteral("Skin/Wallpaper/Ocean.jpg")));
    EXPECT_EQ(Saved("[Buttons]"), QStringLiteral("Sea"));
}

TEST_F(Properties, APreviewWhoseSetLacksAFileKeepsThatBoxsOldImage) {
    const QString dir = t.dataFile(QStringLiteral("Skin/Buttons/"));
    for (const char* f : kButtonFiles) {
        t.platform.images[dir + QStringLiteral("Amber/") + QString::fromLatin1(f)] = QSize(16, 16);
        t.platform.images[dir + QStringLiteral("Moss/") + QString::fromLatin1(f)] = QSize(16, 16);
    }
    t.platform.images.erase(dir + QStringLiteral("Moss/fold.gif"));
    FrmProperties_Load(ws());
    CboButtons_Click(ws(), QStringLiteral("Amber"));
    CboButtons_Click(ws(), QStringLiteral("Moss"));
    EXPECT_EQ(dlg().PicButton[11], dir + QStringLiteral("Amber/fold.gif"));
    EXPECT_EQ(dlg().PicButton[12], dir + QStringLiteral("Moss/unfold.gif"));
}

TEST_F(Properties, ApplyingAButtonSetGivesDeadContainerSlotsTheirImagesToo) {
    const int live = t.newContainerAt(600, 600);
    const int dead = t.newContainerAt(6000, 600);
    ws().Group(dead).Visible = false;
    const QString dir = t.dataFile(QStringLiteral("Skin/Buttons/Amber/"));
    for (const char* f : kButtonFiles)
        t.platform.images[dir + QString::fromLatin1(f)] = QSize(16, 16);
    FrmProperties_Load(ws());
    CboButtons_Click(ws(), QStringLiteral("Amber"));
    cmdApply_Click(ws());
    for (int i : {live, dead}) {
        EXPECT_EQ(ws().picShrink(i).Picture.get(), dir + QStringLiteral("shrink.gif")) << i;
        EXPECT_EQ(ws().picPinNote(i).Picture.get(), dir + QStringLiteral("noteshow.gif")) << i;
    }
}
