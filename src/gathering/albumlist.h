#pragma once

#include "gathering/albuminfo.h"

#include <QList>

// What is done with the albums that sources found for one song: pure functions on a list.

using AlbumList = QList<AlbumInfo>;

enum class AlbumPick { None = 0, EarliestYear = 1, MostAgreement = 2 };

/// Merges albums of the same simplified name and, if any album holds the title, drops those that
/// do not.
void simplifyAlbumArray(AlbumList &albums, const std::optional<QString> &forTrackName);

/// Keeps the albums of exactly that many tracks, if there are any.
void eliminateAlbumsWithDifferentNumberOfTracks(AlbumList &albums, int than);

/// Keeps the albums called as the song's tag says, if there are any.
void eliminateAlbumsWithoutDesiredName(AlbumList &albums, const std::optional<QString> &tagAlbum,
                                       Substrings allowSubstrings);

/// The words of a song that explanations mention.
struct SongWords {
    QString artist;
    QString title;
};

struct AlbumChoice {
    std::optional<AlbumInfo> album;
    std::optional<QString> problem; ///< why none was chosen, for the user
};

[[nodiscard]] AlbumChoice chooseAlbum(const AlbumList &candidates, AlbumPick method,
                                      const SongWords &song);
