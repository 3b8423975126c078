// Internet shortcuts and desktop links added as shortcuts: their addresses are read, and one that
// cannot be read stays a shortcut to the file, so no shortcut is lost.

#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

#include <QDir>
#include <QFile>

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
    const QString path = WriteFile(t.programDir(), QStringLiteral("Foo.url"), "[InternetShortcut]\nURL=http://a/\n");
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
    const QString app = WriteFile(t.programDir(), QStringLiteral("app.desktop"),
                                  "[Desktop Entry]\nType=Application\nExec=true\n");
    EXPECT_EQ(ResolveLinkTarget(app), QString());
}

TEST(LinkFiles, RealInternetShortcutFromTheCorpus) {
    const QString shared = qEnvironmentVariable("PERCHDOCK_SHARED");
    const QString path = QDir(shared).filePath(QStringLiteral("corpus/url/libLNK-google.url"));
    if (shared.isEmpty() || !QFile::exists(path)) GTEST_SKIP() << "the shared corpus is not here: " << path.toStdString();
    // LF line ends and a second section after the URL.
    EXPECT_EQ(ResolveLinkTarget(path), QStringLiteral("http://www.google.ca/"));
}
