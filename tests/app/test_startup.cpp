// The start of the process and the main window's life: the version text, the root test, the data
// directory, the update check, the load and the unload.

#include "app/MainWindow.h"
#include "app/Startup.h"
#include "app/WorkspaceFile.h"
#include "support/TestWorkspace.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

TEST(Startup, TheVersionTextIsBuiltFromTheVersionNumbers) {
    EXPECT_EQ(VersionText(), QStringLiteral("v1.0.01b"));
}

TEST(Startup, TheWindowsAndTheSplashShowTheVersion) {
    TestWorkspace t;
    ShowSplash(*t.ws);
    EXPECT_EQ(t.ws->splash.lblVersion(0).Caption.get(), QStringLiteral("v1.0.01b"));
    EXPECT_FALSE(t.ws->splash.frmSplash(0).Enabled.get());
    t.start();
    EXPECT_EQ(t.ws->lblCaption(0).Caption.get(), QStringLiteral("Perchdock v1.0.01b"));
    EXPECT_FALSE(t.ws->lblVersion(0).Visible.get());
}

TEST(Startup, TheRootTestStopsAProgramInTheRootDirectory) {
    FakePlatform p;
    EXPECT_FALSE(RootTest(p, QStringLiteral("/")));
    ASSERT_EQ(p.messages.size(), 1u);
    EXPECT_EQ(p.messages[0].text,
              QStringLiteral("Perchdock cannot run from root. Please reinstall and use the default installation path."));
    EXPECT_EQ(p.messages[0].style, 4112);

    FakePlatform q;
    EXPECT_FALSE(RootTest(q, QStringLiteral("//")));
    EXPECT_EQ(q.messages.size(), 1u);
}

TEST(Startup, TheRootTestLetsAnyOtherDirectoryPass) {
    FakePlatform p;
    EXPECT_TRUE(RootTest(p, QStringLiteral("/opt/perchdock")));
    EXPECT_TRUE(RootTest(p, QStringLiteral("/usr/bin/")));
    EXPECT_TRUE(p.messages.empty());
}

TEST(Startup, DataPathIsPerchdockInTheUsersDataDirectory) {
    TestWorkspace t;
    t.start();
    EXPECT_FALSE(t.ws->UsesProgramDirectory);
    EXPECT_EQ(t.ws->DataPath, QDir(t.platform.dataDir).filePath(QStringLiteral("Perchdock")));
    EXPECT_EQ(t.ws->DataPath, t.dataPath());
    EXPECT_EQ(t.ws->ProgramDirectory, t.programDir());
    // The first save makes the folder.
    EXPECT_FALSE(QFileInfo::exists(t.dataPath()));
    t.exit();
    EXPECT_TRUE(t.dataExists(QStringLiteral("Perchdock.ini")));
}

TEST(Startup, AnEmptyLocationRootMarkerKeepsTheDataBesideTheProgram) {
    TestWorkspace t;
    const QString marker = QDir(t.programDir()).filePath(QStringLiteral("LOCATIONROOT"));
    {
        QFile f(marker);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    }
    ASSERT_EQ(QFileInfo(marker).size(), 0);
    t.start();
    EXPECT_TRUE(t.ws->UsesProgramDirectory);
    EXPECT_EQ(t.ws->DataPath, t.programDir());
    t.exit();
    EXPECT_TRUE(QFileInfo::exists(QDir(t.programDir()).filePath(QStringLiteral("Perchdock.ini"))));
    EXPECT_FALSE(QFileInfo::exists(t.dataPath()));
}

TEST(Startup, TheWorkspaceBesideTheProgramIsTheOneLoaded) {
    TestWorkspace t;
    QFile marker(QDir(t.programDir()).filePath(QStringLiteral("LOCATIONROOT")));
    ASSERT_TRUE(marker.open(QIODevice::WriteOnly));
    marker.write("anything");
    marker.close();
    QFile ini(QDir(t.programDir()).filePath(QStringLiteral("Perchdock.ini")));
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write(CrLf({"[1.05]", "[Font Name]", "Beside"}));
    ini.close();
    t.writeData(QStringLiteral("Perchdock.ini"), CrLf({"[1.05]", "[Font Name]", "Elsewhere"}));
    t.start();
    EXPECT_EQ(t.ws->LinkFontName, QStringLiteral("Beside"));
}

TEST(Startup, WithoutADataDirectoryNothingIsReadOrWritten) {
    TestWorkspace t;
    t.platform.dataDir.clear();
    // Run in a folder of our own, so that a file written relative to it would show.
    QTemporaryDir cwd;
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(cwd.path()));
    QFile stray(QStringLiteral("Perchdock.ini"));
    ASSERT_TRUE(stray.open(QIODevice::WriteOnly));
    stray.write(CrLf({"[1.05]", "[Font Name]", "Stray"}));
    stray.close();

    t.start();
    EXPECT_TRUE(t.ws->DataPath.isEmpty());
    EXPECT_EQ(t.ws->LinkFontName, QStringLiteral("Verdana"));
    EXPECT_EQ(t.ws->frmMain(0).Top.get(), -100.0f);
    t.exit();
    EXPECT_EQ(QDir(cwd.path()).entryList(QDir::Files), QStringList({QStringLiteral("Perchdock.ini")}));
    QFile check(QStringLiteral("Perchdock.ini"));
    ASSERT_TRUE(check.open(QIODevice::ReadOnly));
    EXPECT_EQ(check.readAll(), CrLf({"[1.05]", "[Font Name]", "Stray"}));
    QDir::setCurrent(before);
}

TEST(Startup, CheckForUpdateOpensTheUpdatePageWithTheVersion) {
    TestWorkspace t;
    t.start();
    CheckForUpdate(*t.ws);
    ASSERT_EQ(t.platform.opened.size(), 1u);
    EXPECT_EQ(t.platform.opened[0], QString::fromLatin1(kUpdateAddress) + QStringLiteral("?1001"));
    EXPECT_TRUE(t.platform.opened[0].startsWith(QStringLiteral("https://")));

    // The menu entry does the same.
    WireCoreCommands(*t.ws);
    t.ws->menus["mnuCheckForUpdate"].Click();
    ASSERT_EQ(t.platform.opened.size(), 2u);
    EXPECT_EQ(t.platform.opened[1], t.platform.opened[0]);
}

// --- the main window ---

TEST(MainWindow, TheLoadSetsTheDefaults) {
    TestWorkspace t;
    MainWindowLoad(*t.ws);
    Workspace& ws = *t.ws;
    EXPECT_TRUE(ws.IsLoading);
    EXPECT_EQ(ws.frmMain(0).Height.get(), 5265.0f);
    EXPECT_EQ(ws.Link(0).ForeColor.get(), 0xFFFFFF);
    EXPECT_EQ(ws.RSSViewerX, 1000);
    EXPECT_EQ(ws.RSSViewerY, 1000);
    EXPECT_EQ(ws.RSSViewerW, 8295);
    EXPECT_EQ(ws.RSSViewerH, 4665);
    EXPECT_TRUE(ws.ConfirmDelete);
    EXPECT_EQ(ws.RSSchkFullValue, 0);
    EXPECT_EQ(ws.RSSchkHeadlineValue, 1);
    EXPECT_EQ(ws.RSSViewerOnTop, 0);
    EXPECT_EQ(ws.DropX, 600.0f);
    EXPECT_EQ(ws.DropY, 200.0f);
    EXPECT_EQ(ws.PicIcon(0).Width.get(), 240.0f);
    EXPECT_EQ(ws.PicIcon(0).Height.get(), 240.0f);
    EXPECT_EQ(ws.ShrinkIcon(0).Width.get(), 960.0f);
    EXPECT_EQ(ws.ShrinkIcon(0).Height.get(), 960.0f);
    EXPECT_EQ(ws.DockingColor, 0xFF0000);
    EXPECT_FALSE(ws.menus["mnuLock"].Checked());
    EXPECT_FALSE(ws.NoSave);
    EXPECT_TRUE(t.platform.trayShown);
}

TEST(MainWindow, AFirstRunComesUpCentredAndVisible) {
    TestWorkspace t;
    t.start();
    const Element& win = t.ws->frmMain(0);
    EXPECT_FALSE(t.ws->IsLoading);
    EXPECT_TRUE(win.Visible.get());
    EXPECT_EQ(win.Width.get(), 10065.0f);
    EXPECT_EQ(win.Left.get(), (1920 * 15 - 10065) / 2.0f);
    EXPECT_EQ(win.Top.get(), -100.0f);
    EXPECT_EQ(t.ws->picBack(0).BackColor.get(), 0x290700);
    EXPECT_EQ(win.BackColor.get(), 0x290700);
    EXPECT_EQ(t.ws->Group(0).BackColor.get(), 0x954815);
    EXPECT_EQ(t.ws->LstRSS(0).BackColor.get(), 0x290700);
    EXPECT_TRUE(t.ws->WallpaperPath.isEmpty());
    EXPECT_TRUE(t.ws->StretchWallpaper);
    EXPECT_TRUE(t.platform.hotKeyRegistered);
}

TEST(MainWindow, AFirstRunTakesTheDefaultWallpaperWhenItIsThere) {
    TestWorkspace t;
    t.writeData(QStringLiteral("Skin/Wallpaper/PlainWhiteOnBlue.jpg"), "JFIF");
    t.start();
    const QString wallpaper = t.dataFile(QStringLiteral("Skin/Wallpaper/PlainWhiteOnBlue.jpg"));
    EXPECT_EQ(t.ws->WallpaperPath, wallpaper);
    EXPECT_EQ(t.ws->imgBack(0).Picture.get(), wallpaper);
    t.exit();
    EXPECT_TRUE(t.readData(QStringLiteral("Perchdock.ini")).contains("[Wallpaper]\r\n" + wallpaper.toUtf8() + "\r\n"));
}

TEST(MainWindow, TheUnloadSavesAndReleasesEverythingOnce) {
    TestWorkspace t;
    t.start();
    ASSERT_TRUE(t.platform.trayShown);
    ASSERT_TRUE(t.platform.hotKeyRegistered);
    int unloaded = 0;
    t.ws->onUnloaded = [&unloaded] { ++unloaded; };
    t.exit();
    EXPECT_TRUE(t.ws->Unloaded);
    EXPECT_FALSE(t.platform.trayShown);
    EXPECT_FALSE(t.platform.hotKeyRegistered);
    EXPECT_GE(t.platform.doEventsCalls, 1);
    EXPECT_EQ(unloaded, 1);
    const QByteArray saved = t.readData(QStringLiteral("Perchdock.ini"));
    EXPECT_FALSE(saved.isEmpty());

    // Only the first unload runs.
    t.ws->menus["mnuAlign"].setChecked(false);
    t.exit();
    EXPECT_EQ(unloaded, 1);
    EXPECT_EQ(t.readData(QStringLiteral("Perchdock.ini")), saved);
}

TEST(MainWindow, BothExitEntriesUnload) {
    TestWorkspace t;
    WireCoreCommands(*t.ws);
    t.start();
    t.ws->menus["mnuExitApp"].Click();
    EXPECT_TRUE(t.ws->Unloaded);
    EXPECT_TRUE(t.dataExists(QStringLiteral("Perchdock.ini")));

    TestWorkspace u;
    WireCoreCommands(*u.ws);
    u.start();
    u.ws->menus["mnuExitMainWin"].Click();
    EXPECT_TRUE(u.ws->Unloaded);
    EXPECT_TRUE(u.dataExists(QStringLiteral("Perchdock.ini")));
}

TEST(MainWindow, ResizeDoesNothingWhileLoading) {
    TestWorkspace t;
    MainWindowLoad(*t.ws);
    Element& win = t.ws->frmMain(0);
    win.Width = 50;
    win.WindowState = 1;
    win.Visible = true;
    MainWindowResize(*t.ws);
    EXPECT_EQ(win.Width.get(), 50.0f);
    EXPECT_TRUE(win.Visible.get());
}

TEST(MainWindow, AMinimisedWindowGoesToTheTray) {
    TestWorkspace t;
    t.start();
    Element& win = t.ws->frmMain(0);
    win.WindowState = 1;
    MainWindowResize(*t.ws);
    EXPECT_FALSE(win.Visible.get());
}

TEST(MainWindow, ATinyWindowGrowsToASquare) {
    TestWorkspace t;
    t.start();
    Element& win = t.ws->frmMain(0);
    win.Caption = QStringLiteral("x");
    win.Width = 99;
    MainWindowResize(*t.ws);
    EXPECT_EQ(win.Width.get(), 1500.0f);
    EXPECT_EQ(win.Height.get(), 1500.0f);
    EXPECT_TRUE(win.Caption.get().isEmpty());

    win.Width = 8000;
    win.Height = 4000;
    MainWindowResize(*t.ws);
    EXPECT_EQ(win.Width.get(), 8000.0f);
    EXPECT_EQ(win.Height.get(), 4000.0f);
}
