#pragma once

#include "gathering/albuminfo.h"
#include "gathering/choicerecord.h"

#include <QList>

#include <functional>

// What is done with the albums that sources found for one song: pure functions on a list.

using AlbumList = QList<AlbumInfo>;

/// An album that a source found and left, mostly without having looked it up.
struct PassedOverAlbum {
    AlbumInfo album;
    AlbumFate fate = AlbumFate::BehindOthers;
    int tracks = 0; ///< as far as the source told
};

/// The numbers stand in the settings.
enum class AlbumPick { None = 0, EarliestYear = 1, MostAgreement = 2, Best = 3 };

/// Told of each album that a filter drops.
using DropListener = std::function<void(const AlbumInfo &, AlbumFate)>;

/// Merges albums of the same simplified name and, if any album holds the title, drops those that
/// do not. Albums without a name count as of one name.
void simplifyAlbumArray(AlbumList &albums, const std::optional<QString> &forTrackName,
                        const DropListener &dropped = {});

/// Keeps the albums of exactly that many tracks, if there are any.
void eliminateAlbumsWithDifferentNumberOfTracks(AlbumList &albums, int than,
                                                const DropListener &dropped = {});

/// Keeps the albums called as the song's tag says, if there are any.
void eliminateAlbumsWithoutDesiredName(AlbumList &albums, const std::optional<QString> &tagAlbum,
                                       Substrings allowSubstrings,
                                       const DropListener &dropped = {});

/// What a song's tag says that its album must fit.
struct SongFacts {
    bool trustsTitle = true; ///< false: the title is itself looked for
    std::optional<QString> title;
    std::optional<QString> album; ///< absent also when it is to be replaced
    int tracksOnAlbum = 0; ///< 0: not known
};

/// Merges the albums and drops those that do not fit the song, as long as one fits.
void filterAlbums(AlbumList &albums, const SongFacts &song, Substrings allowSubstrings,
                  const DropListener &dropped = {});

/// The words of a song that explanations mention.
struct SongWords {
    QString artist;
    QString title;
};

struct AlbumChoice {
    std::optional<AlbumInfo> album;
    std::optional<QString> problem; ///< why none was chosen, for the user
};

/// By the method Best the first is chosen: the candidates must be in the order of their score.
[[nodiscard]] AlbumChoice chooseAlbum(const AlbumList &candidates, AlbumPick method,
                                      const SongWords &song);

/// The albums with artwork, in the order of `sources` and from the last of a source to its first.
[[nodiscard]] AlbumList artworkCandidates(const AlbumList &albums, const QStringList &sources);

/// Takes the covers without an album out of the list. They would fit every filter and agree with
/// everybody, since they bear the names that were searched.
[[nodiscard]] AlbumList takeCovers(AlbumList &albums);

[[nodiscard]] bool carriesOnlyLyrics(const AlbumInfo &album);

/// Takes the albums that carry nothing but lyrics out of the list, and returns them in the order
/// of `sources`. Beside albums with tracks they would be dropped, and their lyrics with them.
[[nodiscard]] AlbumList takeLyricsAlbums(AlbumList &albums, const QStringList &sources);
