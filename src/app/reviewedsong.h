#pragma once

#include "app/worklist.h"

/// How far the review of a song is.
enum class ReviewState {
    Open, ///< the user has yet to decide
    Applying, ///< another album is being applied
    Writing, ///< waits for its turn
    Written,
    Skipped,
};

/// A song that was gathered, with all that a user needs to decide about it.
struct ReviewedSong {
    quint64 id = 0; ///< ascending, never used again
    std::shared_ptr<SongFile> song;
    SongChange change; ///< `after` is made anew when the user takes another album
    Assets changes; ///< in which `before` and `after` differ
    Assets accepted; ///< of these, those that the user wants
    Assets written; ///< of these, those that the file has
    Assets stale; ///< the file has these from an album that was given up since
    QMap<Asset, QString> sources; ///< class name of the source of each change, or "library"
    ChoiceRecord choices;
    std::optional<qsizetype> taken; ///< the candidate that the user took
    ReviewState state = ReviewState::Open;
    QString problem; ///< why it could not be written or changed; empty: none
    qint64 bytes = 0; ///< in memory without the pictures, about

    /// Whether the file is not yet as the user wants it.
    [[nodiscard]] bool hasToBeWritten() const { return bool(fieldsToWrite()); }
    [[nodiscard]] Assets fieldsToWrite() const { return (accepted ^ written) | stale; }
    /// The user is to decide whether it is written.
    [[nodiscard]] bool waits() const { return state == ReviewState::Open && hasToBeWritten(); }
    /// It may make room for others.
    [[nodiscard]] bool isDecided() const { return !isBusy() && (isSettled() || !hasToBeWritten()); }
    [[nodiscard]] bool isSettled() const
    {
        return state == ReviewState::Written || state == ReviewState::Skipped;
    }
    [[nodiscard]] bool isBusy() const
    {
        return state == ReviewState::Applying || state == ReviewState::Writing;
    }
};

/// What gathering found for a song; nothing when there is nothing to decide.
[[nodiscard]] std::optional<ReviewedSong> reviewedSong(const SongOutcome &outcome);

/// Takes over what the file holds now: by our own writing, or because the user edited the song
/// elsewhere meanwhile.
void adoptFile(ReviewedSong &song, const SongValues &inFile);

/// Bytes in memory without the pictures, about.
[[nodiscard]] qint64 bytesOf(const ReviewedSong &song);
