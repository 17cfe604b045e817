#pragma once

#include <QNetworkAccessManager>
#include <QNetworkRequest>

#include <memory>
#include <vector>

/// How a request asks.
enum class FetchMethod { Get, Head, Post };

/// One request as it goes out.
struct HttpMessage {
    FetchMethod method = FetchMethod::Get;
    QNetworkRequest request{};
    QByteArray body{}; ///< of a POST
};

/// Hands requests to network access managers so that none waits for a connection: one manager
/// opens only six to a host, so a further one is made when the others have as many loads.
class ConnectionPool {
public:
    /// Sends the message at once. The reply belongs to the caller, who must see it finish or abort
    /// it; it must not outlive the pool.
    QNetworkReply *send(const HttpMessage &message);

private:
    struct Lane {
        std::unique_ptr<QNetworkAccessManager> manager = std::make_unique<QNetworkAccessManager>();
        int loads = 0;
    };

    Lane &freestLane();

    std::vector<std::unique_ptr<Lane>> mLanes;
};
