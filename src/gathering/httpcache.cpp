#include "gathering/httpcache.h"

#include <QDataStream>
#include <QIODevice>

namespace {
/// One response takes at most this part of the disk space, so that a picture does not drive out
/// the pages, and reading or writing one stays unfelt.
constexpr qint64 entriesThatFit = 20;
/// What a response takes in memory beside its data.
constexpr qsizetype bytesBesideData = 500;
constexpr auto streamVersion = QDataStream::Qt_6_4;

QByteArray keyOf(const QUrl &url)
{
    return url.toEncoded();
}

/// The address goes with it, since two addresses may share a hash.
QByteArray packed(const QUrl &url, const KeptResponse &response)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << keyOf(url) << response.MIMEType << response.cameInTheClear << response.data;
    return bytes;
}

std::optional<KeptResponse> unpacked(const QUrl &url, const QByteArray &bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(streamVersion);
    QByteArray key;
    KeptResponse response;
    stream >> key >> response.MIMEType >> response.cameInTheClear >> response.data;
    if (stream.status() != QDataStream::Ok || key != keyOf(url))
        return std::nullopt;
    return response;
}
} // namespace

HttpCache::HttpCache(const QString &folder)
{
    if (folder.isEmpty())
        return;
    mDisk.emplace(folder);
    setDiskCapacity(defaultDiskCapacity);
}

void HttpCache::setDiskCapacity(qint64 bytes)
{
    if (mDisk)
        mDisk->setCapacity(bytes);
}

std::optional<KeptResponse> HttpCache::response(const QUrl &url)
{
    if (const KeptResponse *kept = mMemory.object(url))
        return *kept;
    if (!mDisk)
        return std::nullopt;
    const std::optional<QByteArray> bytes = mDisk->read(keyOf(url));
    std::optional<KeptResponse> kept = bytes ? unpacked(url, *bytes) : std::nullopt;
    if (kept)
        keepInMemory(url, *kept);
    return kept;
}

void HttpCache::store(const QUrl &url, const KeptResponse &response)
{
    keepInMemory(url, response);
    if (!mDisk)
        return;
    if (response.data.size() <= mDisk->capacity() / entriesThatFit)
        mDisk->store(keyOf(url), packed(url, response));
    else
        mDisk->remove(keyOf(url)); // an older answer must not come back
}

void HttpCache::remove(const QUrl &url)
{
    mMemory.remove(url);
    removeFromDisk(url);
}

void HttpCache::removeFromDisk(const QUrl &url)
{
    if (mDisk)
        mDisk->remove(keyOf(url));
}

/// A response beyond the whole capacity is refused by the cache itself, the older one dropped.
void HttpCache::keepInMemory(const QUrl &url, const KeptResponse &response)
{
    mMemory.insert(url, new KeptResponse(response), response.data.size() + bytesBesideData);
}
