#pragma once

#include "gathering/asset.h"
#include "songs/songfile.h"

#include <QHash>
#include <QString>

/// The songs that may lend year, genre and artwork to others of the same album, found by album
/// without walking the whole library for each song.
class LibraryLending {
public:
    /// `excluded`: songs that lend only where the borrower has nothing.
    explicit LibraryLending(SongList library, const SongList &excluded = {});

    /// The songs of that album, in library order: same simplified album name and, unless it is a
    /// compilation, same simplified artist.
    [[nodiscard]] SongList songsOfAlbum(const QString &album, const std::optional<QString> &artist,
                                        bool isCompilation);
    [[nodiscard]] bool isExcluded(const SongFile &song) const;

    /// Tells that a song's tag changed, so that it is found under its new album.
    void songChanged(const std::shared_ptr<SongFile> &song);
};
