#pragma once
// One news feed: its address, the fetch of its document over HTTP, and the parse of RSS, RDF and Atom
// documents into headlines in document order plus the channel's title, description and image address.
// Nothing of a feed's content is written to disk; each run starts with empty readers.
//
// A fetch runs in the background so that the window stays live while a feed loads: `GetFeed` returns at
// once and calls its `done` after the document has been parsed. The refresh cycle is therefore
//     reader.Clear();
//     reader.GetFeed([&] { if (reader.Count() < 1) ShowFeedError(n); else ShowFeedHeadlines(i); });
// A fetch never reports an error; a failure shows only as `Count()` below 1.
//
// A reader's completion refers to the reader itself, so readers neither copy nor move: keep them where
// they stay put (e.g. std::vector<std::unique_ptr<clsReader>>). A reader destroyed while its fetch is
// under way drops that fetch and its `done` callbacks.

#include "feeds/HeadLine.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace pugi {
class xml_document;
}

namespace pd {

class Platform;
class Workspace;
struct HttpReply;

class clsReader {
public:
    // `proxyServer` gives the proxy ("host:port", empty for none) at the moment of each fetch.
    explicit clsReader(Platform& platform, std::function<QString()> proxyServer = {});
    // A reader of the workspace: its platform, and the workspace's `ProxyServer`.
    explicit clsReader(Workspace& ws);
    ~clsReader();
    clsReader(const clsReader&) = delete;
    clsReader& operator=(const clsReader&) = delete;

    // Whether the system reports a network (see Platform::isOnline).
    bool IsOnline() const;

    // Fetches the document of `FeedURL` and adds its headlines to the collection (it does not clear it
    // first), then calls `done`. When offline (and the address is not a loopback or local one) or when
    // `FeedURL` is empty nothing is fetched and `done` runs at once. Only status 200 counts; its body
    // goes to `FeedXML` whether it parses or not. A second call while a fetch of the same address is
    // under way waits for that fetch instead of starting another, so the collection gets one parse.
    // A call for another address replaces the fetch under way, and every waiting `done` runs after the
    // new one.
    void GetFeed(std::function<void()> done = {});
    // Whether a fetch is under way.
    bool IsFetching() const { return fetching_; }

    // The address of the feed document.
    QString FeedURL;
    // The local time of the last good display, as text; kept for the feed container, never set here.
    QString LastUpdate;
    // The text of the last answer with status 200, in memory only.
    QString FeedXML;
    // Limits of one fetch: the whole exchange in milliseconds, and the largest body accepted.
    int TimeoutMs = 15000;
    qint64 MaxBodyBytes = 8 * 1024 * 1024;

    int Count() const { return newsFeed_->Count(); }
    // The collection itself, not a copy. `Clear` puts a new one in its place; a holder of the old one
    // keeps the old records.
    std::shared_ptr<HeadLineCollection> NewsFeed() const { return newsFeed_; }
    // A new empty collection; the channel texts, `FeedXML` and `LastUpdate` stay.
    void Clear();

    const QString& ChannelTitle() const { return channelTitle_; }
    const QString& ChannelDescription() const { return channelDescription_; }
    const QString& ImageURL() const { return imageURL_; }

    // Parses `xml` and adds its headlines, as a fetch does with the text it received. Nothing happens
    // for a text that is not a well-formed document.
    void LoadFromCache(const QString& xml);

private:
    void AddHeadline(const QString& title, const QString& description, const QString& link);
    // Reads the channel texts and adds the headlines. A node missing where one is needed abandons the
    // parse; the headlines added before stay.
    void ParseFeedDocument(const pugi::xml_document& document);
    void ParseRss(const pugi::xml_document& document);
    void ParseOther(const pugi::xml_document& document);
    void FetchDone(const HttpReply& reply);

    Platform& platform_;
    std::function<QString()> proxyServer_;
    std::shared_ptr<HeadLineCollection> newsFeed_ = std::make_shared<HeadLineCollection>();
    QString channelTitle_;
    QString channelDescription_;
    QString imageURL_;

    // Completions hold a weak reference to this, so that a destroyed reader is not touched.
    std::shared_ptr<char> alive_ = std::make_shared<char>(0);
    bool fetching_ = false;
    QString fetchingUrl_;
    QString fetchingProxy_;
    // Numbers the fetches; the completion of a replaced fetch is ignored.
    quint64 generation_ = 0;
    std::vector<std::function<void()>> waiting_;
};

} // namespace pd
