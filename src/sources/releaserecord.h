#pragma once

#include "gathering/albuminfo.h"

#include <QJsonObject>

/// What is known of a song's place on its release.
struct SoughtTrack {
    std::optional<QString> title; ///< absent when it is looked for
    Substrings substrings = Substrings::Refuse;
    std::optional<qint64> duration{}; ///< milliseconds
    int number = 0; ///< by the song's tag; 0: not known
    int of = 0; ///< tracks, by the song's tag; 0: not known
};

/// A release as the music database holds it, all of its discs.
struct ReleaseRecord {
    struct Medium {
        QStringList titles;
        QList<qint64> lengths; ///< milliseconds, 0 where unknown
        QStringList artists{}; ///< of the tracks; empty where they are not told
        QStringList firstDates{}; ///< on which each recording came out first; empty likewise
    };

    ReleaseIdentifiers identifiers; ///< where the database gave it: the release's own is there
    QString title;
    QString artist;
    std::optional<QString> year; ///< in which the work came out first, not this edition
    std::optional<QString> genre;
    QString date{}; ///< of this edition
    QString firstDate{}; ///< of the work
    QList<Medium> media; ///< those that list tracks
    bool isPlainAlbum = false;

    /// The disc that holds the song; where it is known by its number alone this may be all discs in
    /// a row. Nothing when there is none, or several that differ.
    [[nodiscard]] std::optional<Medium> mediumFor(const SoughtTrack &track) const;
    /// Whether it cannot be on the release, as far as its tracks are known.
    [[nodiscard]] bool lacks(const SoughtTrack &track) const;
    /// The album with the tracks of that disc, if there is one.
    [[nodiscard]] AlbumInfo albumWith(const std::optional<Medium> &medium) const;
    [[nodiscard]] Medium allInARow() const;

private:
    [[nodiscard]] std::optional<Medium> mediumWithTitle(const SoughtTrack &track) const;
    [[nodiscard]] std::optional<Medium> mediumWithNumber(const SoughtTrack &track) const;
};

/// Nothing when the answer holds no release.
[[nodiscard]] std::optional<ReleaseRecord> releaseRecordOf(const QJsonObject &answer);

/// The genre with the most votes that fits the genre table, spelled as there; where none fits the
/// first by votes.
[[nodiscard]] std::optional<QString> votedGenre(const QJsonObject &release);
