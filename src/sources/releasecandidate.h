#pragma once

#include "sources/artistmatch.h"

#include <QJsonObject>

/// What a release should fit.
struct ReleaseWish {
    SearchedArtist artist;
    QString album; ///< empty: not known
    QString title; ///< simplified; empty: not known
    std::optional<qint64> duration{}; ///< of the song, in milliseconds
    Substrings substrings = Substrings::Refuse;
    bool isCompilation = false;
    double minScore = 0; ///< of what a search found, of 100
};

/// A release as a search of the music database lists it. What the answer lacks is empty.
struct ReleaseCandidate {
    QString id; ///< 36 characters in lower case
    QString group; ///< the same of the release group
    QString title;
    QString artist;
    QString date; ///< "2007", "2007-05" or "2007-05-14"
    int media = 0;
    int tracks = 0; ///< on all media

    // How far it is from what was wished, 0 the nearest.
    int unlikeAlbum = 0;
    int unlikeSong = 0;
    int unofficial = 0;
    int oddKind = 0;

    QString firstDate{}; ///< of the listed releases of its group
    std::optional<AlbumFate> fate{}; ///< why it is not looked up; absent: it may be

    /// `firstDate`; empty where none of them has a date.
    [[nodiscard]] QString knownSince() const;
};

/// What a search found, each release once: those that fit the wish, the best first, and others.
struct ReleaseFindings {
    QList<ReleaseCandidate> fitting;
    QList<ReleaseCandidate> unfit;
};

/// The releases of an answer to a search of releases, and of an answer to a search of recordings,
/// where those fit that hold a recording of that title.
[[nodiscard]] ReleaseFindings candidatesOfReleases(const QJsonObject &answer,
                                                   const ReleaseWish &wish);
[[nodiscard]] ReleaseFindings candidatesOfRecordings(const QJsonObject &answer,
                                                     const ReleaseWish &wish);

/// Why a release was left behind for that one.
[[nodiscard]] AlbumFate fateBehind(const ReleaseCandidate &best, const ReleaseCandidate &candidate);

/// The album as far as the search told of it: without tracks.
[[nodiscard]] AlbumInfo listedAlbum(const ReleaseCandidate &candidate);

/// What does not fit at all. Lesser numbers of what follows are nearer, 0 the nearest.
inline constexpr int unfit = -1;

/// "(Deluxe Edition)" and the like may stand in one name and not in the other.
[[nodiscard]] int unlikenessOfAlbum(const QString &listed, const ReleaseWish &wish);
/// Whether a recording is of another length than the song, in milliseconds; 0 where not known.
[[nodiscard]] bool isOtherVersion(const std::optional<qint64> &duration, qint64 length);
/// `length` in milliseconds, 0 where it is not known.
[[nodiscard]] int unlikenessOfSong(const QString &listed, qint64 length, const ReleaseWish &wish);

/// Of a date that begins with four digits.
[[nodiscard]] std::optional<QString> yearOfDate(const QString &date);

/// An MBID in lower case, as the service wants it; empty when the value is none.
[[nodiscard]] QString identifierOf(const QJsonValue &value);

/// Every name with what joins it to the next one.
[[nodiscard]] QString creditedArtist(const QJsonObject &entity);

/// An album of one artist's own, no collection of what stands elsewhere already, and official.
[[nodiscard]] bool isPlainAlbum(const QJsonObject &release);
