#include "app/albumtaking.h"

#include "app/tasksetup.h"
#include "gathering/acoustidlookup.h"
#include "text/simplifier.h"

namespace {

/// Of these one album says something else than another.
constexpr Assets ofAlbums = Assets(AssetAlbumName) | AssetYear | AssetTrack | AssetArtwork;

/// Lyrics are the song's on any album, and so is what it was known by.
Assets changesToKeep(const ReviewedSong &song)
{
    Assets kept = song.changes & AssetLyrics;
    for (const Asset asset : {AssetArtist, AssetSongTitle})
        if (song.sources.value(asset) == AcoustIDLookup::name)
            kept |= song.changes & asset;
    return kept;
}

/// The user took this album: where the tag names another one, what it says of that one goes.
Assets overwritten(const ReviewedSong &song, const AlbumInfo &album)
{
    const Assets overwrite = song.change.options.overwrite;
    const QString before = song.change.before.texts.value(AssetAlbumName);
    const bool isOther =
        !before.isEmpty() && album.name() && !HVUtility::isStringSimpleEqual(before, album.name());
    return isOther ? overwrite | (song.change.options.gather & ofAlbums) : overwrite;
}

} // namespace

std::optional<QString> prepareForAlbum(const ReviewedSong &song)
{
    SongFile &file = *song.song;
    if (file.activityStatus() == SongStatus::Pending
        || file.activityStatus() == SongStatus::Processing)
        return qtTrId("ErrorSongBeingGathered");
    file.refresh();
    file.uncacheInfotag();
    if (auto reason = file.reasonNotToWrite())
        return reason;
    AudioInfoTag *tag = file.infotag();
    if (!tag)
        return file.reasonOfNoTag();
    if (differences(valuesOf(*tag), song.change.inFile))
        return qtTrId("ErrorSongChangedMeanwhile");
    setValues(*tag, tagValues(song.change.before, song.written | song.stale));
    setValues(*tag, tagValues(song.change.after, changesToKeep(song)));
    return {};
}

std::unique_ptr<SongInfoTask> taskForAlbum(const ReviewedSong &song, const AlbumInfo &album,
                                           GatherContext &context)
{
    auto task = std::make_unique<SongInfoTask>(song.song, context);
    GatheringOptions options = song.change.options;
    options.overwrite = overwritten(song, album);
    setUpTask(*task, options);
    return task;
}

void adoptAlbum(ReviewedSong &song, const SongInfoTask &task)
{
    const Assets kept = changesToKeep(song);
    QMap<Asset, QString> sources = task.sourcesOfAssets();
    for (const AssetName &name : assetNames)
        if (kept.testFlag(name.asset) && !sources.contains(name.asset))
            sources[name.asset] = song.sources.value(name.asset);
    QMap<Asset, FieldReason> reasons = task.choices().fields;
    for (auto reason = song.choices.fields.cbegin(); reason != song.choices.fields.cend(); ++reason)
        if (kept.testFlag(reason.key()))
            reasons[reason.key()] = reason.value();
    static_cast<AlbumVerdict &>(song.choices) = task.choices();
    song.choices.fields = reasons;
    song.sources = sources;
    song.change.after = valuesOf(*song.song->infotag());
    song.changes = differences(song.change.before, song.change.after);
    song.accepted = song.changes;
    const Assets inFile = song.written | song.stale;
    song.written = inFile & song.changes & ~differences(song.change.inFile, song.change.after);
    song.stale = inFile & ~song.written;
    song.problem = task.errorMessage().value_or(QString());
}
