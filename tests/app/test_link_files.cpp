// Internet shortcuts and desktop entries: their targets are read (the INI form of .url files in every
// encoding and line end Windows and other tools write; desktop entries of the types Link and
// Application), and a file that cannot be read stays a shortcut to the file, so no shortcut is lost.

#include "shortcuts/ShellLink.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

namespace {
QString WriteFile(const QString& dir, const QString& name, const QByteArray& bytes) {
    const QString path = QDir(dir).filePath(name);
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    f.write(bytes);
    return path;
}
} // namespace

TEST(LinkFiles, AnInternetShortcutBecomesAWebShortcutNamedAfterTheFile) {
    TestWorkspace t;
    const QString path = WriteFile(t.programDir(), QStringLiteral("Foo.url"),
                                   "[InternetShortcut]\r\nURL=https://example.org/page\r\nIconIndex=0\r\n");
    EXPECT_EQ(ResolveLinkTarget(path), QStringLiteral("https://example.org/page"));
    AddShortcut(*t.ws, path, t.ws->picBack(0));
    ASSERT_EQ(t.ws->LinkCount, 1);
    EXPECT_EQ(t.ws->Links[0].LinkType, 1.0f);
    EXPECT_EQ(t.ws->Links[0].LinkPath, QStringLiteral("https://example.org/page"));
    EXPECT_EQ(t.ws->Link(0).Caption.get(), QStringLiteral("Foo.url"));
}

TEST(LinkFiles, WithoutResolvingTheFileItselfIsTheTarget) {
    TestWorkspace t;
    t.ws->menus["mnuExtractURL"].setChecked(false);
    const QString path =
        WriteFile(t.programDir(), QStringLiteral("Foo.url"), "[InternetShortcut]\nURL=http://a/\n");
    AddShortcut(*t.ws, path, t.ws->picBack(0));
    EXPECT_EQ(t.ws->Links[0].LinkType, 2.0f);
    EXPECT_EQ(t.ws->Links[0].LinkPath, path);
}

TEST(LinkFiles, AnUnreadableInternetShortcutStaysAFileShortcut) {
    TestWorkspace t;
    const QString path = WriteFile(t.programDir(), QStringLiteral("Broken.url"), "[Other]\nURL=http://a/\n");
    EXPECT_EQ(ResolveLinkTarget(path), QString());
    AddShortcut(*t.ws, path, t.ws->picBack(0));
    ASSERT_EQ(t.ws->LinkCount, 1);
    EXPECT_EQ(t.ws->Links[0].LinkType, 2.0f);
    EXPECT_EQ(t.ws->Links[0].LinkPath, path);
    // A missing file is no different.
    EXPECT_EQ(ResolveLinkTarget(QStringLiteral("/nonexistent/x.url")), QString());
}

TEST(LinkFiles, ADesktopLinkGivesItsAddress) {
    TestWorkspace t;
    const QString path = WriteFile(t.programDir(), QStringLiteral("site.desktop"),
                                   "[Desktop Entry]\nType=Link\nName=Site\nURL=https://example.net/\n");
    EXPECT_EQ(ResolveLinkTarget(path), QStringLiteral("https://example.net/"));
    // An application gives its program, found in PATH.
    const QString app = WriteFile(t.programDir(), QStringLiteral("app.desktop"),
                                  "[Desktop Entry]\nType=Application\nExec=sh -c \"exit 0\" %U\n");
    ASSERT_FALSE(QStandardPaths::findExecutable(QStringLiteral("sh")).isEmpty());
    EXPECT_EQ(ResolveLinkTarget(app), QStandardPaths::findExecutable(QStringLiteral("sh")));
    const QString missing = WriteFile(t.programDir(), QStringLiteral("missing.desktop"),
                                      "[Desktop Entry]\nType=Application\nExec=no-such-program-here %f\n");
    EXPECT_EQ(ResolveLinkTarget(missing), QString());
}

TEST(LinkFiles, RealInternetShortcutFromTheCorpus) {
    const QString shared = qEnvironmentVariable("PERCHDOCK_SHARED");
    const QString path = QDir(shared).filePath(QStringLiteral("corpus/url/libLNK-google.url"));
    if (shared.isEmpty() || !QFile::exists(path))
        GTEST_SKIP() << "the shared corpus is not here: " << path.toStdString();
    // LF line ends and a second section after the URL.
    EXPECT_EQ(ResolveLinkTarget(path), QStringLiteral("http://www.google.ca/"));
}

// ---- Internet shortcuts from bytes ----

TEST(InternetShortcut, LineEndsAndByteOrderMarks) {
    const QString url = QStringLiteral("https://example.org/a?b=c&d=%20");
    EXPECT_EQ(InternetShortcutTarget("[InternetShortcut]\r\nURL=https://example.org/a?b=c&d=%20\r\n"), url);
    EXPECT_EQ(InternetShortcutTarget("[InternetShortcut]\nURL=https://example.org/a?b=c&d=%20"), url);
    EXPECT_EQ(InternetShortcutTarget("[InternetShortcut]\rURL=https://example.org/a?b=c&d=%20\r"), url);
    EXPECT_EQ(
        InternetShortcutTarget("\xEF\xBB\xBF[InternetShortcut]\r\nURL=https://example.org/a?b=c&d=%20\r\n"),
        url);
    QByteArray utf16 = "\xFF\xFE";
    for (const QChar c : QStringLiteral("[InternetShortcut]\r\nURL=https://example.org/a?b=c&d=%20\r\n")) {
        utf16.append(char(c.unicode() & 0xFF));
        utf16.append(char(c.unicode() >> 8));
    }
    EXPECT_EQ(InternetShortcutTarget(utf16), url);
    // Windows-1252 bytes in an address that is not UTF-8.
    EXPECT_EQ(InternetShortcutTarget("[InternetShortcut]\r\nURL=file:///C:/caf\xE9.txt\r\n"),
              QString::fromUtf8("file:///C:/café.txt"));
}

TEST(InternetShortcut, SectionAndKeyWithoutCaseAndBlanks) {
    EXPECT_EQ(InternetShortcutTarget("[internetshortcut]\r\nurl=http://a/\r\n"), QStringLiteral("http://a/"));
    EXPECT_EQ(InternetShortcutTarget("  [INTERNETSHORTCUT]  \r\n  Url = http://b/  \r\n"),
              QStringLiteral("http://b/"));
    // Other keys and sections around it; the first URL of the section counts.
    EXPECT_EQ(
        InternetShortcutTarget("[DEFAULT]\r\nBASEURL=http://base/\r\n[InternetShortcut]\r\nIconIndex=0\r\n"
                               "URL=http://first/\r\nURL=http://second/\r\n[Other]\r\nURL=http://other/\r\n"),
        QStringLiteral("http://first/"));
}

TEST(InternetShortcut, MissingOrEmptyAddressGivesNothing) {
    EXPECT_EQ(InternetShortcutTarget("[InternetShortcut]\r\nIconIndex=0\r\n"), QString());
    EXPECT_EQ(InternetShortcutTarget("[InternetShortcut]\r\nURL=\r\n"), QString());
    EXPECT_EQ(InternetShortcutTarget("URL=http://outside/\r\n[InternetShortcut]\r\n"), QString());
    EXPECT_EQ(InternetShortcutTarget("[DEFAULT]\r\nURL=http://a/\r\n"), QString());
    EXPECT_EQ(InternetShortcutTarget(""), QString());
    EXPECT_EQ(InternetShortcutTarget(QByteArray("\0\0\0", 3)), QString());
    EXPECT_EQ(InternetShortcutTarget("[InternetShortcut\r\nURL=http://a/\r\n"), QString());
}

// ---- Desktop entries from bytes ----

namespace {
// A PATH of two programs.
QString FakeFind(const QString& name) {
    if (name == QLatin1String("firefox")) return QStringLiteral("/usr/bin/firefox");
    if (name == QLatin1String("my app")) return QStringLiteral("/opt/bin/my app");
    return {};
}
QString Desktop(const QByteArray& bytes) {
    return DesktopEntryTarget(bytes, FakeFind);
}
} // namespace

TEST(DesktopEntry, ALinkGivesItsUrl) {
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Link\nURL=https://example.net/\n"),
              QStringLiteral("https://example.net/"));
    EXPECT_EQ(Desktop("# comment\n\n[Desktop Entry]\nName=x\nType = Link\nURL = file:///home/u/a\\sb.txt\n"),
              QStringLiteral("file:///home/u/a b.txt"));
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Link\n"), QString());
}

TEST(DesktopEntry, KeysAndTheGroupCompareExactly) {
    EXPECT_EQ(Desktop("[Desktop Entry]\ntype=Link\nURL=http://a/\n"), QString());
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=link\nURL=http://a/\n"), QString());
    EXPECT_EQ(Desktop("[desktop entry]\nType=Link\nURL=http://a/\n"), QString());
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Link\nurl=http://a/\n"), QString());
    // Keys of another group do not count; the first occurrence of a key does.
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Link\n[Desktop Action x]\nURL=http://a/\n"), QString());
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Link\nURL=http://1/\nURL=http://2/\n"),
              QStringLiteral("http://1/"));
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Directory\nURL=http://a/\n"), QString());
}

TEST(DesktopEntry, AnApplicationGivesTheFirstWordOfExec) {
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Application\nExec=/usr/bin/gimp-2.10 %U\n"),
              QStringLiteral("/usr/bin/gimp-2.10"));
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Application\nExec=firefox %u\n"),
              QStringLiteral("/usr/bin/firefox"));
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Application\nExec=\"/opt/My App/run\" --x %F\n"),
              QStringLiteral("/opt/My App/run"));
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Application\nExec=\"my app\"\n"),
              QStringLiteral("/opt/bin/my app"));
    // A field code before the program is no word; \s is a blank of the value, which splits words.
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Application\nExec=%i firefox\n"),
              QStringLiteral("/usr/bin/firefox"));
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Application\nExec=/bin/tool\\s-v\n"),
              QStringLiteral("/bin/tool"));
    // Not found in PATH, relative, empty or missing: nothing.
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Application\nExec=unknown-program\n"), QString());
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Application\nExec=bin/firefox\n"), QString());
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Application\nExec=\n"), QString());
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Application\nExec=\"\" x\n"), QString());
    EXPECT_EQ(Desktop("[Desktop Entry]\nType=Application\n"), QString());
}

TEST(DesktopEntry, ExecQuotingRules) {
    EXPECT_EQ(DesktopExecWords(QStringLiteral("a b\tc")), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(DesktopExecWords(QStringLiteral("\"a b\" \"c\\\"d\" \"e\\\\f\" \"g\\$h\" \"i\\`j\"")),
              (QStringList{"a b", "c\"d", "e\\f", "g$h", "i`j"}));
    EXPECT_EQ(DesktopExecWords(QStringLiteral("app %f %F %u %U %d %D %n %N %i %c %k %v %m")),
              (QStringList{"app"}));
    EXPECT_EQ(DesktopExecWords(QStringLiteral("app 100%% --file=%f")),
              (QStringList{"app", "100%", "--file="}));
    EXPECT_EQ(DesktopExecWords(QStringLiteral("app \"\" x")), (QStringList{"app", "", "x"}));
    EXPECT_EQ(DesktopExecWords(QStringLiteral("  ")), QStringList());
    // An unclosed quote ends with the value.
    EXPECT_EQ(DesktopExecWords(QStringLiteral("\"/opt/a b")), (QStringList{"/opt/a b"}));
    EXPECT_EQ(DesktopExecWords(QStringLiteral("app %")), (QStringList{"app", "%"}));
}
