#include "songs/songfileinfocache.h"

#include "base/bytes.h"
#include "base/descriptor.h"
#include "base/fileattributes.h"
#include "base/log.h"

#include <QDateTime>
#include <QDir>
#include <QTemporaryFile>

#include <chrono>
#include <cstdio>
#include <mutex>
#include <utility>

using namespace std::chrono_literals;

namespace {
constexpr auto quietTimeBeforeWriting = 250ms;
/// Another process that writes a bucket is waited for that long; then ours is written anyway and
/// what the other one stored in the meantime is lost, which costs only time.
constexpr auto patienceWithOthers = 2000ms;

/// What the cache file holds; nothing where there is none. Throws MalformedData.
CacheBucket bucketInFile(const QString &path)
{
    const auto attributes = FileAttributes::at(path);
    if (attributes && !attributes->isRegular()) // opening a pipe would wait
        throw MalformedData(QStringLiteral("it is no file"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    if (file.size() > maxCacheFileSize)
        throw MalformedData(QStringLiteral("it is too large for a cache file"));
    return unarchivedBucket(file.read(maxCacheFileSize));
}

/// The same with an empty bucket for a damaged file.
CacheBucket soundBucketInFile(const QString &path)
{
    try {
        return bucketInFile(path);
    } catch (const MalformedData &) {
        return {};
    }
}

/// Looks at no file, and at absolute paths but once.
QString absolutePath(const QString &path)
{
    return QDir::isAbsolutePath(path) ? path : QDir::current().absoluteFilePath(path);
}

QString writtenAtomically(const QString &path, const QByteArray &bytes)
{
    QTemporaryFile file(path + QStringLiteral(".XXXXXX"));
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush())
        return file.errorString();
    if (std::rename(QFile::encodeName(file.fileName()).constData(),
                    QFile::encodeName(path).constData())
        != 0)
        return reasonOf(lastError());
    file.setAutoRemove(false);
    return {};
}
} // namespace

SongFileInfoCache::SongFileInfoCache(QString folder)
    : mCacheBasePath(std::move(folder))
{
    mWriter.setMaxThreadCount(1);
    mMemoryCacheWriteTimer.setSingleShot(true);
    mMemoryCacheWriteTimer.setInterval(quietTimeBeforeWriting);
    connect(&mMemoryCacheWriteTimer, &QTimer::timeout, this,
            &SongFileInfoCache::writeSomeCacheToDisk);
}

SongFileInfoCache::~SongFileInfoCache()
{
    detach();
}

CachedInfoPointer SongFileInfoCache::infoForSongFileAtPath(const QString &path,
                                                           const ID3Dialect &dialect)
{
    CachedInfoPointer info = storedInfo(path);
    const auto attributes = info ? FileAttributes::at(path) : std::nullopt;
    return attributes && info->holdsFor(*attributes, dialect) ? info : nullptr;
}

CachedInfoPointer SongFileInfoCache::storedInfo(const QString &forSongFileAtPath)
{
    const QString path = absolutePath(forSongFileAtPath);
    Bucket *bucket = hostDictionaryForPath(path);
    if (!bucket)
        return nullptr;
    const std::shared_lock lock(bucket->mutex);
    return bucket->songs.value(path);
}

void SongFileInfoCache::storeInfo(const CachedInfo &info, const QString &forSongFileAtPath)
{
    QString key;
    const QString path = absolutePath(forSongFileAtPath);
    Bucket *bucket = hostDictionaryForPath(path, &key);
    if (!bucket)
        return;
    auto stored = std::make_shared<CachedInfo>(info);
    stored->madeAt = QDateTime::currentMSecsSinceEpoch();
    {
        const std::scoped_lock lock(bucket->mutex);
        bucket->songs.insert(path, std::move(stored));
    }
    mDirtyDicts.insert(key);
    cacheMemoryDirty();
}

/// The bucket for the path, loaded on first use; null when the path has none.
SongFileInfoCache::Bucket *SongFileInfoCache::hostDictionaryForPath(const QString &path,
                                                                    QString *key)
{
    const QString bucketKey = bucketKeyForSongPath(path);
    if (bucketKey.isEmpty() || mCacheBasePath.isEmpty())
        return nullptr;
    if (key)
        *key = bucketKey;
    Bucket &bucket = bucketOf(bucketKey);
    if (!bucket.isLoaded)
        loadBucket(bucketKey, bucket);
    return &bucket;
}

/// Others who ask for songs of the bucket wait until it is loaded.
void SongFileInfoCache::loadBucket(const QString &key, Bucket &bucket) const
{
    const std::scoped_lock lock(bucket.mutex);
    if (bucket.isLoaded)
        return;
    bucket.songs = load(key);
    bucket.isLoaded = true;
}

SongFileInfoCache::Bucket &SongFileInfoCache::bucketOf(const QString &key)
{
    {
        const std::shared_lock lock(mMutex);
        if (const auto bucket = mMemoryCache.find(key); bucket != mMemoryCache.end())
            return *bucket->second;
    }
    const std::scoped_lock lock(mMutex);
    auto &bucket = mMemoryCache[key];
    if (!bucket)
        bucket = std::make_unique<Bucket>();
    return *bucket;
}

QString SongFileInfoCache::fileOf(const QString &key) const
{
    return QStringLiteral("%1/%2.cache").arg(mCacheBasePath, key);
}

/// A damaged file gives an empty bucket, and stays until the bucket is next written.
CacheBucket SongFileInfoCache::load(const QString &key) const
{
    try {
        return bucketInFile(fileOf(key));
    } catch (const MalformedData &) {
        qCWarning(logSongs).noquote() << QStringLiteral("Couldn't unarchive %1").arg(fileOf(key));
        return {};
    }
}

/// A run of stores keeps pushing the write back.
void SongFileInfoCache::cacheMemoryDirty()
{
    mMemoryCacheWriteTimer.start();
}

/// One bucket a tick. It counts as written whether or not that succeeds: its songs stay in memory
/// for this run.
void SongFileInfoCache::writeSomeCacheToDisk()
{
    if (mDirtyDicts.empty())
        return;
    if (!mIsWriting)
        startWriting();
    cacheMemoryDirty();
}

void SongFileInfoCache::startWriting()
{
    const QString key = *std::prev(mDirtyDicts.end());
    mDirtyDicts.erase(key);
    mIsWriting = true;
    mWriter.start([this, key, &bucket = bucketOf(key)] {
        write(key, bucket);
        mIsWriting = false;
    });
}

void SongFileInfoCache::detach()
{
    mMemoryCacheWriteTimer.stop();
    mWriter.waitForDone();
    while (!mDirtyDicts.empty()) {
        startWriting();
        mWriter.waitForDone();
    }
}

void SongFileInfoCache::write(const QString &key, Bucket &bucket)
{
    CacheBucket songs;
    {
        const std::shared_lock lock(bucket.mutex);
        songs = bucket.songs;
    }
    const QString problem = replaceFile(key, std::move(songs));
    if (problem.isEmpty() || mToldOfTrouble.exchange(true))
        return;
    const auto address = QString::number(reinterpret_cast<quintptr>(&bucket), 16);
    qCWarning(logSongs).noquote() << QStringLiteral(
                                         "couldn't serialize <CacheBucket 0x%1> to %2: %3")
                                         .arg(address, fileOf(key), problem);
}

/// With what another process stored since the bucket was loaded. The folder is locked meanwhile.
QString SongFileInfoCache::replaceFile(const QString &key, CacheBucket songs) const
{
    QDir().mkpath(mCacheBasePath);
    const Descriptor folder = openFolder(mCacheBasePath);
    if (!folder)
        return reasonOf(lastError());
    std::ignore = lockFile(folder.get(), patienceWithOthers);
    mergeInto(songs, soundBucketInFile(fileOf(key)));
    if (songs.size() > maxSongsOfBucket)
        return QStringLiteral("too many songs");
    const QByteArray archived = archivedBucket(songs);
    if (archived.size() > maxCacheFileSize)
        return QStringLiteral("too large");
    return writtenAtomically(fileOf(key), archived);
}
