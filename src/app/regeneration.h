#pragma once

#include "songs/songfile.h"

#include <QStringList>

class iTunesInterface;

/// Writes songs anew with what is sound and recognised in their tags.
namespace Regeneration {

/// How a tag is read of which only that is to be kept.
[[nodiscard]] ReadOptions readOptions(ReadOptions options);

/// Writes the tag, which was read like that, into the song's file, also where the song has
/// problems.
[[nodiscard]] InPlaceFile::Outcome regenerate(SongFile &song, const WriteOptions &options,
                                              iTunesInterface &itunes);

/// What regenerating would make of a song.
struct Plan {
    QString problem; ///< what is wrong, one line for the user; empty for a sound tag
    QStringList kept; ///< names of the fields that stay
    int pictures = 0; ///< that stay
    QStringList dropped; ///< IDs of the frames that go
    QString reason; ///< why the song cannot be regenerated; then the rest says nothing
};

/// Reads the song; used on any thread. The options are those of the song itself.
[[nodiscard]] Plan planOf(const QString &path, const ReadOptions &options);

} // namespace Regeneration
