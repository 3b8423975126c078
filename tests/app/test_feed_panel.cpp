// The headline panel: rows, clearing, layout and scroll bars with their 16-bit limits, the wheel, the
// hover underline, the headline tip ("No Description", the 255-character cut), reading, the waiting
// line's click and Shift-click to the site.

#include "app/MainWindow.h"
#include "feeds/FeedContainers.h"
#include "feeds/FeedViewer.h"
#include "feeds/FeedsState.h"
#include "support/TestWorkspace.h"
#include "window/FeedTooltip.h"

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

HttpReply Ok(const QString& xml) {
    return {200, xml.toUtf8(), "application/rss+xml"};
}

QString Rss(const std::vector<std::pair<QString, QString>>& items) {
    QString xml =
        QStringLiteral("<rss><channel><title>P</title><link>http://site/</link><description>d</description>");
    int k = 0;
    for (const auto& [title, desc] : items)
        xml += QStringLiteral(
                   "<item><title>%1</title><link>http://site/%2</link><description>%3</description></item>")
                   .arg(title)
                   .arg(++k)
                   .arg(desc);
    return xml + QStringLiteral("</channel></rss>");
}

class Panel : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireCoreCommands(ws());
    }
    Workspace& ws() { return *t.ws; }
    FakePlatform& p() { return t.platform; }
    int Add(const QString& xml) {
        const QString url = QStringLiteral("http://feeds.test/%1").arg(++feeds);
        p().httpReplies[url] = Ok(xml);
        QString u = url;
        EXPECT_TRUE(AddRSS(ws(), u, -1));
        return ws().ContainerCount - 1;
    }
    UserControl1& PanelOf(int i) { return Feeds(ws()).Panel(ws().Containers[i].FeedIndex); }
    TestWorkspace t;
    int feeds = 0;
};

} // namespace

TEST_F(Panel, AnEmptyListHidesMemberZero) {
    const int i = Add(Rss({{"a", "1"}, {"b", "2"}, {"c", "3"}}));
    UserControl1& panel = PanelOf(i);
    panel.Clear();
    EXPECT_FALSE(panel.Rows[0].Visible);
    EXPECT_FALSE(panel.Rows[0].SepVisible);
    EXPECT_FALSE(panel.Rows[0].BulletVisible);
    EXPECT_EQ(panel.LastRow(), 0);
    EXPECT_FALSE(panel.RowExists(1));
}

TEST_F(Panel, TheWaitingLineUnderlinesWithoutATipAndAClickStartsTheDownload) {
    ws().IsLoading = true;
    const QString url = QStringLiteral("http://feeds.test/wait");
    QString u = url;
    ASSERT_TRUE(AddRSS(ws(), u, -1));
    ws().IsLoading = false;
    const int i = ws().ContainerCount - 1;
    UserControl1& panel = PanelOf(i);
    p().httpReplies[url] = Ok(Rss({{"first", "x"}, {"second", "y"}}));
    p().httpDeferred = true;
    panel.LblHeadline_MouseDown(0);
    panel.LblHeadline_MouseMove(0);
    EXPECT_TRUE(panel.UnderlineVisible);
    EXPECT_FALSE(HeadlineTip(ws()).Loaded);
    EXPECT_TRUE(Feeds(ws()).OverHeadline);
    panel.LblHeadline_MouseUp(0, 1, 0);
    EXPECT_FALSE(panel.UnderlineVisible);
    EXPECT_EQ(panel.Rows[0].Text, QStringLiteral("Downloading latest headlines..."));
    EXPECT_EQ(ws().lblRSSRefresh(0).Caption.get(), QStringLiteral(","));
    p().runPendingHttp();
    p().runPendingHttp();
    EXPECT_EQ(panel.Rows[0].Text, QStringLiteral("first"));
    EXPECT_EQ(ws().lblRSSRefresh(0).Caption.get(), QStringLiteral("7"));
}

TEST_F(Panel, TheErrorLinesTakeNoClickAndShowNoTip) {
    const int i = Add(QStringLiteral("not xml"));
    UserControl1& panel = PanelOf(i);
    ASSERT_EQ(panel.Rows[0].Text, QStringLiteral("Error opening RSS news feed"));
    panel.LblHeadline_MouseMove(1);
    EXPECT_FALSE(HeadlineTip(ws()).Loaded);
    panel.LblHeadline_MouseUp(1, 1, 0);
    EXPECT_EQ(panel.Rows[1].ForeColor, 255); // not greyed as read
    EXPECT_FALSE(Feeds(ws()).Viewer.Visible);
    EXPECT_TRUE(p().opened.empty());
}

TEST_F(Panel, AnEmptyDescriptionGivesNoDescriptionCentred) {
    const int i = Add(Rss({{"a", ""}, {"b", "text"}}));
    PanelOf(i).LblHeadline_MouseMove(0);
    ASSERT_TRUE(HeadlineTip(ws()).Loaded);
    EXPECT_EQ(HeadlineTip(ws()).Text, QStringLiteral("No Description"));
    EXPECT_EQ(Feeds(ws()).TipAlignment, 2);
    EXPECT_EQ(HeadlineTip(ws()).Alignment, 2);
}

TEST_F(Panel, ADescriptionOf255CharactersIsShownWithThreeDots) {
    const QString d255(255, QLatin1Char('x'));
    const QString d254(254, QLatin1Char('y'));
    const QString d300(300, QLatin1Char('z'));
    const int i = Add(Rss({{"a", d255}, {"b", d254}, {"c", d300}}));
    UserControl1& panel = PanelOf(i);
    p().cursor = QPoint(100, 50);
    panel.LblHeadline_MouseMove(0);
    EXPECT_EQ(HeadlineTip(ws()).Text, d255 + QStringLiteral("..."));
    EXPECT_EQ(Feeds(ws()).TipAlignment, 0);
    EXPECT_EQ(HeadlineTip(ws()).Alignment, 0);
    EXPECT_EQ(HeadlineTip(ws()).Top, 50 * 15.0f + 600);
    panel.LblHeadline_MouseMove(1);
    EXPECT_EQ(HeadlineTip(ws()).Text, d254);
    panel.LblHeadline_MouseMove(2);
    EXPECT_EQ(HeadlineTip(ws()).Text, QString(255, QLatin1Char('z')) + QStringLiteral("..."));
    // The same row again with the tip up does not show it anew.
    HeadlineTip(ws()).Text.clear();
    panel.LblHeadline_MouseMove(2);
    EXPECT_TRUE(HeadlineTip(ws()).Text.isEmpty());
    // Leaving the headlines lets the tip's timer close it.
    panel.LblHeadline_MouseLeave();
    t.clock.advance(1000);
    EXPECT_FALSE(HeadlineTip(ws()).Loaded);
}

TEST_F(Panel, ALongRowWidensTheSheetAndEnablesTheHorizontalBar) {
    const QString longTitle(200, QLatin1Char('w'));
    const int i = Add(Rss({{"short", "1"}, {longTitle, "2"}, {"x", "3"}}));
    UserControl1& panel = PanelOf(i);
    EXPECT_EQ(panel.FindLongestHeadline(), 1);
    EXPECT_EQ(panel.PicFeed.Width, panel.Rows[1].Width + 1000);
    EXPECT_GT(panel.PicFeed.Width, panel.picBack.Width);
    EXPECT_TRUE(panel.HScroll1.Enabled);
    EXPECT_EQ(panel.HScroll1.Max, static_cast<int>(std::round(panel.PicFeed.Width - panel.picBack.Width)));
}

TEST_F(Panel, FindLongestHeadlineTakesTheFirstOfEquals) {
    const int i = Add(Rss({{"abc", "1"}, {"xyz", "2"}, {"ab", "3"}}));
    EXPECT_EQ(PanelOf(i).FindLongestHeadline(), 0);
}

TEST_F(Panel, NoUnderlineWhileARefreshRuns) {
    const int i = Add(Rss({{"a", "1"}, {"b", "2"}}));
    ws().lblRSSRefresh(0).Caption = QStringLiteral(",");
    PanelOf(i).LblHeadline_MouseMove(0);
    EXPECT_FALSE(PanelOf(i).UnderlineVisible);
    ws().lblRSSRefresh(0).Caption = QStringLiteral("7");
    PanelOf(i).LblHeadline_MouseMove(1);
    EXPECT_TRUE(PanelOf(i).UnderlineVisible);
    EXPECT_EQ(PanelOf(i).UnderX1, PanelOf(i).Rows[1].Left);
    EXPECT_EQ(PanelOf(i).UnderX2, PanelOf(i).Rows[1].Width + 400);
    EXPECT_EQ(PanelOf(i).UnderY1, PanelOf(i).Rows[1].Top + PanelOf(i).Rows[1].Height);
}

TEST_F(Panel, SetScrollsAfterAddingRowsReturnsToTheTop) {
    std::vector<std::pair<QString, QString>> items;
    for (int k = 0; k < 30; ++k)
        items.emplace_back(QStringLiteral("row %1").arg(k), QStringLiteral("d"));
    const int i = Add(Rss(items));
    UserControl1& panel = PanelOf(i);
    ASSERT_TRUE(panel.VScrollEnabled());
    EXPECT_EQ(panel.VScrollMax(), static_cast<int>(std::round(panel.PicFeed.Height - panel.picBack.Height)));
    const int n = static_cast<int>(std::round((panel.PicFeed.Height - panel.picBack.Height) / 40));
    EXPECT_EQ(panel.VScrollLargeChange(), 4 * n);
    EXPECT_EQ(panel.VScroll1.SmallChange, n);
    panel.MouseWheel(-120);
    EXPECT_EQ(panel.VScrollVal(), 4 * n);
    EXPECT_EQ(panel.PicFeed.Top, 100.0f - 4 * n);
    panel.setVScrollVal(panel.VScrollMax());
    panel.MouseWheel(-120);
    EXPECT_EQ(panel.VScrollVal(), panel.VScrollMax()); // capped
    RefreshRSS(ws(), ws().Containers[i].FeedIndex, i);
    EXPECT_EQ(panel.VScrollVal(), 0);
    EXPECT_EQ(panel.PicFeed.Top, 100.0f);
    panel.MouseWheel(120);
    EXPECT_EQ(panel.VScrollVal(), 0); // floored
}

TEST_F(Panel, ASheetTallerThanSixteenBitsKeepsTheOldRange) {
    const int i = Add(Rss({{"a", "1"}, {"b", "2"}}));
    UserControl1& panel = PanelOf(i);
    const int oldMax = panel.VScrollMax();
    panel.PicFeed.Height = 40000 + panel.picBack.Height;
    panel.SetScrolls();
    EXPECT_EQ(panel.VScrollMax(), oldMax);
    EXPECT_TRUE(panel.VScrollEnabled());
}

TEST_F(Panel, AListThatFitsNeedsNoBarAndKeepsItsSteps) {
    const int i = Add(Rss({{"a", "1"}, {"b", "2"}}));
    UserControl1& panel = PanelOf(i);
    EXPECT_FALSE(panel.VScrollEnabled());
    // The step would be 150 / 40 = 4: taken; a zero step would have been refused.
    EXPECT_EQ(panel.VScroll1.SmallChange, 4);
    panel.PicFeed.Height = panel.picBack.Height;
    panel.SetScrolls();
    EXPECT_EQ(panel.VScroll1.SmallChange, 4);
    EXPECT_EQ(panel.VScroll1.LargeChange, 16);
}

TEST_F(Panel, TheWheelMovesTheHorizontalBarWhenTheVerticalIsOff) {
    const int i = Add(Rss({{QString(200, QLatin1Char('w')), "1"}, {"b", "2"}}));
    UserControl1& panel = PanelOf(i);
    ASSERT_FALSE(panel.VScrollEnabled());
    panel.MouseWheel(-120);
    EXPECT_EQ(panel.HScrollVal(), std::min(panel.HScrollLargeChange(), panel.HScrollMax()));
    EXPECT_EQ(panel.PicFeed.Left, 100.0f - panel.HScrollVal());
}

TEST_F(Panel, AClickOpensTheViewerAndGreysTheRowButRowThirtyNever) {
    std::vector<std::pair<QString, QString>> items;
    for (int k = 0; k < 35; ++k)
        items.emplace_back(QStringLiteral("row %1").arg(k), QStringLiteral("d%1").arg(k));
    const int i = Add(Rss(items));
    UserControl1& panel = PanelOf(i);
    panel.LblHeadline_MouseDown(2);
    panel.LblHeadline_MouseMove(2);
    panel.LblHeadline_MouseUp(2, 1, 0);
    EXPECT_EQ(panel.Rows[2].ForeColor, 0xC0C0C0);
    EXPECT_TRUE(Feeds(ws()).Viewer.Visible);
    EXPECT_EQ(Feeds(ws()).Viewer.CurrentItem, 3);
    panel.SetRead(30);
    EXPECT_NE(panel.Rows[30].ForeColor, 0xC0C0C0);
    panel.SetRead(29);
    EXPECT_EQ(panel.Rows[29].ForeColor, 0xC0C0C0);
}

TEST_F(Panel, ShiftClickAndTheMenuOpenTheSite) {
    const int i = Add(Rss({{"a", "1"}, {"b", "2"}, {"c", "3"}}));
    UserControl1& panel = PanelOf(i);
    panel.LblHeadline_MouseDown(1);
    panel.LblHeadline_MouseMove(1);
    panel.LblHeadline_MouseUp(1, 1, 1);
    ASSERT_EQ(p().opened.size(), 1u);
    EXPECT_EQ(p().opened[0], QStringLiteral("http://site/2"));
    EXPECT_FALSE(panel.UnderlineVisible);
    EXPECT_FALSE(Feeds(ws()).Viewer.Visible);
    // Shift with Ctrl is not Shift alone: the viewer.
    panel.LblHeadline_MouseMove(0);
    panel.LblHeadline_MouseUp(0, 1, 3);
    EXPECT_TRUE(Feeds(ws()).Viewer.Visible);
    // The popup's entry opens the row under the pointer on the site.
    panel.LblHeadline_MouseMove(2);
    ws().menus["mnuOpenInBrowser"].Click();
    EXPECT_EQ(p().opened.back(), QStringLiteral("http://site/3"));
}

TEST_F(Panel, OpenDirectlyGoesToTheSite) {
    ws().menus["mnuRSSOpenDirectly"].setChecked(true);
    const int i = Add(Rss({{"a", "1"}, {"b", "2"}}));
    PanelOf(i).LblHeadline_MouseMove(0);
    PanelOf(i).LblHeadline_MouseUp(0, 1, 0);
    EXPECT_EQ(p().opened, std::vector<QString>{QStringLiteral("http://site/1")});
}

TEST_F(Panel, FontAndColourChangesReachEveryRow) {
    const int i = Add(Rss({{"a", "1"}, {"bb", "2"}}));
    UserControl1& panel = PanelOf(i);
    EXPECT_EQ(panel.Rows[0].FontName, ws().LinkFontName);
    panel.ChangeHeadlinesFontName(QStringLiteral("Courier"));
    EXPECT_EQ(panel.Rows[1].FontName, QStringLiteral("Courier"));
    panel.setFeedBackColor(0x123456);
    panel.ChangeHeadlinesForeColor(0x00FF00);
    EXPECT_EQ(panel.Rows[1].ForeColor, 0x00FF00);
    EXPECT_EQ(panel.Rows[1].BackColor, 0x123456);
    EXPECT_EQ(panel.ForeColor(1), 0x00FF00);
}
