// Button images out of a button set (InitButtons) and the colours of a container's head and frame
// (SetColors, Lighten).

#include "containers/Containers.h"
#include "support/TestWorkspace.h"
#include "themes/Buttons.h"

#include <gtest/gtest.h>

#include <map>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

const char* const kToolbarFiles[] = {"shrinkall.gif", "foldall.gif", "rss.gif",
                                     "lock.gif",      "unlock.gif",  "dock.gif"};
const char* const kContainerFiles[] = {"shrink.gif",   "folderoff.gif", "folderon.gif", "noteshow.gif",
                                       "notehide.gif", "fold.gif",      "unfold.gif"};

class ButtonsAndColours : public ::testing::Test {
  protected:
    void SetUp() override { t.start(); }
    Workspace& ws() { return *t.ws; }
    QString SetFile(const QString& set, const char* file) const {
        return t.dataFile(QStringLiteral("Skin/Buttons/") + set + QLatin1Char('/') +
                          QString::fromLatin1(file));
    }
    // Makes every image of a set readable for the platform.
    void ProvideSet(const QString& set) {
        for (const char* f : kToolbarFiles)
            t.platform.images[SetFile(set, f)] = QSize(16, 16);
        for (const char* f : kContainerFiles)
            t.platform.images[SetFile(set, f)] = QSize(16, 16);
    }
    // The element of each container file, for container i.
    std::map<std::string, Element*> ContainerButtons(int i) {
        return {{"shrink.gif", &ws().picShrink(i)},  {"folderoff.gif", &ws().picCopy1(i)},
                {"folderon.gif", &ws().picCopy2(i)}, {"noteshow.gif", &ws().picPinNote(i)},
                {"notehide.gif", &ws().picPin(i)},   {"fold.gif", &ws().chkFold(i)},
                {"unfold.gif", &ws().chkUnfold(i)}};
    }
    std::map<std::string, Element*> ToolbarButtons() {
        return {{"shrinkall.gif", &ws().PicShrinkExpandAllToolbar(0)},
                {"foldall.gif", &ws().PicFoldUnfoldAllToolbar(0)},
                {"rss.gif", &ws().PicRSSRefreshALL(0)},
                {"lock.gif", &ws().PicLockToolbar(0)},
                {"unlock.gif", &ws().PicUnLockToolbar(0)},
                {"dock.gif", &ws().PicDock(0)}};
    }
    TestWorkspace t;
};

} // namespace

// --- Lighten ---

TEST(Lighten, AddsFortyToEachChannelAndWhiteStaysWhite) {
    EXPECT_EQ(Lighten(0xFFFFFF), 0xFFFFFF);
    EXPECT_EQ(Lighten(0x290700), 0x512F28);
    EXPECT_EQ(Lighten(0x000000), 0x282828);
    // Each channel is limited on its own.
    EXPECT_EQ(Lighten(0x00DC00), 0x28FF28);
    EXPECT_EQ(Lighten(0xD7D7D7), 0xFFFFFF);
    EXPECT_EQ(Lighten(0x0000D8), 0x2828FF);
    EXPECT_EQ(Lighten(0xF00000), 0xFF2828);
}

// --- SetColors ---

TEST_F(ButtonsAndColours, SetColorsColoursTheFrameAndTheButtonsButNotTheBoxOrTheTitle) {
    mnuNew_Click(ws());
    const int n = 0;
    ws().grpBorder(n).BackColor = 0x101010;
    ws().grpBorder(n).ForeColor = 0x0000FF;
    ws().lblName(n).ForeColor = 0x00FFFF;
    ws().lblName(n).BackColor = 0x123456;
    SetColors(ws(), n, 0x00FF00);
    // The frame is one step lighter than the box's own back colour, whatever the colour passed.
    EXPECT_EQ(ws().Group(n).BackColor.get(), 0x383838);
    for (ElementFamily* f : {&ws().picPinNote, &ws().picPin, &ws().picShrink, &ws().chkFold, &ws().chkUnfold,
                             &ws().groupName, &ws().ShrinkIcon, &ws().picCopy1, &ws().picCopy2})
        EXPECT_EQ((*f)(n).BackColor.get(), 0x00FF00) << f->name().toStdString();
    EXPECT_EQ(ws().grpBorder(n).BackColor.get(), 0x101010);
    EXPECT_EQ(ws().grpBorder(n).ForeColor.get(), 0x0000FF);
    EXPECT_EQ(ws().lblName(n).ForeColor.get(), 0x00FFFF);
    EXPECT_EQ(ws().lblName(n).BackColor.get(), 0x123456);
    EXPECT_EQ(ws().txtNote(n).BackColor.get(), ws().txtNote(0).BackColor.get());
}

// --- InitButtons ---

TEST_F(ButtonsAndColours, InitButtonsLoadsTheToolbarAndEveryContainerDeadOnesToo) {
    for (int k = 0; k < 3; ++k)
        mnuNew_Click(ws());
    ws().Group(1).Visible = false; // a dead slot
    const QString set = QStringLiteral("Night");
    ProvideSet(set);
    InitButtons(ws(), set);
    for (const auto& [file, e] : ToolbarButtons())
        EXPECT_EQ(e->Picture.get(), SetFile(set, file.c_str())) << file;
    EXPECT_EQ(ws().ImgLock(0).Picture.get(), SetFile(set, "lock.gif"));
    for (int i = 0; i < 3; ++i)
        for (const auto& [file, e] : ContainerButtons(i))
            EXPECT_EQ(e->Picture.get(), SetFile(set, file.c_str())) << file << " of " << i;
}

TEST_F(ButtonsAndColours, AFileMissingFromASetLeavesThatButtonsOldImage) {
    mnuNew_Click(ws());
    mnuNew_Click(ws());
    const QString first = QStringLiteral("Plain");
    const QString second = QStringLiteral("Bright");
    ProvideSet(first);
    InitButtons(ws(), first);
    ProvideSet(second);
    t.platform.images.erase(SetFile(second, "fold.gif"));
    t.platform.images.erase(SetFile(second, "lock.gif"));
    InitButtons(ws(), second);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(ws().chkFold(i).Picture.get(), SetFile(first, "fold.gif"));
        EXPECT_EQ(ws().chkUnfold(i).Picture.get(), SetFile(second, "unfold.gif"));
    }
    EXPECT_EQ(ws().PicLockToolbar(0).Picture.get(), SetFile(first, "lock.gif"));
    // The padlock copies the lock button, old image and all.
    EXPECT_EQ(ws().ImgLock(0).Picture.get(), SetFile(first, "lock.gif"));
    EXPECT_EQ(ws().PicUnLockToolbar(0).Picture.get(), SetFile(second, "unlock.gif"));

    // A set that is not there at all changes nothing.
    InitButtons(ws(), QStringLiteral("Gone"));
    EXPECT_EQ(ws().chkUnfold(1).Picture.get(), SetFile(second, "unfold.gif"));
    EXPECT_EQ(ws().PicDock(0).Picture.get(), SetFile(second, "dock.gif"));
}

TEST(ButtonsAtStart, TheLoadGivesTheLoadedContainersTheImagesOfTheSet) {
    TestWorkspace t;
    t.writeData(QStringLiteral("Perchdock.ini"), CrLf({"[1.05]", "[Buttons]", "Night"}));
    t.writeData(QStringLiteral("Containers/0.con"),
                CrLf({"[1.05]", "[Container]", "-1", "[Name]", "Box", "[Backcolor]", " 2688768 ", "[X]",
                      " 600 ", "[Y]", " 200 ", "[W]", " 3000 ", "[H]", " 3000 "}));
    const QString dir = QDir(t.dataFile(QStringLiteral("Skin/Buttons/Night"))).path();
    t.platform.images[QDir(dir).filePath(QStringLiteral("shrink.gif"))] = QSize(16, 16);
    t.platform.images[QDir(dir).filePath(QStringLiteral("fold.gif"))] = QSize(16, 16);
    t.start();
    ASSERT_EQ(t.ws->ContainerCount, 1);
    EXPECT_EQ(t.ws->picShrink(0).Picture.get(), QDir(dir).filePath(QStringLiteral("shrink.gif")));
    EXPECT_EQ(t.ws->chkFold(0).Picture.get(), QDir(dir).filePath(QStringLiteral("fold.gif")));
    // The back colour from the file went through SetColors.
    EXPECT_EQ(t.ws->Group(0).BackColor.get(), 0x512F28);
    EXPECT_EQ(t.ws->picShrink(0).BackColor.get(), 0x290700);
}
