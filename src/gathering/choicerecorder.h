#pragma once

#include "gathering/albumlist.h"
#include "gathering/choicerecord.h"

#include <vector>

/// Writes the record of one song. Each time that albums are looked at is a round: those of one
/// source, or of all at once. Albums that hold nothing but lyrics are no candidates.
class ChoiceRecorder {
public:
    /// More candidates tell nobody anything; those of a song that every source knows stay below.
    static constexpr qsizetype mostCandidates = 100;
    /// Characters of a name; what a page holds may be of any length.
    static constexpr qsizetype longestText = 200;

    void answered(const SourceAnswer &answer, const QList<PassedOverAlbum> &passedOver);

    /// Begins a round, and numbers the albums so that they are known again. `covers`: what is none
    /// to choose from.
    void begin(AlbumList &albums, const AlbumList &covers = {});
    void dropped(const AlbumInfo &album, AlbumFate fate);
    /// Ends it. `left`: what the filters left; `isOnAlbum`: whether the chosen album may be the
    /// song's.
    void end(const AlbumList &left, AlbumPick method, const AlbumChoice &choice, bool isOnAlbum);

    /// The user took that album, in place of all searches.
    void taken(const AlbumInfo &album);

    [[nodiscard]] const ChoiceRecord &record() const { return mRecord; }
    /// The albums of its candidates, in the same order: what a candidate was merged with is in it.
    [[nodiscard]] const AlbumList &albums() const { return mAlbums; }
    /// Of the last round, which the record tells of only until an album was chosen.
    [[nodiscard]] const AlbumVerdict &latestVerdict() const { return mLatest; }

private:
    void keep(const AlbumCandidate &candidate, const AlbumInfo &album);
    void conclude(const AlbumVerdict &verdict);
    void keepRound();

    std::vector<AlbumCandidate> mRound; ///< by number
    AlbumList mRoundAlbums; ///< by number
    std::size_t mFound = 0; ///< how many of the round may be chosen; covers follow them
    QList<PassedOverAlbum> mPassedOver; ///< since the last round
    AlbumVerdict mLatest;
    ChoiceRecord mRecord;
    AlbumList mAlbums;
};
