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

// A shortcut label whose font size is near the largest single (6.6e38): measuring its caption at that
// size overflowed. A font is measured and drawn at 1638 points at the most; the file keeps the size.
TEST(FuzzRegressions, LabelMeasuredAtAnEnormousFontSize) {
    const QByteArray crash = QByteArray::fromHex(
        "5b312e30335d0d0a5b57696e646f7753746174655d0d0a2032200d0a5b585d0d0a203130200d0a5b595d0d0a20323020"
        "0d0a5b52656d696e6465725d0d0a5b506963585d0d0a20363030200d0a5b506963595d0d0a2032303030200d0a5b4461"
        "74655d0d0a323032362d30332d30310d0a5b54696d655d0d0a30393a33300d0a5b4e6f74655d0d0a43616c6c20746865"
        "2064656e746973740d0a61626f757420746865206170706f696e746d656e740d0a5b454e44204e6f74655d0d0a5b5069"
        "63506174685d0d0a2f746d702f7065726368646f636b2d66757a7a2f616c61726d636c6f636b2e6769660d0a54454d50"
        "0d0a54454d500d0a54454d500d0a54454d500d0a5b4c696e6b5d0d0a5b53697a655d0d0a203130200d0a5b4c696e6b58"
        "5d0d0a2031353030200d0a5b4c696e6b595d0d0a2033303030200d0a5b4c696e6b4c6162656c5d0d0a4e65740d0a5b4c"
        "696e6b547970655d0d0a2031200d0a5b4c696e6b506174685d0d0a687474703a2f2f6578616d706c652e6e65740d0a5b"
        "4c696e6b506172616d5d0d0a0d0a5b436f6c6f725d0d0a20323535200d0a5b426f6c645d0d0a310d0a5b436f6e666972"
        "6d5d0d0a300d0a5b436f6d6d616e645d0d0a2030200d0a5b49636f6e5d0d0a54454d500d0a5b4c696e6b5d0d0a5b5369"
        "7a655d0d0a20316533380a5b4c696e6b585d0d0a2031353030200d0a5b4c696e6b595d0d0a2033303030200d0a5b4c69"
        "6e6b4c6162656c5d0d0a486f7374730d0a5b4c696e6b547970655d0d0a2032200d0a5b4c696e6b500100000000060000"
        "74632f686f7374730d0a5b4c696e6b506172616d5d0d0a2d2d6e65772d77696e646f770d0a5b436f6c6f725d0d0a2032"
        "3535200d0a5b426f6c645d0d0a310d0a5b436f6e6669726d5d0d0a300d0a5b436f6d6d616e645d0d0a2030200d0a5b49"
        "636f6e5d0d0a54454d500d0a");
    TestWorkspace t;
    const auto [first, second] = RoundTrip(t, crash);
    for (int k = 0; k < t.ws->Link.Count(); ++k) {
        if (!t.ws->Link.exists(k)) continue;
        EXPECT_GE(t.ws->Link(k).Width.get(), 0.0f);
        EXPECT_LT(t.ws->Link(k).Width.get(), 1e9f);
    }
    EXPECT_TRUE(first.startsWith("[1.05]"));
}

TEST(FuzzRegressions, ShownFontSizeStaysBetweenOneAnd1638Points) {
    EXPECT_EQ(ShownFontSize(10.0f), 10.0f);
    EXPECT_EQ(ShownFontSize(3.0e38f), 1638.0f);
    EXPECT_EQ(ShownFontSize(0.5f), 1.0f);
    EXPECT_EQ(ShownFontSize(0.0f), 8.0f);
    EXPECT_EQ(ShownFontSize(-3.0f), 8.0f);
}
