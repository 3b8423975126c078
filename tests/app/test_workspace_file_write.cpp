// Writing the workspace file: the exact bytes of a first run's file, and loading and saving a rich file
// gives its bytes back.

#include "app/MainWindow.h"
#include "app/WorkspaceFile.h"
#include "support/TestWorkspace.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {

// The file's lines are written here with "\n"; the file itself ends every line with CR LF.
QByteArray WithCrLf(const char* text) {
    QByteArray b(text);
    b.replace("\n", "\r\n");
    return b;
}

// Registers an image the fake platform can load, and creates the file so that existence tests pass.
QString MakeImage(TestWorkspace& t, const QString& path, QSize size) {
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    if (f.open(QIODevice::WriteOnly)) f.write("GIF89a");
    t.platform.images[path] = size;
    return path;
}

// Bytes as a string, so that a failure shows a readable line-by-line difference.
std::string Text(const QByteArray& b) { return b.toStdString(); }

} // namespace

TEST(WorkspaceFileWrite, FirstRunThenExitWritesTheDefaultFile) {
    TestWorkspace t;
    t.start();
    ASSERT_FALSE(t.dataExists(QStringLiteral("Perchdock.ini")));
    t.exit();

    // [X]: (1920 * 15 - 10065) / 2, the window centred on the screen's width. The colours are the
    // defaults as decimal longs: [Background] 0x290700 is 2688768.
    const QByteArray expected = WithCrLf(R"([1.05]
[Hidden]
0
[WindowState]
 0 
[X]
 9367.5 
[Y]
-100 
[W]
 10065 
[H]
 5265 
[Align]
1
[Capture]
0
[ConfirmDelete]
1
[EnableSounds]
OFF
[AutoExpand]
1
[GlobalHotkey]
1
[AddNewToolbar]
1
[ExtractURLs]
1
[FoldOnClick]
1
[Translucent]
0
[Animate Dock]
1
[Wide Docking Border]
0
[Undock Immediately]
1
[Taskbar]
0
[Buttons]
Plain White on Blue
[Font Size]
 10 
[Font Name]
Verdana
[Large Icon Size]
 32 
[LOCKED]
0
[Background]
 2688768 
[PictureBorder]
 8388608 
[ContainerFor]
 2688768 
[ContainerLabel]
 16777215 
[DockingColor]
 16711680 
[ContainerTextBack]
 14810623 
[ContainerTextFor]
 0 
[Foreground]
 16777215 
[Wallpaper]

[Stretch]
1
[ShowTime]
0
[DropShadow]
1
[ShowTags]
1
[Dbl-Click]
1
[CollapseBeforeLaunch]
1
[ConfirmStartAllShortcuts]
1
[RSSOpenDirectlyOnSite]
0
[RSSLoadOnStartup]
0
[RSSHighlight]
1
[RSSchkFullValue]
 0 
[RSSchkHeadlineValue]
 1 
[RSSViewerOnTop]
 0 
[RSSViewerX]
 1000 
[RSSViewerY]
 1000 
[RSSViewerW]
 8295 
[RSSViewerH]
 4665 
[RSSUseProxy]
0
)");
    EXPECT_EQ(Text(t.readData(QStringLiteral("Perchdock.ini"))), Text(expected));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Perchdock.REC")));
}

TEST(WorkspaceFileWrite, ExitSaveOfAHiddenWindowStoresHiddenAndShowsIt) {
    TestWorkspace t;
    t.start();
    t.ws->frmMain(0).Visible = false;
    t.exit();
    const QByteArray file = t.readData(QStringLiteral("Perchdock.ini"));
    EXPECT_TRUE(file.startsWith("[1.05]\r\n[Hidden]\r\n1\r\n[WindowState]\r\n 0 \r\n")) << file.left(60).constData();
    EXPECT_TRUE(t.ws->frmMain(0).Visible.get());
}

TEST(WorkspaceFileWrite, ExitSaveOfAMaximisedWindowKeepsTheStateAndStoresTheNormalPlace) {
    TestWorkspace t;
    t.start();
    t.ws->frmMain(0).WindowState = 2;
    t.exit();
    const QByteArray file = t.readData(QStringLiteral("Perchdock.ini"));
    EXPECT_TRUE(file.startsWith("[1.05]\r\n[Hidden]\r\n0\r\n[WindowState]\r\n 2 \r\n[X]\r\n")) << file.left(60).constData();
    EXPECT_EQ(t.ws->frmMain(0).WindowState.get(), 0);
}

TEST(WorkspaceFileWrite, RecentSearchesAreWrittenWhileTheMenuHoldsThem) {
    TestWorkspace t;
    t.start();
    t.ws->menus("mnuRSSSearchItem", 0).setCaption(QStringLiteral("first"));
    t.ws->menus.add(QStringLiteral("mnuRSSSearchItem"), QStringLiteral("second"), QString(), 1);
    t.ws->menus.add(QStringLiteral("mnuRSSSearchItem"), QStringLiteral("third"), QString(), 2);
    const QByteArray file = WorkspaceFileBytes(*t.ws, false);
    EXPECT_TRUE(file.endsWith("[RSSUseProxy]\r\n0\r\n[RSS Search0]\r\nfirst\r\n[RSS Search1]\r\nsecond\r\n"
                              "[RSS Search2]\r\nthird\r\n"));
}

// A workspace with every kind of background object and every setting away from its default. The
// reader's paths are filled in by the test (%1 the data folder, %2 the program folder).
constexpr const char* kRichFile = R"([1.05]
[Hidden]
0
[WindowState]
 0 
[X]
 1234.5 
[Y]
-60 
[W]
 12000 
[H]
 6000 
[Align]
0
[Capture]
1
[ConfirmDelete]
0
[EnableSounds]
OFF
[AutoExpand]
0
[GlobalHotkey]
0
[AddNewToolbar]
0
[ExtractURLs]
0
[FoldOnClick]
0
[Translucent]
1
[Animate Dock]
0
[Wide Docking Border]
1
[Undock Immediately]
0
[Taskbar]
0
[Buttons]
Black on Silver
[Font Size]
 12 
[Font Name]
DejaVu Sans
[Large Icon Size]
 48 
[LOCKED]
1
[Background]
 1193046 
[PictureBorder]
 255 
[ContainerFor]
 65280 
[ContainerLabel]
 0 
[DockingColor]
 8421504 
[ContainerTextBack]
 12632256 
[ContainerTextFor]
 128 
[Foreground]
 32896 
[Wallpaper]
%1/Skin/Wallpaper/Sea.jpg
[Stretch]
0
[ShowTime]
1
[DropShadow]
0
[ShowTags]
0
[Dbl-Click]
0
[CollapseBeforeLaunch]
0
[ConfirmStartAllShortcuts]
0
[RSSOpenDirectlyOnSite]
1
[RSSLoadOnStartup]
1
[RSSHighlight]
0
[RSSchkFullValue]
 1 
[RSSchkHeadlineValue]
 0 
[RSSViewerOnTop]
 1 
[RSSViewerX]
 2000 
[RSSViewerY]
 3000 
[RSSViewerW]
 9000 
[RSSViewerH]
 5000 
[RSSUseProxy]
proxy.example:8080
[RSS Search0]
linux
[RSS Search1]
qt 6
[RSS Search2]
weather
[Picture]
[Locked]
0
[PicX]
 600 
[PicY]
 900 
[PicW]
 3240 
[PicH]
 2640 
[PicPath]
%1/Pictures/cat.jpg
TEMP
TEMP
TEMP
TEMP
[Picture]
[Locked]
1
[PicX]
 4000.5 
[PicY]
 120 
[PicW]
 1740 
[PicH]
 1740 
[PicPath]
%1/Pictures/dog.gif
TEMP
TEMP
TEMP
TEMP
[Reminder]
[PicX]
 7000 
[PicY]
 300 
[Date]
Dec-25-2030
[Time]
08:05 PM
[Note]
Buy presents
for everyone

  and wrap them
[END Note]
[PicPath]
%2/alarmclockbl.gif
TEMP
TEMP
TEMP
TEMP
[Reminder]
[PicX]
 7500 
[PicY]
 2300 
[Date]
Jan/01/2031
[Time]
12:00 AM
[Note]
[empty]
[END Note]
[PicPath]
%2/alarmclock.gif
TEMP
TEMP
TEMP
TEMP
[Link]
[Size]
 12 
[LinkX]
 600 
[LinkY]
 3600 
[LinkLabel]
Example site
[LinkType]
 1 
[LinkPath]
https://example.org/
[LinkParam]

[Color]
-1
[Bold]
1
[Confirm]
0
[Command]
 0 
[Icon]

[GROUP]
web,news
[EXCLUSIVE]
news
[Link]
[Size]
 9.5 
[LinkX]
 600 
[LinkY]
 3900 
[LinkLabel]
notes.txt
[LinkType]
 2 
[LinkPath]
/home/user/notes.txt
[LinkParam]
--readonly
[Color]
 255 
[Bold]
0
[Confirm]
1
[Command]
 0 
[Icon]
/usr/share/icons/note.png
[GROUP]
work
[EXCLUSIVE]

[Link]
[Size]
 12 
[LinkX]
 3000.25 
[LinkY]
 3600 
[LinkLabel]
Update the system
[LinkType]
 2 
[LinkPath]
/bin/sh
[LinkParam]
apt update && apt upgrade
[Color]
 16776960 
[Bold]
1
[Confirm]
1
[Command]
 1 
[Icon]

[GROUP]
admin,work
[EXCLUSIVE]
admin
[Link]
[Size]
 12 
[LinkX]
 3000 
[LinkY]
 3900 
[LinkLabel]
  Padded address
[LinkType]
 1 
[LinkPath]
  https://example.com/a b
[LinkParam]

[Color]
 0 
[Bold]
0
[Confirm]
0
[Command]
 0 
[Icon]

[GROUP]

[EXCLUSIVE]

)";

class WorkspaceFileRoundTrip : public ::testing::Test {
protected:
    void SetUp() override {
        MakeImage(t, t.dataFile(QStringLiteral("Pictures/cat.jpg")), QSize(200, 160));
        MakeImage(t, t.dataFile(QStringLiteral("Pictures/dog.gif")), QSize(100, 100));
        MakeImage(t, QDir(t.programDir()).filePath(QStringLiteral("alarmclock.gif")), QSize(48, 48));
        MakeImage(t, QDir(t.programDir()).filePath(QStringLiteral("alarmclockbl.gif")), QSize(48, 48));
        MakeImage(t, t.dataFile(QStringLiteral("Skin/Wallpaper/Sea.jpg")), QSize(1920, 1080));
        rich = WithCrLf(QString::fromUtf8(kRichFile).arg(t.dataPath(), t.programDir()).toUtf8().constData());
        t.writeData(QStringLiteral("Perchdock.ini"), rich);
    }
    TestWorkspace t;
    QByteArray rich;
};

TEST_F(WorkspaceFileRoundTrip, LoadingAndSavingGivesTheSameBytes) {
    t.start();
    // The load built what the file describes.
    Workspace& ws = *t.ws;
    EXPECT_EQ(ws.DeskObjectCount, 4);
    EXPECT_EQ(ws.LinkCount, 4);
    EXPECT_TRUE(ws.picTemp(1).Visible.get());
    EXPECT_FALSE(ws.picPlaceholder(1).Visible.get());
    EXPECT_TRUE(ws.menus["mnuLock"].Checked());
    EXPECT_TRUE(ws.frmMain(0).Visible.get());
    EXPECT_EQ(Text(WorkspaceFileBytes(ws, false)), Text(rich));

    t.exit();
    EXPECT_EQ(Text(t.readData(QStringLiteral("Perchdock.ini"))), Text(rich));
}

TEST_F(WorkspaceFileRoundTrip, ASaveAfterARestartGivesTheSameBytes) {
    t.start();
    t.exit();
    const QByteArray first = t.readData(QStringLiteral("Perchdock.ini"));
    t.restart();
    t.start();
    t.exit();
    EXPECT_EQ(Text(t.readData(QStringLiteral("Perchdock.ini"))), Text(first));
    EXPECT_EQ(Text(first), Text(rich));
}

TEST(WorkspaceFileWrite, AFirstRunFileLoadsAndSavesToItself) {
    TestWorkspace t;
    t.start();
    t.exit();
    const QByteArray first = t.readData(QStringLiteral("Perchdock.ini"));
    t.restart();
    t.start();
    t.exit();
    EXPECT_EQ(Text(t.readData(QStringLiteral("Perchdock.ini"))), Text(first));
}
