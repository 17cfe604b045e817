#include "app/songwriting.h"

#include "gathering/librarylending.h"
#include "itunes/itunesinterface.h"
#include "songs/cachedinfotag.h"
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

SongValues SongWriting::valuesInFile(SongFile &song)
{
    song.uncacheInfotag();
    const AudioInfoTag *tag = song.infotag();
    return tag ? valuesOf(*tag) : SongValues();
}

/// A list of any size fits in memory, and other songs borrow from what the file holds: of a song
/// that was not written that is its old tag.
void SongWriting::forgetTag(const std::shared_ptr<SongFile> &song, Tag tag, bool isOther)
{
    if (tag == Tag::Dropped)
        song->uncacheInfotag();
    if (isOther)
        mLibrary.songChanged(song);
    if (tag == Tag::Written)
        storeSummary(*song);
    song->uncacheInfotag();
    adoptSummary(*song);
}

/// The tag in hand is what the file holds now.
void SongWriting::storeSummary(SongFile &song)
{
    const AudioInfoTag *tag = mInfoCache ? song.infotag() : nullptr;
    if (!tag)
        return;
    const ID3Dialect &dialect = song.readOptions().dialect;
    if (const auto info = CachedInfoTag::infoDictForTag(*tag, song.path(), dialect))
        mInfoCache->storeInfo(*info, song.path());
}

/// The list shows the song by its summary. One that could not be written stays a problem.
void SongWriting::adoptSummary(SongFile &song)
{
    if (!mInfoCache)
        return;
    const ID3Dialect &dialect = song.readOptions().dialect;
    const SongStatus status = song.activityStatus();
    song.adoptInfotag(tagWithCachedInfo(mInfoCache->infoForSongFileAtPath(song.path(), dialect)));
    song.setActivityStatus(status);
}
