// The feed viewer (stepping with wrap-around, the page it writes, refresh, open, on top, its stored
// place) and the feed search (results by feed, counting, the recent terms list of ten).

#include "app/MainWindow.h"
#include "app/WorkspaceFile.h"
#include "feeds/FeedContainers.h"
#include "feeds/FeedSearch.h"
#include "feeds/FeedViewer.h"
#include "feeds/FeedsState.h"
#include "support/TestWorkspace.h"

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

QString Rss(const QString& channel, const std::vector<std::pair<QString, QString>>& items) {
    QString xml =
        QStringLiteral("<rss><channel><title>%1</title><link>http://site/</link><description>d</description>")
            .arg(channel);
    int k = 0;
    for (const auto& [title, desc] : items)
        xml += QStringLiteral(
                   "<item><title>%1</title><link>http://site/%2</link><description>%3</description></item>")
                   .arg(title)
                   .arg(++k)
                   .arg(desc);
    return xml + QStringLiteral("</channel></rss>");
}

QString Numbered(const QString& channel, int n) {
    std::vector<std::pair<QString, QString>> items;
    for (int k = 1; k <= n; ++k)
        items.emplace_back(QStringLiteral("Title %1").arg(k), QStringLiteral("Text %1").arg(k));
    return Rss(channel, items);
}

class Viewer : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        WireCoreCommands(ws());
    }
    Workspace& ws() { return *t.ws; }
    FakePlatform& p() { return t.platform; }
    FrmRSSView& v() { return Feeds(ws()).Viewer; }
    int Add(const QString& url, const QString& xml) {
        p().httpReplies[url] = Ok(xml);
        QString u = url;
        EXPECT_TRUE(AddRSS(ws(), u, -1));
        return ws().ContainerCount - 1;
    }
    TestWorkspace t;
};

QString Header(int item, int count, const QString& title) {
    return QStringLiteral("<b><font size='5' color='#C0C0C0'>%1/%2 %3</font></b><hr><br>")
        .arg(item)
        .arg(count)
        .arg(title);
}

} // namespace

TEST_F(Viewer, BackOnTheFirstOfTwentyShowsTheLastAndNextOnTheLastTheFirst) {
    Add(QStringLiteral("http://feeds.test/20"), Numbered("Twenty", 20));
    mnuRSSViewer_Click(ws());
    ASSERT_TRUE(v().Visible);
    EXPECT_EQ(v().Caption, QStringLiteral("RSS Viewer"));
    EXPECT_EQ(v().CurrentItem, 1);
    EXPECT_EQ(v().Document, Header(1, 20, "Title 1") + QStringLiteral("Text 1"));
    RSSView_cmdBack(ws());
    EXPECT_EQ(v().CurrentItem, 20);
    EXPECT_TRUE(v().Document.startsWith(Header(20, 20, "Title 20")));
    RSSView_cmdNext(ws());
    EXPECT_EQ(v().CurrentItem, 1);
    EXPECT_TRUE(v().Document.startsWith(Header(1, 20, "Title 1")));
}

TEST_F(Viewer, NavigationReachesRecordsBeyondTheThirtyOneRows) {
    Add(QStringLiteral("http://feeds.test/40"), Numbered("Forty", 40));
    mnuRSSViewer_Click(ws());
    for (int k = 0; k < 35; ++k)
        RSSView_cmdNext(ws());
    EXPECT_EQ(v().CurrentItem, 36);
    EXPECT_TRUE(v().Document.startsWith(Header(36, 40, "Title 36")));
}

TEST_F(Viewer, AnEmptyDescriptionShowsTheHeaderAndNoDescription) {
    Add(QStringLiteral("http://feeds.test/e"), Rss("E", {{"Empty", ""}, {"Full", "&lt;p&gt;x&lt;/p&gt;"}}));
    mnuRSSViewer_Click(ws());
    EXPECT_EQ(v().Document,
              Header(1, 2, "Empty") + QStringLiteral("<html><head><b>No Description</b></head></html>"));
    RSSView_cmdNext(ws());
    EXPECT_EQ(v().Document, Header(2, 2, "Full") + QStringLiteral("<p>x</p>"));
}

TEST_F(Viewer, AFailedRefreshLeavesThePageBlankAndThePanelFailed) {
    const int i = Add(QStringLiteral("http://feeds.test/f"), Numbered("F", 3));
    mnuRSSViewer_Click(ws());
    p().httpReplies.clear();
    RSSView_cmdRefresh(ws());
    EXPECT_TRUE(v().Document.isEmpty());
    EXPECT_EQ(Feeds(ws()).Panel(ws().Containers[i].FeedIndex).Rows[0].Text,
              QStringLiteral("Error opening RSS news feed"));
    EXPECT_EQ(v().CurrentItem, 1);
}

TEST_F(Viewer, AViewerClosedWhileMinimisedKeepsItsFormerPlace) {
    Add(QStringLiteral("http://feeds.test/m"), Numbered("M", 3));
    mnuRSSViewer_Click(ws());
    EXPECT_EQ(v().Width, 8295.0f);
    EXPECT_EQ(v().Left, 1000.0f);
    v().Left = 2000;
    v().Width = 9000;
    RSSView_cmdClose(ws());
    EXPECT_EQ(ws().RSSViewerX, 2000);
    EXPECT_EQ(ws().RSSViewerW, 9000);
    mnuRSSViewer_Click(ws());
    EXPECT_EQ(v().Left, 2000.0f);
    v().WindowState = 1;
    v().Left = -32000;
    v().Width = 2000;
    RSSView_cmdClose(ws());
    EXPECT_EQ(ws().RSSViewerX, 2000);
    EXPECT_EQ(ws().RSSViewerW, 9000);
}

TEST_F(Viewer, OnTopIsKeptAndAnOnTopViewerStaysOpenOnOpen) {
    Add(QStringLiteral("http://feeds.test/t"), Numbered("T", 3));
    mnuRSSViewer_Click(ws());
    RSSView_cmdOnTop(ws());
    EXPECT_FALSE(v().cmdOnTop.Enabled);
    EXPECT_TRUE(p().onTop[QStringLiteral("frmRSSView")]);
    RSSView_cmdOpen(ws());
    EXPECT_EQ(p().opened.back(), QStringLiteral("http://site/1"));
    EXPECT_TRUE(v().Visible);
    RSSView_cmdClose(ws());
    EXPECT_EQ(ws().RSSViewerOnTop, 1);
    mnuRSSViewer_Click(ws());
    EXPECT_FALSE(v().cmdOnTop.Enabled);
    RSSView_lblOnTop(ws());
    EXPECT_TRUE(v().cmdOnTop.Enabled);
    EXPECT_FALSE(p().onTop[QStringLiteral("frmRSSView")]);
    RSSView_cmdOpen(ws());
    EXPECT_FALSE(v().Visible);
    EXPECT_FALSE(v().Loaded);
    EXPECT_EQ(ws().RSSViewerOnTop, 0);
}

TEST_F(Viewer, TheFeedListHoldsEveryPanelsContainerAndAChoiceShowsItsFirstItem) {
    Add(QStringLiteral("http://feeds.test/a"), Numbered("Alpha", 3));
    Add(QStringLiteral("http://feeds.test/b"), Numbered("Beta", 4));
    mnuRSSViewer_Click(ws());
    EXPECT_EQ(v().cboFeeds, (QStringList{QStringLiteral("Alpha"), QStringLiteral("Beta")}));
    EXPECT_EQ(v().ListIndex, 0);
    RSSView_cboFeedsClick(ws(), 1);
    EXPECT_EQ(v().CurrentFeed, 1);
    EXPECT_TRUE(v().Document.startsWith(Header(1, 4, "Title 1")));
}

TEST_F(Viewer, TheViewerMenuPassesOverAOneRecordFeedAndDoesNothingWithoutOne) {
    Add(QStringLiteral("http://feeds.test/1"), Numbered("One", 1));
    mnuRSSViewer_Click(ws());
    EXPECT_FALSE(v().Visible);
    EXPECT_TRUE(p().messages.empty());
    Add(QStringLiteral("http://feeds.test/2"), Numbered("Two", 2));
    mnuRSSViewer_Click(ws());
    EXPECT_TRUE(v().Visible);
    EXPECT_EQ(v().CurrentFeed, 1);
}

TEST_F(Viewer, TheLayoutFollowsTheWindowAndKeepsAMinimumSize) {
    Add(QStringLiteral("http://feeds.test/l"), Numbered("L", 2));
    mnuRSSViewer_Click(ws());
    v().Width = 10000;
    v().Height = 8000;
    RSSView_Resize(ws());
    EXPECT_EQ(v().Web.Width, 9520.0f);
    EXPECT_EQ(v().Web.Height, 6800.0f);
    EXPECT_EQ(v().cmdBack.Left, 10000.0f - 3380);
    EXPECT_EQ(v().cmdBack.Top, 240.0f + 6800 + 150);
    EXPECT_EQ(v().cmdNext.Left, v().cmdBack.Left + v().cmdBack.Width + 100);
    EXPECT_EQ(v().cboFeeds_.Width, v().cmdBack.Left - v().cmdRefresh.Width - 320);
    const float lag = v().cmdRefresh.Top;
    v().Height = 9000;
    RSSView_Resize(ws());
    EXPECT_EQ(v().cmdOnTop.Top, lag); // one resize behind
    v().Width = 3000;
    v().Height = 3000;
    RSSView_Resize(ws());
    EXPECT_EQ(v().Width, 5000.0f);
    EXPECT_EQ(v().Height, 5000.0f);
}

// --- search ---

class Search : public Viewer {};

TEST_F(Search, BothBoxesOffGiveHeadersOnlyAndACountOfZero) {
    Add(QStringLiteral("http://feeds.test/a"), Numbered("Alpha", 3));
    FrmRSSSearch s;
    s.chkHeadline = false;
    s.chkFull = false;
    s.txtSearch = QStringLiteral("title");
    txtSearch_Change(ws(), s);
    EXPECT_EQ(s.txtRSS, QStringLiteral("\r\n*** Alpha ***\r\n"));
    EXPECT_EQ(s.Caption, QStringLiteral("Results: 0"));
}

TEST_F(Search, NoFeedFetchedLeavesTheResultsEmpty) {
    FrmRSSSearch s;
    s.txtSearch = QStringLiteral("x");
    txtSearch_Change(ws(), s);
    EXPECT_TRUE(s.txtRSS.isEmpty());
    EXPECT_EQ(s.Caption, QStringLiteral("Results: 0"));
    s.txtSearch.clear();
    txtSearch_Change(ws(), s);
    EXPECT_EQ(s.Caption, QStringLiteral("Search RSS"));
}

TEST_F(Search, ATermInHeadlineAndDescriptionCountsOnceAndTheLastRecordIsNotSearched) {
    Add(QStringLiteral("http://feeds.test/a"),
        Rss("Alpha", {{"Solar &lt;b&gt;news&lt;/b&gt;", "solar panels"},
                      {"Wind", "no solar here"},
                      {"Solar last", "solar"}}));
    FrmRSSSearch s;
    s.chkHeadline = true;
    s.chkFull = true;
    s.txtSearch = QStringLiteral("SOLAR");
    txtSearch_Change(ws(), s);
    EXPECT_EQ(s.Results, 2);
    EXPECT_EQ(s.Caption, QStringLiteral("Results: 2"));
    EXPECT_EQ(s.txtRSS, QStringLiteral("\r\n*** Alpha ***\r\n"
                                       "\r\n[Solar news]\r\n\r\nsolar panels\r\n"
                                       "\r\n[Wind]\r\n\r\nno solar here\r\n"));
    // Matching is on the raw text: a term inside a tag is found.
    s.chkFull = false;
    s.txtSearch = QStringLiteral("<b>");
    txtSearch_Change(ws(), s);
    EXPECT_EQ(s.Results, 1);
}

TEST_F(Search, AnEleventhTermPushesOutTheFirstAndTheHighlightFollows) {
    for (int k = 1; k <= 11; ++k) {
        FrmRSSSearch s;
        s.txtSearch = QStringLiteral("  term%1 ").arg(k);
        RSSSearch_Unload(ws(), s);
    }
    EXPECT_EQ(RecentTermCount(ws()), 10);
    EXPECT_EQ(ws().menus("mnuRSSSearchItem", 0).Caption(), QStringLiteral("term2"));
    EXPECT_EQ(ws().menus("mnuRSSSearchItem", 9).Caption(), QStringLiteral("term11"));
    clsHeadLine h{QStringLiteral("about term1 only"), QString(), QString()};
    QString term;
    EXPECT_FALSE(MatchSearchTerm(ws(), h, term));
    clsHeadLine h2{QStringLiteral("and term2"), QString(), QString()};
    EXPECT_TRUE(MatchSearchTerm(ws(), h2, term));
    EXPECT_EQ(term, QStringLiteral("[term2]"));
}

TEST_F(Search, TheFirstTermTakesMemberZeroAndOtherCapitalsAreANewTerm) {
    FrmRSSSearch a;
    a.txtSearch = QStringLiteral("Apple");
    RSSSearch_Unload(ws(), a);
    EXPECT_EQ(ws().menus("mnuRSSSearchItem", 0).Caption(), QStringLiteral("Apple"));
    EXPECT_EQ(RecentTermCount(ws()), 1);
    FrmRSSSearch b;
    b.txtSearch = QStringLiteral("Apple");
    RSSSearch_Unload(ws(), b);
    EXPECT_EQ(RecentTermCount(ws()), 1);
    FrmRSSSearch c;
    c.txtSearch = QStringLiteral("apple");
    RSSSearch_Unload(ws(), c);
    EXPECT_EQ(RecentTermCount(ws()), 2);
    EXPECT_EQ(ws().menus("mnuRSSSearchItem", 1).Caption(), QStringLiteral("apple"));
}

TEST_F(Search, AClosingWithAnEmptyTextStoresTheBoxesOnly) {
    FrmRSSSearch s;
    s.chkFull = true;
    s.chkHeadline = false;
    s.txtSearch = QStringLiteral("   ");
    RSSSearch_Unload(ws(), s);
    EXPECT_EQ(ws().RSSchkFullValue, 1);
    EXPECT_EQ(ws().RSSchkHeadlineValue, 0);
    EXPECT_EQ(ws().menus("mnuRSSSearchItem", 0).Caption(), QStringLiteral("[No Recent Search]"));
    FrmRSSSearch again;
    RSSSearch_Load(ws(), again);
    EXPECT_TRUE(again.chkFull);
    EXPECT_FALSE(again.chkHeadline);
}

TEST_F(Search, ClearingTheListAsksAndTheTermsAreStoredInTheWorkspaceFile) {
    for (const char* term : {"one", "two", "three"}) {
        FrmRSSSearch s;
        s.txtSearch = QString::fromLatin1(term);
        RSSSearch_Unload(ws(), s);
    }
    SaveDesktop(ws(), false, false);
    const QByteArray file = t.readData(QStringLiteral("Perchdock.ini"));
    EXPECT_TRUE(file.contains("[RSS Search0]\r\none\r\n[RSS Search1]\r\ntwo\r\n[RSS Search2]\r\nthree\r\n"));
    p().answers.push_back(MsgAnswer::No);
    mnuClearRecentSearchTerms_Click(ws());
    EXPECT_EQ(RecentTermCount(ws()), 3);
    p().answers.push_back(MsgAnswer::Yes);
    mnuClearRecentSearchTerms_Click(ws());
    EXPECT_EQ(p().messages.back().text, QStringLiteral("Clear the Recent Search Terms list?"));
    EXPECT_EQ(p().messages.back().title, QStringLiteral("Perchdock"));
    EXPECT_EQ(RecentTermCount(ws()), 1);
    EXPECT_EQ(ws().menus("mnuRSSSearchItem", 0).Caption(), QStringLiteral("[No Recent Search]"));
    SaveDesktop(ws(), false, false);
    EXPECT_FALSE(t.readData(QStringLiteral("Perchdock.ini")).contains("[RSS Search"));
}

TEST_F(Search, ARecentTermOpensTheSearchWithItsResults) {
    Add(QStringLiteral("http://feeds.test/a"), Numbered("Alpha", 5));
    FrmRSSSearch first;
    first.txtSearch = QStringLiteral("Title 2");
    RSSSearch_Unload(ws(), first);
    int shown = 0;
    Feeds(ws()).showSearch = [&](FrmRSSSearch& s) {
        ++shown;
        EXPECT_EQ(s.txtSearch, QStringLiteral("Title 2"));
        EXPECT_EQ(s.Caption, QStringLiteral("Results: 1"));
    };
    ws().menus("mnuRSSSearchItem", 0).Click();
    EXPECT_EQ(shown, 1);
    ws().menus("mnuRSSSearchItem", 0).setCaption(QStringLiteral("[No Recent Search]"));
    ws().menus("mnuRSSSearchItem", 0).Click();
    EXPECT_EQ(shown, 1);
}
