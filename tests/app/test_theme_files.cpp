// Themes (.pkt) and colour schemes (.pkc): reading one into the Display Properties dialog, writing the
// dialog's look as one, deleting a scheme, and the lists of themes, schemes and button sets.

#include "support/TestWorkspace.h"
#include "themes/ColorFile.h"
#include "themes/Properties.h"
#include "themes/ThemeState.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

QByteArray Scheme(const char* back, const char* border, const char* conFor, const char* conLabel,
                  const char* textBack, const char* textFor, const char* fore) {
    return CrLf({"[1.01]", "[Background]", back, "[PictureBorder]", border, "[ContainerFor]", conFor,
                 "[ContainerLabel]", conLabel, "[ContainerTextBack]", textBack, "[ContainerTextFor]", textFor,
                 "[Foreground]", fore});
}

class ThemeFiles : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        FrmProperties_Load(ws());
    }
    Workspace& ws() { return *t.ws; }
    FrmProperties& dlg() { return Themes(ws()).Properties; }
    QString wallpaper(const char* name) { return t.dataFile(QStringLiteral("Skin/Wallpaper/") + name); }
    void ProvideWallpaper(const char* name) {
        t.writeData(QStringLiteral("Skin/Wallpaper/") + name, QByteArray("picture"));
        t.platform.images[wallpaper(name)] = QSize(1024, 768);
    }
    QString button(const QString& set, const char* file) {
        return t.dataFile(QStringLiteral("Skin/Buttons/") + set + QLatin1Char('/') +
                          QString::fromLatin1(file));
    }
    void ProvideButtons(const QString& set) {
        for (const char* f : kButtonFiles) {
            t.writeData(QStringLiteral("Skin/Buttons/") + set + QLatin1Char('/') + QString::fromLatin1(f),
                        "GIF");
            t.platform.images[button(set, f)] = QSize(16, 16);
        }
    }
    TestWorkspace t;
};

const QByteArray kOceanTheme = Scheme(" 1 ", " 2 ", " 3 ", " 4 ", " 5 ", " 6 ", " 7 ") +
                               CrLf({"[Wallpaper]", "  Ocean.jpg  ", " 0 ", "[Buttons]", " Sea Glass "});

} // namespace

TEST_F(ThemeFiles, ATheme_ReadsItsSevenColoursWallpaperStretchAndButtons) {
    ProvideWallpaper("Ocean.jpg");
    ProvideButtons(QStringLiteral("Sea Glass"));
    t.writeData(QStringLiteral("Skin/ocean.pkt"), kOceanTheme);
    dlg().chkWallpaper = false;
    LoadColorFile(ws(), t.dataFile(QStringLiteral("Skin/ocean.pkt")));
    EXPECT_EQ(dlg().picBackColor, 1);
    EXPECT_EQ(dlg().picWallpaperBackColor, 1);
    EXPECT_EQ(dlg().picBorderColor, 2);
    EXPECT_EQ(dlg().picConFor, 3);
    EXPECT_EQ(dlg().picContainerLabelColor, 4);
    EXPECT_EQ(dlg().picContainerTextBack, 5);
    EXPECT_EQ(dlg().picContainerTextFor, 6);
    EXPECT_EQ(dlg().PicLinkColor, 7);
    EXPECT_EQ(dlg().lblWallpaperForeColor, 7);
    // The wallpaper's name is trimmed and looked up in Skin/Wallpaper.
    EXPECT_EQ(dlg().imgWallpaper, wallpaper("Ocean.jpg"));
    EXPECT_TRUE(dlg().chkWallpaper);
    EXPECT_FALSE(dlg().chkStretch);
    EXPECT_EQ(dlg().CboButtons, QStringLiteral("Sea Glass"));
    for (int k = 0; k < kButtonImages; ++k)
        EXPECT_EQ(dlg().PicButton[k], button("Sea Glass", kButtonFiles[k]));
    EXPECT_TRUE(dlg().ColorsChanged);
    EXPECT_TRUE(dlg().cmdApplyEnabled);
    // The dock border is no part of the files.
    EXPECT_EQ(dlg().picDockBorder, ws().DockingColor);
}

TEST_F(ThemeFiles, AFileWithAnotherFirstLineIsIgnored) {
    const int32_t back = dlg().picBackColor;
    for (const char* first : {"[1.00]", " [1.01]", "[1.01] ", "[Background]"}) {
        QByteArray bytes = Scheme(" 1 ", " 2 ", " 3 ", " 4 ", " 5 ", " 6 ", " 7 ");
        bytes.replace(0, 6, first);
        t.writeData(QStringLiteral("Skin/Colors/odd.pkc"), bytes);
        LoadColorFile(ws(), t.dataFile(QStringLiteral("Skin/Colors/odd.pkc")));
        EXPECT_EQ(dlg().picBackColor, back) << first;
        EXPECT_FALSE(dlg().ColorsChanged) << first;
        EXPECT_FALSE(dlg().cmdApplyEnabled) << first;
    }
    // A file that is not there does nothing either.
    LoadColorFile(ws(), t.dataFile(QStringLiteral("Skin/Colors/none.pkc")));
    EXPECT_FALSE(dlg().cmdApplyEnabled);
}

TEST_F(ThemeFiles, AThemeWhoseWallpaperIsMissingStillGivesItsColoursButtonsAndStretch) {
    ProvideButtons(QStringLiteral("Sea Glass"));
    const QString before = dlg().imgWallpaper;
    dlg().chkStretch = true;
    t.writeData(QStringLiteral("Skin/ocean.pkt"), kOceanTheme);
    LoadColorFile(ws(), t.dataFile(QStringLiteral("Skin/ocean.pkt")));
    EXPECT_EQ(dlg().imgWallpaper, before);
    EXPECT_FALSE(dlg().chkStretch); // the stretch line was still read
    EXPECT_EQ(dlg().picBackColor, 1);
    EXPECT_EQ(dlg().PicLinkColor, 7);
    EXPECT_EQ(dlg().CboButtons, QStringLiteral("Sea Glass"));
    EXPECT_EQ(dlg().PicButton[0], button("Sea Glass", "shrinkall.gif"));

    // Applied, the colours and buttons reach the workspace and the wallpaper stays as it was.
    t.platform.answers = {MsgAnswer::No};
    ApplyProperties(ws());
    EXPECT_EQ(ws().picBack(0).BackColor.get(), 1);
    EXPECT_EQ(ws().ButtonSet, QStringLiteral("Sea Glass"));
    EXPECT_EQ(ws().PicDock(0).Picture.get(), button("Sea Glass", "dock.gif"));
    EXPECT_EQ(ws().WallpaperPath, before);
}

TEST_F(ThemeFiles, AColourSchemeAfterAThemeKeepsTheThemesWallpaperAndTheButtonsInUse) {
    ProvideWallpaper("Ocean.jpg");
    ProvideButtons(QStringLiteral("Sea Glass"));
    ProvideButtons(ws().ButtonSet);
    t.writeData(QStringLiteral("Skin/ocean.pkt"), kOceanTheme);
    t.writeData(QStringLiteral("Skin/Colors/ember.pkc"),
                Scheme(" 11 ", " 12 ", " 13 ", " 14 ", " 15 ", " 16 ", " 17 "));
    ListThemes(ws());
    ListColorSchemes(ws());
    CboThemes_Click(ws(), 0);
    ListColors_Click(ws(), 0);
    EXPECT_EQ(dlg().imgWallpaper, wallpaper("Ocean.jpg"));
    EXPECT_FALSE(dlg().chkStretch);
    EXPECT_EQ(dlg().picBackColor, 11);
    EXPECT_EQ(dlg().PicLinkColor, 17);
    // A scheme names no button set: the set in use comes back.
    EXPECT_EQ(dlg().CboButtons, ws().ButtonSet);
    EXPECT_EQ(dlg().PicButton[12], button(ws().ButtonSet, "unfold.gif"));
    EXPECT_EQ(dlg().ListColorsIndex, 0);
}

TEST_F(ThemeFiles, ChoosingAThemeClearsTheSchemeChoiceAndEnablesOkAndApply) {
    t.writeData(QStringLiteral("Skin/ocean.pkt"), kOceanTheme);
    t.writeData(QStringLiteral("Skin/Colors/ember.pkc"),
                Scheme(" 1 ", " 1 ", " 1 ", " 1 ", " 1 ", " 1 ", " 1 "));
    ListThemes(ws());
    ListColorSchemes(ws());
    ListColors_Click(ws(), 0);
    dlg().OKButtonEnabled = false;
    CboThemes_Click(ws(), 0);
    EXPECT_EQ(dlg().ListColorsIndex, -1);
    EXPECT_TRUE(dlg().OKButtonEnabled);
    EXPECT_TRUE(dlg().cmdApplyEnabled);
}

TEST_F(ThemeFiles, NamesAreShownInLowerCaseCutAtTheFirstDot) {
    t.writeData(QStringLiteral("Skin/Ocean Dusk.pkt"), kOceanTheme);
    t.writeData(QStringLiteral("Skin/v1.2 Bright.pkt"), kOceanTheme);
    t.writeData(QStringLiteral("Skin/notes.txt"), "x");
    t.writeData(QStringLiteral("Skin/Colors/EMBER.pkc"),
                Scheme(" 9 ", " 9 ", " 9 ", " 9 ", " 9 ", " 9 ", " 9 "));
    t.writeData(QStringLiteral("Skin/Colors/moss.PKC.bak"), "x");
    ListThemes(ws());
    ListColorSchemes(ws());
    EXPECT_EQ(dlg().CboThemes, (QStringList{"ocean dusk", "v1"}));
    EXPECT_EQ(dlg().ListColors, (QStringList{"ember"}));

    // The lower-case name still opens the file, whatever its case on the disk.
    ListColors_Click(ws(), 0);
    EXPECT_EQ(dlg().picBackColor, 9);
    CboThemes_Click(ws(), 0);
    EXPECT_EQ(dlg().picBackColor, 1);
    // A name cut short at its dot does not open.
    dlg().picBackColor = 42;
    CboThemes_Click(ws(), 1);
    EXPECT_EQ(dlg().picBackColor, 42);
}

TEST_F(ThemeFiles, ButtonSetsAreTheFoldersOfSkinButtons) {
    ProvideButtons(QStringLiteral("Sea Glass"));
    ProvideButtons(QStringLiteral("Amber"));
    t.writeData(QStringLiteral("Skin/Buttons/stray.gif"), "x");
    ListButtonSets(ws());
    EXPECT_EQ(dlg().CboButtonsList, (QStringList{"Amber", "Sea Glass"}));
}

TEST_F(ThemeFiles, ABadColourValueLeavesThatBoxAlone) {
    dlg().picBorderColor = 77;
    t.writeData(QStringLiteral("Skin/Colors/bad.pkc"),
                Scheme(" 1 ", "blue", " 3 ", " 4 ", " 5 ", " 6 ", " 7 "));
    LoadColorFile(ws(), t.dataFile(QStringLiteral("Skin/Colors/bad.pkc")));
    EXPECT_EQ(dlg().picBorderColor, 77);
    EXPECT_EQ(dlg().picConFor, 3);
}

// --- writing ---

TEST_F(ThemeFiles, SavingWithoutAWallpaperWritesAColourScheme) {
    dlg().chkWallpaper = false;
    dlg().picBackColor = 2688768;
    dlg().picBorderColor = 8388608;
    dlg().picConFor = 2688768;
    dlg().picContainerLabelColor = 16777215;
    dlg().picContainerTextBack = 14810623;
    dlg().picContainerTextFor = 0;
    dlg().PicLinkColor = 16777215;
    t.platform.inputAnswers = {QStringLiteral("My Blue")};
    cmdSaveColors_Click(ws());
    ASSERT_EQ(t.platform.inputForms.size(), 1u);
    EXPECT_EQ(t.platform.inputForms[0].Caption, QStringLiteral("Save Color Theme"));
    EXPECT_EQ(t.platform.inputPrompts[0], QStringLiteral("Name:|Save Color Theme|"));
    EXPECT_TRUE(t.platform.messages.empty());
    EXPECT_EQ(t.readData(QStringLiteral("Skin/Colors/My Blue.pkc")),
              CrLf({"[1.01]", "[Background]", " 2688768 ", "[PictureBorder]", " 8388608 ", "[ContainerFor]",
                    " 2688768 ", "[ContainerLabel]", " 16777215 ", "[ContainerTextBack]", " 14810623 ",
                    "[ContainerTextFor]", " 0 ", "[Foreground]", " 16777215 "}));
    // The list is filled again with the new scheme.
    EXPECT_TRUE(dlg().ListColors.contains(QStringLiteral("my blue")));
}

TEST_F(ThemeFiles, SavingWithAWallpaperAsksAndAYesWritesATheme) {
    ProvideWallpaper("Ocean.jpg");
    SetPreviewWallpaper(ws(), wallpaper("Ocean.jpg"));
    dlg().chkStretch = false;
    dlg().CboButtons = QStringLiteral("Sea Glass");
    for (int32_t FrmProperties::*box :
         {&FrmProperties::picBackColor, &FrmProperties::picBorderColor, &FrmProperties::picConFor,
          &FrmProperties::picContainerLabelColor, &FrmProperties::picContainerTextBack,
          &FrmProperties::picContainerTextFor, &FrmProperties::PicLinkColor})
        dlg().*box = -1;
    dlg().picBackColor = 5;
    t.platform.inputAnswers = {QStringLiteral("Ocean")};
    t.platform.answers = {MsgAnswer::Yes};
    cmdSaveColors_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Save as Theme? (Include Wallaper and Buttons)"));
    EXPECT_EQ(t.platform.messages[0].style & 7, MsgStyle::YesNo);
    EXPECT_EQ(
        t.readData(QStringLiteral("Skin/Ocean.pkt")),
        CrLf(
            {"[1.01]",    "[Background]",     " 5 ", "[PictureBorder]",     "-1 ",       "[ContainerFor]",
             "-1 ",       "[ContainerLabel]", "-1 ", "[ContainerTextBack]", "-1 ",       "[ContainerTextFor]",
             "-1 ",       "[Foreground]",     "-1 ", "[Wallpaper]",         "Ocean.jpg", "0",
             "[Buttons]", "Sea Glass"}));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Skin/Colors/Ocean.pkc")));
}

TEST_F(ThemeFiles, ANoToTheThemeQuestionWritesAScheme) {
    ProvideWallpaper("Ocean.jpg");
    SetPreviewWallpaper(ws(), wallpaper("Ocean.jpg"));
    t.platform.inputAnswers = {QStringLiteral("Plain")};
    t.platform.answers = {MsgAnswer::No};
    cmdSaveColors_Click(ws());
    EXPECT_TRUE(t.dataExists(QStringLiteral("Skin/Colors/Plain.pkc")));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Skin/Plain.pkt")));
}

TEST_F(ThemeFiles, NoToTheOverwriteAsksForANameAgainUntilAFreeOne) {
    dlg().chkWallpaper = false;
    const QByteArray old = Scheme(" 1 ", " 1 ", " 1 ", " 1 ", " 1 ", " 1 ", " 1 ");
    t.writeData(QStringLiteral("Skin/Colors/taken.pkc"), old);
    t.writeData(QStringLiteral("Skin/Colors/also.pkc"), old);
    t.platform.inputAnswers = {QStringLiteral("taken"), QStringLiteral("also"), QStringLiteral("free")};
    t.platform.answers = {MsgAnswer::No, MsgAnswer::No};
    cmdSaveColors_Click(ws());
    EXPECT_EQ(t.platform.inputForms.size(), 3u);
    ASSERT_EQ(t.platform.messages.size(), 2u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Overwrite: taken?"));
    EXPECT_EQ(t.platform.messages[0].style, MsgStyle::YesNoWarning);
    EXPECT_EQ(t.platform.messages[1].text, QStringLiteral("Overwrite: also?"));
    EXPECT_EQ(t.readData(QStringLiteral("Skin/Colors/taken.pkc")), old);
    EXPECT_EQ(t.readData(QStringLiteral("Skin/Colors/also.pkc")), old);
    EXPECT_TRUE(t.dataExists(QStringLiteral("Skin/Colors/free.pkc")));
}

TEST_F(ThemeFiles, YesToTheOverwriteReplacesTheFile) {
    dlg().chkWallpaper = false;
    t.writeData(QStringLiteral("Skin/Colors/taken.pkc"), "old");
    dlg().picBackColor = 123;
    t.platform.inputAnswers = {QStringLiteral("taken")};
    t.platform.answers = {MsgAnswer::Yes};
    cmdSaveColors_Click(ws());
    EXPECT_TRUE(t.readData(QStringLiteral("Skin/Colors/taken.pkc"))
                    .startsWith("[1.01]\r\n[Background]\r\n 123 \r\n"));
}

TEST_F(ThemeFiles, AnEmptyNameSavesNothing) {
    t.platform.inputAnswers = {QString()};
    cmdSaveColors_Click(ws());
    EXPECT_FALSE(QDir(t.dataFile(QStringLiteral("Skin/Colors"))).exists() &&
                 !QDir(t.dataFile(QStringLiteral("Skin/Colors"))).entryList(QDir::Files).isEmpty());
    // Cancel as well.
    cmdSaveColors_Click(ws());
    EXPECT_EQ(t.platform.inputForms.size(), 2u);
    EXPECT_TRUE(t.platform.messages.empty());
}

// --- deleting ---

TEST_F(ThemeFiles, TheLastSchemeCannotBeDeleted) {
    t.writeData(QStringLiteral("Skin/Colors/only.pkc"),
                Scheme(" 1 ", " 1 ", " 1 ", " 1 ", " 1 ", " 1 ", " 1 "));
    ListColorSchemes(ws());
    ListColors_Click(ws(), 0);
    cmdDeleteColors_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Can't Delete Last Color Theme"));
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Delete Error"));
    EXPECT_EQ(t.platform.messages[0].style, MsgStyle::ExclamationBox);
    EXPECT_TRUE(t.dataExists(QStringLiteral("Skin/Colors/only.pkc")));
}

TEST_F(ThemeFiles, DeletingASchemeAsksAndRemovesItsFile) {
    t.writeData(QStringLiteral("Skin/Colors/Ember.pkc"),
                Scheme(" 1 ", " 1 ", " 1 ", " 1 ", " 1 ", " 1 ", " 1 "));
    t.writeData(QStringLiteral("Skin/Colors/moss.pkc"),
                Scheme(" 1 ", " 1 ", " 1 ", " 1 ", " 1 ", " 1 ", " 1 "));
    ListColorSchemes(ws());
    ListColors_Click(ws(), 0);
    t.platform.answers = {MsgAnswer::No};
    cmdDeleteColors_Click(ws());
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Delete: ember?"));
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Delete Color Theme"));
    EXPECT_EQ(t.platform.messages[0].style, MsgStyle::YesNoWarning);
    EXPECT_TRUE(t.dataExists(QStringLiteral("Skin/Colors/Ember.pkc")));
    t.platform.answers = {MsgAnswer::Yes};
    cmdDeleteColors_Click(ws());
    EXPECT_FALSE(t.dataExists(QStringLiteral("Skin/Colors/Ember.pkc")));
    EXPECT_EQ(dlg().ListColors, (QStringList{"moss"}));
}

// --- the shipped skins ---

TEST(ShippedSkins, TheFirstRunCopiesThemAndLaterRunsNeverOverwriteTheUsersFiles) {
    TestWorkspace t;
    auto ship = [&t](const QString& rel, const QByteArray& bytes) {
        const QString path = QDir(t.programDir()).filePath(QStringLiteral("Skin/") + rel);
        QDir().mkpath(QFileInfo(path).path());
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    };
    ship(QStringLiteral("harbour dusk.pkt"), "shipped theme");
    ship(QStringLiteral("Colors/ember glow.pkc"), "shipped scheme");
    ship(QStringLiteral("Wallpaper/HarbourDusk.jpg"), "shipped picture");
    ship(QStringLiteral("Buttons/Harbour Dusk/fold.gif"), "shipped button");
    t.start();
    EXPECT_EQ(t.readData(QStringLiteral("Skin/harbour dusk.pkt")), QByteArray("shipped theme"));
    EXPECT_EQ(t.readData(QStringLiteral("Skin/Colors/ember glow.pkc")), QByteArray("shipped scheme"));
    EXPECT_EQ(t.readData(QStringLiteral("Skin/Wallpaper/HarbourDusk.jpg")), QByteArray("shipped picture"));
    EXPECT_EQ(t.readData(QStringLiteral("Skin/Buttons/Harbour Dusk/fold.gif")), QByteArray("shipped button"));

    // The user changes a theme and deletes a scheme; the next start leaves both so.
    t.writeData(QStringLiteral("Skin/harbour dusk.pkt"), "my own theme");
    QFile::remove(t.dataFile(QStringLiteral("Skin/Colors/ember glow.pkc")));
    t.restart();
    t.start();
    EXPECT_EQ(t.readData(QStringLiteral("Skin/harbour dusk.pkt")), QByteArray("my own theme"));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Skin/Colors/ember glow.pkc")));
}

TEST(ShippedSkins, AnExistingSkinFolderIsLeftAsItIs) {
    TestWorkspace t;
    const QString shipped = QDir(t.programDir()).filePath(QStringLiteral("Skin/Colors/moss.pkc"));
    QDir().mkpath(QFileInfo(shipped).path());
    QFile f(shipped);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("shipped");
    f.close();
    t.writeData(QStringLiteral("Skin/Colors/moss.pkc"), "the user's");
    t.start();
    EXPECT_EQ(t.readData(QStringLiteral("Skin/Colors/moss.pkc")), QByteArray("the user's"));
}
