#pragma once

#include "gathering/cachefolder.h"

#include <QCache>
#include <QUrl>

/// A response as it was received, without its age: what is kept is used however old it is.
struct KeptResponse {
    QByteArray data;
    QString MIMEType;
    bool cameInTheClear = false; ///< any step of its way was so
};

/// The responses that need not be asked for again, in memory and, where there is a folder, on
/// disk. Nothing expires; what has to be fresh is removed first.
class HttpCache {
public:
    static constexpr qint64 memoryCapacity = 1'000'000; ///< bytes
    static constexpr qint64 defaultDiskCapacity = 10'000'000; ///< bytes

    /// `folder` empty: kept in memory only.
    explicit HttpCache(const QString &folder);

    /// 0: nothing is kept on disk.
    void setDiskCapacity(qint64 bytes);

    [[nodiscard]] std::optional<KeptResponse> response(const QUrl &url);
    void store(const QUrl &url, const KeptResponse &response);
    void remove(const QUrl &url);
    /// Kept in memory alone from now on.
    void removeFromDisk(const QUrl &url);

private:
    void keepInMemory(const QUrl &url, const KeptResponse &response);

    QCache<QUrl, KeptResponse> mMemory{memoryCapacity};
    std::optional<CacheFolder> mDisk;
};
