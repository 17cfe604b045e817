#pragma once

#include "gathering/albuminfo.h"

#include <QJsonObject>

/// A release as the music database holds it, all of its discs.
struct ReleaseRecord {
    struct Medium {
        QStringList titles;
        QList<qint64> lengths; ///< milliseconds, 0 where unknown
    };

    ReleaseIdentifiers identifiers; ///< where the database gave it: the release's own is there
    QString title;
    QString artist;
    std::optional<QString> year; ///< in which the work came out first, not this edition
    std::optional<QString> genre;
    QList<Medium> media; ///< those that list tracks
    bool isPlainAlbum = false;

    /// The disc that holds the title; with one disc that one; -1: it is open.
    [[nodiscard]] qsizetype mediumOf(const std::optional<QString> &songTitle,
                                     Substrings allowSubstrings) const;
    /// The album with the tracks of that disc; without tracks for -1.
    [[nodiscard]] AlbumInfo albumWithMedium(qsizetype medium) const;
};

/// Nothing when the answer holds no release.
[[nodiscard]] std::optional<ReleaseRecord> releaseRecordOf(const QJsonObject &answer);

/// Of a date that begins with four digits.
[[nodiscard]] std::optional<QString> yearOfDate(const QJsonValue &date);

/// The genre with the most votes that fits the genre table, spelled as there; where none fits the
/// first by votes.
[[nodiscard]] std::optional<QString> votedGenre(const QJsonObject &release);
