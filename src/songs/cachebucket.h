#pragma once

#include "songs/cachedinfo.h"

#include <QHash>

/// The summaries of the songs that share a cache file, by path.
using CacheBucket = QHash<QString, CachedInfoPointer>;

/// The key of the bucket that the songs of a folder go to; empty for the songs of folders whose
/// path is shorter than four characters or relative, which are not cached.
[[nodiscard]] QString bucketKeyForSongPath(QStringView path);

/// Larger cache files are taken for damaged ones.
inline constexpr qint64 maxCacheFileSize = 256'000'000; // bytes
/// A cache file of few bytes must not ask for gigabytes.
inline constexpr qsizetype maxSongsOfBucket = 500'000;

/// What a cache file holds of the bucket: CBOR under a checksum.
[[nodiscard]] QByteArray archivedBucket(const CacheBucket &bucket);

/// The bucket of a cache file; an empty one when another version of the program wrote it. Throws
/// MalformedData when the file is damaged.
[[nodiscard]] CacheBucket unarchivedBucket(const QByteArray &file);

/// Takes from `other` the songs that `bucket` lacks and later summaries of those that it has.
void mergeInto(CacheBucket &bucket, const CacheBucket &other);
