#pragma once

#include "gathering/albuminfo.h"
#include "gathering/artworkcheck.h"
#include "gathering/assetledger.h"

// How a song's tag is filled from what was found. Each asset that is applied counts as changed
// in the ledger, and as desired no more.

/// Whether the album may be the song's: the title is itself looked for, the album lists no
/// tracks, or it lists the title.
[[nodiscard]] bool mayBeAlbumOfSong(const AlbumInfo &album, const AudioInfoTag &tag,
                                    const AssetLedger &ledger, Substrings allowSubstrings);

/// Why an album that lists other songs was not applied, for the user; nothing when its name, its
/// tracks or the song's album are not known.
[[nodiscard]] std::optional<QString> notOnAlbumProblem(const AlbumInfo &album,
                                                       const AudioInfoTag &tag);

/// What an album could fill in.
[[nodiscard]] Assets assetsToldBy(const AlbumInfo &album);

/// Sets the album name. With an album of another name the pictures go, where artwork may be
/// overwritten, and new ones are desired.
void fillAlbumName(AudioInfoTag &tag, const AlbumInfo &album, AssetLedger &ledger);

/// Sets year, lyrics, genre, track and title.
void fillFromAlbum(AudioInfoTag &tag, const AlbumInfo &album, Substrings allowSubstrings,
                   AssetLedger &ledger);

/// An instrumental's lyrics are desired no more; those that the tag holds stay.
void fillLyrics(AudioInfoTag &tag, const AlbumInfo &album, AssetLedger &ledger);
void fillYear(AudioInfoTag &tag, const QString &year, const QString &source, AssetLedger &ledger);
void fillGenres(AudioInfoTag &tag, const QString &genres, const QString &source,
                AssetLedger &ledger);

/// Adds the picture, in place of the others where artwork may be overwritten. False when the tag
/// does not take it.
bool fillArtwork(AudioInfoTag &tag, const AdjustedImage &picture, const QString &source,
                 AssetLedger &ledger);
