// Reading the workspace file: the key loop, the encodings, the version markers, and the records read by
// position, with the tolerance the format relies on.

#include "app/WorkspaceFile.h"
#include "support/TestWorkspace.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

// Shows texts readably in failures.
void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

// Registers an image the fake platform can load, and creates the file so that existence tests pass.
QString MakeImage(TestWorkspace& t, const QString& path, QSize size = QSize(100, 80)) {
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    if (f.open(QIODevice::WriteOnly)) f.write("GIF89a");
    t.platform.images[path] = size;
    return path;
}

QString ProgramFile(TestWorkspace& t, const char* name) { return QDir(t.programDir()).filePath(QString::fromLatin1(name)); }

// Writes the workspace file and starts the program over it.
void StartWith(TestWorkspace& t, const QByteArray& file) {
    t.writeData(QStringLiteral("Perchdock.ini"), file);
    t.start();
}

QString S(const char* text) { return QString::fromUtf8(text); }

} // namespace

// --- settings and their encodings ---

TEST(WorkspaceFileRead, NumbersAreReadWithAndWithoutBlanks) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Font Size]", "14", "[Large Icon Size]", " 48 ", "[RSSViewerX]", "   2000",
                       "[RSSViewerY]", "3000   ", "[Background]", "255", "[DockingColor]", " 65280 ",
                       "[RSSchkHeadlineValue]", " 0 "}));
    const Workspace& ws = *t.ws;
    EXPECT_EQ(ws.LinkFontSize, 14);
    EXPECT_EQ(ws.LargeIconSize, 48);
    EXPECT_EQ(ws.RSSViewerX, 2000);
    EXPECT_EQ(ws.RSSViewerY, 3000);
    EXPECT_EQ(ws.picBack(0).BackColor.get(), 255);
    EXPECT_EQ(ws.DockingColor, 65280);
    EXPECT_EQ(ws.RSSchkHeadlineValue, 0);
}

TEST(WorkspaceFileRead, ADecimalCommaIsRead) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[WindowState]", " 0 ", "[X]", " 1234,5 ", "[Y]", "-60,25 ", "[W]", " 12000,75 ",
                       "[H]", "6000.5", "[Link]", "[Size]", " 9,5 ", "[LinkX]", " 600,5 ", "[LinkY]", " 700 ",
                       "[LinkLabel]", "a", "[LinkType]", " 1 ", "[LinkPath]", "https://a.example/", "[LinkParam]", "",
                       "[Color]", "-1", "[Bold]", "0", "[Confirm]", "0", "[Command]", " 0 ", "[Icon]", "", "[GROUP]",
                       "", "[EXCLUSIVE]", ""}));
    const Element& win = t.ws->frmMain(0);
    EXPECT_EQ(win.Left.get(), 1234.5f);
    EXPECT_EQ(win.Top.get(), -60.25f);
    EXPECT_EQ(win.Width.get(), 12000.75f);
    EXPECT_EQ(win.Height.get(), 6000.5f);
    EXPECT_EQ(t.ws->Link(0).FontSize.get(), 9.5f);
    EXPECT_EQ(t.ws->Link(0).Left.get(), 600.5f);
    // Written back with a point.
    EXPECT_TRUE(WorkspaceFileBytes(*t.ws, false).contains("[X]\r\n 1234.5 \r\n[Y]\r\n-60.25 \r\n"));
}

TEST(WorkspaceFileRead, ABadNumberLeavesTheValueAsItWas) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Font Size]", "big", "[Large Icon Size]", "40000", "[Background]", "255",
                       "[Background]", "navy", "[RSSchkHeadlineValue]", "", "[RSSViewerW]", "9e", "[ConfirmDelete]",
                       "maybe", "[Align]", "yes", "[Stretch]", "-", "[WindowState]", " 0 ", "[X]", "left", "[W]",
                       " 12000 "}));
    const Workspace& ws = *t.ws;
    EXPECT_EQ(ws.LinkFontSize, 10);
    EXPECT_EQ(ws.LargeIconSize, 32);
    EXPECT_EQ(ws.picBack(0).BackColor.get(), 255);
    EXPECT_EQ(ws.RSSchkHeadlineValue, 1);
    EXPECT_EQ(ws.RSSViewerW, 8295);
    EXPECT_TRUE(ws.ConfirmDelete);
    EXPECT_TRUE(t.ws->menus["mnuAlign"].Checked());
    EXPECT_TRUE(ws.StretchWallpaper);
    // The window keeps the left of its load, and takes the width that did convert.
    EXPECT_EQ(ws.frmMain(0).Left.get(), 0.0f);
    EXPECT_EQ(ws.frmMain(0).Width.get(), 12000.0f);
}

TEST(WorkspaceFileRead, FlagsAcceptNumbersAndWords) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Align]", " 0 ", "[Capture]", "-1", "[AutoExpand]", "False", "[Translucent]", "True",
                       "[ShowTime]", "1", "[ConfirmDelete]", "0"}));
    Workspace& ws = *t.ws;
    EXPECT_FALSE(ws.menus["mnuAlign"].Checked());
    EXPECT_TRUE(ws.menus["mnuCaptureContainers"].Checked());
    EXPECT_FALSE(ws.menus["mnuAutoExpand"].Checked());
    EXPECT_TRUE(ws.menus["mnuTranslucent"].Checked());
    EXPECT_TRUE(ws.menus["mnuShowTime"].Checked());
    EXPECT_FALSE(ws.ConfirmDelete);
    // The menu entry shows the setting after the load.
    EXPECT_FALSE(ws.menus["mnuDeleteConfirmation"].Checked());
}

TEST(WorkspaceFileRead, UnknownLinesAndTheFixedRowsCostNothing) {
    // [Taskbar] is no key of the reader: its value line is an unknown line like any other, so a file
    // whose [Taskbar] lost its value still reads the key after it.
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "TEMP", "[Taskbar]", "[Font Name]", "Tahoma", "[Unknown]", "[Buttons]", "[EnableSounds]",
                       "ON", "[Large Icon Size]", " 24 ", "[font size]", " 30 ", " [Font Size]", " 31 "}));
    EXPECT_EQ(t.ws->LinkFontName, S("Tahoma"));
    // "[Unknown]" is skipped, and "[Buttons]" is a key whose value is the next line.
    EXPECT_EQ(t.ws->ButtonSet, S("[EnableSounds]"));
    EXPECT_EQ(t.ws->LargeIconSize, 24);
    // Keys are compared exactly: case and blanks count.
    EXPECT_EQ(t.ws->LinkFontSize, 10);
}

TEST(WorkspaceFileRead, TextValuesAreTrimmedWhereTheFormatSaysSo) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Buttons]", "  Black on Silver  ", "[Font Name]", " DejaVu Sans ", "[RSS Search0]",
                       "  linux  "}));
    EXPECT_EQ(t.ws->ButtonSet, S("Black on Silver"));
    EXPECT_EQ(t.ws->LinkFontName, S("DejaVu Sans"));
    EXPECT_EQ(t.ws->menus("mnuRSSSearchItem", 0).Caption(), S("linux"));
}

TEST(WorkspaceFileRead, ColoursGoToTheirElements) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Background]", " 1193046 ", "[PictureBorder]", " 255 ", "[ContainerFor]", " 65280 ",
                       "[ContainerLabel]", " 0 ", "[ContainerTextBack]", " 12632256 ", "[ContainerTextFor]", " 128 ",
                       "[Foreground]", " 32896 "}));
    Workspace& ws = *t.ws;
    EXPECT_EQ(ws.picBack(0).BackColor.get(), 1193046);
    EXPECT_EQ(ws.frmMain(0).BackColor.get(), 1193046);
    EXPECT_EQ(ws.picMoveMe(0).BackColor.get(), 1193046);
    EXPECT_EQ(ws.PicDock(0).BackColor.get(), 1193046);
    EXPECT_EQ(ws.picPlaceholder(0).BackColor.get(), 255);
    EXPECT_EQ(ws.ContainerColor, 65280);
    EXPECT_EQ(ws.ContainerLabelColor, 0);
    EXPECT_EQ(ws.txtNote(0).BackColor.get(), 12632256);
    EXPECT_EQ(ws.LstRSS(0).TextBackColor.get(), 12632256);
    EXPECT_EQ(ws.txtNote(0).ForeColor.get(), 128);
    EXPECT_EQ(ws.LstRSS(0).ForeColor.get(), 128);
    EXPECT_EQ(ws.picBack(0).ForeColor.get(), 32896);
    EXPECT_EQ(ws.lblCaption(0).ForeColor.get(), 32896);
}

TEST(WorkspaceFileRead, AWallpaperThatHasGoneIsIgnored) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Wallpaper]", "/nowhere/gone.jpg", "[Stretch]", "1"}));
    EXPECT_TRUE(t.ws->WallpaperPath.isEmpty());
    EXPECT_TRUE(t.ws->imgBack(0).Picture.get().isEmpty());
    EXPECT_TRUE(t.ws->picBack(0).Picture.get().isEmpty());
    EXPECT_TRUE(WorkspaceFileBytes(*t.ws, false).contains("[Wallpaper]\r\n\r\n[Stretch]\r\n1\r\n"));
}

TEST(WorkspaceFileRead, AWallpaperThatExistsIsKeptAndShown) {
    TestWorkspace stretched;
    const QString sea = MakeImage(stretched, stretched.dataFile(QStringLiteral("Skin/Wallpaper/Sea.jpg")));
    StartWith(stretched, CrLf({"[1.05]", "[Wallpaper]", sea.toUtf8().constData(), "[Stretch]", "1"}));
    EXPECT_EQ(stretched.ws->WallpaperPath, sea);
    EXPECT_EQ(stretched.ws->imgBack(0).Picture.get(), sea);

    TestWorkspace plain;
    const QString sky = MakeImage(plain, plain.dataFile(QStringLiteral("Skin/Wallpaper/Sky.jpg")));
    StartWith(plain, CrLf({"[1.05]", "[Stretch]", "0", "[Wallpaper]", sky.toUtf8().constData()}));
    EXPECT_EQ(plain.ws->WallpaperPath, sky);
    EXPECT_FALSE(plain.ws->StretchWallpaper);
    EXPECT_EQ(plain.ws->picBack(0).Picture.get(), sky);
    EXPECT_TRUE(plain.ws->imgBack(0).Picture.get().isEmpty());
}

// --- the window ---

TEST(WorkspaceFileRead, WindowStateNormalTakesThePlaceFromTheFile) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Hidden]", "0", "[WindowState]", " 0 ", "[X]", " 300 ", "[Y]", " 400 ", "[W]",
                       " 9000 ", "[H]", " 6000 "}));
    const Element& win = t.ws->frmMain(0);
    EXPECT_EQ(win.WindowState.get(), 0);
    EXPECT_EQ(win.Left.get(), 300.0f);
    EXPECT_EQ(win.Top.get(), 400.0f);
    EXPECT_EQ(win.Width.get(), 9000.0f);
    EXPECT_EQ(win.Height.get(), 6000.0f);
    EXPECT_TRUE(win.Visible.get());
}

TEST(WorkspaceFileRead, WindowStateMinimisedComesBackShownAndMaximised) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Hidden]", "0", "[WindowState]", " 1 ", "[X]", " 300 ", "[Y]", " 400 ", "[W]",
                       " 9000 ", "[H]", " 6000 "}));
    const Element& win = t.ws->frmMain(0);
    // Hidden by the state, shown again at the end of the load, and maximised.
    EXPECT_TRUE(win.Visible.get());
    EXPECT_EQ(win.WindowState.get(), 2);
    EXPECT_EQ(win.Left.get(), 300.0f);
    EXPECT_EQ(win.Top.get(), 400.0f);
    EXPECT_EQ(win.Width.get(), 9000.0f);
    EXPECT_EQ(win.Height.get(), 6000.0f);
}

TEST(WorkspaceFileRead, WindowStateMaximisedGetsTheFixedNormalSize) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Hidden]", "0", "[WindowState]", " 2 ", "[X]", " 300 ", "[Y]", " 400 ", "[W]",
                       " 9000 ", "[H]", " 6000 "}));
    const Element& win = t.ws->frmMain(0);
    EXPECT_EQ(win.WindowState.get(), 2);
    EXPECT_EQ(win.Left.get(), 300.0f);
    EXPECT_EQ(win.Top.get(), 400.0f);
    EXPECT_EQ(win.Width.get(), 10290.0f);
    EXPECT_EQ(win.Height.get(), 7560.0f);
    // An exit save writes the state and that normal size.
    t.exit();
    EXPECT_TRUE(t.readData(QStringLiteral("Perchdock.ini"))
                    .contains("[WindowState]\r\n 2 \r\n[X]\r\n 300 \r\n[Y]\r\n 400 \r\n[W]\r\n 10290 \r\n[H]\r\n 7560 \r\n"));
}

TEST(WorkspaceFileRead, WithoutAWindowStateTheWindowKeepsItsLoadPlace) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[X]", " 300 ", "[Y]", " 400 ", "[W]", " 9000 "}));
    const Element& win = t.ws->frmMain(0);
    EXPECT_EQ(win.Left.get(), 0.0f);
    EXPECT_EQ(win.Width.get(), 10065.0f);
    EXPECT_EQ(win.Height.get(), 5265.0f);
}

TEST(WorkspaceFileRead, HiddenOneIsShownAgain) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Hidden]", "1", "[WindowState]", " 0 "}));
    EXPECT_TRUE(t.ws->frmMain(0).Visible.get());
}

TEST(WorkspaceFileRead, HiddenTrueStaysHidden) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Hidden]", "True", "[WindowState]", " 0 "}));
    EXPECT_FALSE(t.ws->frmMain(0).Visible.get());

    // The comparison is with the raw line: blanks around "True" show the window.
    TestWorkspace u;
    StartWith(u, CrLf({"[1.05]", "[Hidden]", " True", "[WindowState]", " 0 "}));
    EXPECT_TRUE(u.ws->frmMain(0).Visible.get());
}

TEST(WorkspaceFileRead, LockedChecksTheLockAndShowsItsButton) {
    TestWorkspace locked;
    StartWith(locked, CrLf({"[1.05]", "[LOCKED]", " 1 "}));
    EXPECT_TRUE(locked.ws->menus["mnuLock"].Checked());
    EXPECT_TRUE(locked.ws->PicLockToolbar(0).Visible.get());
    EXPECT_FALSE(locked.ws->PicUnLockToolbar(0).Visible.get());

    TestWorkspace open;
    StartWith(open, CrLf({"[1.05]", "[LOCKED]", "0"}));
    EXPECT_FALSE(open.ws->menus["mnuLock"].Checked());
    EXPECT_FALSE(open.ws->PicLockToolbar(0).Visible.get());
    EXPECT_TRUE(open.ws->PicUnLockToolbar(0).Visible.get());
}

TEST(WorkspaceFileRead, TheHotKeyIsRegisteredOnlyWhenChecked) {
    TestWorkspace on;
    StartWith(on, CrLf({"[1.05]", "[GlobalHotkey]", "1"}));
    EXPECT_TRUE(on.platform.hotKeyRegistered);
    EXPECT_FALSE(on.ws->IsLoading);

    TestWorkspace off;
    StartWith(off, CrLf({"[1.05]", "[GlobalHotkey]", "0"}));
    EXPECT_FALSE(off.platform.hotKeyRegistered);
}

// --- feed settings ---

TEST(WorkspaceFileRead, RecentSearchesFillTheMenu) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[RSS Search0]", "s0", "[RSS Search1]", "s1", "[RSS Search2]", " s2 ", "[RSS Search3]",
                       "s3", "[RSS Search4]", "s4", "[RSS Search5]", "s5", "[RSS Search6]", "s6", "[RSS Search7]", "s7",
                       "[RSS Search8]", "s8", "[RSS Search9]", "s9", "[RSS Search10]", "s10"}));
    Menus& m = t.ws->menus;
    EXPECT_EQ(m.familyCount(QStringLiteral("mnuRSSSearchItem")), 10);
    for (int n = 0; n < 10; ++n) {
        EXPECT_EQ(m("mnuRSSSearchItem", n).Caption(), QStringLiteral("s%1").arg(n)) << n;
        EXPECT_TRUE(m("mnuRSSSearchItem", n).Visible()) << n;
    }
    const QByteArray file = WorkspaceFileBytes(*t.ws, false);
    EXPECT_TRUE(file.contains("[RSS Search0]\r\ns0\r\n[RSS Search1]\r\ns1\r\n[RSS Search2]\r\ns2\r\n"));
    EXPECT_TRUE(file.endsWith("[RSS Search9]\r\ns9\r\n"));
    EXPECT_FALSE(file.contains("[RSS Search10]"));
}

TEST(WorkspaceFileRead, WithoutSearchesTheFirstEntryKeepsItsPlaceholder) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[RSSUseProxy]", "0"}));
    EXPECT_EQ(t.ws->menus("mnuRSSSearchItem", 0).Caption(), S("[No Recent Search]"));
    EXPECT_FALSE(WorkspaceFileBytes(*t.ws, false).contains("[RSS Search"));
}

TEST(WorkspaceFileRead, ViewerPlaceAboveAWordKeepsTheDefault) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[RSSViewerX]", " 32768 ", "[RSSViewerY]", " 32767 ", "[RSSViewerW]", " 40000 ",
                       "[RSSViewerH]", "-32768 "}));
    EXPECT_EQ(t.ws->RSSViewerX, 1000);
    EXPECT_EQ(t.ws->RSSViewerY, 32767);
    EXPECT_EQ(t.ws->RSSViewerW, 8295);
    EXPECT_EQ(t.ws->RSSViewerH, -32768);
}

TEST(WorkspaceFileRead, ProxyZeroMeansNoneAndAnythingElseChecksTheEntry) {
    TestWorkspace none;
    StartWith(none, CrLf({"[1.05]", "[RSSUseProxy]", " 0 "}));
    EXPECT_TRUE(none.ws->ProxyServer.isEmpty());
    EXPECT_FALSE(none.ws->menus["mnuRSSSetProxy"].Checked());
    EXPECT_TRUE(WorkspaceFileBytes(*none.ws, false).contains("[RSSUseProxy]\r\n0\r\n"));

    TestWorkspace proxy;
    StartWith(proxy, CrLf({"[1.05]", "[RSSUseProxy]", "  proxy.example:3128 "}));
    EXPECT_EQ(proxy.ws->ProxyServer, S("proxy.example:3128"));
    EXPECT_TRUE(proxy.ws->menus["mnuRSSSetProxy"].Checked());
    EXPECT_TRUE(WorkspaceFileBytes(*proxy.ws, false).contains("[RSSUseProxy]\r\nproxy.example:3128\r\n"));

    // An empty value names no server either.
    TestWorkspace empty;
    StartWith(empty, CrLf({"[1.05]", "[RSSUseProxy]", "  "}));
    EXPECT_TRUE(empty.ws->ProxyServer.isEmpty());
    EXPECT_FALSE(empty.ws->menus["mnuRSSSetProxy"].Checked());
}

// --- shortcuts ---

namespace {
// A full "[1.05]" shortcut record.
std::vector<const char*> LinkLines(const char* type, const char* path, const char* label = "label",
                                    const char* param = "", const char* color = "-1", const char* bold = "0",
                                    const char* icon = "", const char* tags = "", const char* mark = "",
                                    const char* x = " 600 ", const char* y = " 700 ") {
    return {"[Link]",      "[Size]",      " 12 ",   "[LinkX]",   x,      "[LinkY]", y,           "[LinkLabel]",
            label,         "[LinkType]",  type,     "[LinkPath]", path,  "[LinkParam]", param,   "[Color]",
            color,         "[Bold]",      bold,     "[Confirm]", "1",    "[Command]",   " 1 ",   "[Icon]",
            icon,          "[GROUP]",     tags,     "[EXCLUSIVE]", mark};
}

QByteArray Join(std::initializer_list<std::vector<const char*>> parts) {
    QByteArray out;
    for (const auto& p : parts)
        for (const char* l : p) out += QByteArray(l) + "\r\n";
    return out;
}
} // namespace

TEST(WorkspaceFileRead, AWebShortcutIsPlacedWithItsFields) {
    TestWorkspace t;
    StartWith(t, Join({{"[1.05]"},
                       LinkLines(" 1 ", "https://example.org/", "Example", "p", " 255 ", "1", "/i.png", "a,b", " m ",
                                  " 900 ", " 1200 ")}));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.LinkCount, 1);
    const LinkRecord& r = ws.Links[0];
    EXPECT_EQ(r.LinkType, 1.0f);
    EXPECT_EQ(r.LinkPath, S("https://example.org/"));
    EXPECT_EQ(r.LinkParam, S("p"));
    EXPECT_EQ(r.LinkColor, 255);
    EXPECT_TRUE(r.Bold);
    EXPECT_TRUE(r.Confirm);
    EXPECT_EQ(r.Command, 1);
    EXPECT_EQ(r.LinkIcon, S("/i.png"));
    EXPECT_EQ(r.Tags, S("a,b"));
    EXPECT_EQ(r.MarkTag, S("m"));
    EXPECT_EQ(r.Size, 12);
    const Element& label = ws.Link(0);
    EXPECT_EQ(label.Caption.get(), S("Example"));
    EXPECT_EQ(label.Left.get(), 900.0f);
    EXPECT_EQ(label.Top.get(), 1200.0f);
    EXPECT_EQ(label.FontSize.get(), 12.0f);
    EXPECT_EQ(label.ForeColor.get(), 255);
    EXPECT_TRUE(label.FontBold.get());
    EXPECT_EQ(label.Container(), &ws.picBack(0));
    // A 12-point label has the large icon (32 pixels), 50 twips to its left and centred on it.
    const Element& icon = ws.PicIcon(r.IconIndex);
    EXPECT_EQ(icon.Width.get(), 32.0f * 15);
    EXPECT_EQ(icon.Left.get(), 900.0f - 32 * 15 - 50);
    EXPECT_EQ(icon.Top.get(), 1200.0f + label.Height.get() / 2 - 32 * 15 / 2);
}

TEST(WorkspaceFileRead, AFileShortcutIsPlacedWithItsFields) {
    TestWorkspace t;
    StartWith(t, Join({{"[1.05]"}, LinkLines(" 2 ", "/home/u/notes.txt", "My notes", "--ro", "-1", "0")}));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.LinkCount, 1);
    EXPECT_EQ(ws.Links[0].LinkType, 2.0f);
    EXPECT_EQ(ws.Links[0].LinkPath, S("/home/u/notes.txt"));
    EXPECT_EQ(ws.Links[0].LinkParam, S("--ro"));
    EXPECT_EQ(ws.Link(0).Caption.get(), S("My notes"));
    EXPECT_EQ(ws.Link(0).Left.get(), 600.0f);
    EXPECT_EQ(ws.Link(0).Top.get(), 700.0f);
}

TEST(WorkspaceFileRead, AWebShortcutKeepsTheLeadingBlanksOfItsPath) {
    TestWorkspace t;
    StartWith(t, Join({{"[1.05]"}, LinkLines(" 1 ", "   https://example.org/x "), LinkLines(" 2 ", "  /tmp/file ")}));
    ASSERT_EQ(t.ws->LinkCount, 2);
    EXPECT_EQ(t.ws->Links[0].LinkPath, S("   https://example.org/x "));
    // A file shortcut's path goes through the adder, which trims it.
    EXPECT_EQ(t.ws->Links[1].LinkPath, S("/tmp/file"));
    EXPECT_TRUE(WorkspaceFileBytes(*t.ws, false).contains("[LinkPath]\r\n   https://example.org/x \r\n"));
}

TEST(WorkspaceFileRead, ANonNumericTypeCreatesNothingAndOverwritesThePreviousRecord) {
    TestWorkspace t;
    StartWith(t, Join({{"[1.05]"},
                       LinkLines(" 2 ", "/first", "First", "p1", " 100 ", "0", "/first.png", "t1", "m1"),
                       LinkLines("two", "/second", "Second", "p2", " 200 ", "1", "/second.png", "t2", "m2",
                                  " 5000 ", " 5000 ")}));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.LinkCount, 1);
    const LinkRecord& r = ws.Links[0];
    // The shortcut made by the first record, with the second record's fields.
    EXPECT_EQ(r.LinkPath, S("/first"));
    EXPECT_EQ(ws.Link(0).Caption.get(), S("First"));
    EXPECT_EQ(ws.Link(0).Left.get(), 600.0f);
    EXPECT_EQ(r.LinkParam, S("p2"));
    EXPECT_EQ(r.LinkIcon, S("/second.png"));
    EXPECT_EQ(r.Tags, S("t2"));
    EXPECT_EQ(r.MarkTag, S("m2"));
    EXPECT_EQ(r.LinkColor, 200);
    EXPECT_EQ(ws.Link(0).ForeColor.get(), 200);
    EXPECT_TRUE(r.Bold);
    EXPECT_TRUE(ws.Link(0).FontBold.get());
}

TEST(WorkspaceFileRead, ARecordOfAnotherTypeFirstInTheFileIsDropped) {
    TestWorkspace t;
    StartWith(t, Join({{"[1.05]"}, LinkLines(" 3 ", "/x"), {"[Font Name]", "After"}}));
    EXPECT_EQ(t.ws->LinkCount, 0);
    EXPECT_EQ(t.ws->LinkFontName, S("After"));
}

TEST(WorkspaceFileRead, ColourMinusOneFollowsTheBackgroundsForeColour) {
    TestWorkspace t;
    StartWith(t, Join({{"[1.05]", "[Foreground]", " 4227327 "},
                       LinkLines(" 1 ", "https://a.example/", "a", "", "-1"),
                       LinkLines(" 1 ", "https://b.example/", "b", "", " -1 "),
                       LinkLines(" 1 ", "https://c.example/", "c", "", " 0 "),
                       LinkLines(" 1 ", "https://d.example/", "d", "", " 16711680 "),
                       LinkLines(" 1 ", "https://e.example/", "e", "", "red")}));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.LinkCount, 5);
    EXPECT_EQ(ws.Links[0].LinkColor, -1);
    EXPECT_EQ(ws.Link(0).ForeColor.get(), 4227327);
    EXPECT_EQ(ws.Links[1].LinkColor, -1);
    EXPECT_EQ(ws.Link(1).ForeColor.get(), 4227327);
    EXPECT_EQ(ws.Links[2].LinkColor, 0);
    EXPECT_EQ(ws.Link(2).ForeColor.get(), 0);
    EXPECT_EQ(ws.Links[3].LinkColor, 16711680);
    EXPECT_EQ(ws.Link(3).ForeColor.get(), 16711680);
    // A colour that does not convert leaves the adder's -1.
    EXPECT_EQ(ws.Links[4].LinkColor, -1);
    const QByteArray file = WorkspaceFileBytes(ws, false);
    EXPECT_TRUE(file.contains("[LinkLabel]\r\na\r\n[LinkType]\r\n 1 \r\n[LinkPath]\r\nhttps://a.example/\r\n"
                              "[LinkParam]\r\n\r\n[Color]\r\n-1\r\n"));
    EXPECT_TRUE(file.contains("[LinkPath]\r\nhttps://c.example/\r\n[LinkParam]\r\n\r\n[Color]\r\n 0 \r\n"));
}

TEST(WorkspaceFileRead, IconTempBecomesEmptyAndExclusiveZeroBecomesEmpty) {
    TestWorkspace t;
    StartWith(t, Join({{"[1.05]"},
                       LinkLines(" 2 ", "/a", "a", "", "-1", "0", "TEMP", "x", "0"),
                       LinkLines(" 2 ", "/b", "b", "", "-1", "0", " TEMP", "x", " 0 "),
                       LinkLines(" 2 ", "/c", "c", "", "-1", "0", "temp", "x", "  work  "),
                       LinkLines(" 2 ", "/d", "d", "", "-1", "0", "", "x", "")}));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.LinkCount, 4);
    EXPECT_EQ(ws.Links[0].LinkIcon, S(""));
    EXPECT_EQ(ws.Links[0].MarkTag, S(""));
    // Only the exact text "TEMP" is the filler; the mark is trimmed before the test for "0".
    EXPECT_EQ(ws.Links[1].LinkIcon, S(" TEMP"));
    EXPECT_EQ(ws.Links[1].MarkTag, S(""));
    EXPECT_EQ(ws.Links[2].LinkIcon, S("temp"));
    EXPECT_EQ(ws.Links[2].MarkTag, S("work"));
    EXPECT_EQ(ws.Links[3].MarkTag, S(""));
}

// --- version markers: which fields each one reads by position ---

namespace {
struct VersionCase {
    const char* marker;
    bool hasConfirm; // [Confirm], [Command], [Icon]
    bool hasGroup;
    bool hasExclusive;
    bool longNote; // [Note] .. [END Note] and [PicPath]
};

// The records as a file of that version holds them: two shortcuts and a reminder, then a setting.
QByteArray FileOfVersion(const VersionCase& v, const QString& clock) {
    QByteArray f = QByteArray(v.marker) + "\r\n";
    auto line = [&](const QByteArray& l) { f += l + "\r\n"; };
    for (int i = 1; i <= 2; ++i) {
        const QByteArray n = QByteArray::number(i);
        for (const QByteArray& l : {QByteArray("[Link]"), QByteArray("[Size]"), " 1" + n + " ", QByteArray("[LinkX]"),
                                    " " + n + "00 ", QByteArray("[LinkY]"), QByteArray(" 50 "),
                                    QByteArray("[LinkLabel]"), "label" + n, QByteArray("[LinkType]"),
                                    QByteArray(" 2 "), QByteArray("[LinkPath]"), "/path" + n,
                                    QByteArray("[LinkParam]"), "param" + n, QByteArray("[Color]"), " " + n + " ",
                                    QByteArray("[Bold]"), QByteArray("1")})
            line(l);
        if (v.hasConfirm) {
            line("[Confirm]");
            line("1");
            line("[Command]");
            line(" 1 ");
            line("[Icon]");
            line("/icon" + n);
        }
        if (v.hasGroup) {
            line("[GROUP]");
            line("tag" + n);
        }
        if (v.hasExclusive) {
            line("[EXCLUSIVE]");
            line("mark" + n);
        }
    }
    for (const char* l : {"[Reminder]", "[PicX]", " 700 ", "[PicY]", " 800 ", "[Date]", "Dec-25-2030", "[Time]",
                          "08:05 PM", "[Note]"})
        line(l);
    if (v.longNote) {
        line("first line");
        line("second line");
        line("[END Note]");
        line("[PicPath]");
        line(clock.toUtf8());
        for (int i = 0; i < 4; ++i) line("TEMP");
    } else {
        line("the note");
    }
    line("[Font Name]");
    line("Probe");
    return f;
}

class VersionMarker : public ::testing::TestWithParam<VersionCase> {};
} // namespace

TEST_P(VersionMarker, ReadsTheFieldsItsFormatHas) {
    const VersionCase& v = GetParam();
    TestWorkspace t;
    MakeImage(t, ProgramFile(t, "alarmclock.gif"), QSize(32, 32));
    const QString green = MakeImage(t, ProgramFile(t, "alarmclockgr.gif"), QSize(32, 32));
    StartWith(t, FileOfVersion(v, green));
    Workspace& ws = *t.ws;

    // Both shortcuts came out whole, so each record took exactly its own lines.
    ASSERT_EQ(ws.LinkCount, 2);
    for (int k = 0; k < 2; ++k) {
        const QString n = QString::number(k + 1);
        const LinkRecord& r = ws.Links[k];
        EXPECT_EQ(ws.Link(k).Caption.get(), S("label") + n);
        EXPECT_EQ(r.LinkPath, S("/path") + n);
        EXPECT_EQ(r.LinkParam, S("param") + n);
        EXPECT_EQ(r.LinkColor, k + 1);
        EXPECT_EQ(ws.Link(k).FontSize.get(), 11.0f + k);
        EXPECT_EQ(ws.Link(k).Left.get(), 100.0f * (k + 1));
        EXPECT_TRUE(r.Bold);
        EXPECT_EQ(r.Confirm, v.hasConfirm);
        EXPECT_EQ(r.Command, v.hasConfirm ? 1 : 0);
        EXPECT_EQ(r.LinkIcon, v.hasConfirm ? S("/icon") + n : QString());
        EXPECT_EQ(r.Tags, v.hasGroup ? S("tag") + n : QString());
        EXPECT_EQ(r.MarkTag, v.hasExclusive ? S("mark") + n : QString());
    }

    ASSERT_EQ(ws.DeskObjectCount, 1);
    const DeskObjectRecord& rem = ws.DeskObjects[0];
    EXPECT_TRUE(rem.IsReminder);
    EXPECT_EQ(rem.Date, S("Dec-25-2030"));
    EXPECT_EQ(rem.Time, S("08:05 PM"));
    EXPECT_EQ(ws.picTemp(0).Left.get(), 700.0f);
    EXPECT_EQ(ws.picTemp(0).Top.get(), 800.0f);
    if (v.longNote) {
        EXPECT_EQ(rem.Note, S("first line\r\nsecond line"));
        EXPECT_EQ(rem.PicPath, green);
    } else {
        EXPECT_EQ(rem.Note, S("the note"));
        EXPECT_EQ(rem.PicPath, ProgramFile(t, "alarmclock.gif"));
    }
    EXPECT_EQ(ws.LinkFontName, S("Probe"));
}

INSTANTIATE_TEST_SUITE_P(
    WorkspaceFileRead, VersionMarker,
    ::testing::Values(VersionCase{"[1.05]", true, true, true, true}, VersionCase{"[1.04]", true, true, false, true},
                      VersionCase{"[1.03]", true, false, false, true}, VersionCase{"[1.02]", true, false, false, false},
                      VersionCase{"[1.01]", false, false, false, false},
                      // An unknown marker is read as far as the exact comparisons allow.
                      VersionCase{"[2.00]", true, false, false, false}, VersionCase{"", true, false, false, false}),
    [](const ::testing::TestParamInfo<VersionCase>& p) {
        QString name = QString::fromLatin1(p.param.marker);
        name.remove(QLatin1Char('[')).remove(QLatin1Char(']')).replace(QLatin1Char('.'), QLatin1Char('_'));
        return name.isEmpty() ? std::string("none") : "v" + name.toStdString();
    });

TEST(WorkspaceFileRead, TheMarkerIsTrimmedButOtherwiseExact) {
    TestWorkspace padded;
    StartWith(padded, Join({{" [1.05] "}, LinkLines(" 2 ", "/a", "a", "", "-1", "0", "", "tag", "mark")}));
    ASSERT_EQ(padded.ws->LinkCount, 1);
    EXPECT_EQ(padded.ws->Links[0].MarkTag, S("mark"));

    // "[1.5]" is no marker the reader knows: no tags and no mark are read.
    TestWorkspace other;
    StartWith(other, Join({{"[1.5]"}, LinkLines(" 2 ", "/a", "a", "", "-1", "0", "", "tag", "mark")}));
    ASSERT_EQ(other.ws->LinkCount, 1);
    EXPECT_EQ(other.ws->Links[0].Tags, S(""));
    EXPECT_EQ(other.ws->Links[0].MarkTag, S(""));
}

TEST(WorkspaceFileRead, KeyLinesInsideARecordAreNotLookedAt) {
    // The record is read by position: its key lines may say anything.
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Link]", "a", " 12 ", "b", " 300 ", "c", " 400 ", "[Font Name]", "label", "d", " 1 ",
                       "e", "https://x.example/", "f", "", "g", "-1", "h", "0", "i", "0", "j", " 0 ", "k", "", "l", "",
                       "m", ""}));
    ASSERT_EQ(t.ws->LinkCount, 1);
    EXPECT_EQ(t.ws->Link(0).Caption.get(), S("label"));
    EXPECT_EQ(t.ws->Links[0].LinkPath, S("https://x.example/"));
    EXPECT_EQ(t.ws->LinkFontName, S("Verdana"));
}

// --- records cut short ---

TEST(WorkspaceFileRead, AShortcutCutShortIsMadeWithWhatWasRead) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Link]", "[Size]", " 14 ", "[LinkX]", " 300 ", "[LinkY]", " 400 ", "[LinkLabel]",
                       "Cut", "[LinkType]", " 1 ", "[LinkPath]", "https://cut.example/", "[LinkParam]"}));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.LinkCount, 1);
    EXPECT_EQ(ws.Links[0].LinkPath, S("https://cut.example/"));
    EXPECT_EQ(ws.Link(0).Caption.get(), S("Cut"));
    EXPECT_EQ(ws.Link(0).FontSize.get(), 14.0f);
    EXPECT_EQ(ws.Link(0).Left.get(), 300.0f);
    EXPECT_EQ(ws.Links[0].LinkParam, S(""));
    EXPECT_EQ(ws.Links[0].LinkColor, -1);
    EXPECT_FALSE(ws.Links[0].Bold);
}

TEST(WorkspaceFileRead, AShortcutCutBeforeItsTypeIsNotMade) {
    TestWorkspace t;
    StartWith(t, CrLf({"[1.05]", "[Link]", "[Size]", " 14 ", "[LinkX]", " 300 ", "[LinkY]"}));
    EXPECT_EQ(t.ws->LinkCount, 0);
}

TEST(WorkspaceFileRead, APictureCutShortIsMadeWithWhatWasRead) {
    TestWorkspace t;
    const QString cat = MakeImage(t, t.dataFile(QStringLiteral("cat.jpg")), QSize(200, 100));
    StartWith(t, Join({{"[1.05]", "[Picture]", "[Locked]", "0", "[PicX]", " 500 ", "[PicY]", " 600 ", "[PicW]", " 3240 ",
                        "[PicH]", " 1740 ", "[PicPath]", cat.toUtf8().constData()}}));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.DeskObjectCount, 1);
    EXPECT_EQ(ws.DeskObjects[0].PicPath, cat);
    EXPECT_EQ(ws.picPlaceholder(0).Left.get(), 500.0f);
    EXPECT_EQ(ws.picPlaceholder(0).Width.get(), 3240.0f);
    EXPECT_TRUE(ws.picPlaceholder(0).Visible.get());
}

TEST(WorkspaceFileRead, AReminderCutInItsNoteIsMadeWithTheDefaultIcon) {
    TestWorkspace t;
    const QString clock = MakeImage(t, ProgramFile(t, "alarmclock.gif"), QSize(32, 32));
    StartWith(t, CrLf({"[1.05]", "[Reminder]", "[PicX]", " 700 ", "[PicY]", " 800 ", "[Date]", "Dec-25-2030", "[Time]",
                       "08:05 PM", "[Note]", "call the", "plumber", ""}));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.DeskObjectCount, 1);
    EXPECT_EQ(ws.DeskObjects[0].Note, S("call the\r\nplumber"));
    EXPECT_EQ(ws.DeskObjects[0].PicPath, clock);
    EXPECT_TRUE(t.platform.messages.empty());
}

TEST(WorkspaceFileRead, AReminderWithoutADateIsNotMade) {
    TestWorkspace t;
    MakeImage(t, ProgramFile(t, "alarmclock.gif"), QSize(32, 32));
    StartWith(t, CrLf({"[1.05]", "[Reminder]", "[PicX]", " 700 ", "[PicY]", " 800 ", "[Date]"}));
    EXPECT_EQ(t.ws->DeskObjectCount, 0);
}

// --- pictures ---

TEST(WorkspaceFileRead, PicturesArePlacedAndLocked) {
    TestWorkspace t;
    const QString cat = MakeImage(t, t.dataFile(QStringLiteral("cat.jpg")), QSize(200, 100));
    const QString dog = MakeImage(t, t.dataFile(QStringLiteral("dog.jpg")), QSize(50, 60));
    const QByteArray c = cat.toUtf8(), d = dog.toUtf8();
    StartWith(t, CrLf({"[1.05]", "[Picture]", "[Locked]", "0", "[PicX]", " 500 ", "[PicY]", " 600 ", "[PicW]", " 3240 ",
                       "[PicH]", " 1740 ", "[PicPath]", c.constData(), "TEMP", "TEMP", "TEMP", "TEMP", "[Picture]",
                       "[Locked]", " 1 ", "[PicX]", " 4000 ", "[PicY]", " 100 ", "[PicW]", " 990 ", "[PicH]", " 1140 ",
                       "[PicPath]", d.constData(), "TEMP", "TEMP", "TEMP", "TEMP"}));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.DeskObjectCount, 2);
    EXPECT_EQ(ws.splash.lblLoad(0).Caption.get(), S("Loading Pictures..."));

    // Unlocked: the frame shows, with the image inside it 100 twips in and 240 twips smaller.
    const Element& frame = ws.picPlaceholder(0);
    EXPECT_TRUE(frame.Visible.get());
    EXPECT_FALSE(ws.picTemp(0).Visible.get());
    EXPECT_EQ(frame.Left.get(), 500.0f);
    EXPECT_EQ(frame.Top.get(), 600.0f);
    EXPECT_EQ(frame.Width.get(), 3240.0f);
    EXPECT_EQ(frame.Height.get(), 1740.0f);
    EXPECT_EQ(ws.imgPicture(0).Left.get(), 100.0f);
    EXPECT_EQ(ws.imgPicture(0).Top.get(), 100.0f);
    EXPECT_EQ(ws.imgPicture(0).Width.get(), 3000.0f);
    EXPECT_EQ(ws.imgPicture(0).Height.get(), 1500.0f);
    EXPECT_EQ(ws.DeskObjects[0].PicPath, cat);
    EXPECT_FALSE(ws.DeskObjects[0].IsReminder);

    // Locked: the plain face shows at the image's place and size.
    EXPECT_FALSE(ws.picPlaceholder(1).Visible.get());
    EXPECT_TRUE(ws.picTemp(1).Visible.get());
    EXPECT_EQ(ws.picTemp(1).Left.get(), 4100.0f);
    EXPECT_EQ(ws.picTemp(1).Top.get(), 200.0f);
    EXPECT_EQ(ws.picTemp(1).Width.get(), 750.0f);
    EXPECT_EQ(ws.picTemp(1).Height.get(), 900.0f);
    EXPECT_EQ(ws.picTemp(1).Picture.get(), dog);
    EXPECT_EQ(ws.SelectedDeskObject, 1);

    // Both are written back as they were read.
    const QByteArray file = WorkspaceFileBytes(ws, false);
    EXPECT_TRUE(file.contains("[Picture]\r\n[Locked]\r\n0\r\n[PicX]\r\n 500 \r\n[PicY]\r\n 600 \r\n[PicW]\r\n 3240 \r\n"
                              "[PicH]\r\n 1740 \r\n[PicPath]\r\n" + c + "\r\nTEMP\r\nTEMP\r\nTEMP\r\nTEMP\r\n"));
    EXPECT_TRUE(file.contains("[Picture]\r\n[Locked]\r\n1\r\n[PicX]\r\n 4000 \r\n"));
}

TEST(WorkspaceFileRead, TwoLockedPicturesInARowAreBothLocked) {
    TestWorkspace t;
    const QByteArray a = MakeImage(t, t.dataFile(QStringLiteral("a.png"))).toUtf8();
    const QByteArray b = MakeImage(t, t.dataFile(QStringLiteral("b.png"))).toUtf8();
    StartWith(t, CrLf({"[1.05]", "[Picture]", "[Locked]", "1", "[PicX]", " 100 ", "[PicY]", " 100 ", "[PicW]",
                       " 1740 ", "[PicH]", " 1440 ", "[PicPath]", a.constData(), "TEMP", "TEMP", "TEMP", "TEMP",
                       "[Picture]", "[Locked]", "1", "[PicX]", " 2000 ", "[PicY]", " 100 ", "[PicW]", " 1740 ",
                       "[PicH]", " 1440 ", "[PicPath]", b.constData(), "TEMP", "TEMP", "TEMP", "TEMP"}));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.DeskObjectCount, 2);
    for (int j = 0; j < 2; ++j) {
        EXPECT_TRUE(ws.picTemp(j).Visible.get()) << j;
        EXPECT_FALSE(ws.picPlaceholder(j).Visible.get()) << j;
    }
    const QByteArray file = WorkspaceFileBytes(ws, false);
    EXPECT_EQ(file.count("[Locked]\r\n1\r\n"), 2);
}

TEST(WorkspaceFileRead, APictureWhoseImageCannotLoadIsLeftOut) {
    TestWorkspace t;
    const QByteArray ok = MakeImage(t, t.dataFile(QStringLiteral("ok.png"))).toUtf8();
    StartWith(t, CrLf({"[1.05]", "[Picture]", "[Locked]", "1", "[PicX]", " 100 ", "[PicY]", " 100 ", "[PicW]",
                       " 1740 ", "[PicH]", " 1440 ", "[PicPath]", "/gone.png", "TEMP", "TEMP", "TEMP", "TEMP",
                       "[Picture]", "[Locked]", "0", "[PicX]", " 2000 ", "[PicY]", " 300 ", "[PicW]", " 1740 ",
                       "[PicH]", " 1440 ", "[PicPath]", ok.constData(), "TEMP", "TEMP", "TEMP", "TEMP"}));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.DeskObjectCount, 1);
    EXPECT_EQ(ws.DeskObjects[0].PicPath, QString::fromUtf8(ok));
    EXPECT_EQ(ws.picPlaceholder(0).Left.get(), 2000.0f);
    EXPECT_TRUE(ws.picPlaceholder(0).Visible.get());
    EXPECT_FALSE(ws.picTemp(0).Visible.get());
    EXPECT_FALSE(WorkspaceFileBytes(ws, false).contains("/gone.png"));
}

TEST(WorkspaceFileRead, PicturesAndRemindersOfTheFileLieOnTheBackgroundWhateverTheMenuShows) {
    TestWorkspace t;
    // A container's menu left showing must not pull the objects of the load into a container.
    t.ws->menus.add(QStringLiteral("mnuDeleteContainer"), QStringLiteral("&Delete Container")).setVisible(true);
    const QByteArray pic = MakeImage(t, t.dataFile(QStringLiteral("p.png"))).toUtf8();
    const QByteArray clock = MakeImage(t, ProgramFile(t, "alarmclock.gif"), QSize(32, 32)).toUtf8();
    StartWith(t, CrLf({"[1.05]", "[Picture]", "[Locked]", "0", "[PicX]", " 1 ", "[PicY]", " 2 ", "[PicW]", " 1740 ",
                       "[PicH]", " 1440 ", "[PicPath]", pic.constData(), "TEMP", "TEMP", "TEMP", "TEMP", "[Reminder]",
                       "[PicX]", " 1 ", "[PicY]", " 2 ", "[Date]", "Dec-25-2030", "[Time]", "08:05 PM", "[Note]", "n",
                       "[END Note]", "[PicPath]", clock.constData(), "TEMP", "TEMP", "TEMP", "TEMP"}));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.DeskObjectCount, 2);
    for (int j = 0; j < 2; ++j) {
        EXPECT_EQ(ws.picPlaceholder(j).Container(), &ws.picBack(0)) << j;
        EXPECT_EQ(ws.picTemp(j).Container(), &ws.picBack(0)) << j;
    }
    const QByteArray file = WorkspaceFileBytes(ws, false);
    EXPECT_TRUE(file.contains("[Picture]"));
    EXPECT_TRUE(file.contains("[Reminder]"));
}

// --- reminders ---

TEST(WorkspaceFileRead, ReminderNotesRunOverSeveralLinesAndAreTrimmed) {
    TestWorkspace t;
    const QString clock = MakeImage(t, ProgramFile(t, "alarmclockrd.gif"), QSize(32, 32));
    const QByteArray c = clock.toUtf8();
    StartWith(t, CrLf({"[1.05]", "[Reminder]", "[PicX]", " 700 ", "[PicY]", " 800 ", "[Date]", "Dec-25-2030", "[Time]",
                       "08:05 PM", "[Note]", "", "   ", "  Call Bob  ", "", "  about the car", "   ", "", "[END Note]",
                       "[PicPath]", c.constData(), "TEMP", "TEMP", "TEMP", "TEMP", "[Reminder]", "[PicX]", " 70 ",
                       "[PicY]", " 80 ", "[Date]", "Jan-01-2031", "[Time]", "09:00 AM", "[Note]", "  ", "[END Note]",
                       "[PicPath]", c.constData(), "TEMP", "TEMP", "TEMP", "TEMP"}));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.DeskObjectCount, 2);
    EXPECT_EQ(ws.splash.lblLoad(0).Caption.get(), S("Loading Reminders..."));
    // Blank lines and blanks go from both ends; the lines inside keep theirs.
    EXPECT_EQ(ws.DeskObjects[0].Note, S("Call Bob  \r\n\r\n  about the car"));
    EXPECT_EQ(ws.DeskObjects[0].PicPath, clock);
    EXPECT_TRUE(ws.DeskObjects[0].IsReminder);
    EXPECT_TRUE(ws.picTemp(0).Visible.get());
    // An empty note is kept as "[empty]".
    EXPECT_EQ(ws.DeskObjects[1].Note, S("[empty]"));
    EXPECT_EQ(ws.picTemp(1).Left.get(), 70.0f);

    const QByteArray file = WorkspaceFileBytes(ws, false);
    EXPECT_TRUE(file.contains("[Reminder]\r\n[PicX]\r\n 700 \r\n[PicY]\r\n 800 \r\n[Date]\r\nDec-25-2030\r\n[Time]\r\n"
                              "08:05 PM\r\n[Note]\r\nCall Bob  \r\n\r\n  about the car\r\n[END Note]\r\n[PicPath]\r\n" +
                              c + "\r\nTEMP\r\nTEMP\r\nTEMP\r\nTEMP\r\n"));
    EXPECT_TRUE(file.contains("[Note]\r\n[empty]\r\n[END Note]\r\n"));
}

TEST(WorkspaceFileRead, AnEndNoteLineInsideTheNoteEndsItThere) {
    TestWorkspace t;
    const QString clock = MakeImage(t, ProgramFile(t, "alarmclock.gif"), QSize(32, 32));
    const QByteArray c = clock.toUtf8();
    // The user's note was "Remember\r\n[END Note]\r\nthe rest": the reader stops at its second line, takes
    // "the rest" as the [PicPath] key and the real "[END Note]" as the path, which does not exist.
    StartWith(t, CrLf({"[1.05]", "[Reminder]", "[PicX]", " 700 ", "[PicY]", " 800 ", "[Date]", "Dec-25-2030", "[Time]",
                       "08:05 PM", "[Note]", "Remember", "[END Note]", "the rest", "[END Note]", "[PicPath]",
                       c.constData(), "TEMP", "TEMP", "TEMP", "TEMP", "[Font Name]", "After"}));
    Workspace& ws = *t.ws;
    EXPECT_EQ(ws.DeskObjectCount, 0);
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, S("Can't find: [END Note]. Please reinstall the program."));
    EXPECT_EQ(t.platform.messages[0].title, S("Add Reminder"));
    EXPECT_EQ(ws.LinkFontName, S("After"));
}

TEST(WorkspaceFileRead, AReminderWhoseIconIsMissingIsDroppedWithAMessage) {
    TestWorkspace t;
    const QString missing = ProgramFile(t, "alarmclockgr.gif");
    const QByteArray m = missing.toUtf8();
    StartWith(t, CrLf({"[1.05]", "[Reminder]", "[PicX]", " 700 ", "[PicY]", " 800 ", "[Date]", "Dec-25-2030", "[Time]",
                       "08:05 PM", "[Note]", "x", "[END Note]", "[PicPath]", m.constData()}));
    EXPECT_EQ(t.ws->DeskObjectCount, 0);
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, S("Can't find: ") + missing + S(". Please reinstall the program."));
    EXPECT_EQ(t.platform.messages[0].style, 4144);
}

TEST(WorkspaceFileRead, ObjectsInTheFileKeepTheirOrderPicturesRemindersShortcuts) {
    TestWorkspace t;
    const QByteArray clock = MakeImage(t, ProgramFile(t, "alarmclock.gif"), QSize(32, 32)).toUtf8();
    const QByteArray pic = MakeImage(t, t.dataFile(QStringLiteral("p.png"))).toUtf8();
    // A file with its records in another order is written back in the writer's order.
    StartWith(t, Join({{"[1.05]"},
                       LinkLines(" 2 ", "/a"),
                       {"[Reminder]", "[PicX]", " 1 ", "[PicY]", " 2 ", "[Date]", "Dec-25-2030", "[Time]", "08:05 PM",
                        "[Note]", "n", "[END Note]", "[PicPath]", clock.constData(), "TEMP", "TEMP", "TEMP", "TEMP"},
                       {"[Picture]", "[Locked]", "0", "[PicX]", " 1 ", "[PicY]", " 2 ", "[PicW]", " 1740 ", "[PicH]",
                        " 1440 ", "[PicPath]", pic.constData(), "TEMP", "TEMP", "TEMP", "TEMP"}}));
    const QByteArray file = WorkspaceFileBytes(*t.ws, false);
    const qsizetype p = file.indexOf("[Picture]"), r = file.indexOf("[Reminder]"), l = file.indexOf("[Link]");
    ASSERT_GT(p, 0);
    EXPECT_LT(p, r);
    EXPECT_LT(r, l);
}

// --- TrimAll ---

TEST(TrimAll, StripsBlanksAndLineEndsFromBothEnds) {
    EXPECT_EQ(TrimAll(S("")), S(""));
    EXPECT_EQ(TrimAll(S("   ")), S(""));
    EXPECT_EQ(TrimAll(S("\r\n")), S(""));
    EXPECT_EQ(TrimAll(S("\r\n\r\n\r\n")), S(""));
    EXPECT_EQ(TrimAll(S("\n\r")), S(""));
    EXPECT_EQ(TrimAll(S("text")), S("text"));
    EXPECT_EQ(TrimAll(S("  text  ")), S("text"));
    EXPECT_EQ(TrimAll(S("\r\n  text  \r\n")), S("text"));
    EXPECT_EQ(TrimAll(S(" \r\n \r\n text \r\n \r\n ")), S("text"));
    EXPECT_EQ(TrimAll(S("\r\r\n\n text \n\r\n\r")), S("text"));
    EXPECT_EQ(TrimAll(S("\ntext\r")), S("text"));
    // Inside the text nothing changes.
    EXPECT_EQ(TrimAll(S("a\r\n\r\nb")), S("a\r\n\r\nb"));
    EXPECT_EQ(TrimAll(S("  a  \r\n  b  ")), S("a  \r\n  b"));
    // Only blanks and CR and LF count: tabs and other white space stay.
    EXPECT_EQ(TrimAll(S("\ttext\t")), S("\ttext\t"));
    EXPECT_EQ(TrimAll(S("\r\n\ttext\r\n")), S("\ttext"));
    EXPECT_EQ(TrimAll(S("\u00A0text")), S("\u00A0text"));
}
