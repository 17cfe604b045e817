#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

/// Why a fetch failed.
struct FetchError {
    // The codes that the program tells apart.
    static constexpr int unknown = -1;
    static constexpr int timedOut = -1001;
    static constexpr int cannotFindHost = -1003;
    static constexpr int cannotConnectToHost = -1004;
    static constexpr int notConnectedToInternet = -1009;

    int code = unknown;
    QString localizedDescription;
    bool isOurRefusal = false; ///< of the address or of the answer: the host is not to blame
};

/// The one answer to a request. A cancelled request gives the URL alone.
struct FetchResult {
    QUrl url{}; ///< as it was queued, whatever redirects there were
    QByteArray data{}; ///< empty when the load gave none
    std::optional<QString> MIMEType{}; ///< there when a response arrived
    std::optional<FetchError> error{};
    int status = 0; ///< the HTTP status of the last response; 0 without one
    bool cameInTheClear = false; ///< any step of the way, redirects included, was so
    QUrl finalURL{}; ///< where the answer came from, redirects followed; empty for a kept one
};

using FetchCallback = std::function<void(const FetchResult &)>;
