#pragma once

#include "gathering/artworkcheck.h"
#include "gathering/asset.h"
#include "songs/songfile.h"

#include <QHash>
#include <QSet>
#include <QSize>
#include <QString>

#include <chrono>
#include <utility>

/// What songs of the same album can lend.
inline constexpr Assets lendableAssets = Assets(AssetArtwork) | AssetYear | AssetGenre;

/// A song that looks for what others of its album have.
struct Borrower {
    const SongFile *song = nullptr; ///< lends nothing to itself
    std::optional<QString> album;
    std::optional<QString> artist;
    bool isCompilation = false; ///< then the other songs may be by any artist
    Assets wanted;
    Assets present; ///< what it has already; excluded songs do not lend these
    ArtworkLimits artwork;
};

struct LendingOffers {
    std::optional<QString> year;
    std::optional<QString> genres;
    SongList pictures; ///< songs that hold an acceptable picture as far as is known, in order
};

/// The songs that may lend year, genre and artwork to others of the same album, found by album
/// without walking the whole library for each song. Each song's tag is read once; of it are kept
/// a few words, so that a library of any size fits in memory.
class LibraryLending {
public:
    /// `excluded`: songs that lend only where the borrower has nothing.
    explicit LibraryLending(SongList library, const SongList &excluded = {});

    /// Adds a song behind all others; its tag is read later.
    void addSong(const std::shared_ptr<SongFile> &song);

    /// Reads tags that were not read yet for about that long; whether all are read now.
    bool readTagsFor(std::chrono::milliseconds budget);

    /// What the songs of the borrower's album have, the first in library order first. They are
    /// those with the same simplified album name and, unless it is a compilation, the same
    /// simplified artist. Reads all tags that were not read yet.
    [[nodiscard]] LendingOffers offersTo(const Borrower &borrower);

    /// Tells that a song's tag or file changed, so that it is found under its new album.
    void songChanged(const std::shared_ptr<SongFile> &song);

private:
    using Key = std::pair<QString, QString>; ///< simplified album, simplified artist
    using Positions = std::vector<std::size_t>; ///< in the library, ascending

    struct Words {
        QString album; ///< simplified; empty: of no album
        QString artist; ///< simplified
        std::optional<QString> year;
        std::optional<QString> genres;
        QSize pictureSize; ///< invalid where only the file itself can tell
        bool hasPicture = false;
    };

    void readNextTag();
    void readTag(std::size_t position);
    [[nodiscard]] Words wordsOf(const AudioInfoTag &tag);
    [[nodiscard]] QString shared(const QString &text);
    void addToAlbums(std::size_t position);
    void removeFromAlbums(std::size_t position);
    [[nodiscard]] const Positions *songsOfAlbum(const Borrower &borrower) const;
    [[nodiscard]] Assets assetsLentTo(const Borrower &borrower, std::size_t position) const;

    SongList mLibrary;
    std::vector<Words> mWords; ///< of the songs read so far
    QHash<const SongFile *, std::size_t> mPositions;
    QHash<QString, Positions> mByAlbum;
    QHash<Key, Positions> mByAlbumAndArtist;
    QSet<QString> mExcludedPaths;
    QSet<QString> mTexts; ///< each kept text once: most are those of many songs
};

/// The first picture of a song; read from its file when its tag was made from summary data.
[[nodiscard]] std::optional<ID3Image> firstPictureOf(SongFile &song);
