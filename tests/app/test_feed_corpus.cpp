// Every feed of the shared corpus goes through the fetch path (bytes served by the fake platform,
// decoding, loading, parsing) without a crash, and gives the records written down in
// tests/app/expected/feeds.txt: the count, the channel texts, the first and last headline.
// PERCHDOCK_SHARED points at the shared folder; without it the test is skipped.
// To write the expected file anew (after a deliberate change, to be reviewed in the diff):
//     PERCHDOCK_WRITE_EXPECTED=1 ./test_feed_corpus

#include "feeds/FeedReader.h"
#include "support/FakePlatform.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace pd;

namespace {

// One line of text, at most `max` characters: line breaks and tabs shown as \n, \r, \t.
QString Flat(const QString& text, int max = 70) {
    QString out;
    for (QChar c : text) {
        if (c == QLatin1Char('\n')) out += QLatin1String("\\n");
        else if (c == QLatin1Char('\r')) out += QLatin1String("\\r");
        else if (c == QLatin1Char('\t')) out += QLatin1String("\\t");
        else if (c == QLatin1Char('\\')) out += QLatin1String("\\\\");
        else out += c;
    }
    if (out.size() > max) out = out.left(max) + QLatin1String("...");
    return out;
}

QString Record(const QString& name, const QByteArray& bytes) {
    pd::test::FakePlatform platform;
    const QString url = QStringLiteral("http://corpus.test/") + name;
    platform.httpReplies[url] = {200, bytes, {}};
    clsReader r(platform);
    r.FeedURL = url;
    r.GetFeed();
    QString out = QStringLiteral("== %1\ncount: %2\nchannel title: %3\nchannel description: %4\nimage: %5\n")
                      .arg(name)
                      .arg(r.Count())
                      .arg(Flat(r.ChannelTitle()), Flat(r.ChannelDescription()), Flat(r.ImageURL()));
    if (r.Count() > 0) {
        const auto feed = r.NewsFeed();
        auto item = [&](const char* label, int position) {
            const clsHeadLine& h = feed->Item(position);
            out += QStringLiteral("%1 title: %2\n%1 link: %3\n%1 description: %4\n")
                       .arg(QLatin1String(label), Flat(h.HeadLine), Flat(h.ArticleLink), Flat(h.Description));
        };
        item("first", 1);
        if (r.Count() > 1) item("last", r.Count());
    }
    return out;
}

} // namespace

TEST(FeedCorpus, EveryFeedGivesItsExpectedRecords) {
    const QString shared = qEnvironmentVariable("PERCHDOCK_SHARED");
    const QDir dir(shared + QStringLiteral("/corpus/feeds"));
    if (shared.isEmpty() || !dir.exists())
        GTEST_SKIP() << "the shared corpus is not here (PERCHDOCK_SHARED=" << shared.toStdString() << ")";
    const QStringList names = dir.entryList(QDir::Files, QDir::Name);
    ASSERT_FALSE(names.isEmpty());

    QString actual;
    for (const QString& name : names) {
        QFile f(dir.filePath(name));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << name.toStdString();
        actual += Record(name, f.readAll());
    }

    const QString expectedPath = QStringLiteral(PERCHDOCK_EXPECTED_DIR "/feeds.txt");
    if (qEnvironmentVariableIsSet("PERCHDOCK_WRITE_EXPECTED")) {
        QFile out(expectedPath);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
        out.write(actual.toUtf8());
        GTEST_SKIP() << "wrote " << expectedPath.toStdString();
    }
    QFile f(expectedPath);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << expectedPath.toStdString();
    const QString expected = QString::fromUtf8(f.readAll());
    // Compared record by record, so that a failure names the feed.
    const QStringList want = expected.split(QStringLiteral("== "), Qt::SkipEmptyParts);
    const QStringList got = actual.split(QStringLiteral("== "), Qt::SkipEmptyParts);
    EXPECT_EQ(got.size(), want.size());
    for (qsizetype i = 0; i < std::min(got.size(), want.size()); ++i)
        EXPECT_EQ(got[i].toStdString(), want[i].toStdString());
}
