#include "feeds/FeedReader.h"

#include "app/workspace/Workspace.h"
#include "feeds/FeedBody.h"
#include "feeds/FeedXml.h"
#include "platform/Platform.h"

#include <QStringList>
#include <QUrl>

#include <pugixml.hpp>

namespace pd {

namespace {

// Thrown where the parse meets a missing node it does not test for; the parse ends there and keeps
// what it has added.
struct Abandoned {};

pugi::xml_node Need(pugi::xml_node node) {
    if (!node) throw Abandoned{};
    return node;
}

// Loopback and local addresses are always reachable, whatever the system says about the network.
bool IsLocalAddress(const QString& url) {
    const QString host = QUrl(url).host().toLower();
    if (host.isEmpty()) return false;
    if (host == QLatin1String("localhost") || host.endsWith(QLatin1String(".localhost"))) return true;
    if (host == QLatin1String("::1") || host.startsWith(QLatin1String("fe80:")) ||
        ((host.startsWith(QLatin1String("fc")) || host.startsWith(QLatin1String("fd"))) && host.contains(QLatin1Char(':'))))
        return true;
    const QStringList parts = host.split(QLatin1Char('.'));
    if (parts.size() != 4) return false;
    int b[4];
    for (int i = 0; i < 4; ++i) {
        bool ok = false;
        b[i] = parts[i].toInt(&ok);
        if (!ok || b[i] < 0 || b[i] > 255) return false;
    }
    return b[0] == 127 || b[0] == 10 || (b[0] == 192 && b[1] == 168) || (b[0] == 172 && b[1] >= 16 && b[1] <= 31) ||
           (b[0] == 169 && b[1] == 254);
}

// The address of an Atom link, cut out of the element's serialised form: from just past `href="` to the
// end, less the last three characters (the closing quote, the slash and the bracket). So it is clean
// only when href is the last attribute; other attributes after it stay in the text. Without "href=" the
// cut starts at the sixth character. A rest shorter than three characters cannot lose three: the parse
// is abandoned, as any failing step of it is.
QString CutLinkAddress(const QString& xml) {
    const qsizetype p = xml.indexOf(QLatin1String("href=")) + 1; // 1-based, 0 when absent
    const qsizetype from = p + 5;                                   // position p + 6, from 0
    const QString rest = from < xml.size() ? xml.mid(from) : QString();
    if (rest.size() < 3) throw Abandoned{};
    return rest.left(rest.size() - 3);
}

} // namespace

clsReader::clsReader(Platform& platform, std::function<QString()> proxyServer)
    : platform_(platform), proxyServer_(std::move(proxyServer)) {}

clsReader::clsReader(Workspace& ws) : clsReader(ws.platform, [&ws] { return ws.ProxyServer; }) {}

clsReader::~clsReader() = default;

bool clsReader::IsOnline() const { return platform_.isOnline(); }

void clsReader::Clear() { newsFeed_ = std::make_shared<HeadLineCollection>(); }

void clsReader::AddHeadline(const QString& title, const QString& description, const QString& link) {
    newsFeed_->Add(clsHeadLine{title, description, link});
}

void clsReader::GetFeed(std::function<void()> done) {
    if (FeedURL.isEmpty() || (!IsOnline() && !IsLocalAddress(FeedURL))) {
        if (done) done();
        return;
    }
    const QString proxy = proxyServer_ ? proxyServer_() : QString();
    waiting_.push_back(std::move(done));
    if (fetching_ && fetchingUrl_ == FeedURL && fetchingProxy_ == proxy) return;

    const quint64 generation = ++generation_;
    fetching_ = true;
    fetchingUrl_ = FeedURL;
    fetchingProxy_ = proxy;
    HttpRequest request;
    request.url = FeedURL;
    request.proxy = proxy;
    request.headers = {{QByteArrayLiteral("Content-type"), QByteArrayLiteral("text/html")}};
    request.timeoutMs = TimeoutMs;
    request.maxBodyBytes = MaxBodyBytes;
    std::weak_ptr<char> alive = alive_;
    platform_.httpGet(request, [this, alive, generation](const HttpReply& reply) {
        if (alive.expired() || generation != generation_) return;
        FetchDone(reply);
    });
}

void clsReader::FetchDone(const HttpReply& reply) {
    fetching_ = false;
    if (reply.status == 200) {
        FeedXML = DecodeFeedBody(reply.body, reply.contentType);
        LoadFromCache(FeedXML);
    }
    std::vector<std::function<void()>> callbacks;
    callbacks.swap(waiting_);
    const std::weak_ptr<char> alive = alive_;
    for (auto& done : callbacks) {
        // A callback may destroy this reader; the others are then dropped with it.
        if (alive.expired()) return;
        if (done) done();
    }
}

void clsReader::LoadFromCache(const QString& xml) {
    pugi::xml_document doc;
    if (LoadFeedXml(xml, doc)) ParseFeedDocument(doc);
}

void clsReader::ParseFeedDocument(const pugi::xml_document& document) {
    try {
        if (BaseName(document.document_element()) == "rss") ParseRss(document);
        else ParseOther(document);
    } catch (const Abandoned&) {
    }
}

// RSS 0.9x and 2.0: children are looked up by their plain names, so only children in no namespace are
// found. The first item decides for all whether descriptions are read and where titles come from.
void clsReader::ParseRss(const pugi::xml_document& document) {
    const pugi::xml_node channel = Need(PlainChild(document.document_element(), "channel"));
    if (const pugi::xml_node t = PlainChild(channel, "title")) channelTitle_ = NodeText(t);
    if (const pugi::xml_node d = PlainChild(channel, "description")) channelDescription_ = NodeText(d);
    if (const pugi::xml_node image = PlainChild(channel, "image"))
        if (const pugi::xml_node url = PlainChild(image, "url")) imageURL_ = NodeText(url);

    const std::vector<pugi::xml_node> items = PlainChildren(channel, "item");
    if (items.empty()) return;

    const bool hasDescription = PlainChild(items.front(), "description");
    const bool firstHasTitle = PlainChild(items.front(), "title");
    QString title; // not reset between items: a feed without titles or descriptions keeps it empty
    for (const pugi::xml_node item : items) {
        QString description;
        const QString link = NodeText(Need(PlainChild(item, "link")));
        if (hasDescription) description = NodeText(Need(PlainChild(item, "description")));
        if (firstHasTitle) title = NodeText(Need(PlainChild(item, "title")));
        else if (hasDescription) title = description;
        AddHeadline(title, description, link);
    }
}

// Every other root (RDF, Atom, anything else): the root's children are matched by their local names,
// whatever their prefix or namespace. One loop index serves every inner loop and is left at the child
// count of the last list walked; a "title" reads its child at that index. So a feed title after an
// item, entry, channel or image usually points past its only child, and the parse ends there.
void clsReader::ParseOther(const pugi::xml_document& document) {
    int k = 0;
    for (pugi::xml_node c = document.document_element().first_child(); c; c = c.next_sibling()) {
        const std::string_view name = BaseName(c);
        if (name == "title") {
            channelTitle_ = NodeText(Need(ChildAt(c, k)));
        } else if (name == "item") {
            QString title, description, link;
            k = 0;
            for (pugi::xml_node e = c.first_child(); e; e = e.next_sibling(), ++k) {
                const std::string_view n = BaseName(e);
                if (n == "link") link = NodeText(e);
                else if (n == "title") title = NodeText(e);
                else if (n == "description") description = NodeText(e);
            }
            AddHeadline(title, description, link);
        } else if (name == "entry") {
            QString title, description, link;
            k = 0;
            for (pugi::xml_node e = c.first_child(); e; e = e.next_sibling(), ++k) {
                const std::string_view n = BaseName(e);
                if (n == "title") title = NodeText(e);
                else if (n == "content") description = NodeText(e); // a summary is not read
                else if (n == "link" && link.isEmpty()) link = CutLinkAddress(NodeXml(e));
            }
            AddHeadline(title, description, link);
        } else if (name == "channel") {
            k = 0;
            for (pugi::xml_node e = c.first_child(); e; e = e.next_sibling(), ++k) {
                const std::string_view n = BaseName(e);
                if (n == "title") channelTitle_ = NodeText(e);
                else if (n == "description") channelDescription_ = NodeText(e);
            }
        } else if (name == "image") {
            k = 0;
            for (pugi::xml_node e = c.first_child(); e; e = e.next_sibling(), ++k)
                if (BaseName(e) == "url") imageURL_ = NodeText(e);
        }
    }
}

} // namespace pd
