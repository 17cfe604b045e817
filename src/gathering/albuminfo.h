#pragma once

#include "gathering/asset.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

/// By which the music database knows a release, and the group of all its editions: 36 characters
/// each, empty where unknown.
struct ReleaseIdentifiers {
    QString release;
    QString releaseGroup;
    bool hasNoFront = false; ///< the release is known to lack a picture of its front

    [[nodiscard]] bool isEmpty() const { return release.isEmpty() && releaseGroup.isEmpty(); }
    [[nodiscard]] bool operator==(const ReleaseIdentifiers &) const = default;
};

enum class Substrings { Refuse, Allow };

/// Whether one of two simplified names is part of the other. Nothing is part of an empty one.
[[nodiscard]] bool simplifiedNamesOverlap(const QString &one, const QString &other);

/// One album as a web source found it.
class AlbumInfo {
public:
    AlbumInfo() = default;
    /// Names are cleaned at once, as by cleanUpStrings().
    AlbumInfo(const std::optional<QString> &artist, const std::optional<QString> &name);

    [[nodiscard]] const std::optional<QString> &name() const { return mName; }
    [[nodiscard]] const std::optional<QString> &artist() const { return mArtist; }
    [[nodiscard]] const std::optional<QString> &genre() const { return mGenre; }
    [[nodiscard]] const std::optional<QString> &year() const { return mYear; }
    [[nodiscard]] const std::optional<QStringList> &trackNames() const { return mTracks; }
    /// In milliseconds, parallel to trackNames(), 0 where unknown; empty when none is known.
    [[nodiscard]] const QList<qint64> &trackLengths() const { return mTrackLengths; }
    [[nodiscard]] const ReleaseIdentifiers &identifiers() const { return mIdentifiers; }
    [[nodiscard]] const std::optional<QString> &artURLString() const { return mArtURLString; }
    /// Nothing when it is no address.
    [[nodiscard]] std::optional<QUrl> artURL() const;
    /// By song title.
    [[nodiscard]] const QMap<QString, QString> &lyrics() const { return mLyrics; }
    /// The song that was searched has no words.
    [[nodiscard]] bool isInstrumental() const { return mIsInstrumental; }
    /// Nothing but the picture of an album that the search named: no answer to what that is.
    [[nodiscard]] bool isCoverAlone() const { return mIsCoverAlone; }
    [[nodiscard]] const QString &sourceInterfaceName() const { return mSourceInterface; }
    [[nodiscard]] int duplicates() const { return mDuplicates; }
    [[nodiscard]] int numberOfTracks() const;
    /// How well it fits the song, 0 to 100; absent unless albums are picked by it.
    [[nodiscard]] std::optional<int> score() const { return mScore; }
    /// Its number among the albums that are looked at together; -1 for none.
    [[nodiscard]] int candidateNumber() const { return mCandidateNumber; }

    // Setters do not clean.
    void setName(std::optional<QString> name) { mName = std::move(name); }
    void setArtist(std::optional<QString> artist) { mArtist = std::move(artist); }
    void setGenres(std::optional<QString> genre) { mGenre = std::move(genre); }
    void setYear(std::optional<QString> year) { mYear = std::move(year); }
    void setTrackNames(std::optional<QStringList> tracks) { mTracks = std::move(tracks); }
    void setTrackLengths(QList<qint64> milliseconds) { mTrackLengths = std::move(milliseconds); }
    void setIdentifiers(ReleaseIdentifiers known) { mIdentifiers = std::move(known); }
    void setArtURLString(std::optional<QString> url) { mArtURLString = std::move(url); }
    void setLyrics(const QString &text, const QString &forTitle) { mLyrics[forTitle] = text; }
    void setIsInstrumental(bool isInstrumental) { mIsInstrumental = isInstrumental; }
    void setIsCoverAlone(bool isCoverAlone) { mIsCoverAlone = isCoverAlone; }
    void setSourceInterfaceName(const QString &name) { mSourceInterface = name; }
    void incDuplicates() { ++mDuplicates; }
    void setScore(int score) { mScore = score; }
    void setCandidateNumber(int number) { mCandidateNumber = number; }
    /// Names, genre and track titles without stars, in their usual order and case.
    void cleanUpStrings();

    /// A copy that counts no duplicates.
    [[nodiscard]] AlbumInfo copy() const;

    /// The loose key of the name, by which albums are compared; empty without a name.
    [[nodiscard]] QString simplifiedName() const;
    /// The 1-based number of the title on this album, or 0. Of equal titles the last counts.
    [[nodiscard]] int numberOfTrackNamed(const QString &title, Substrings allowSubstrings) const;
    /// The same for a title that was simplified before, as when many albums are asked.
    [[nodiscard]] int numberOfTrackSimplified(const QString &simplifiedTitle,
                                              Substrings allowSubstrings) const;
    [[nodiscard]] Assets assets() const;
    /// The share of the wanted assets that the album holds, 0 to 1; -1 when none is wanted.
    [[nodiscard]] float matchToDesiredAssets(Assets wanted) const;
    /// "1:First, 2:Second".
    [[nodiscard]] QString trackSummary() const;
    [[nodiscard]] QString description() const;

private:
    std::optional<QString> mName;
    std::optional<QString> mArtist;
    std::optional<QString> mGenre;
    std::optional<QString> mYear;
    std::optional<QStringList> mTracks;
    QList<qint64> mTrackLengths;
    ReleaseIdentifiers mIdentifiers;
    QMap<QString, QString> mLyrics;
    std::optional<QString> mArtURLString;
    QString mSourceInterface;
    int mDuplicates = 0;
    std::optional<int> mScore;
    int mCandidateNumber = -1;
    bool mIsInstrumental = false;
    bool mIsCoverAlone = false;
};
