// Speed of the feed reader: the parse of a generated 5 MB RSS document, against pugixml's own load of the
// same bytes (the goal: within three times), and the text cleaner over 10,000 descriptions.
// Build in Release and run `bench/bench_feeds` from the build folder.

#include "feeds/FeedReader.h"
#include "feeds/StripHtmlTags.h"
#include "support/FakePlatform.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <QString>
#include <QStringList>

namespace {

QString Description(int i) {
    return QStringLiteral("<p>Item %1 of the day: <b>something happened</b> in the town of "
                          "&quot;Example&quot; &amp; around.</p><p><a href=\"http://news.test/%1\">Read more</a>"
                          "&nbsp;&#8230;</p><img src=\"http://news.test/%1.png\"/>")
        .arg(i);
}

// About 5 MB: a channel and as many items as it takes, with escaped markup and CDATA as real feeds have.
const QString& FiveMegabyteFeed() {
    static const QString text = [] {
        QString s = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<rss version=\"2.0\" "
                                   "xmlns:dc=\"http://purl.org/dc/elements/1.1/\"><channel>\n"
                                   "<title>Bench News</title><link>http://news.test/</link>"
                                   "<description>Generated for the benchmark</description>\n");
        for (int i = 0; s.size() < 5 * 1024 * 1024; ++i) {
            QString d = Description(i).toHtmlEscaped();
            s += QStringLiteral("<item><title>Headline number %1 &amp; more</title>"
                                "<link>http://news.test/articles/%1.html</link>"
                                "<description>%2</description><dc:creator>Reporter %1</dc:creator>"
                                "<guid isPermaLink=\"false\">id-%1</guid>"
                                "<content:encoded xmlns:content=\"c\"><![CDATA[%3]]></content:encoded></item>\n")
                     .arg(i)
                     .arg(d, Description(i));
        }
        return s + QStringLiteral("</channel></rss>\n");
    }();
    return text;
}

void BM_ParseFeed5MB(benchmark::State& state) {
    const QString& text = FiveMegabyteFeed();
    pd::test::FakePlatform platform;
    pd::clsReader reader(platform);
    for (auto _ : state) {
        reader.Clear();
        reader.LoadFromCache(text);
        benchmark::DoNotOptimize(reader.Count());
    }
    state.counters["items"] = reader.Count();
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.toUtf8().size()));
}
BENCHMARK(BM_ParseFeed5MB)->Unit(benchmark::kMillisecond);

void BM_PugixmlLoad5MB(benchmark::State& state) {
    const QByteArray bytes = FiveMegabyteFeed().toUtf8();
    for (auto _ : state) {
        pugi::xml_document doc;
        benchmark::DoNotOptimize(doc.load_buffer(bytes.constData(), static_cast<size_t>(bytes.size())));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(bytes.size()));
}
BENCHMARK(BM_PugixmlLoad5MB)->Unit(benchmark::kMillisecond);

void BM_StripHTMLTags10000(benchmark::State& state) {
    QStringList descriptions;
    for (int i = 0; i < 10000; ++i) descriptions << Description(i);
    for (auto _ : state) {
        for (const QString& d : descriptions) {
            QString t = d;
            benchmark::DoNotOptimize(pd::StripHTMLTags(t));
        }
    }
    state.SetItemsProcessed(state.iterations() * descriptions.size());
}
BENCHMARK(BM_StripHTMLTags10000)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
