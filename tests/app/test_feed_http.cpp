// HTTP through the Qt platform against servers on the loopback interface that the test runs itself:
// answers of each status, a redirect, gzip, a body that never ends, a server that never answers, a
// proxy given as one string, and the reader fetching through it all. Short limits are passed in each
// request; every wait has its own guard, so that no test can hang.

#include "feeds/FeedReader.h"
#include "platform/qt/QtPlatform.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

using namespace pd;

namespace {

QString S(const char* utf8) { return QString::fromUtf8(utf8); }

const QByteArray kFeed = "<rss><channel><title>Loopback</title><item><title>one</title><link>http://x/1</link>"
                         "</item><item><title>two</title><link>http://x/2</link></item></channel></rss>";

// A server on 127.0.0.1 that reads each request's head and hands it, with the socket, to `answer`.
class Server {
public:
    std::function<void(QTcpSocket*, const QByteArray& head)> answer;
    std::vector<QByteArray> heads;

    Server() {
        EXPECT_TRUE(server_.listen(QHostAddress::LocalHost));
        QObject::connect(&server_, &QTcpServer::newConnection, [this] {
            while (QTcpSocket* s = server_.nextPendingConnection()) {
                auto buffer = std::make_shared<QByteArray>();
                QObject::connect(s, &QTcpSocket::readyRead, s, [this, s, buffer] {
                    if (buffer->contains("\r\n\r\n")) {
                        s->readAll();
                        return;
                    }
                    *buffer += s->readAll();
                    const qsizetype end = buffer->indexOf("\r\n\r\n");
                    if (end < 0) return;
                    const QByteArray head = buffer->left(end);
                    heads.push_back(head);
                    if (answer) answer(s, head);
                });
                QObject::connect(s, &QTcpSocket::disconnected, s, &QObject::deleteLater);
            }
        });
    }
    quint16 port() const { return server_.serverPort(); }
    QString url(const char* path) const { return S("http://127.0.0.1:%1%2").arg(port()).arg(S(path)); }

private:
    QTcpServer server_;
};

QByteArray Path(const QByteArray& head) { return head.split(' ').value(1); }

void Respond(QTcpSocket* s, const QByteArray& status, const QByteArray& body, const QByteArray& extra = {}) {
    s->write("HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) +
             "\r\nConnection: close\r\n" + extra + "\r\n" + body);
    s->disconnectFromHost();
}

// Runs the event loop until the reply comes or `guardMs` passes; nothing when it did not come.
std::optional<HttpReply> Fetch(QtPlatform& platform, const HttpRequest& request, int guardMs = 10000) {
    std::optional<HttpReply> reply;
    QEventLoop loop;
    QTimer guard;
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, &loop, &QEventLoop::quit);
    guard.start(guardMs);
    bool inside = true;
    bool ranInside = false;
    platform.httpGet(request, [&](const HttpReply& r) {
        reply = r;
        ranInside = inside;
        loop.quit();
    });
    inside = false;
    if (!reply) loop.exec();
    EXPECT_FALSE(ranInside) << "the completion ran inside httpGet";
    return reply;
}

HttpRequest Get(const QString& url, int timeoutMs = 5000, qint64 cap = 8 * 1024 * 1024) {
    HttpRequest r;
    r.url = url;
    r.headers = {{"Content-type", "text/html"}};
    r.timeoutMs = timeoutMs;
    r.maxBodyBytes = cap;
    return r;
}

} // namespace

TEST(FeedHttp, Status200GivesTheBody) {
    Server server;
    server.answer = [](QTcpSocket* s, const QByteArray&) {
        Respond(s, "200 OK", kFeed, "Content-Type: application/rss+xml; charset=utf-8\r\n");
    };
    QtPlatform platform;
    const auto reply = Fetch(platform, Get(server.url("/feed.xml")));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->status, 200);
    EXPECT_EQ(reply->body, kFeed);
    EXPECT_EQ(reply->contentType, QByteArray("application/rss+xml; charset=utf-8"));
    // A GET of the path with our one header.
    ASSERT_EQ(server.heads.size(), 1u);
    EXPECT_TRUE(server.heads[0].startsWith("GET /feed.xml HTTP/1.1\r\n"));
    EXPECT_TRUE(server.heads[0].toLower().contains("\r\ncontent-type: text/html")) << server.heads[0].constData();
}

TEST(FeedHttp, Status404IsReportedWithoutBody) {
    Server server;
    server.answer = [](QTcpSocket* s, const QByteArray&) { Respond(s, "404 Not Found", "<html>no</html>"); };
    QtPlatform platform;
    const auto reply = Fetch(platform, Get(server.url("/missing")));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->status, 404);
}

TEST(FeedHttp, ARedirectIsFollowed) {
    Server server;
    server.answer = [&server](QTcpSocket* s, const QByteArray& head) {
        if (Path(head) == "/old") Respond(s, "301 Moved Permanently", {}, "Location: " + server.url("/new").toUtf8() + "\r\n");
        else Respond(s, "200 OK", kFeed);
    };
    QtPlatform platform;
    const auto reply = Fetch(platform, Get(server.url("/old")));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->status, 200);
    EXPECT_EQ(reply->body, kFeed);
    ASSERT_EQ(server.heads.size(), 2u);
    EXPECT_EQ(Path(server.heads[1]), QByteArray("/new"));
}

TEST(FeedHttp, GzipIsAcceptedAndUnpacked) {
    static const char packed[] =
        "\x1f\x8b\x08\x00\x00\x00\x00\x00\x02\x03\xb3\x29\x2a\x2e\xb6\xb3\x49\xce\x48\xcc\xcb\x4b\xcd\xb1\xb3\x29"
        "\xc9\x2c\xc9\x49\xb5\x0b\x48\x4c\xce\x4e\x4d\xb1\xd1\x87\xf0\x6c\x32\x4b\x52\x73\x61\x52\x55\x70\xd1\x9c"
        "\xcc\xbc\x6c\xbb\x1c\x1b\x7d\x30\x6d\xa3\x0f\x51\xa4\x0f\x37\x49\x1f\x64\x30\x00\x00\x11\x06\xa3\x5e\x00"
        "\x00\x00";
    Server server;
    server.answer = [](QTcpSocket* s, const QByteArray& head) {
        const QByteArray lower = head.toLower();
        const qsizetype at = lower.indexOf("\r\naccept-encoding:");
        ASSERT_GE(at, 0) << head.constData();
        EXPECT_TRUE(lower.mid(at + 2).split('\r').value(0).contains("gzip")) << head.constData();
        Respond(s, "200 OK", QByteArray(packed, sizeof packed - 1), "Content-Encoding: gzip\r\n");
    };
    QtPlatform platform;
    const auto reply = Fetch(platform, Get(server.url("/packed")));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->status, 200);
    EXPECT_EQ(reply->body,
              QByteArray("<rss><channel><title>Packed</title><item><title>z</title><link>l</link></item></channel></rss>"));
}

TEST(FeedHttp, ABodyThatNeverEndsIsCutAtTheSizeLimit) {
    Server server;
    server.answer = [](QTcpSocket* s, const QByteArray&) {
        s->write("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n");
        // More whenever the last block has gone out, for as long as the client reads.
        QObject::connect(s, &QTcpSocket::bytesWritten, s, [s] {
            if (s->bytesToWrite() < 65536) s->write(QByteArray(65536, 'x'));
        });
        s->write(QByteArray(65536, 'x'));
    };
    QtPlatform platform;
    const auto reply = Fetch(platform, Get(server.url("/endless"), 20000, 1024 * 1024));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->status, 0);
    EXPECT_TRUE(reply->body.isEmpty());
}

TEST(FeedHttp, AHundredMegabyteBodyIsCutOff) {
    Server server;
    auto sent = std::make_shared<qint64>(0);
    const qint64 total = 100LL * 1024 * 1024;
    server.answer = [sent, total](QTcpSocket* s, const QByteArray&) {
        s->write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(total) + "\r\nConnection: close\r\n\r\n");
        auto more = [s, sent, total] {
            while (*sent < total && s->bytesToWrite() < 256 * 1024) {
                s->write(QByteArray(65536, 'y'));
                *sent += 65536;
            }
        };
        QObject::connect(s, &QTcpSocket::bytesWritten, s, more);
        more();
    };
    QtPlatform platform;
    // The default limit of a request.
    HttpRequest request = Get(server.url("/huge"), 60000);
    request.maxBodyBytes = HttpRequest{}.maxBodyBytes;
    const auto reply = Fetch(platform, request, 70000);
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->status, 0);
    EXPECT_TRUE(reply->body.isEmpty());
    // The transfer stopped well before its end.
    EXPECT_LT(*sent, total);
}

TEST(FeedHttp, ATricklingBodyEndsAtTheTimeLimit) {
    Server server;
    server.answer = [](QTcpSocket* s, const QByteArray&) {
        s->write("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n<rss>");
        auto* drip = new QTimer(s);
        QObject::connect(drip, &QTimer::timeout, s, [s] { s->write(" "); });
        drip->start(50);
    };
    QtPlatform platform;
    QElapsedTimer clock;
    clock.start();
    const auto reply = Fetch(platform, Get(server.url("/slow"), 700), 15000);
    ASSERT_TRUE(reply) << "no completion within the guard";
    EXPECT_EQ(reply->status, 0);
    // It was the time limit, not anything earlier, that ended it.
    EXPECT_GE(clock.elapsed(), 600);
}

TEST(FeedHttp, AServerThatNeverAnswersTimesOut) {
    Server server; // accepts, reads, never writes
    QtPlatform platform;
    QElapsedTimer clock;
    clock.start();
    const auto reply = Fetch(platform, Get(server.url("/silent"), 500), 15000);
    ASSERT_TRUE(reply) << "no completion within the guard";
    EXPECT_EQ(reply->status, 0);
    EXPECT_GE(clock.elapsed(), 400);
    EXPECT_EQ(server.heads.size(), 1u);
}

TEST(FeedHttp, ARefusedConnectionFails) {
    quint16 port;
    {
        QTcpServer closed;
        ASSERT_TRUE(closed.listen(QHostAddress::LocalHost));
        port = closed.serverPort();
    }
    QtPlatform platform;
    const auto reply = Fetch(platform, Get(S("http://127.0.0.1:%1/x").arg(port)));
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->status, 0);
}

TEST(FeedHttp, TheProxyStringRoutesTheRequest) {
    // A tiny proxy: it records the request line and answers itself.
    Server proxy;
    proxy.answer = [](QTcpSocket* s, const QByteArray&) { Respond(s, "200 OK", kFeed); };
    QtPlatform platform;
    HttpRequest request = Get(S("http://feeds.invalid/news.xml"));
    request.proxy = S("127.0.0.1:%1").arg(proxy.port());
    const auto reply = Fetch(platform, request);
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->status, 200);
    EXPECT_EQ(reply->body, kFeed);
    ASSERT_EQ(proxy.heads.size(), 1u);
    // A proxy gets the whole address in the request line.
    EXPECT_TRUE(proxy.heads[0].startsWith("GET http://feeds.invalid/news.xml HTTP/1.1\r\n")) << proxy.heads[0].constData();
    // "http://host:port/" is taken too.
    request.proxy = S("http://127.0.0.1:%1/").arg(proxy.port());
    const auto again = Fetch(platform, request);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->status, 200);
    EXPECT_EQ(proxy.heads.size(), 2u);
}

TEST(FeedHttp, WhatCannotBeFetchedFailsLater) {
    QtPlatform platform;
    for (const char* url : {"file:///etc/passwd", "ftp://127.0.0.1/x", "not a url", ""}) {
        const auto reply = Fetch(platform, Get(S(url)));
        ASSERT_TRUE(reply) << url;
        EXPECT_EQ(reply->status, 0) << url;
        EXPECT_TRUE(reply->body.isEmpty()) << url;
    }
    HttpRequest badProxy = Get(S("http://127.0.0.1:1/x"));
    for (const char* proxy : {"host:notaport", "host:0", "host:70000", ":8080"}) {
        badProxy.proxy = S(proxy);
        const auto reply = Fetch(platform, badProxy);
        ASSERT_TRUE(reply) << proxy;
        EXPECT_EQ(reply->status, 0) << proxy;
    }
}

TEST(FeedHttp, TheReaderFetchesParsesAndThenCallsBack) {
    Server server;
    server.answer = [](QTcpSocket* s, const QByteArray& head) {
        if (Path(head) == "/feed") Respond(s, "200 OK", kFeed);
        else Respond(s, "404 Not Found", "no");
    };
    QtPlatform platform;
    clsReader reader(platform);
    reader.FeedURL = server.url("/feed");
    QEventLoop loop;
    int seen = -1;
    reader.Clear();
    reader.GetFeed([&] {
        seen = reader.Count();
        loop.quit();
    });
    // The call returned before the answer: the window would stay live meanwhile.
    EXPECT_TRUE(reader.IsFetching());
    EXPECT_EQ(seen, -1);
    QTimer::singleShot(10000, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_EQ(seen, 2);
    EXPECT_EQ(reader.ChannelTitle(), S("Loopback"));

    // A failing refresh: cleared, nothing parsed, the channel title kept.
    reader.FeedURL = server.url("/gone");
    reader.Clear();
    seen = -1;
    reader.GetFeed([&] {
        seen = reader.Count();
        loop.quit();
    });
    QTimer::singleShot(10000, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_EQ(seen, 0);
    EXPECT_EQ(reader.ChannelTitle(), S("Loopback"));
}

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
