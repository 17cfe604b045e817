#pragma once

#include "app/reviewedsong.h"

// How another album than the one that was chosen is applied to a song under review.

/// Brings the song's tag, read from the file, to where the album is applied to it: as it was when
/// it was gathered, with what does not depend on the album. Why that cannot be done, or nothing;
/// with a reason the tag is to be dropped.
[[nodiscard]] std::optional<QString> prepareForAlbum(const ReviewedSong &song);

/// The task that applies the album to the tag in hand.
[[nodiscard]] std::unique_ptr<SongInfoTask>
taskForAlbum(const ReviewedSong &song, const AlbumInfo &album, GatherContext &context);

/// What a finished task made of the song.
void adoptAlbum(ReviewedSong &song, const SongInfoTask &task);
