#include "app/reviewedsong.h"

namespace {

/// Of a list's element or a map's node beside its text.
constexpr qint64 overhead = 48; // bytes

qint64 bytesOf(const QString &text)
{
    return overhead + text.size() * qint64(sizeof(QChar));
}

qint64 bytesOf(const AlbumInfo &album)
{
    qint64 bytes = qint64(sizeof(AlbumInfo) + sizeof(AlbumCandidate));
    for (const QString &track : album.trackNames().value_or(QStringList()))
        bytes += bytesOf(track);
    for (const QString &lyrics : album.lyrics())
        bytes += bytesOf(lyrics);
    for (const auto &text : {album.name(), album.artist(), album.genre(), album.artURLString()})
        bytes += bytesOf(text.value_or(QString()));
    return bytes + album.trackLengths().size() * qint64(sizeof(qint64));
}

qint64 bytesOf(const SongValues &values)
{
    qint64 bytes = values.pictures.size() * qint64(sizeof(ID3Image));
    for (const QString &text : values.texts)
        bytes += bytesOf(text);
    return bytes;
}

} // namespace

std::optional<ReviewedSong> reviewedSong(const SongOutcome &outcome)
{
    if (!outcome.change)
        return {};
    ReviewedSong song;
    song.song = outcome.song;
    song.change = *outcome.change;
    song.changes = differences(song.change.before, song.change.after);
    if (!song.changes && song.change.albums.isEmpty())
        return {};
    song.accepted = song.changes;
    song.written = outcome.written ? song.changes : Assets();
    song.sources = outcome.sources;
    song.choices = outcome.choices;
    song.state = outcome.written ? ReviewState::Written : ReviewState::Open;
    song.problem = outcome.error.value_or(QString());
    return song;
}

void adoptFile(ReviewedSong &song, const SongValues &inFile)
{
    SongChange &change = song.change;
    const Assets other = differences(change.inFile, inFile);
    const bool isOurs = song.state == ReviewState::Writing && song.problem.isEmpty();
    const Assets awaited = isOurs ? song.fieldsToWrite() : Assets();
    // Files keep some values in a form of their own: what was written is what is found now.
    const Assets given = other & awaited & song.accepted;
    change.after = replaced(change.after, inFile, given);
    const Assets asAfter = other & ~differences(inFile, change.after);
    const Assets asBefore = other & ~asAfter & ~differences(inFile, change.before);
    // Neither of the two: it is the old value from now on.
    change.before = replaced(change.before, inFile, other & ~asAfter & ~asBefore);
    change.inFile = inFile;
    song.changes = differences(change.before, change.after);
    song.written = ((song.written | asAfter) & ~(other & ~asAfter)) & song.changes;
    song.stale &= ~other;
    if (!isOurs) // what the user did elsewhere is decided
        song.accepted = (song.accepted & ~other) | (song.written & other);
    song.accepted &= song.changes;
}

qint64 bytesOf(const ReviewedSong &song)
{
    qint64 bytes = qint64(sizeof(ReviewedSong)) + bytesOf(song.song->path());
    for (const SongValues *values : {&song.change.before, &song.change.after, &song.change.inFile})
        bytes += bytesOf(*values);
    for (const AlbumInfo &album : song.change.albums)
        bytes += bytesOf(album);
    return bytes;
}
