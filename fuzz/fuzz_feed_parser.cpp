// Fuzz target for the feed parser: arbitrary bytes are decoded as a fetched body would be (a mark, else
// the declared encoding, else UTF-8), loaded and parsed by a reader on the fake platform; every headline
// then goes through the text cleaner, as the panels will do.

#include "feeds/FeedBody.h"
#include "feeds/FeedReader.h"
#include "feeds/StripHtmlTags.h"
#include "support/FakePlatform.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    pd::test::FakePlatform platform;
    pd::clsReader reader(platform);
    reader.LoadFromCache(pd::DecodeFeedBody(bytes));
    const auto feed = reader.NewsFeed();
    if (feed->Count() != reader.Count()) std::abort();
    for (const pd::clsHeadLine& h : *feed) {
        // The cleaner is quadratic in the number of distinct tags; short texts keep the runs fast.
        if (h.HeadLine.size() > 4096) continue;
        QString t = h.HeadLine;
        pd::StripHTMLTags(t);
    }
    return 0;
}
