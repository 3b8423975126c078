// Verifying shortcuts and the relative "@" form of their paths, on real files in a temporary folder.

#include "shortcuts/FindCommands.h"
#include "shortcuts/Launch.h"
#include "shortcuts/LinkSelection.h"
#include "shortcuts/Shortcuts.h"
#include "shortcuts/VerifyLinks.h"
#include "support/TestWorkspace.h"

#include <QFile>
#include <QStorageInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class Verify : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireFindCommands(ws());
        c = t.newContainerAt(1000, 1000);
        t.platform.messages.clear();
    }
    Workspace& ws() { return *t.ws; }
    int Add(const QString& path) {
        AddShortcut(ws(), path, ws().grpBorder(c));
        return ws().LinkCount - 1;
    }
    QString Make(const QString& name) {
        const QString path = QDir(dir.path()).filePath(name);
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        return path;
    }

    TestWorkspace t;
    QTemporaryDir dir;
    int c = 0;
};

} // namespace

TEST_F(Verify, AllPresentSaysSo) {
    Add(Make(QStringLiteral("a.txt")));
    ws().menus["mnuVerify"].Click();
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("All shortcuts are valid"));
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Verify Shortcuts"));
    EXPECT_EQ(t.platform.messages[0].style, 4160);
}

TEST_F(Verify, AHiddenFileAndAFolderCountAsPresent) {
    Add(Make(QStringLiteral(".hidden")));
    Add(dir.path());
    Add(dir.path() + QLatin1Char('/'));
    VerifyLinks(ws(), false);
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("All shortcuts are valid"));
}

TEST_F(Verify, AWebShortcutACommandAndAShortPathAreNeverReported) {
    AddURL(ws(), QStringLiteral("http://nowhere.invalid/page"), QString(), ws().grpBorder(c));
    const int cmd = Add(QStringLiteral("/no/such/command"));
    ws().Links[cmd].Command = 1;
    Add(QStringLiteral("C:\\"));
    Add(QStringLiteral("/x"));
    VerifyLinks(ws(), false);
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("All shortcuts are valid"));
}

TEST_F(Verify, AMissingTargetIsOfferedForRemovalYesNoAndCancel) {
    const int gone1 = Add(QDir(dir.path()).filePath(QStringLiteral("gone1")));
    const int kept = Add(Make(QStringLiteral("kept")));
    const int gone2 = Add(QDir(dir.path()).filePath(QStringLiteral("gone2")));
    const int gone3 = Add(QDir(dir.path()).filePath(QStringLiteral("gone3")));
    t.platform.answers = {MsgAnswer::Yes, MsgAnswer::No, MsgAnswer::Cancel};
    VerifyLinks(ws(), false);
    ASSERT_EQ(t.platform.messages.size(), 3u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Remove Shortcut: gone1"));
    EXPECT_EQ(t.platform.messages[0].title, QStringLiteral("Verify Shortcuts"));
    EXPECT_EQ(t.platform.messages[0].style, 4131);
    EXPECT_EQ(t.platform.messages[1].text, QStringLiteral("Remove Shortcut: gone2"));
    EXPECT_EQ(t.platform.messages[2].text, QStringLiteral("Remove Shortcut: gone3"));
    EXPECT_TRUE(ws().Link(gone1).Caption.get().isEmpty());
    EXPECT_FALSE(ws().Link(kept).Caption.get().isEmpty());
    EXPECT_FALSE(ws().Link(gone2).Caption.get().isEmpty());
    EXPECT_FALSE(ws().Link(gone3).Caption.get().isEmpty()) << "Cancel ends the walk";
}

TEST_F(Verify, SilentRemovesWithoutAsking) {
    const int gone = Add(QDir(dir.path()).filePath(QStringLiteral("gone")));
    VerifyLinks(ws(), true);
    EXPECT_TRUE(t.platform.messages.empty());
    EXPECT_TRUE(ws().Link(gone).Caption.get().isEmpty());
}

TEST_F(Verify, AnAtPathIsExpandedBeforeTheTest) {
    const QString file = Make(QStringLiteral("rel.txt"));
    const int n = Add(file);
    ws().Links[n].LinkPath = RelativeLinkPath(file);
    ASSERT_TRUE(ws().Links[n].LinkPath.startsWith(QLatin1Char('@')));
    VerifyLinks(ws(), false);
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("All shortcuts are valid"));
}

TEST(RelativeLinkPath, ConvertingAndExpandingAgainGivesThePathOnTheProgramsFileSystem) {
    QTemporaryDir dir;
    const QString file = QDir(dir.path()).filePath(QStringLiteral("a.txt"));
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    FakePlatform platform;
    ManualClock clock;
    Workspace ws(platform, clock);
    // The program stands on the same file system as the file.
    ws.ProgramDirectory = dir.path();
    const QString relative = RelativeLinkPath(file);
    const QString mount = QStorageInfo(file).rootPath();
    EXPECT_TRUE(relative.startsWith(QStringLiteral("@/")));
    EXPECT_FALSE(relative.contains(QStringLiteral("//")));
    EXPECT_EQ(QFileInfo(ExpandDriveLetter(ws, relative)).canonicalFilePath(),
              QFileInfo(file).canonicalFilePath());
    // The path keeps what lies below the mount point.
    QString below = QDir::cleanPath(file).mid(mount == QLatin1String("/") ? 0 : mount.size());
    EXPECT_EQ(relative, QLatin1Char('@') + below);
}

TEST(RelativeLinkPath, TheReplacementIsBlind) {
    // A Windows path keeps its old form: the drive letter goes.
    EXPECT_EQ(RelativeLinkPath(QStringLiteral("D:\\a.txt")), QStringLiteral("@:\\a.txt"));
    // A path without a root is cut by one character, as the drive letter's replacement cut it.
    EXPECT_EQ(RelativeLinkPath(QStringLiteral("docs/a.txt")), QStringLiteral("@ocs/a.txt"));
    // Already relative: unchanged.
    EXPECT_EQ(RelativeLinkPath(QStringLiteral("@/Tools/x")), QStringLiteral("@/Tools/x"));
}

TEST(RelativeLinkPath, APathOnAnotherDriveNowPointsAtTheProgramsDrive) {
    FakePlatform platform;
    ManualClock clock;
    Workspace ws(platform, clock);
    QTemporaryDir dir;
    ws.ProgramDirectory = dir.path();
    const QString mount = QStorageInfo(dir.path()).rootPath();
    const QString expected =
        (mount.endsWith(QLatin1Char('/')) ? mount : mount + QLatin1Char('/')) + QStringLiteral("a.txt");
    // "D:\a.txt" while the program runs from another drive gives a.txt on the program's drive.
    EXPECT_EQ(ExpandDriveLetter(ws, RelativeLinkPath(QStringLiteral("D:\\a.txt"))), expected);
}

TEST_F(Verify, TheMenuConvertsSelectedFileShortcutsOnlyAfterAsking) {
    const QString file = Make(QStringLiteral("b.txt"));
    const int n = Add(file);
    const int cmd = Add(QStringLiteral("/bin/true"));
    ws().Links[cmd].Command = 1;
    AddURL(ws(), QStringLiteral("http://example.invalid/"), QString(), ws().grpBorder(c));
    const int web = ws().LinkCount - 1;
    SetLinkSelected(ws(), cmd, true);
    SetLinkSelected(ws(), web, true);
    ws().SelectedLink = static_cast<int16_t>(n);
    t.platform.answers = {MsgAnswer::No};
    ws().menus["mnuRelativePath"].Click();
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text,
              QStringLiteral("Use a relative path for the selected shortcuts (Perchdock's working drive)?"));
    EXPECT_EQ(t.platform.messages[0].style, 4132);
    EXPECT_EQ(ws().Links[n].LinkPath, file);
    t.platform.answers = {MsgAnswer::Yes};
    ws().menus["mnuRelativePath"].Click();
    EXPECT_EQ(ws().Links[n].LinkPath, RelativeLinkPath(file));
    EXPECT_EQ(ws().Links[cmd].LinkPath, QStringLiteral("/bin/true"));
    EXPECT_EQ(ws().Links[web].LinkPath, QStringLiteral("http://example.invalid/"));
}
