#pragma once
// HTTP GET for the feeds through Qt Network: asynchronous, with the proxy given as one "host:port"
// string, redirects followed, gzip accepted, a limit on the whole time and on the body's size.

#include "platform/Platform.h"

#include <QString>

#include <map>
#include <memory>

class QNetworkAccessManager;

namespace pd {

class HttpClient {
public:
    HttpClient();
    ~HttpClient();
    HttpClient(const HttpClient&) = delete;
    HttpClient& operator=(const HttpClient&) = delete;

    // Starts the request; `done` runs later on this thread, exactly once, also for a failure.
    void get(const HttpRequest& request, std::function<void(const HttpReply&)> done);

    // From the system's network information where Qt has a backend for it; true when it does not know.
    bool isOnline();

private:
    // One manager per proxy string, since Qt sets the proxy per manager; "" is the direct connection.
    // Null when the string names no usable proxy.
    QNetworkAccessManager* managerFor(const QString& proxy);

    std::map<QString, std::unique_ptr<QNetworkAccessManager>> managers_;
    bool networkInfoTried_ = false;
};

} // namespace pd
