#pragma once

#include <QList>
#include <QString>

#include <optional>

// Why a song got the album that it got, or none: values for whoever tells the user.

/// What became of an album that a source found.
enum class AlbumFate {
    Undecided, ///< it was left to choose from, but none was picked
    NotPicked, ///< another one was picked
    OtherNumberOfTracks,
    TitleNotOnAlbum, ///< while the title is on others
    Merged, ///< into another one of the same name
    OtherName, ///< while others are called as the song's tag says
    SongNotOnAlbum, ///< it was picked, but does not list the song
    Chosen,
};

struct AlbumCandidate {
    QString source; ///< class name
    std::optional<QString> album;
    std::optional<QString> artist;
    std::optional<QString> year;
    int tracks = 0;
    bool hasArtwork = false;
    std::optional<int> score; ///< 0 to 100; only where albums are picked by it
    AlbumFate fate = AlbumFate::Undecided;

    bool operator==(const AlbumCandidate &) const = default;
};

struct SourceAnswer {
    enum class Kind {
        Albums,
        Nothing, ///< it was asked and knows none
        Unanswered, ///< it could not be asked, at least not about everything, and gave no album
    };
    QString source; ///< class name
    Kind kind = Kind::Nothing;
};

enum class ChoiceReason {
    NotSearched,
    NothingFound,
    NoMethod, ///< several are left, and no method chooses among them
    NoUsableYear,
    SongNotOnAlbum, ///< of the picked one
    // from here on an album was chosen
    OnlyAlbum,
    LastLeft, ///< all others were dropped or merged
    EarliestYear,
    MostAgreement,
    HighestScore,
};

struct ChoiceRecord {
    QList<SourceAnswer> answers; ///< in the order in which they came
    QList<AlbumCandidate> candidates; ///< in the order in which they were looked at; not endless
    ChoiceReason reason = ChoiceReason::NotSearched;
    std::optional<QString> pickedAlbum; ///< the name of the one that `reason` is about
    int found = 0; ///< how many albums the reason is about
    int left = 0; ///< how many of them the filters left to choose from

    [[nodiscard]] bool isChosen() const { return reason >= ChoiceReason::OnlyAlbum; }
};
