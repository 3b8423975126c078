// The Display Properties and Container Colors windows on the offscreen platform: they show what the
// dialogs hold, their controls run the handlers, the settings buttons open the main window's menus
// under themselves, and the default font has a face on Linux.

#include "app/MainWindow.h"
#include "containers/Containers.h"
#include "support/TestWorkspace.h"
#include "themes/ThemeState.h"
#include "view/ConColorsWindow.h"
#include "view/FontFallbacks.h"
#include "view/MenuView.h"
#include "view/PropertiesWindow.h"
#include "window/WindowServices.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

QByteArray Scheme(const char* back) {
    return CrLf({"[1.01]", "[Background]", back, "[PictureBorder]", " 0 ", "[ContainerFor]", " 0 ",
                 "[ContainerLabel]", " 0 ", "[ContainerTextBack]", " 0 ", "[ContainerTextFor]", " 0 ",
                 "[Foreground]", " 16777215 "});
}

struct PropertiesWindowTest : ::testing::Test {
    TestWorkspace t;
    std::unique_ptr<MenuView> menus;
    PropertiesWindowTest() {
        t.start();
        WireCoreCommands(*t.ws);
        menus = std::make_unique<MenuView>(t.ws->menus, nullptr);
    }
    Workspace& ws() { return *t.ws; }
    template <typename T> T* Find(QWidget& w, const char* name) {
        T* c = w.findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(c, nullptr) << name;
        return c;
    }
};

TEST_F(PropertiesWindowTest, F4ShowsTheWindowWithEveryElementAndTheWorkspacesColours) {
    PropertiesWindow w(ws(), [this](const QString& n) { return menus->menu(n); });
    ws().picBack(0).BackColor = 0x290700; // navy, as 0x00BBGGRR
    ASSERT_TRUE(Form_KeyDown(ws(), 115, 0));
    ASSERT_TRUE(w.isVisible());
    EXPECT_EQ(w.objectName(), QStringLiteral("frmProperties"));
    EXPECT_EQ(w.windowTitle(), QStringLiteral("Display Properties"));
    EXPECT_EQ(Find<QLabel>(w, "lblCaption")->text(), QStringLiteral("Display Properties"));
    for (const char* box : {"picBackColor", "PicLinkColor", "picConFor", "picContainerLabelColor",
                            "picContainerTextBack", "picContainerTextFor", "picBorderColor", "picDockBorder"})
        Find<QPushButton>(w, box);
    EXPECT_TRUE(Find<QPushButton>(w, "picBackColor")->styleSheet().contains(QStringLiteral("#000729")));
    EXPECT_EQ(Find<QPushButton>(w, "picDockBorder")->toolTip(),
              QStringLiteral("Border color when the workspace is hidden at one of the screen edges"));
    EXPECT_EQ(Find<QLabel>(w, "lblWallpaper")->text(), QStringLiteral("Click to Select Wallpaper"));
    Find<QLabel>(w, "picWallpaper");
    Find<QLabel>(w, "imgWallpaper");
    Find<QLabel>(w, "picMoveMe");
    EXPECT_EQ(Find<QCheckBox>(w, "chkWallpaper")->text(), QStringLiteral("&Wallpaper"));
    EXPECT_EQ(Find<QCheckBox>(w, "chkStretch")->text(), QStringLiteral("S&tretch"));
    EXPECT_EQ(Find<QPushButton>(w, "CmdFont")->text(), QStringLiteral("Se&lect"));
    EXPECT_EQ(Find<QLineEdit>(w, "txtIconSize")->text(), QStringLiteral("32"));
    EXPECT_EQ(
        Find<QLineEdit>(w, "txtIconSize")->toolTip(),
        QStringLiteral(
            "Size for large icons: Usually 32 or 48 (if using the Large Icons setting for your desktop)"));
    EXPECT_EQ(Find<QPushButton>(w, "cmdApply")->text(), QStringLiteral("&Apply"));
    EXPECT_FALSE(Find<QPushButton>(w, "cmdApply")->isEnabled());
    Find<QPushButton>(w, "OKButton");
    Find<QPushButton>(w, "cmdCancel");
    Find<QComboBox>(w, "CboButtons");
    Find<QComboBox>(w, "CboThemes");
    Find<QListWidget>(w, "ListColors");
    for (int k = 0; k < 13; ++k)
        EXPECT_NE(w.findChild<QLabel*>(QStringLiteral("PicButton_%1").arg(k)), nullptr) << k;
    // Cancel hides it.
    (Find<QPushButton>(w, "cmdCancel"))->click();
    EXPECT_FALSE(w.isVisible());
    EXPECT_FALSE(Themes(ws()).Properties.Loaded);
}

TEST_F(PropertiesWindowTest, AClickOnAColourBoxChoosesAndTheSwatchAndApplyFollow) {
    PropertiesWindow w(ws(), [this](const QString& n) { return menus->menu(n); });
    ws().menus["mnuProperties"].Click();
    t.platform.colorAnswers = {0x0000FF};
    (Find<QPushButton>(w, "picConFor"))->click();
    EXPECT_EQ(Themes(ws()).Properties.picConFor, 0x0000FF);
    EXPECT_TRUE(Find<QPushButton>(w, "picConFor")->styleSheet().contains(QStringLiteral("#ff0000")));
    EXPECT_TRUE(Find<QPushButton>(w, "cmdApply")->isEnabled());
    t.platform.answers = {MsgAnswer::No};
    (Find<QPushButton>(w, "cmdApply"))->click();
    EXPECT_EQ(ws().ContainerColor, 0x0000FF);
    EXPECT_FALSE(Find<QPushButton>(w, "cmdApply")->isEnabled());
    (Find<QPushButton>(w, "OKButton"))->click();
    EXPECT_FALSE(w.isVisible());
}

TEST_F(PropertiesWindowTest, TheListsShowThemesAndSchemesAndAChoiceLoadsIt) {
    t.writeData(QStringLiteral("Skin/Colors/Ember Glow.pkc"), Scheme(" 255 "));
    t.writeData(QStringLiteral("Skin/Colors/moss.pkc"), Scheme(" 32768 "));
    t.writeData(QStringLiteral("Skin/Harbour.pkt"), Scheme(" 8388608 "));
    PropertiesWindow w(ws(), [this](const QString& n) { return menus->menu(n); });
    ws().menus["mnuProperties"].Click();
    auto* list = Find<QListWidget>(w, "ListColors");
    ASSERT_EQ(list->count(), 2);
    EXPECT_EQ(list->item(0)->text(), QStringLiteral("ember glow"));
    QListWidgetItem* moss = list->item(1);
    emit list->itemClicked(moss);
    EXPECT_EQ(Themes(ws()).Properties.picBackColor, 32768);
    EXPECT_TRUE(Find<QPushButton>(w, "picBackColor")->styleSheet().contains(QStringLiteral("#008000")));
    auto* themes = Find<QComboBox>(w, "CboThemes");
    ASSERT_EQ(themes->count(), 1);
    EXPECT_EQ(themes->itemText(0), QStringLiteral("harbour"));
    emit themes->activated(0);
    EXPECT_EQ(Themes(ws()).Properties.picBackColor, 8388608);
    EXPECT_EQ(list->currentRow(), -1);
}

TEST_F(PropertiesWindowTest, TheSettingsButtonsOpenTheirMenusUnderThemselves) {
    PropertiesWindow w(ws(), [this](const QString& n) { return menus->menu(n); });
    w.move(100, 100);
    ws().menus["mnuProperties"].Click();
    auto* dock = Find<QPushButton>(w, "cmdDockSettings");
    ASSERT_TRUE(dock->isEnabled());
    (dock)->click();
    ASSERT_NE(w.lastPopup(), nullptr);
    EXPECT_EQ(w.lastPopup(), menus->menu(QStringLiteral("mnuDock")));
    EXPECT_EQ(w.lastPopupAt(), dock->mapToGlobal(QPoint(0, dock->height())));
    EXPECT_TRUE(w.lastPopup()->isVisible());
    w.lastPopup()->hide();
    // Each button is usable exactly when its menu has been made.
    for (auto [button, menu] : {std::pair{"cmdContainersSettings", "mnuContainers"},
                                {"cmdGlobalSettings", "mnuGlobalSettings"},
                                {"cmdRemindersSettings", "mnuReminders"},
                                {"cmdShortcutsSettings", "mnuShortcuts"}})
        EXPECT_EQ(Find<QPushButton>(w, button)->isEnabled(),
                  menus->menu(QString::fromLatin1(menu)) != nullptr)
            << button;
}

TEST_F(PropertiesWindowTest, UncheckingTheWallpaperBoxReachesTheDialog) {
    PropertiesWindow w(ws(), [this](const QString& n) { return menus->menu(n); });
    ws().menus["mnuProperties"].Click();
    auto* stretch = Find<QCheckBox>(w, "chkStretch");
    const bool was = stretch->isChecked();
    (stretch)->click();
    EXPECT_EQ(Themes(ws()).Properties.chkStretch, !was);
    EXPECT_TRUE(Find<QPushButton>(w, "cmdApply")->isEnabled());
}

TEST_F(PropertiesWindowTest, TheContainerColorsWindowShowsSwitchesAndCancels) {
    const int c = t.newContainerAt(600, 600);
    ws().grpBorder(c).BackColor = 0x000080;
    ws().grpBorder(c).ForeColor = 0x00FFFF;
    ws().SelectedContainer = static_cast<int16_t>(c);
    ConColorsWindow w(ws());
    ws().menus["mnuContainerColors"].Click();
    ASSERT_TRUE(w.isVisible());
    EXPECT_EQ(w.windowTitle(), QStringLiteral("Container Colors"));
    auto* back = Find<QPushButton>(w, "picBack");
    auto* fore = Find<QPushButton>(w, "picFore");
    EXPECT_TRUE(back->styleSheet().contains(QStringLiteral("#800000")));
    EXPECT_TRUE(fore->styleSheet().contains(QStringLiteral("#ffff00")));
    auto* sw = Find<QPushButton>(w, "CmdSwitch");
    EXPECT_EQ(sw->text(), QStringLiteral("&Switch"));
    EXPECT_EQ(sw->toolTip(), QStringLiteral("Switch foreground and background colors"));
    EXPECT_EQ(Find<QPushButton>(w, "Command1")->text(), QStringLiteral("&Reset"));
    EXPECT_EQ(Find<QPushButton>(w, "Command1")->toolTip(),
              QStringLiteral("Reset container colors to default"));
    (sw)->click();
    EXPECT_TRUE(back->styleSheet().contains(QStringLiteral("#ffff00")));
    (Find<QPushButton>(w, "CancelButton"))->click();
    EXPECT_FALSE(w.isVisible());
    EXPECT_EQ(ws().grpBorder(c).BackColor.get(), 0x000080);
    // OK applies.
    ws().menus["mnuContainerColors"].Click();
    (Find<QPushButton>(w, "CmdSwitch"))->click();
    (Find<QPushButton>(w, "OKButton"))->click();
    EXPECT_FALSE(w.isVisible());
    EXPECT_EQ(ws().grpBorder(c).BackColor.get(), 0x00FFFF);
    EXPECT_EQ(ws().grpBorder(c).ForeColor.get(), 0x000080);
}

TEST_F(PropertiesWindowTest, TheCaptionBandDragsTheWindow) {
    PropertiesWindow w(ws(), [this](const QString& n) { return menus->menu(n); });
    ws().menus["mnuProperties"].Click();
    w.move(200, 150);
    const QPoint start = w.pos();
    QLabel* caption = Find<QLabel>(w, "lblCaption");
    const QPoint at(10, 5);
    const QPoint g = caption->mapToGlobal(at);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(at), QPointF(g), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(caption, &press);
    QMouseEvent move(QEvent::MouseMove, QPointF(at + QPoint(40, 30)), QPointF(g + QPoint(40, 30)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(caption, &move);
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(at + QPoint(40, 30)), QPointF(g + QPoint(40, 30)),
                        Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(caption, &release);
    EXPECT_EQ(w.pos(), start + QPoint(40, 30));
    EXPECT_TRUE(Themes(ws()).Properties.Loaded);
}

TEST_F(PropertiesWindowTest, ThePreviewShowsTheWallpaperStretchedOverTheBox) {
    QImage red(80, 60, QImage::Format_RGB32);
    red.fill(QColor(200, 30, 30));
    const QString file = t.dataFile(QStringLiteral("Skin/Wallpaper/red.png"));
    QDir().mkpath(QFileInfo(file).path());
    ASSERT_TRUE(red.save(file));
    ws().WallpaperPath = file;
    ws().StretchWallpaper = true;
    PropertiesWindow w(ws(), [this](const QString& n) { return menus->menu(n); });
    ws().menus["mnuProperties"].Click();
    QLabel* img = Find<QLabel>(w, "imgWallpaper");
    const QPixmap shown = img->pixmap();
    ASSERT_FALSE(shown.isNull());
    EXPECT_EQ(shown.size(), Find<QLabel>(w, "picWallpaper")->contentsRect().size());
    EXPECT_EQ(shown.toImage().pixelColor(shown.width() - 2, shown.height() - 2), QColor(200, 30, 30));
    // Unchecked, the box shows only the background colour.
    Find<QCheckBox>(w, "chkWallpaper")->click();
    EXPECT_TRUE(img->pixmap().isNull());
}

TEST(FontFallbacks, VerdanaIsDrawnInASimilarFaceWhenAbsent) {
    InstallFontFallbacks();
    if (QFontDatabase::hasFamily(QStringLiteral("Verdana"))) GTEST_SKIP() << "Verdana is installed here";
    if (!QFontDatabase::hasFamily(QStringLiteral("DejaVu Sans")))
        GTEST_SKIP() << "DejaVu Sans is not installed";
    EXPECT_EQ(ResolvedFamily(QStringLiteral("Verdana")), QStringLiteral("DejaVu Sans"));
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
