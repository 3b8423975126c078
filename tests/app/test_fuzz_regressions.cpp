// Inputs found by the workspace-file fuzz target, fed through the same path: decode, split, the key loop
// into a fresh workspace, write it back and read that again. Each case also states what the load must
// leave behind.

#include "app/MainWindow.h"
#include "app/Startup.h"
#include "app/WorkspaceFile.h"
#include "app/WorkspaceSettings.h"
#include "app/files/TextFile.h"
#include "app/workspace/Workspace.h"
#include "support/TestWorkspace.h"

#include <gtest/gtest.h>

using namespace pd;
using pd::test::TestWorkspace;

namespace {

// The fuzz target's path, on a workspace of the test support.
void Load(TestWorkspace& t, const QByteArray& bytes) {
    Workspace& ws = *t.ws;
    MainWindowLoad(ws);
    ws.LinkFontSize = 10;
    ws.LargeIconSize = 32;
    ws.LinkFontName = QStringLiteral("Verdana");
    ws.ButtonSet = QStringLiteral("Plain White on Blue");
    DetermineDataPath(ws);
    LoadState st;
    ReadWorkspaceLines(ws, SplitLines(DecodeText(bytes)), st);
    ws.IsLoading = false;
}

// Loads the bytes, writes the workspace, loads what was written into a fresh workspace and writes that.
// Returns both written files.
std::pair<QByteArray, QByteArray> RoundTrip(TestWorkspace& t, const QByteArray& bytes) {
    Load(t, bytes);
    const QByteArray first = WorkspaceFileBytes(*t.ws, false);
    t.restart();
    Load(t, first);
    return {first, WorkspaceFileBytes(*t.ws, true)};
}

QByteArray Bytes(const char* data, size_t size) { return QByteArray(data, static_cast<qsizetype>(size)); }

} // namespace

// A [Size] of 81062 does not fit the record's 16-bit size: converting it was undefined behaviour. The
// label keeps the size it was given; the record keeps the size it had.
TEST(FuzzRegressions, LinkFontSizeBeyondSixteenBits) {
    static const char crash[] = "\n[Link]\r\r81062\r\r\r\r\r\r\r\r1";
    TestWorkspace t;
    Load(t, Bytes(crash, sizeof crash - 1));
    Workspace& ws = *t.ws;
    ASSERT_EQ(ws.LinkCount, 1);
    EXPECT_EQ(ws.Link(0).FontSize.get(), 81062.0f);
    EXPECT_EQ(ws.Links[0].Size, 10);

    // The shortcut has no path, so it is not written, and the file read back has none.
    t.restart();
    const auto [first, second] = RoundTrip(t, Bytes(crash, sizeof crash - 1));
    EXPECT_FALSE(first.contains("[Link]"));
    EXPECT_EQ(t.ws->LinkCount, 0);
}

// The same with a size that no 32-bit number holds either, in a current file.
TEST(FuzzRegressions, LinkFontSizeFarOutOfRange) {
    const QByteArray file = test::CrLf({"[1.05]", "[Link]", "[Size]", " 1e30 ", "[LinkX]", " 100 ", "[LinkY]", " 200 ",
                                        "[LinkLabel]", "Big", "[LinkType]", " 1 ", "[LinkPath]", "https://example.org/",
                                        "[LinkParam]", "", "[Color]", "-1", "[Bold]", "0", "[Confirm]", "0",
                                        "[Command]", " 0 ", "[Icon]", "TEMP", "[GROUP]", "", "[EXCLUSIVE]", ""});
    TestWorkspace t;
    const auto [first, second] = RoundTrip(t, file);
    ASSERT_EQ(t.ws->LinkCount, 1);
    EXPECT_EQ(t.ws->Links[0].Size, 10);
    EXPECT_EQ(t.ws->Links[0].LinkPath, QStringLiteral("https://example.org/"));
    EXPECT_TRUE(first.contains("[Size]\r\n 1000000015047466219876688855040 \r\n"));
    EXPECT_EQ(first, second);
}

// An ordinary size is rounded into the record, halves to even.
TEST(FuzzRegressions, LinkFontSizeInRangeIsRounded) {
    const QByteArray file = test::CrLf({"[1.01]", "[Link]", "[Size]", " 11.5 ", "[LinkX]", " 100 ", "[LinkY]", " 200 ",
                                        "[LinkLabel]", "Doc", "[LinkType]", " 2 ", "[LinkPath]", "/tmp/doc.txt",
                                        "[LinkParam]", "", "[Color]", " 255 ", "[Bold]", "1"});
    TestWorkspace t;
    Load(t, file);
    ASSERT_EQ(t.ws->LinkCount, 1);
    EXPECT_EQ(t.ws->Links[0].Size, 12);
    EXPECT_EQ(t.ws->Links[0].LinkColor, 255);
    EXPECT_TRUE(t.ws->Links[0].Bold);
}
