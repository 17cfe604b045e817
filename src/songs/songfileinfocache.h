#pragma once

#include "songs/cachebucket.h"
#include "tags/id3dialect.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <atomic>
#include <map>
#include <memory>
#include <set>
#include <shared_mutex>

/// Summaries of songs' tags on disk, by path, each valid as long as its file is unchanged. They
/// are read when a song of their bucket is first asked for, and written a while after the last
/// store, one bucket after the other, on a thread of the cache's own. Several processes may share
/// the folder: a file is complete or not there, and of two summaries of a song the later counts.
///
/// Trouble with the folder only means that less is kept. Asking is safe on any thread; everything
/// else belongs to the thread of the cache.
class SongFileInfoCache : public QObject {
public:
    /// The folder is made when the first bucket is written. Without one nothing is kept.
    explicit SongFileInfoCache(QString folder);
    /// Writes what waits to be written.
    ~SongFileInfoCache() override;

    /// The stored summary; null when there is none, or the file was changed since, or its tag
    /// was read in another dialect.
    [[nodiscard]] CachedInfoPointer infoForSongFileAtPath(const QString &path,
                                                          const ID3Dialect &dialect);

    // Summaries are kept by absolute paths, whatever form of them is given.

    /// The stored summary, which may hold no longer: the file is not asked.
    [[nodiscard]] CachedInfoPointer storedInfo(const QString &forSongFileAtPath);

    /// Songs of folders that have no bucket are not kept.
    void storeInfo(const CachedInfo &info, const QString &forSongFileAtPath);

    /// Whether a bucket waits to be written or is being written.
    [[nodiscard]] bool isDirty() const { return !mDirtyDicts.empty() || mIsWriting; }
    /// Writes every bucket that waits, before it returns.
    void detach();

private:
    struct Bucket {
        std::atomic<bool> isLoaded = false;
        std::shared_mutex mutex; ///< of what follows
        CacheBucket songs;
    };

    [[nodiscard]] Bucket *hostDictionaryForPath(const QString &path, QString *key = nullptr);
    void loadBucket(const QString &key, Bucket &bucket) const;
    [[nodiscard]] Bucket &bucketOf(const QString &key);
    [[nodiscard]] QString fileOf(const QString &key) const;
    [[nodiscard]] CacheBucket load(const QString &key) const;
    void cacheMemoryDirty();
    void writeSomeCacheToDisk();
    void startWriting();
    void write(const QString &key, Bucket &bucket);
    [[nodiscard]] QString replaceFile(const QString &key, CacheBucket songs) const;

    QString mCacheBasePath;
    std::shared_mutex mMutex; ///< of the memory cache, not of its buckets
    std::map<QString, std::unique_ptr<Bucket>> mMemoryCache;
    std::set<QString> mDirtyDicts; ///< keys of buckets to be written
    QTimer mMemoryCacheWriteTimer;
    QThreadPool mWriter; ///< of one thread
    std::atomic<bool> mIsWriting = false;
    std::atomic<bool> mToldOfTrouble = false;
};
