// Pictures on the fake platform: adding through the file dialog (Ctrl+P), the two faces kept in step,
// lock and unlock in place, original size, forward and back, replace, delete and its slot, the press,
// drag and release, the double click that opens the image, the menu, a picture in a folded container,
// and the workspace file.

#include "app/MainWindow.h"
#include "app/WorkspaceFile.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Selection.h"
#include "desk/DeskState.h"
#include "desk/Lock.h"
#include "desk/PictureMouse.h"
#include "desk/Pictures.h"
#include "support/TestWorkspace.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

constexpr int kCtrl = 2;
const QString kCat = QStringLiteral("/pictures/cat.png");
const QString kDog = QStringLiteral("/pictures/dog.jpg");

class Pictures : public ::testing::Test {
  protected:
    void SetUp() override {
        t.platform.images[kCat] = QSize(40, 30);
        t.platform.images[kDog] = QSize(100, 50);
        t.start();
        WireCoreCommands(ws());
        ws().frmMain(0).Move(1500, 1500, 10065, 5265);
    }
    Workspace& ws() { return *t.ws; }
    // A picture added through the menu at the drop place.
    int AddByMenu(const QString& path, float x = 900, float y = 1200) {
        ws().DropX = x;
        ws().DropY = y;
        t.platform.fileAnswers.push_back(path);
        ws().menus["mnuAddPicture"].Click();
        return ws().DeskObjectCount - 1;
    }
    TestWorkspace t;
};

TEST_F(Pictures, AddPictureAsksForAFileAndPutsTheFramedImageAtTheDropPlace) {
    EXPECT_EQ(ws().menus["mnuAddPicture"].Shortcut(), QStringLiteral("Ctrl+P"));
    const int j = AddByMenu(kCat);
    ASSERT_EQ(j, 0);
    ASSERT_EQ(t.platform.fileDialogs.size(), 1u);
    EXPECT_EQ(t.platform.fileDialogs[0], QStringLiteral("Add Picture|Picture Files|*.jpg; *.gif"));
    const Element& frame = ws().picPlaceholder(j);
    const Element& image = ws().imgPicture(j);
    EXPECT_TRUE(frame.Visible.get());
    EXPECT_FALSE(ws().picTemp(j).Visible.get());
    EXPECT_EQ(frame.Container(), &ws().picBack(0));
    EXPECT_EQ(frame.Left.get(), 900.0f);
    EXPECT_EQ(frame.Top.get(), 1200.0f);
    // The frame is the image and 240 twips; the image sits 100 in.
    EXPECT_EQ(image.Width.get(), 600.0f);
    EXPECT_EQ(image.Height.get(), 450.0f);
    EXPECT_EQ(frame.Width.get(), 840.0f);
    EXPECT_EQ(frame.Height.get(), 690.0f);
    EXPECT_EQ(image.Left.get(), 100.0f);
    EXPECT_EQ(image.Top.get(), 100.0f);
    EXPECT_EQ(frame.BackColor.get(), ws().picPlaceholder(0).BackColor.get());
    EXPECT_EQ(image.ToolTipText.get(), QStringLiteral("Double-Click: Open | Right-Click: Options"));
    EXPECT_EQ(ws().picTemp(j).ToolTipText.get(), QStringLiteral("Double-Click: View | Right-Click: Options"));
    EXPECT_EQ(ws().DeskObjects[j].PicPath, kCat);
    EXPECT_FALSE(ws().DeskObjects[j].IsReminder);
}

TEST_F(Pictures, AnImageThatCannotBeReadSaysSoAndMakesNothing) {
    AddByMenu(QStringLiteral("/pictures/broken.gif"));
    EXPECT_EQ(ws().DeskObjectCount, 0);
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Unable to load selected picture"));
    // A cancelled dialog: nothing at all.
    AddByMenu(QString());
    EXPECT_EQ(ws().DeskObjectCount, 0);
    EXPECT_EQ(t.platform.messages.size(), 1u);
}

TEST_F(Pictures, AddedFromAContainersMenuItGoesIntoTheContainerAndFoldsWithIt) {
    const int n = t.newContainerAt(600, 200);
    ws().SelectedContainer = static_cast<int16_t>(n);
    ws().menus["mnuDeleteContainer"].setVisible(true);
    const int j = AddByMenu(kCat, 300, 500);
    ws().menus["mnuDeleteContainer"].setVisible(false);
    EXPECT_EQ(ws().picPlaceholder(j).Container(), &ws().grpBorder(n));
    FoldContainer(ws(), n);
    EXPECT_EQ(ws().picPlaceholder(j).Container(), &ws().grpBorder(n)) << "it goes with its container";
    EXPECT_EQ(ws().picPlaceholder(j).Left.get(), 300.0f);
    // Saved in the container's file, never in the workspace file.
    SaveDesktop(ws(), false, true);
    EXPECT_FALSE(t.readData(QStringLiteral("Perchdock.ini")).contains("[Picture]"));
    EXPECT_TRUE(t.readData(QStringLiteral("Containers/0.con")).contains("[Picture]"));
    t.restart();
    t.start();
    ASSERT_EQ(ws().DeskObjectCount, 1);
    EXPECT_EQ(ws().picPlaceholder(0).Container(), &ws().grpBorder(0));
    EXPECT_TRUE(IsFolded(ws(), 0));
}

TEST_F(Pictures, LockingAndUnlockingKeepsThePictureWhereItIsOnTheScreen) {
    const int j = AddByMenu(kCat, 900, 1200);
    ws().SelectedDeskObject = static_cast<int16_t>(j);
    ws().menus["mnuPicLock"].Click();
    const Element& locked = ws().picTemp(j);
    EXPECT_TRUE(locked.Visible.get());
    EXPECT_FALSE(ws().picPlaceholder(j).Visible.get());
    EXPECT_TRUE(ws().menus["mnuPicLock"].Checked());
    // The image was at the frame + 100; the locked face is there, with the image's size.
    EXPECT_EQ(locked.Left.get(), 1000.0f);
    EXPECT_EQ(locked.Top.get(), 1300.0f);
    EXPECT_EQ(locked.Width.get(), 600.0f);
    EXPECT_EQ(locked.Height.get(), 450.0f);
    EXPECT_EQ(locked.Picture.get(), kCat);
    EXPECT_EQ(locked.Container(), ws().picPlaceholder(j).Container());
    ws().menus["mnuPicLock"].Click();
    EXPECT_FALSE(locked.Visible.get());
    EXPECT_TRUE(ws().picPlaceholder(j).Visible.get());
    EXPECT_EQ(ws().picPlaceholder(j).Left.get() + ws().imgPicture(j).Left.get(), 1000.0f);
    EXPECT_EQ(ws().picPlaceholder(j).Top.get() + ws().imgPicture(j).Top.get(), 1300.0f);
    EXPECT_EQ(ws().imgPicture(j).Width.get(), 600.0f);
    EXPECT_FALSE(ws().menus["mnuPicLock"].Checked());
}

TEST_F(Pictures, OriginalSizeForwardAndBack) {
    const int j = AddByMenu(kDog);
    ws().SelectedDeskObject = static_cast<int16_t>(j);
    ws().picPlaceholder(j).Width = 5000;
    ws().imgPicture(j).Width = 4760;
    ws().menus["mnuPicOriginalSize"].Click();
    EXPECT_EQ(ws().imgPicture(j).Width.get(), 1500.0f);
    EXPECT_EQ(ws().picPlaceholder(j).Width.get(), 1740.0f);
    EXPECT_EQ(ws().picPlaceholder(j).Height.get(), 990.0f);
    EXPECT_TRUE(ws().imgPicture(j).Visible.get());
    const int k = AddByMenu(kCat);
    ws().SelectedDeskObject = static_cast<int16_t>(j);
    ASSERT_GT(ws().picPlaceholder(k).zValue(), ws().picPlaceholder(j).zValue());
    ws().menus["mnuPicFroward"].Click();
    EXPECT_GT(ws().picPlaceholder(j).zValue(), ws().picPlaceholder(k).zValue());
    ws().menus["mnuPicSendToBack"].Click();
    EXPECT_LT(ws().picPlaceholder(j).zValue(), ws().picPlaceholder(k).zValue());
    EXPECT_EQ(ws().menus["mnuPicFroward"].Caption(), QStringLiteral("Bring &Forward"));
    EXPECT_EQ(ws().menus["mnuPicSendToBack"].Caption(), QStringLiteral("Send to &Back"));
    EXPECT_EQ(ws().menus["mnuPicOriginalSize"].Caption(), QStringLiteral("&Original Size"));
}

TEST_F(Pictures, ReplaceMakesANewObjectInTheOldPlaceAndSize) {
    const int j = AddByMenu(kCat, 700, 800);
    ws().SelectedDeskObject = static_cast<int16_t>(j);
    ws().picPlaceholder(j).Width = 2240;
    ws().picPlaceholder(j).Height = 1240;
    ws().imgPicture(j).Move(100, 100, 2000, 1000);
    t.platform.fileAnswers.push_back(kDog);
    ws().menus["mnuPicReplace"].Click();
    ASSERT_EQ(ws().DeskObjectCount, 2);
    EXPECT_FALSE(ws().picPlaceholder(j).Visible.get());
    EXPECT_EQ(ws().picPlaceholder(1).Left.get(), 700.0f);
    EXPECT_EQ(ws().picPlaceholder(1).Top.get(), 800.0f);
    EXPECT_EQ(ws().imgPicture(1).Width.get(), 2000.0f);
    EXPECT_EQ(ws().imgPicture(1).Height.get(), 1000.0f);
    EXPECT_EQ(ws().DeskObjects[1].PicPath, kDog);
    // A replacement that cannot be read keeps the old picture.
    ws().SelectedDeskObject = 1;
    t.platform.fileAnswers.push_back(QStringLiteral("/pictures/broken.bmp"));
    ws().menus["mnuPicReplace"].Click();
    EXPECT_EQ(t.platform.messages.back().text, QStringLiteral("Unable to load selected picture"));
    EXPECT_TRUE(ws().picPlaceholder(1).Visible.get());
    EXPECT_EQ(ws().menus["mnuPicReplace"].Caption(), QStringLiteral("&Replace Picture"));
}

TEST_F(Pictures, DeleteAsksNothingAndTheNextLoadRenumbers) {
    AddByMenu(kCat, 100, 100);
    AddByMenu(kDog, 2000, 2000);
    EXPECT_EQ(ws().menus["mnuPicDelete"].Caption(), QStringLiteral("&Delete"));
    ws().SelectedDeskObject = 0;
    ws().menus["mnuPicDelete"].Click();
    EXPECT_TRUE(t.platform.messages.empty());
    EXPECT_FALSE(ws().picPlaceholder(0).Visible.get());
    EXPECT_FALSE(ws().picTemp(0).Visible.get());
    EXPECT_TRUE(ws().imgPicture(0).Picture.get().isEmpty()) << "the image's memory is returned";
    EXPECT_EQ(ws().DeskObjectCount, 2) << "the slot stays";
    EXPECT_EQ(ws().DeskObjects[0].PicPath, kCat) << "and so does the record";
    SaveDesktop(ws(), false, true);
    const QByteArray file = t.readData(QStringLiteral("Perchdock.ini"));
    EXPECT_EQ(file.count("[Picture]"), 1);
    t.restart();
    t.start();
    ASSERT_EQ(ws().DeskObjectCount, 1);
    EXPECT_EQ(ws().DeskObjects[0].PicPath, kDog);
    EXPECT_EQ(ws().picPlaceholder(0).Left.get(), 2000.0f);
}

TEST_F(Pictures, ALockedPictureSurvivesASaveAndALoadLocked) {
    const int j = AddByMenu(kCat, 900, 1200);
    ws().SelectedDeskObject = static_cast<int16_t>(j);
    ws().menus["mnuPicLock"].Click();
    SaveDesktop(ws(), false, true);
    EXPECT_TRUE(t.readData(QStringLiteral("Perchdock.ini"))
                    .contains(CrLf({"[Picture]", "[Locked]", "1", "[PicX]", " 900 ", "[PicY]", " 1200 ",
                                    "[PicW]", " 840 ", "[PicH]", " 690 ", "[PicPath]", "/pictures/cat.png",
                                    "TEMP", "TEMP", "TEMP", "TEMP"})));
    t.restart();
    t.start();
    ASSERT_EQ(ws().DeskObjectCount, 1);
    EXPECT_TRUE(ws().picTemp(0).Visible.get());
    EXPECT_EQ(ws().picTemp(0).Left.get(), 1000.0f);
    EXPECT_EQ(ws().picTemp(0).Top.get(), 1300.0f);
}

TEST_F(Pictures, TheRightPressOpensThePictureMenuWithLockAsDefault) {
    const int j = AddByMenu(kCat);
    EXPECT_EQ(imgPicture_MouseDown(ws(), 2, 0, j, 50, 50), QStringLiteral("mnuPicture"));
    EXPECT_EQ(ws().SelectedDeskObject, j);
    EXPECT_TRUE(ws().menus["mnuPicLock"].Visible());
    EXPECT_TRUE(ws().menus["mnuPicReplace"].Visible());
    EXPECT_TRUE(ws().menus["mnuPicOriginalSize"].Visible());
    EXPECT_TRUE(ws().menus["mnuSepPicture"].Visible());
    EXPECT_FALSE(ws().menus["mnuReminderEdit"].Visible());
    EXPECT_FALSE(ws().menus["mnuPicLock"].Checked());
    EXPECT_EQ(PictureMenuDefault(ws()), QStringLiteral("mnuPicLock"));
    EXPECT_EQ(ws().menus["mnuPicLock"].Caption(), QStringLiteral("&Lock"));
    ToggleLock(ws());
    EXPECT_EQ(picTemp_MouseDown(ws(), 2, 0, j, 50, 50), QStringLiteral("mnuPicture"));
    EXPECT_TRUE(ws().menus["mnuPicLock"].Checked());
}

TEST_F(Pictures, ALeftDragMovesTheFrameAndTheReleaseKeepsItInside) {
    const int j = AddByMenu(kCat, 900, 1200);
    imgPicture_MouseDown(ws(), 1, 0, j, 150, 150);
    EXPECT_EQ(ws().DropX, 900.0f);
    EXPECT_EQ(ws().DropY, 1200.0f);
    imgPicture_MouseMove(ws(), 1, 0, j, 450, 350);
    EXPECT_EQ(ws().picPlaceholder(j).Left.get(), 1200.0f);
    EXPECT_EQ(ws().picPlaceholder(j).Top.get(), 1400.0f);
    // The image moved with its frame: the pointer is again 150 into it.
    imgPicture_MouseMove(ws(), 1, 0, j, 150 - 2000, 150);
    EXPECT_EQ(ws().picPlaceholder(j).Left.get(), -800.0f);
    imgPicture_MouseUp(ws(), 1, 0, j);
    EXPECT_GE(ws().picPlaceholder(j).Left.get(), -ws().picPlaceholder(j).Width.get() / 2)
        << "kept inside its owner";
}

TEST_F(Pictures, WithCtrlTheSelectedContainersFollowTheDragAndAPlainDragDropsTheSelection) {
    ws().menus["mnuAlign"].setChecked(false);
    const int a = t.newContainerAt(3000, 3000);
    const int b = t.newContainerAt(6000, 3000);
    const int j = AddByMenu(kCat, 900, 1200);
    SelectGroup(ws(), a);
    SelectGroup(ws(), b);
    imgPicture_MouseDown(ws(), 1, kCtrl, j, 150, 150);
    imgPicture_MouseMove(ws(), 1, kCtrl, j, 450, 350);
    EXPECT_EQ(ws().picPlaceholder(j).Left.get(), 1200.0f);
    EXPECT_EQ(ws().Group(a).Left.get(), 3300.0f) << "followed during the drag";
    EXPECT_EQ(ws().Group(a).Top.get(), 3200.0f);
    EXPECT_EQ(ws().Group(b).Left.get(), 6300.0f);
    imgPicture_MouseMove(ws(), 1, kCtrl, j, 250, 150);
    EXPECT_EQ(ws().Group(a).Left.get(), 3400.0f);
    EXPECT_EQ(ws().Group(a).Top.get(), 3200.0f);
    imgPicture_MouseUp(ws(), 1, kCtrl, j);
    EXPECT_EQ(ws().Group(a).Left.get(), 3400.0f) << "placed where it followed to";
    EXPECT_EQ(ws().Group(b).Left.get(), 6400.0f);
    EXPECT_TRUE(ws().lblName(a).FontBold.get());
    // A plain drag clears the selection and moves the picture alone.
    imgPicture_MouseDown(ws(), 1, 0, j, 150, 150);
    imgPicture_MouseMove(ws(), 1, 0, j, 250, 150);
    EXPECT_FALSE(ws().lblName(a).FontBold.get());
    EXPECT_FALSE(ws().lblName(b).FontBold.get());
    EXPECT_EQ(ws().Group(a).Left.get(), 3400.0f);
    EXPECT_EQ(ws().picPlaceholder(j).Left.get(), 1400.0f);
}

TEST_F(Pictures, ALockedWorkspaceOrALockedPictureDoesNotMove) {
    const int j = AddByMenu(kCat, 900, 1200);
    LockWorkspace(ws());
    imgPicture_MouseDown(ws(), 1, 0, j, 150, 150);
    EXPECT_TRUE(ws().ImgLock(0).Visible.get()) << "the padlock answers";
    imgPicture_MouseMove(ws(), 1, 0, j, 450, 350);
    EXPECT_EQ(ws().picPlaceholder(j).Left.get(), 900.0f);
    UnlockWorkspace(ws());
    ws().SelectedDeskObject = static_cast<int16_t>(j);
    ToggleLock(ws());
    picTemp_MouseDown(ws(), 1, 0, j, 10, 10);
    picTemp_MouseMove(ws(), 1, 0, j, 500, 500);
    EXPECT_EQ(ws().picTemp(j).Left.get(), 1000.0f);
}

TEST_F(Pictures, ADoubleClickOpensTheImageInTheDesktopsViewer) {
    const int j = AddByMenu(kCat);
    imgPicture_DblClick(ws(), j);
    ASSERT_EQ(t.platform.opened.size(), 1u);
    EXPECT_EQ(t.platform.opened[0], kCat);
    ws().SelectedDeskObject = static_cast<int16_t>(j);
    ToggleLock(ws());
    picTemp_DblClick(ws(), j);
    EXPECT_EQ(t.platform.opened.size(), 2u);
}

} // namespace
