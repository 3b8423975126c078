// The reader's fetch on the fake platform: what it asks for, what counts as an answer, the order of
// clearing, parsing and the completion, fetches that overlap, and the decoding of the body.

#include "feeds/FeedReader.h"
#include "support/FakePlatform.h"
#include "support/TestWorkspace.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

using namespace pd;
using pd::test::FakePlatform;

namespace {

QString S(const char* utf8) { return QString::fromUtf8(utf8); }

const char* const kUrl = "http://feeds.test/news.xml";

QByteArray Rss(std::initializer_list<const char*> titles, const char* channel = "News") {
    QByteArray xml = "<?xml version=\"1.0\"?><rss><channel><title>";
    xml += channel;
    xml += "</title>";
    for (const char* t : titles) xml += QByteArray("<item><title>") + t + "</title><link>http://x/</link></item>";
    return xml + "</channel></rss>";
}

HttpReply Ok(const QByteArray& body, const QByteArray& type = "application/rss+xml") { return {200, body, type}; }

} // namespace

TEST(FeedReader, ANewReaderIsEmpty) {
    FakePlatform platform;
    clsReader r(platform);
    EXPECT_EQ(r.Count(), 0);
    EXPECT_TRUE(r.FeedURL.isEmpty());
    EXPECT_TRUE(r.LastUpdate.isEmpty());
    EXPECT_TRUE(r.FeedXML.isEmpty());
    EXPECT_TRUE(r.ChannelTitle().isEmpty());
    EXPECT_TRUE(r.ChannelDescription().isEmpty());
    EXPECT_TRUE(r.ImageURL().isEmpty());
    EXPECT_FALSE(r.IsFetching());
}

TEST(FeedReader, TheRequestIsAGetWithOneHeaderAndTheProxy) {
    FakePlatform platform;
    QString proxy = S("proxy.test:3128");
    clsReader r(platform, [&] { return proxy; });
    r.FeedURL = S(kUrl);
    r.TimeoutMs = 1234;
    r.MaxBodyBytes = 5678;
    r.GetFeed();
    ASSERT_EQ(platform.httpRequests.size(), 1u);
    const HttpRequest& q = platform.httpRequests[0];
    EXPECT_EQ(q.url, S(kUrl));
    EXPECT_EQ(q.proxy, S("proxy.test:3128"));
    ASSERT_EQ(q.headers.size(), 1u);
    EXPECT_EQ(q.headers[0].first, QByteArray("Content-type"));
    EXPECT_EQ(q.headers[0].second, QByteArray("text/html"));
    EXPECT_EQ(q.timeoutMs, 1234);
    EXPECT_EQ(q.maxBodyBytes, 5678);
    // The proxy is read at each fetch.
    proxy.clear();
    r.GetFeed();
    ASSERT_EQ(platform.httpRequests.size(), 2u);
    EXPECT_TRUE(platform.httpRequests[1].proxy.isEmpty());
}

TEST(FeedReader, AWorkspaceReaderUsesTheWorkspacesProxy) {
    pd::test::TestWorkspace t;
    t.ws->ProxyServer = S("10.0.0.1:8080");
    clsReader r(*t.ws);
    r.FeedURL = S(kUrl);
    r.GetFeed();
    ASSERT_EQ(t.platform.httpRequests.size(), 1u);
    EXPECT_EQ(t.platform.httpRequests[0].proxy, S("10.0.0.1:8080"));
}

TEST(FeedReader, AGoodFetchStoresTheTextAndParsesIt) {
    FakePlatform platform;
    platform.httpReplies[S(kUrl)] = Ok(Rss({"a", "b"}));
    clsReader r(platform);
    r.FeedURL = S(kUrl);
    int calls = 0;
    r.GetFeed([&] {
        ++calls;
        EXPECT_EQ(r.Count(), 2);
    });
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(r.ChannelTitle(), S("News"));
    EXPECT_EQ(r.FeedXML, QString::fromUtf8(Rss({"a", "b"})));
    EXPECT_FALSE(r.IsFetching());
    // A second fetch adds again: GetFeed does not clear.
    r.GetFeed();
    EXPECT_EQ(r.Count(), 4);
    r.Clear();
    r.GetFeed();
    EXPECT_EQ(r.Count(), 2);
}

TEST(FeedReader, OnlyStatus200Counts) {
    for (int status : {0, 201, 204, 301, 304, 404, 500}) {
        FakePlatform platform;
        platform.httpReplies[S(kUrl)] = {status, Rss({"a"}), "text/xml"};
        clsReader r(platform);
        r.FeedURL = S(kUrl);
        r.FeedXML = S("earlier");
        bool done = false;
        r.GetFeed([&] { done = true; });
        EXPECT_TRUE(done) << status;
        EXPECT_EQ(r.Count(), 0) << status;
        EXPECT_EQ(r.FeedXML, S("earlier")) << status;
    }
}

TEST(FeedReader, ABadDocumentIsKeptAsTextAndGivesNothing) {
    FakePlatform platform;
    platform.httpReplies[S(kUrl)] = Ok("<html><body>Moved</body></html><p>");
    clsReader r(platform);
    r.FeedURL = S(kUrl);
    r.GetFeed();
    EXPECT_EQ(r.Count(), 0);
    EXPECT_EQ(r.FeedXML, S("<html><body>Moved</body></html><p>"));
}

TEST(FeedReader, ClearThenAFailingFetchKeepsTheChannelTexts) {
    FakePlatform platform;
    platform.httpReplies[S(kUrl)] = Ok(Rss({"a", "b"}, "Old title"));
    clsReader r(platform);
    r.FeedURL = S(kUrl);
    r.LastUpdate = S("1/2/2024 10:00:00");
    r.GetFeed();
    ASSERT_EQ(r.Count(), 2);
    const QString xml = r.FeedXML;
    platform.httpReplies[S(kUrl)] = {404, "gone", "text/html"};
    r.Clear();
    int count = -1;
    r.GetFeed([&] { count = r.Count(); });
    EXPECT_EQ(count, 0);
    EXPECT_EQ(r.ChannelTitle(), S("Old title"));
    EXPECT_EQ(r.FeedXML, xml);
    EXPECT_EQ(r.LastUpdate, S("1/2/2024 10:00:00"));
    // No answer at all fails the same way.
    platform.httpReplies.clear();
    r.GetFeed([&] { count = r.Count(); });
    EXPECT_EQ(count, 0);
    EXPECT_EQ(r.ChannelTitle(), S("Old title"));
}

TEST(FeedReader, NothingIsFetchedOfflineOrWithoutAnAddress) {
    FakePlatform platform;
    platform.httpReplies[S(kUrl)] = Ok(Rss({"a"}));
    clsReader r(platform);
    bool done = false;
    r.GetFeed([&] { done = true; });
    EXPECT_TRUE(done);
    EXPECT_TRUE(platform.httpRequests.empty());

    platform.online = false;
    EXPECT_FALSE(r.IsOnline());
    r.FeedURL = S(kUrl);
    r.LoadFromCache(QString::fromUtf8(Rss({"kept"})));
    done = false;
    r.GetFeed([&] { done = true; });
    EXPECT_TRUE(done);
    EXPECT_TRUE(platform.httpRequests.empty());
    // The collection stays as the caller left it.
    EXPECT_EQ(r.Count(), 1);
}

TEST(FeedReader, LoopbackAndLocalAddressesAreFetchedOffline) {
    FakePlatform platform;
    platform.online = false;
    clsReader r(platform);
    for (const char* url : {"http://localhost:8080/f", "http://127.0.0.1/f", "http://[::1]:81/f", "http://192.168.1.9/f",
                            "http://10.1.2.3/f", "http://172.20.0.1/f", "http://feeds.localhost/f"}) {
        r.FeedURL = S(url);
        r.GetFeed();
    }
    EXPECT_EQ(platform.httpRequests.size(), 7u);
    for (const char* url : {"http://example.com/f", "http://172.32.0.1/f", "http://8.8.8.8/f", "http://localhost.example/f"}) {
        r.FeedURL = S(url);
        r.GetFeed();
    }
    EXPECT_EQ(platform.httpRequests.size(), 7u);
}

TEST(FeedReader, TheCompletionComesAfterTheParse) {
    FakePlatform platform;
    platform.httpDeferred = true;
    platform.httpReplies[S(kUrl)] = Ok(Rss({"a", "b", "c"}));
    clsReader r(platform);
    r.FeedURL = S(kUrl);
    r.LoadFromCache(QString::fromUtf8(Rss({"old"})));
    std::vector<int> seen;
    r.Clear();
    r.GetFeed([&] { seen.push_back(r.Count()); });
    // Under way: the call returned, the collection is the empty one the caller made.
    EXPECT_TRUE(r.IsFetching());
    EXPECT_EQ(r.Count(), 0);
    EXPECT_TRUE(seen.empty());
    EXPECT_EQ(platform.runPendingHttp(), 1);
    EXPECT_FALSE(r.IsFetching());
    EXPECT_EQ(seen, std::vector<int>{3});
}

TEST(FeedReader, ASecondFetchOfTheSameAddressWaitsForTheFirst) {
    FakePlatform platform;
    platform.httpDeferred = true;
    platform.httpReplies[S(kUrl)] = Ok(Rss({"a", "b"}));
    clsReader r(platform);
    r.FeedURL = S(kUrl);
    std::vector<int> seen;
    r.Clear();
    r.GetFeed([&] { seen.push_back(r.Count()); });
    r.Clear();
    r.GetFeed([&] { seen.push_back(r.Count() * 10); });
    EXPECT_EQ(platform.httpRequests.size(), 1u);
    platform.runPendingHttp();
    // One parse, both completions, in order.
    EXPECT_EQ(seen, (std::vector<int>{2, 20}));
}

TEST(FeedReader, AFetchOfAnotherAddressReplacesTheOneUnderWay) {
    FakePlatform platform;
    platform.httpDeferred = true;
    platform.httpReplies[S("http://feeds.test/old")] = Ok(Rss({"old"}, "Old"));
    platform.httpReplies[S("http://feeds.test/new")] = Ok(Rss({"n1", "n2"}, "New"));
    clsReader r(platform);
    r.FeedURL = S("http://feeds.test/old");
    std::vector<QString> seen;
    r.GetFeed([&] { seen.push_back(S("first %1").arg(r.Count())); });
    r.FeedURL = S("http://feeds.test/new");
    r.Clear();
    r.GetFeed([&] { seen.push_back(S("second %1").arg(r.Count())); });
    EXPECT_EQ(platform.httpRequests.size(), 2u);
    platform.runPendingHttp();
    // The old answer is ignored; both completions run after the new one.
    EXPECT_EQ(r.ChannelTitle(), S("New"));
    EXPECT_EQ(seen, (std::vector<QString>{S("first 2"), S("second 2")}));
}

TEST(FeedReader, AReaderDestroyedDuringItsFetchIsLeftAlone) {
    FakePlatform platform;
    platform.httpDeferred = true;
    platform.httpReplies[S(kUrl)] = Ok(Rss({"a"}));
    bool called = false;
    {
        clsReader r(platform);
        r.FeedURL = S(kUrl);
        r.GetFeed([&] { called = true; });
    }
    EXPECT_EQ(platform.runPendingHttp(), 1);
    EXPECT_FALSE(called);
}

TEST(FeedReader, NewsFeedIsTheCollectionItself) {
    FakePlatform platform;
    platform.httpReplies[S(kUrl)] = Ok(Rss({"a"}));
    clsReader r(platform);
    r.FeedURL = S(kUrl);
    const auto before = r.NewsFeed();
    r.GetFeed();
    EXPECT_EQ(r.NewsFeed(), before);
    EXPECT_EQ(before->Count(), 1);
    // Records can be changed through it.
    r.NewsFeed()->Item(1).HeadLine = S("changed");
    EXPECT_EQ(r.NewsFeed()->Item(1).HeadLine, S("changed"));
    // Clear puts a new one in place; the old one keeps its records.
    r.Clear();
    EXPECT_NE(r.NewsFeed(), before);
    EXPECT_EQ(r.Count(), 0);
    EXPECT_EQ(before->Count(), 1);
}

TEST(FeedReader, TheBodyIsDecodedByMarkHeaderAndDeclaration) {
    const QString title = S("Новости дня");
    auto encode = [](const char* encoding, const QString& text) {
        QStringEncoder e(encoding);
        return QByteArray(e.encode(text));
    };
    const QString doc = S("<?xml version=\"1.0\" encoding=\"windows-1251\"?><rss><channel><title>") + title +
                        S("</title></channel></rss>");
    struct Case {
        const char* name;
        QByteArray body;
        QByteArray type;
    } cases[] = {
        {"declared windows-1251", encode("windows-1251", doc), "text/xml"},
        {"header charset wins", encode("koi8-r", doc), "text/xml; charset=\"KOI8-R\""},
        {"UTF-16 with its mark", QByteArray("\xFF\xFE", 2) + encode("UTF-16LE", doc), "text/xml; charset=windows-1251"},
        {"UTF-8 with its mark", QByteArray("\xEF\xBB\xBF") + doc.toUtf8(), "text/xml"},
    };
    for (const Case& c : cases) {
        FakePlatform platform;
        platform.httpReplies[S(kUrl)] = {200, c.body, c.type};
        clsReader r(platform);
        r.FeedURL = S(kUrl);
        r.GetFeed();
        EXPECT_EQ(r.ChannelTitle(), title) << c.name;
    }
    // Without a declaration or a header, UTF-8; bytes that are not UTF-8 become replacement characters
    // and the document still loads.
    FakePlatform platform;
    platform.httpReplies[S(kUrl)] = Ok("<rss><channel><title>caf\xE9</title></channel></rss>", "text/xml");
    clsReader r(platform);
    r.FeedURL = S(kUrl);
    r.GetFeed();
    EXPECT_EQ(r.ChannelTitle(), S("caf\xEF\xBF\xBD"));
}

TEST(FeedReader, AnEntityBombIsRefusedAndKeptAsText) {
    QByteArray bomb = "<?xml version=\"1.0\"?><!DOCTYPE r [<!ENTITY a \"aaaaaaaaaa\">";
    bomb += "<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\"><!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">]>";
    bomb += "<rss><channel><title>&c;</title><item><title>&c;</title><link>x</link></item></channel></rss>";
    FakePlatform platform;
    platform.httpReplies[S(kUrl)] = Ok(bomb);
    clsReader r(platform);
    r.FeedURL = S(kUrl);
    r.GetFeed();
    EXPECT_EQ(r.Count(), 0);
    EXPECT_TRUE(r.ChannelTitle().isEmpty());
    EXPECT_EQ(r.FeedXML, QString::fromUtf8(bomb));
}
