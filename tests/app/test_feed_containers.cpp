// Feed containers on the fake platform: adding them (the dialog and AddRSS with its address test),
// filling the panel (31 rows at most, highlighted terms, the channel title as name), the four red lines,
// refreshing one and all (answers shown in container order with their progress), the shared favicon,
// the update age, the title's tip and the feed menus.

#include "app/MainWindow.h"
#include "app/WorkspaceFile.h"
#include "containers/Containers.h"
#include "feeds/FeedContainers.h"
#include "feeds/FeedSearch.h"
#include "feeds/FeedsState.h"
#include "support/TestWorkspace.h"
#include "window/Docking.h"
#include "window/FeedTooltip.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

struct Item {
    QString title, description, link;
};

QByteArray RssOf(const QString& channel, const std::vector<Item>& items) {
    QString xml = QStringLiteral("<?xml version=\"1.0\"?><rss version=\"2.0\"><channel><title>") + channel +
                  QStringLiteral("</title><link>http://site/</link><description>d</description>");
    for (const Item& it : items)
        xml += QStringLiteral("<item><title>") + it.title + QStringLiteral("</title><link>") +
               (it.link.isEmpty() ? QStringLiteral("http://site/a") : it.link) +
               QStringLiteral("</link><description>") + it.description +
               QStringLiteral("</description></item>");
    return (xml + QStringLiteral("</channel></rss>")).toUtf8();
}

QByteArray Numbered(const QString& channel, int n) {
    std::vector<Item> items;
    for (int k = 1; k <= n; ++k)
        items.push_back({QStringLiteral("Headline %1").arg(k), QStringLiteral("Body %1").arg(k),
                         QStringLiteral("http://site/%1").arg(k)});
    return RssOf(channel, items);
}

HttpReply Ok(const QByteArray& body) {
    return {200, body, "application/rss+xml"};
}

const char* const kRed = "Error opening RSS news feed";

class FeedContainers : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireCoreCommands(ws());
    }
    Workspace& ws() { return *t.ws; }
    FeedsState& f() { return Feeds(ws()); }
    FakePlatform& p() { return t.platform; }
    // Adds a feed container as the dialog does; returns its container index.
    int Add(const QString& url) {
        QString u = url;
        EXPECT_TRUE(AddRSS(ws(), u, -1));
        return ws().ContainerCount - 1;
    }
    UserControl1& PanelOf(int i) { return f().Panel(ws().Containers[i].FeedIndex); }
    QStringList Rows(int i) {
        QStringList out;
        UserControl1& panel = PanelOf(i);
        for (int r = 0; r <= panel.LastRow(); ++r)
            if (panel.RowExists(r) && panel.Rows[r].Visible) out << panel.Rows[r].Text;
        return out;
    }
    TestWorkspace t;
};

} // namespace

TEST_F(FeedContainers, TypedAddressLosesItsSlashButAddRSSRefusesOne) {
    const QString url = QStringLiteral("http://feeds.test/news/");
    p().httpReplies[QStringLiteral("http://feeds.test/news")] = Ok(Numbered("News", 3));
    FrmAddRSS form;
    form.txtRSS = url;
    AddRSS_OKButton(ws(), form);
    EXPECT_TRUE(p().messages.empty());
    ASSERT_EQ(ws().RSSCount, 1);
    EXPECT_EQ(ws().Containers[ws().ContainerCount - 1].CopyPath, QStringLiteral("http://feeds.test/news"));
    EXPECT_TRUE(form.Closed);

    QString direct = url;
    const int before = ws().ContainerCount;
    EXPECT_FALSE(AddRSS(ws(), direct, -1));
    EXPECT_EQ(ws().ContainerCount, before);
    ASSERT_EQ(p().messages.size(), 1u);
    EXPECT_EQ(p().messages[0].text, QStringLiteral("Invalid URL: http://feeds.test/news/"));
    EXPECT_EQ(p().messages[0].style, 4144);
}

TEST_F(FeedContainers, AnInvalidAddressInTheDialogCostsTwoMessages) {
    FrmAddRSS form;
    form.lstFeeds = {QStringLiteral("not a url"), QStringLiteral("http://feeds.test/ok")};
    p().httpReplies[QStringLiteral("http://feeds.test/ok")] = Ok(Numbered("OK", 2));
    AddRSS_OKButton(ws(), form);
    ASSERT_EQ(p().messages.size(), 2u);
    EXPECT_EQ(p().messages[0].text, QStringLiteral("Invalid URL: not a url"));
    EXPECT_EQ(p().messages[1].text, QStringLiteral("Could not add all RSS feeds"));
    // The list is walked from its end: the good one was added and left the list.
    EXPECT_EQ(form.lstFeeds, QStringList{QStringLiteral("not a url")});
    EXPECT_EQ(ws().RSSCount, 1);
}

TEST_F(FeedContainers, DialogTakesAnAddressFromTheClipboardAndAddsWithoutATest) {
    p().clipboard = QStringLiteral("https://feeds.test/x.xml");
    FrmAddRSS form;
    AddRSS_Load(ws(), form);
    EXPECT_EQ(form.txtRSS, QStringLiteral("https://feeds.test/x.xml"));
    form.txtRSS = QStringLiteral("http://a.test/f/");
    AddRSS_cmdAdd(ws(), form);
    AddRSS_cmdAdd(ws(), form); // an empty text goes in too
    EXPECT_EQ(form.lstFeeds, (QStringList{QStringLiteral("http://a.test/f"), QString()}));
    EXPECT_TRUE(form.txtRSS.isEmpty());
    form.ListIndex = 1;
    AddRSS_cmdRemove(ws(), form);
    EXPECT_EQ(form.lstFeeds, QStringList{QStringLiteral("http://a.test/f")});
    EXPECT_EQ(form.ListIndex, 0);
    FrmAddRSS other;
    p().clipboard = QStringLiteral("ftp://x");
    AddRSS_Load(ws(), other);
    EXPECT_EQ(other.txtRSS, QStringLiteral("http://"));
}

TEST_F(FeedContainers, FortyItemsGiveThirtyOneRows) {
    p().httpReplies[QStringLiteral("http://feeds.test/40")] = Ok(Numbered("Forty", 40));
    const int i = Add(QStringLiteral("http://feeds.test/40"));
    EXPECT_EQ(f().Reader(ws().Containers[i].FeedIndex).Count(), 40);
    UserControl1& panel = PanelOf(i);
    EXPECT_EQ(panel.LastRow(), 30);
    EXPECT_EQ(Rows(i).size(), 31);
    EXPECT_EQ(panel.Rows[30].Text, QStringLiteral("Headline 31"));
    EXPECT_EQ(panel.FeedReaderIndex, ws().Containers[i].FeedIndex);
}

TEST_F(FeedContainers, RowsArePlacedTwiceTheLabelHeightApart) {
    p().httpReplies[QStringLiteral("http://feeds.test/3")] = Ok(Numbered("Three", 3));
    const int i = Add(QStringLiteral("http://feeds.test/3"));
    UserControl1& panel = PanelOf(i);
    const float h = panel.Rows[0].Height;
    EXPECT_EQ(panel.Rows[0].Left, 405.0f);
    EXPECT_EQ(panel.Rows[0].Top, 120.0f);
    EXPECT_EQ(panel.Rows[1].Left, 400.0f);
    EXPECT_EQ(panel.Rows[1].Top, 120.0f + 2 * h);
    EXPECT_EQ(panel.Rows[2].Top, 120.0f + 4 * h);
    EXPECT_EQ(panel.Rows[2].SepY1, panel.Rows[2].Top + panel.Rows[2].Height + 100);
    EXPECT_EQ(panel.Rows[2].BulletTop, panel.Rows[2].Top + 80);
    EXPECT_EQ(ws().LstRSS(ws().Containers[i].FeedIndex).Left.get(), 80.0f);
    EXPECT_EQ(ws().LstRSS(ws().Containers[i].FeedIndex).Top.get(), 360.0f);
}

TEST_F(FeedContainers, ATermOnlyInTheDescriptionColoursTheRowAndAddsTheTerm) {
    ws().menus("mnuRSSSearchItem", 0).setCaption(QStringLiteral("Volcano"));
    p().httpReplies[QStringLiteral("http://feeds.test/h")] =
        Ok(RssOf("H", {{"Plain news", "about a VOLCANO today", ""}, {"Other", "nothing", ""}}));
    const int i = Add(QStringLiteral("http://feeds.test/h"));
    UserControl1& panel = PanelOf(i);
    EXPECT_EQ(panel.Rows[0].Text, QStringLiteral("Plain news [Volcano]"));
    EXPECT_EQ(panel.Rows[0].ForeColor, 255);
    EXPECT_EQ(panel.Rows[1].Text, QStringLiteral("Other"));
    EXPECT_EQ(panel.Rows[1].ForeColor, ws().txtNote(0).ForeColor.get());
}

TEST_F(FeedContainers, AHiddenMemberFirstIsNeverMatched) {
    ws().menus("mnuRSSSearchItem", 0).setCaption(QStringLiteral("alpha"));
    ws().menus("mnuRSSSearchItem", 0).setVisible(false);
    ws().menus("mnuRSSSearchItem", 1).setCaption(QStringLiteral("beta"));
    ws().menus("mnuRSSSearchItem", 1).setVisible(true);
    clsHeadLine h{QStringLiteral("alpha and beta"), QString(), QString()};
    QString term;
    EXPECT_TRUE(MatchSearchTerm(ws(), h, term));
    EXPECT_EQ(term, QStringLiteral("[beta]"));
    clsHeadLine none{QStringLiteral("alpha only"), QString(), QString()};
    QString t2;
    EXPECT_FALSE(MatchSearchTerm(ws(), none, t2));
    EXPECT_TRUE(t2.isEmpty());
}

TEST_F(FeedContainers, AHighlightedHeadlineShowsItsTagsAndWithoutHighlightTheyGo) {
    ws().menus("mnuRSSSearchItem", 0).setCaption(QStringLiteral("storm"));
    p().httpReplies[QStringLiteral("http://feeds.test/t")] =
        Ok(RssOf("T", {{"&lt;b&gt;Storm&lt;/b&gt; warning", "x", ""}, {"last", "y", ""}}));
    const int i = Add(QStringLiteral("http://feeds.test/t"));
    EXPECT_EQ(PanelOf(i).Rows[0].Text, QStringLiteral("<b>Storm</b> warning [storm]"));
    ws().menus["mnuHighlightRSS"].setChecked(false);
    RefreshRSS(ws(), ws().Containers[i].FeedIndex, i);
    EXPECT_EQ(PanelOf(i).Rows[0].Text, QStringLiteral("Storm warning"));
    EXPECT_NE(PanelOf(i).Rows[0].ForeColor, 255);
}

TEST_F(FeedContainers, TheDefaultNameTakesTheChannelTitleAChangedOneStays) {
    p().httpReplies[QStringLiteral("http://feeds.test/n")] = Ok(Numbered("Channel Name", 2));
    const int i = Add(QStringLiteral("http://feeds.test/n"));
    EXPECT_EQ(ws().lblName(i).Caption.get(), QStringLiteral("Channel Name"));
    ws().lblName(i).Caption = QStringLiteral("Mine");
    RefreshRSS(ws(), ws().Containers[i].FeedIndex, i);
    EXPECT_EQ(ws().lblName(i).Caption.get(), QStringLiteral("Mine"));
    // One the user called "Container" is taken over.
    ws().lblName(i).Caption = QStringLiteral("Container");
    RefreshRSS(ws(), ws().Containers[i].FeedIndex, i);
    EXPECT_EQ(ws().lblName(i).Caption.get(), QStringLiteral("Channel Name"));
}

TEST_F(FeedContainers, RefreshWhileOfflineClearsToTheFourRedLinesAndKeepsLastUpdate) {
    p().httpReplies[QStringLiteral("http://feeds.test/o")] = Ok(Numbered("O", 5));
    const int i = Add(QStringLiteral("http://feeds.test/o"));
    const int n = ws().Containers[i].FeedIndex;
    const QString before = f().Reader(n).LastUpdate;
    ASSERT_FALSE(before.isEmpty());
    EXPECT_EQ(ws().lblRSSLastUpdate(n).Caption.get(), before);
    t.clock.advance(5 * 60 * 1000);
    p().online = false;
    p().httpDeferred = true;
    RefreshRSS(ws(), n, i);
    // Offline nothing is fetched: the panel went through empty to the red lines at once.
    EXPECT_TRUE(p().pendingHttp.empty());
    EXPECT_EQ(Rows(i),
              (QStringList{
                  QString::fromLatin1(kRed),
                  QStringLiteral("Check your internet connection and/or the Proxy Server address"),
                  QStringLiteral("Click the Refresh button to try again"),
                  QStringLiteral("* Make sure you have MSXML6 installed-See the readme.txt file for more")}));
    for (int r = 0; r < 4; ++r)
        EXPECT_EQ(PanelOf(i).Rows[r].ForeColor, 255);
    EXPECT_EQ(f().Reader(n).LastUpdate, before);
    EXPECT_EQ(ws().lblRSSLastUpdate(n).Caption.get(), before);
    EXPECT_EQ(FormatUpdateAge(ws(), f().Reader(n).LastUpdate), QStringLiteral("Last Update 5 minutes ago"));
}

TEST_F(FeedContainers, APanelIsEmptyWhileItsRefreshIsUnderWay) {
    p().httpReplies[QStringLiteral("http://feeds.test/w")] = Ok(Numbered("W", 4));
    const int i = Add(QStringLiteral("http://feeds.test/w"));
    p().httpDeferred = true;
    RefreshRSS(ws(), ws().Containers[i].FeedIndex, i);
    EXPECT_TRUE(Rows(i).isEmpty());
    EXPECT_FALSE(PanelOf(i).Rows[0].Visible);
    p().runPendingHttp();
    EXPECT_EQ(Rows(i).size(), 4);
}

TEST_F(FeedContainers, AFailedAddShowsTheRedLinesAndTheContainerStays) {
    const int i = Add(QStringLiteral("http://feeds.test/404"));
    EXPECT_TRUE(ws().Containers[i].IsFeed);
    EXPECT_EQ(Rows(i).first(), QString::fromLatin1(kRed));
    EXPECT_EQ(PanelOf(i).FeedReaderIndex, -1);
    EXPECT_TRUE(f().Reader(ws().Containers[i].FeedIndex).LastUpdate.isEmpty());
}

TEST_F(FeedContainers, TwoContainersShareTheFaviconFile) {
    p().httpReplies[QStringLiteral("http://one.test/f")] = Ok(Numbered("One", 2));
    p().httpReplies[QStringLiteral("http://two.test/f")] = Ok(Numbered("Two", 2));
    p().httpReplies[QStringLiteral("http://one.test/favicon.ico")] = {200, "ICON-ONE", "image/x-icon"};
    p().httpReplies[QStringLiteral("http://two.test/favicon.ico")] = {200, "ICON-TWO", "image/x-icon"};
    const int a = Add(QStringLiteral("http://one.test/f"));
    const QString favicon = QDir(ws().DataPath).filePath(QStringLiteral("favicon.ico"));
    EXPECT_EQ(ws().Containers[a].IconPath, favicon);
    EXPECT_EQ(t.readData(QStringLiteral("favicon.ico")), QByteArray("ICON-ONE"));
    const int b = Add(QStringLiteral("http://two.test/f"));
    EXPECT_EQ(ws().Containers[b].IconPath, favicon);
    // The first container's icon path names the file that now holds the second site's icon.
    EXPECT_EQ(ws().Containers[a].IconPath, favicon);
    EXPECT_EQ(t.readData(QStringLiteral("favicon.ico")), QByteArray("ICON-TWO"));
    EXPECT_EQ(ws().ShrinkIcon(a).Width.get(), 64 * 15.0f);
    EXPECT_TRUE(f().RssOverlay.count(a));
}

TEST_F(FeedContainers, NoFaviconGivesTheProgramsFeedIconAndAChosenIconStays) {
    p().httpReplies[QStringLiteral("http://one.test/f")] = Ok(Numbered("One", 2));
    const int a = Add(QStringLiteral("http://one.test/f"));
    EXPECT_EQ(ws().Containers[a].IconPath, QDir(ws().ProgramDirectory).filePath(QStringLiteral("rss.ico")));
    ws().Containers[a].IconPath = QStringLiteral("/home/me/mine.png");
    RefreshRSS(ws(), ws().Containers[a].FeedIndex, a);
    EXPECT_EQ(ws().Containers[a].IconPath, QStringLiteral("/home/me/mine.png"));
    ws().SelectedContainer = static_cast<int16_t>(a);
    mnuRSSResetIcon_Click(ws());
    EXPECT_EQ(ws().Containers[a].IconPath, QDir(ws().ProgramDirectory).filePath(QStringLiteral("rss.ico")));
    // The favicon was asked for at the host of the feed.
    bool asked = false;
    for (const HttpRequest& r : p().httpRequests)
        asked |= r.url == QLatin1String("http://one.test/favicon.ico");
    EXPECT_TRUE(asked);
}

TEST_F(FeedContainers, RefreshAllFetchesTogetherAndShowsInContainerOrderWithProgress) {
    for (const char* host : {"a", "b", "c"})
        p().httpReplies[QStringLiteral("http://%1.test/f").arg(QLatin1String(host))] =
            Ok(Numbered(QStringLiteral("Feed %1").arg(QLatin1String(host)), 3));
    const int a = Add(QStringLiteral("http://a.test/f"));
    const int b = Add(QStringLiteral("http://b.test/f"));
    const int c = Add(QStringLiteral("http://c.test/f"));
    p().httpDeferred = true;
    p().httpRequests.clear();
    bool done = false;
    f().onRefreshAllDone = [&] { done = true; };
    mnuRSSRefreshAll_Click(ws());
    // All three fetches are under way at once, every panel empty, the window disabled.
    EXPECT_EQ(p().pendingHttp.size(), 3u);
    EXPECT_FALSE(ws().frmMain(0).Enabled.get());
    EXPECT_FALSE(ws().picBack(0).Enabled.get());
    EXPECT_EQ(ws().picBack(0).MousePointer.get(), 11);
    for (int i : {a, b, c})
        EXPECT_TRUE(Rows(i).isEmpty());
    EXPECT_EQ(ws().lblCaption(0).Caption.get(), QStringLiteral("Feed a [1/3]"));
    EXPECT_TRUE(ws().lblName(a).FontBold.get());
    // The third answers first: it waits until the first two have been shown.
    auto third = std::move(p().pendingHttp.back());
    p().pendingHttp.pop_back();
    third();
    EXPECT_TRUE(Rows(c).isEmpty());
    EXPECT_EQ(ws().lblCaption(0).Caption.get(), QStringLiteral("Feed a [1/3]"));
    auto first = std::move(p().pendingHttp.front());
    p().pendingHttp.pop_front();
    first();
    EXPECT_EQ(Rows(a).size(), 3);
    EXPECT_FALSE(ws().lblName(a).FontBold.get());
    EXPECT_EQ(ws().lblCaption(0).Caption.get(), QStringLiteral("Feed b [2/3]"));
    EXPECT_TRUE(Rows(c).isEmpty());
    EXPECT_FALSE(done);
    // Favicon requests made while showing run too.
    while (!p().pendingHttp.empty())
        p().runPendingHttp();
    EXPECT_TRUE(done);
    EXPECT_EQ(Rows(b).size(), 3);
    EXPECT_EQ(Rows(c).size(), 3);
    EXPECT_TRUE(ws().frmMain(0).Enabled.get());
    EXPECT_EQ(ws().picBack(0).MousePointer.get(), 0);
    EXPECT_EQ(ws().lblCaption(0).Caption.get(), ClockCaption(ws()));
}

TEST_F(FeedContainers, RefreshAllPassesOverHiddenContainersAndGoesOnAfterAFailure) {
    p().httpReplies[QStringLiteral("http://a.test/f")] = Ok(Numbered("A", 2));
    const int a = Add(QStringLiteral("http://a.test/f"));
    const int bad = Add(QStringLiteral("http://bad.test/f"));
    p().httpReplies[QStringLiteral("http://c.test/f")] = Ok(Numbered("C", 2));
    const int c = Add(QStringLiteral("http://c.test/f"));
    ws().Group(a).Visible = false;
    p().httpRequests.clear();
    mnuRSSRefreshAll_Click(ws());
    int feedRequests = 0;
    for (const HttpRequest& r : p().httpRequests)
        feedRequests += r.url.endsWith(QLatin1String("/f"));
    EXPECT_EQ(feedRequests, 2);
    EXPECT_EQ(Rows(bad).first(), QString::fromLatin1(kRed));
    EXPECT_EQ(Rows(c).size(), 2);
    EXPECT_FALSE(f().RefreshAll.Running);
}

TEST_F(FeedContainers, LoadingShowsTheGreenWaitingLineAndFetchesNothing) {
    ws().IsLoading = true;
    p().httpRequests.clear();
    const int i = Add(QStringLiteral("http://feeds.test/l"));
    ws().IsLoading = false;
    EXPECT_TRUE(p().httpRequests.empty());
    EXPECT_EQ(Rows(i), QStringList{QStringLiteral("Click to download headlines")});
    EXPECT_EQ(PanelOf(i).Rows[0].ForeColor, 32768);
    EXPECT_EQ(PanelOf(i).FeedReaderIndex, -1);
}

TEST_F(FeedContainers, FormatUpdateAge) {
    EXPECT_EQ(FormatUpdateAge(ws(), QStringLiteral("  ")), QStringLiteral("Last Update: [not available]"));
    const QString now = NowText(ws());
    EXPECT_EQ(FormatUpdateAge(ws(), now), QStringLiteral("Last Update 0 minutes ago"));
    t.clock.advance(59 * 1000);
    EXPECT_EQ(FormatUpdateAge(ws(), now), QStringLiteral("Last Update 0 minutes ago"));
    t.clock.advance(61 * 1000 + 60 * 60 * 1000);
    EXPECT_EQ(FormatUpdateAge(ws(), now), QStringLiteral("Last Update 62 minutes ago"));
}

TEST_F(FeedContainers, TheTitleTipListsHeadlinesFromTheFirstButNotTheLast) {
    p().httpReplies[QStringLiteral("http://feeds.test/3")] = Ok(Numbered("Three", 3));
    p().httpReplies[QStringLiteral("http://feeds.test/1")] = Ok(Numbered("One", 1));
    const int i = Add(QStringLiteral("http://feeds.test/3"));
    const int j = Add(QStringLiteral("http://feeds.test/1"));
    FeedTitle_MouseMove(ws(), i);
    EXPECT_EQ(ws().lblName(i).ToolTipText.get(),
              QStringLiteral("\r\n\r\nFirst few headlines:\r\n\r\n- Headline 1\r\n- Headline 2"));
    EXPECT_EQ(f().HoverFeedContainer, i);
    EXPECT_EQ(ws().lblRSSRefresh(0).Container(), &ws().grpBorder(i));
    EXPECT_EQ(ws().lblRSSRefresh(0).Left.get(), 300.0f);
    FeedTitle_MouseMove(ws(), j);
    EXPECT_TRUE(ws().lblName(j).ToolTipText.get().isEmpty());
}

TEST_F(FeedContainers, TheTitleTipStopsOnceOverTwoHundredCharacters) {
    p().httpReplies[QStringLiteral("http://feeds.test/30")] = Ok(Numbered("Thirty", 30));
    const int i = Add(QStringLiteral("http://feeds.test/30"));
    const QString tip = FeedTitleTooltip(ws(), i);
    EXPECT_GT(tip.size(), 200);
    EXPECT_LT(tip.size(), 200 + 20);
}

TEST_F(FeedContainers, TheRefreshLabelShowsBusyWhileItsFeedLoads) {
    p().httpReplies[QStringLiteral("http://feeds.test/r")] = Ok(Numbered("R", 2));
    const int i = Add(QStringLiteral("http://feeds.test/r"));
    FeedTitle_MouseMove(ws(), i);
    p().httpDeferred = true;
    lblRSSRefresh_MouseUp(ws(), 1);
    EXPECT_EQ(ws().lblRSSRefresh(0).Caption.get(), QStringLiteral(","));
    p().runPendingHttp();
    p().runPendingHttp();
    EXPECT_EQ(ws().lblRSSRefresh(0).Caption.get(), QStringLiteral("7"));
    EXPECT_EQ(Rows(i).size(), 2);
}

TEST_F(FeedContainers, CopyUrlOpenSiteAndProxy) {
    p().httpReplies[QStringLiteral("http://feeds.test/u")] = Ok(Numbered("U", 2));
    const int i = Add(QStringLiteral("http://feeds.test/u"));
    ws().SelectedContainer = static_cast<int16_t>(i);
    mnuRSSCopyURL_Click(ws());
    EXPECT_EQ(p().clipboard, QStringLiteral("http://feeds.test/u"));
    mnuRSSOpenWebsite_Click(ws());
    ASSERT_FALSE(p().opened.empty());
    EXPECT_EQ(p().opened.back(), QStringLiteral("http://feeds.test/u"));
    p().inputAnswers.push_back(QStringLiteral("proxy.test:3128"));
    mnuRSSSetProxy_Click(ws());
    EXPECT_EQ(p().inputPrompts.back(), QStringLiteral("Proxy Server:|Perchdock|"));
    EXPECT_EQ(ws().ProxyServer, QStringLiteral("proxy.test:3128"));
    EXPECT_TRUE(ws().menus["mnuRSSSetProxy"].Checked());
    EXPECT_EQ(ws().menus["mnuRSSSetProxy"].Caption(), QStringLiteral("&Proxy Server"));
    p().inputAnswers.push_back(QStringLiteral("   "));
    mnuRSSSetProxy_Click(ws());
    EXPECT_TRUE(ws().ProxyServer.isEmpty());
    EXPECT_FALSE(ws().menus["mnuRSSSetProxy"].Checked());
}

TEST_F(FeedContainers, TheContainerFileKeepsTheFeedAndALoadShowsTheWaitingLine) {
    p().httpReplies[QStringLiteral("http://feeds.test/k")] = Ok(Numbered("Kept", 2));
    Add(QStringLiteral("http://feeds.test/k"));
    t.exit();
    t.restart();
    t.start();
    WireCoreCommands(ws());
    ASSERT_EQ(ws().RSSCount, 1);
    const int i = ws().ContainerCount - 1;
    EXPECT_TRUE(ws().Containers[i].IsFeed);
    EXPECT_EQ(ws().Containers[i].CopyPath, QStringLiteral("http://feeds.test/k"));
    EXPECT_EQ(ws().lblName(i).Caption.get(), QStringLiteral("Kept"));
    EXPECT_EQ(Rows(i), QStringList{QStringLiteral("Click to download headlines")});
}

TEST_F(FeedContainers, TheFeedMenusAreDeclaredWithTheirCaptions) {
    EXPECT_EQ(ws().menus["mnuAddRSS"].Caption(), QStringLiteral("R&SS News Feed"));
    EXPECT_EQ(ws().menus["mnuRSSRefreshAll"].Caption(), QStringLiteral("&Refresh All"));
    EXPECT_EQ(ws().menus["mnuRSSOpenWebsite"].Caption(), QStringLiteral("&Go to URL"));
    EXPECT_EQ(ws().menus["mnuRSSCopyURL"].Caption(), QStringLiteral("&Copy URL"));
    EXPECT_EQ(ws().menus["mnuRSSResetIcon"].Caption(), QStringLiteral("&Reset Icon"));
    EXPECT_EQ(ws().menus["mnuOpenInBrowser"].Caption(), QStringLiteral("Open on the &website <Shift>"));
    EXPECT_EQ(ws().menus["mnuRSSRecentSearches"].Caption(), QStringLiteral("Recen&t Search Terms"));
    EXPECT_EQ(ws().menus["mnuClearRecentSearchTerms"].Caption(), QStringLiteral("&Clear Recent List"));
    // F11 and Ctrl+E reach the feed commands.
    p().httpRequests.clear();
    int dialogs = 0;
    f().showAddRSS = [&](FrmAddRSS& form) {
        ++dialogs;
        EXPECT_EQ(form.Caption, QStringLiteral("Add RSS News Feeds"));
    };
    ws().menus["mnuAddRSS"].Click();
    EXPECT_EQ(dialogs, 1);
}

TEST_F(FeedContainers, RdfAndAtomFeedsFillTheirPanelsAndAreSearched) {
    p().httpReplies[QStringLiteral("http://feeds.test/rdf")] =
        Ok("<?xml version=\"1.0\"?><rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\" "
           "xmlns=\"http://purl.org/rss/1.0/\"><channel rdf:about=\"http://h/\"><title>RDF channel</title>"
           "<link>http://h/</link><description>rdf</description></channel>"
           "<item rdf:about=\"http://h/1\"><title>RDF story "
           "1</title><link>http://h/1</link><description>t1</description></item>"
           "<item rdf:about=\"http://h/2\"><title>RDF story "
           "2</title><link>http://h/2</link><description>t2</description></item>"
           "</rdf:RDF>");
    p().httpReplies[QStringLiteral("http://feeds.test/atom")] =
        Ok("<?xml version=\"1.0\"?><feed xmlns=\"http://www.w3.org/2005/Atom\"><title>Atom channel</title>"
           "<subtitle>atom</subtitle><link href=\"http://h/\"/>"
           "<entry><title>Atom story 1</title><link rel=\"alternate\" "
           "href=\"http://h/a1\"/><summary>s1</summary></entry>"
           "<entry><title>Atom story 2</title><link rel=\"alternate\" "
           "href=\"http://h/a2\"/><summary>s2</summary></entry>"
           "</feed>");
    const int r = Add(QStringLiteral("http://feeds.test/rdf"));
    const int a = Add(QStringLiteral("http://feeds.test/atom"));
    EXPECT_EQ(Rows(r), (QStringList{QStringLiteral("RDF story 1"), QStringLiteral("RDF story 2")}));
    EXPECT_EQ(Rows(a), (QStringList{QStringLiteral("Atom story 1"), QStringLiteral("Atom story 2")}));
    EXPECT_EQ(ws().lblName(r).Caption.get(), QStringLiteral("RDF channel"));
    EXPECT_EQ(ws().lblName(a).Caption.get(), QStringLiteral("Atom channel"));
    FrmRSSSearch s;
    s.txtSearch = QStringLiteral("story 1");
    txtSearch_Change(ws(), s);
    EXPECT_EQ(s.Results, 2);
}

TEST_F(FeedContainers, DeletingAFeedContainerClearsItsReaderAndKeepsTheSlot) {
    p().httpReplies[QStringLiteral("http://feeds.test/d")] = Ok(Numbered("D", 3));
    const int i = Add(QStringLiteral("http://feeds.test/d"));
    const int n = ws().Containers[i].FeedIndex;
    ASSERT_EQ(f().Reader(n).Count(), 3);
    ws().SelectedContainer = static_cast<int16_t>(i);
    p().answers.push_back(MsgAnswer::Yes);
    mnuDeleteContainer_Click(ws());
    EXPECT_FALSE(ws().Group(i).Visible.get());
    EXPECT_EQ(f().Reader(n).Count(), 0);
    EXPECT_EQ(ws().RSSCount, 1);
}
