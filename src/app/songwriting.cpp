#include "app/songwriting.h"

#include "app/songsummary.h"
#include "gathering/librarylending.h"
#include "itunes/itunesinterface.h"
#include "songs/songfileinfocache.h"

SongWriting::SongWriting(LibraryLending &library, iTunesInterface &itunes, UserLog &log)
    : mLibrary(library)
    , mItunes(itunes)
    , mLog(log)
{
}

InPlaceFile::Outcome SongWriting::write(SongFile &song, const WriteOptions &options)
{
    auto outcome = song.writeToOriginalPath(options, &mItunes);
    if (outcome.kind != InPlaceFile::Outcome::Kind::Failed)
        return outcome;
    const AudioInfoTag *tag = song.infotag();
    const QString title = tag ? tag->title().value_or(QString()) : song.filename();
    const QString artist = tag ? tag->artist().value_or(QString()) : QString();
    mLog.addLog(qtTrId("ErrorCannotModify").arg(title, artist, outcome.error), LogColor::Error);
    return outcome;
}

std::optional<SongValues> SongWriting::valuesInFile(SongFile &song)
{
    song.uncacheInfotag();
    const AudioInfoTag *tag = song.infotag();
    return tag ? std::optional(valuesOf(*tag)) : std::nullopt;
}

/// A list of any size fits in memory, and other songs borrow from what the file holds: of a song
/// that was not written that is its old tag.
void SongWriting::forgetTag(const std::shared_ptr<SongFile> &song, Tag tag, bool isOther)
{
    if (tag == Tag::Dropped)
        song->uncacheInfotag();
    if (isOther)
        mLibrary.songChanged(song);
    if (tag == Tag::Written && mInfoCache)
        storeSummary(*song, mInfoCache);
    song->uncacheInfotag();
    if (mInfoCache)
        adoptSummary(*song,
                     mInfoCache->infoForSongFileAtPath(song->path(), song->readOptions().dialect));
}
