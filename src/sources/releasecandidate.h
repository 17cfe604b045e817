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
    QString date; ///< "2007", "2007-05" or "2007-05-14"
    int media = 0;
    int tracks = 0; ///< on all media

    // How far it is from what was wished, 0 the nearest.
    int unlikeAlbum = 0;
    int unlikeSong = 0;
    int unofficial = 0;
    int oddKind = 0;
};

/// The releases of an answer to a search of releases, and of an answer to a search of recordings
/// (those that hold a recording of that title), that fit the wish; the best first, each once.
[[nodiscard]] QList<ReleaseCandidate> candidatesOfReleases(const QJsonObject &answer,
                                                           const ReleaseWish &wish);
[[nodiscard]] QList<ReleaseCandidate> candidatesOfRecordings(const QJsonObject &answer,
                                                             const ReleaseWish &wish);

/// What does not fit at all. Lesser numbers of what follows are nearer, 0 the nearest.
inline constexpr int unfit = -1;

/// "(Deluxe Edition)" and the like may stand in one name and not in the other.
[[nodiscard]] int unlikenessOfAlbum(const QString &listed, const ReleaseWish &wish);
/// `length` in milliseconds, 0 where it is not known.
[[nodiscard]] int unlikenessOfSong(const QString &listed, qint64 length, const ReleaseWish &wish);

/// An MBID in lower case, as the service wants it; empty when the value is none.
[[nodiscard]] QString identifierOf(const QJsonValue &value);

/// Every name with what joins it to the next one.
[[nodiscard]] QString creditedArtist(const QJsonObject &entity);

/// An album of one artist's own, no collection of what stands elsewhere already, and official.
[[nodiscard]] bool isPlainAlbum(const QJsonObject &release);
