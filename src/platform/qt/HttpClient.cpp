#include "platform/qt/HttpClient.h"

#include <QNetworkAccessManager>
#include <QNetworkInformation>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>

#include <optional>

namespace pd {

namespace {

// "host:port", also with an "http://" in front; a missing port means 80. Nothing for a string that names
// no host or a bad port, so that a mistyped proxy fails the fetch instead of silently going direct.
std::optional<QNetworkProxy> ParseProxy(const QString& text) {
    QString s = text.trimmed();
    if (s.isEmpty()) return QNetworkProxy(QNetworkProxy::NoProxy);
    if (s.startsWith(QLatin1String("http://"), Qt::CaseInsensitive)) s = s.mid(7);
    while (s.endsWith(QLatin1Char('/'))) s.chop(1);
    QString host = s;
    int port = 80;
    const int colon = s.lastIndexOf(QLatin1Char(':'));
    // A bracketed IPv6 address keeps its own colons.
    if (colon > 0 && !s.endsWith(QLatin1Char(']'))) {
        bool ok = false;
        port = s.mid(colon + 1).toInt(&ok);
        if (!ok || port < 1 || port > 65535) return std::nullopt;
        host = s.left(colon);
    }
    if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']'))) host = host.mid(1, host.size() - 2);
    if (host.isEmpty() || host.contains(QLatin1Char(' '))) return std::nullopt;
    return QNetworkProxy(QNetworkProxy::HttpProxy, host, static_cast<quint16>(port));
}

// Runs `done` with a failure from the event loop, so that a caller never sees its completion run inside
// its own call.
void FailLater(std::function<void(const HttpReply&)> done) {
    QTimer::singleShot(0, [done = std::move(done)] { done(HttpReply{}); });
}

} // namespace

HttpClient::HttpClient() = default;
HttpClient::~HttpClient() = default;

QNetworkAccessManager* HttpClient::managerFor(const QString& proxyText) {
    const QString key = proxyText.trimmed();
    auto it = managers_.find(key);
    if (it != managers_.end()) return it->second.get();
    const std::optional<QNetworkProxy> proxy = ParseProxy(key);
    if (!proxy) return nullptr;
    auto manager = std::make_unique<QNetworkAccessManager>();
    // Set explicitly, so that neither an application-wide proxy nor the environment changes the route.
    manager->setProxy(*proxy);
    manager->setRedirectPolicy(QNetworkRequest::NoLessSafeRedirectPolicy);
    return managers_.emplace(key, std::move(manager)).first->second.get();
}

void HttpClient::get(const HttpRequest& request, std::function<void(const HttpReply&)> done) {
    const QUrl url(request.url, QUrl::StrictMode);
    const QString scheme = url.scheme().toLower();
    if (!url.isValid() || url.host().isEmpty() || (scheme != QLatin1String("http") && scheme != QLatin1String("https"))) {
        FailLater(std::move(done));
        return;
    }
    QNetworkAccessManager* manager = managerFor(request.proxy);
    if (!manager) {
        FailLater(std::move(done));
        return;
    }

    QNetworkRequest req(url);
    for (const auto& [name, value] : request.headers) req.setRawHeader(name, value);
    req.setMaximumRedirectsAllowed(10);
    // Qt asks for gzip and deflate itself and unpacks the body; the size limit below applies to the
    // unpacked bytes, so a small packed bomb is cut off as well.

    QNetworkReply* reply = manager->get(req);

    struct Transfer {
        QByteArray body;
        bool cut = false;
        bool finished = false;
    };
    auto transfer = std::make_shared<Transfer>();
    const qint64 cap = request.maxBodyBytes;

    // The time limit covers the whole exchange; Qt's own transfer time-out only measures silence, which a
    // server that trickles a byte now and then never gives.
    auto* timer = new QTimer(reply);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer, &QTimer::timeout, reply, [reply, transfer] {
        transfer->cut = true;
        reply->abort();
    });
    timer->start(request.timeoutMs > 0 ? request.timeoutMs : 1);

    QObject::connect(reply, &QNetworkReply::readyRead, reply, [reply, transfer, cap] {
        if (transfer->cut) return;
        transfer->body += reply->readAll();
        if (transfer->body.size() > cap) {
            transfer->cut = true;
            transfer->body.clear();
            reply->abort();
        }
    });
    QObject::connect(reply, &QNetworkReply::finished, reply, [reply, transfer, cap, done = std::move(done)] {
        if (transfer->finished) return;
        transfer->finished = true;
        HttpReply out;
        if (!transfer->cut) transfer->body += reply->readAll();
        const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
        if (!transfer->cut && transfer->body.size() <= cap && status.isValid()) {
            out.status = status.toInt();
            // A 200 whose body broke off is no 200: the document is incomplete.
            const auto err = reply->error();
            const bool httpError = err >= QNetworkReply::ContentAccessDenied && err <= QNetworkReply::UnknownServerError;
            if (err != QNetworkReply::NoError && !httpError) out.status = 0;
            if (out.status != 0) {
                out.body = std::move(transfer->body);
                out.contentType = reply->rawHeader("Content-Type");
            }
        }
        reply->deleteLater();
        done(out);
    });
}

bool HttpClient::isOnline() {
    if (!networkInfoTried_) {
        networkInfoTried_ = true;
        QNetworkInformation::loadBackendByFeatures(QNetworkInformation::Feature::Reachability);
    }
    const QNetworkInformation* info = QNetworkInformation::instance();
    if (!info) return true;
    return info->reachability() != QNetworkInformation::Reachability::Disconnected;
}

} // namespace pd
