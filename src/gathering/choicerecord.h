#pragma once

#include "gathering/asset.h"

#include <QList>
#include <QMap>
#include <QSize>

#include <optional>

// Why a song got the album and the fields that it got, or none: values for whoever tells the user.

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
    CoverAlone, ///< it gives its picture to another one, and is none to choose
    // from here on the source itself left it, and did not look it up
    ByOtherArtist,
    OfOtherTitle, ///< of the song
    OfOtherName, ///< of the album
    LittleAlike, ///< by the source's own measure
    OfOtherLength,
    Unofficial,
    OfOtherKind, ///< such as a single, or a collection while the song is on an album
    OtherEdition,
    LaterWork,
    BehindOthers,
};

[[nodiscard]] constexpr bool wasLookedUp(AlbumFate fate)
{
    return fate < AlbumFate::ByOtherArtist;
}

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
        TooLittleKnown, ///< of the song, to ask by
        NoSite, ///< its definition leads nowhere
    };
    QString source; ///< class name
    Kind kind = Kind::Nothing;

    [[nodiscard]] bool wasToBeGiven() const { return kind <= Kind::Unanswered; }
};

enum class ChoiceReason {
    NotSearched,
    NothingFound,
    NoneFits, ///< a source left all that it found
    CoverAlone, ///< nothing but covers of the album that the song's tag names
    NoMethod, ///< several are left, and no method chooses among them
    NoUsableYear,
    SongNotOnAlbum, ///< of the picked one
    // from here on an album was chosen
    OnlyAlbum,
    LastLeft, ///< all others were dropped or merged
    EarliestYear,
    MostAgreement,
    HighestScore,
    TakenByUser,
};

/// Which album was chosen by what rule, or why none was.
struct AlbumVerdict {
    ChoiceReason reason = ChoiceReason::NotSearched;
    std::optional<QString> pickedAlbum; ///< the name of the one that `reason` is about
    int found = 0; ///< how many albums the reason is about
    int left = 0; ///< how many of them the filters left to choose from

    [[nodiscard]] bool isChosen() const { return reason >= ChoiceReason::OnlyAlbum; }
};

/// Why a field of the song was set or not.
struct FieldReason {
    enum class Kind {
        ChosenAlbum, ///< set, as the album tells it that `album` is about
        Lyrics, ///< set: they were found for artist and title
        Lent, ///< set, by another song of the album
        Sound, ///< set, as the song is known by its sound
        Path, ///< set: its path says so, and a source knows such a song
        Picture, ///< set: the picture fits
        Kept, ///< the song has it, and it may not be overwritten
        NamedByFile, ///< the song has no title but the name of its file
        Instrumental, ///< there are no lyrics to be found
        NotAsked, ///< no source in use may supply it
        NoAnswer, ///< none of those that may supply it could be asked
        TooLittleKnown, ///< of the song, to ask any of them by
        NotFound, ///< by the sources; those of `unanswered` gave no answer
        NoAlbumChosen, ///< albums tell it, but none was chosen, as `album` says
        NotOnAlbum, ///< the chosen album does not tell it, which `album` is about
        AlbumUnknown, ///< the cover of an album that was looked for, too, and not found
        AlbumReplaced, ///< pictures stay while the album itself is looked for
        PictureNotFetched,
        PictureUnreadable,
        PictureTooSmall,
        PictureNotSquare,
    };
    Kind kind = Kind::NotFound;
    AlbumVerdict album{};
    QStringList unanswered{}; ///< class names
    QSize picture{}; ///< pixels, as far as it can be told
    QSize original{}; ///< of a picture that was scaled down; else invalid

    [[nodiscard]] bool isPictureRefused() const { return kind >= Kind::PictureNotFetched; }
};

/// The verdict is that of the first album that was chosen.
struct ChoiceRecord : AlbumVerdict {
    QList<SourceAnswer> answers; ///< in the order in which they came
    QList<AlbumCandidate> candidates; ///< in the order in which they were looked at; not endless
    Assets told; ///< what the albums found tell between them
    QMap<Asset, FieldReason> fields; ///< of what was to be gathered, and what was set besides
};
