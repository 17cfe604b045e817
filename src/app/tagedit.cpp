#include "app/tagedit.h"

#include "app/songsummary.h"
#include "songs/playbackpause.h"

#include <QElapsedTimer>

#include <utility>

namespace {

constexpr qint64 timeOfATurn = 6; // milliseconds; a song in hand is finished

/// Before its file is looked at.
std::optional<QString> reasonNotToTouch(const SongFile &song)
{
    const SongStatus status = song.activityStatus();
    if (status == SongStatus::Pending || status == SongStatus::Processing)
        return qtTrId("ErrorSongBeingGathered");
    return std::nullopt;
}

/// Follows the song and reads its tag.
std::optional<QString> reasonNotToChange(SongFile &song)
{
    if (const auto reason = song.reasonNotToWrite())
        return reason;
    song.refresh();
    song.ensureInfotagIsReal();
    if (const auto reason = song.reasonNotToWrite())
        return reason;
    if (!song.infotag())
        return song.reasonOfNoTag();
    return song.reasonNotToWrite(); // the tag may have turned out to be damaged
}

} // namespace

TagChange TagChange::sameForAll(const QString &name, const SongList &songs, const TagValues &values)
{
    return {name, songs, [values](SongFile &, const AudioInfoTag &) { return values; }};
}

TagEditing::TagEditing(iTunesInterface &itunes, SongFileInfoCache *cache, UserLog &log)
    : mItunes(itunes)
    , mCache(cache)
    , mLog(log)
{
    mNextTurn.setSingleShot(true);
    connect(&mNextTurn, &QTimer::timeout, this, &TagEditing::takeTurn);
}

TagEditing::~TagEditing() = default;

void TagEditing::change(const TagChange &change, const WriteOptions &options, Then then)
{
    Job job;
    job.songs = change.songs;
    job.wanted = [songs = change.songs, newValues = change.newValues](std::size_t index,
                                                                      const AudioInfoTag &tag) {
        return Wanted{newValues(*songs[index], tag), std::nullopt};
    };
    job.options = options;
    job.then = std::move(then);
    job.result.name = change.name;
    begin(std::move(job));
}

void TagEditing::revert(const TagEditResult &result, const WriteOptions &options, Then then)
{
    Job job;
    for (const ChangedSong &changed : result.changed)
        job.songs.push_back(changed.song);
    job.wanted = [changed = result.changed](std::size_t index, const AudioInfoTag &) {
        const ChangedSong &song = changed[static_cast<qsizetype>(index)];
        return Wanted{song.before, song.now};
    };
    job.replaced = [changed = result.changed](std::size_t index) {
        return changed[static_cast<qsizetype>(index)].replaced;
    };
    job.options = options;
    job.then = std::move(then);
    job.result.name = result.name;
    begin(std::move(job));
}

void TagEditing::begin(Job job)
{
    mJobs.push_back(std::move(job));
    if (mJobs.size() > 1)
        return;
    mKeptJournal.emplace();
    mNextTurn.start();
    Q_EMIT busyChanged();
}

void TagEditing::cancel()
{
    if (!mJobs.empty())
        mJobs.front().result.isCancelled = true;
}

void TagEditing::takeTurn()
{
    QElapsedTimer time;
    time.start();
    Job &job = mJobs.front();
    while (job.done < job.songs.size() && !job.result.isCancelled && time.elapsed() < timeOfATurn)
        changeNextSong(job);
    mProgress.setMaximum(static_cast<double>(job.songs.size()));
    mProgress.setValue(static_cast<double>(job.done));
    if (job.done == job.songs.size() || job.result.isCancelled)
        finishJob();
    else
        mNextTurn.start();
}

void TagEditing::finishJob()
{
    const Job job = std::move(mJobs.front());
    mJobs.pop_front();
    if (mJobs.empty())
        mKeptJournal.reset();
    else
        mNextTurn.start();
    job.then(job.result);
    if (mJobs.empty())
        Q_EMIT busyChanged();
}

void TagEditing::changeNextSong(Job &job)
{
    const std::shared_ptr<SongFile> song = job.songs[job.done];
    song->clearPassingProblem();
    if (const auto reason = reasonNotToTouch(*song)) {
        refuse(job, song, *reason);
    } else {
        const auto failure = edit(job, song);
        if (failure) {
            refuse(job, song, *failure);
            song->uncacheInfotag(); // what was not written
        }
        showByFile(*song);
    }
    ++job.done;
    Q_EMIT songChanged(song);
}

/// Reading the tag again must not make a song that could not be written a sound one.
void TagEditing::showByFile(SongFile &song)
{
    const SongStatus status = song.activityStatus();
    const CachedInfoPointer summary = storeSummary(song, mCache);
    song.setActivityStatus(status);
    adoptSummary(song, summary);
}

/// Why it could not be done, or nothing.
std::optional<QString> TagEditing::edit(Job &job, const std::shared_ptr<SongFile> &song)
{
    if (const auto replaced = job.replaced ? job.replaced(job.done) : nullptr)
        return giveBack(job, song, *replaced);
    if (auto reason = reasonNotToChange(*song))
        return reason;
    AudioInfoTag &tag = *song->infotag();
    const Wanted wanted = job.wanted(job.done, tag);
    const TagValues before = valuesOf(tag, wanted.values);
    if (wanted.expected && !before.isSame(*wanted.expected))
        return qtTrId("ErrorSongChangedMeanwhile");
    song->rememberOriginalValuesForLaterRefresh();
    setValues(tag, wanted.values);
    return tag.tagHasBeenModified() ? write(job, song, wanted, before) : std::nullopt;
}

/// The tag is read again from what was written, since not every text can stand in every file: what
/// the list shows, and what a later revert() expects, is what the file holds.
std::optional<QString> TagEditing::write(Job &job, const std::shared_ptr<SongFile> &song,
                                         const Wanted &wanted, const TagValues &before)
{
    WriteOptions options = job.options;
    options.keptJournal = &*mKeptJournal;
    const auto outcome = song->writeToOriginalPath(options, &mItunes);
    if (outcome.kind == InPlaceFile::Outcome::Kind::Failed)
        return outcome.error;
    song->uncacheInfotag();
    const AudioInfoTag *tag = song->infotag();
    ChangedSong changed{song, before, tag ? valuesOf(*tag, wanted.values) : wanted.values};
    for (TagValues *values : {&changed.before, &changed.now})
        if (values->images)
            job.pictures.share(*values->images);
    job.result.changed.push_back(std::move(changed));
    job.result.heldBytes = job.pictures.bytes();
    return std::nullopt;
}

/// Also into a song that is damaged: it may become one again, or be regenerated once more.
std::optional<QString> TagEditing::giveBack(Job &job, const std::shared_ptr<SongFile> &song,
                                            const ReplacedBytes &replaced)
{
    song->refresh();
    if (song->activityStatus() == SongStatus::Locked)
        return song->reasonNotToWrite();
    const PlaybackPause pause(mItunes, song->path());
    auto undone = std::make_shared<ReplacedBytes>();
    const auto outcome =
        replaced.giveBack(song->path(), job.options.keepTime, &*mKeptJournal, *undone);
    if (outcome.kind == InPlaceFile::Outcome::Kind::Failed)
        return outcome.error;
    song->adoptCurrentModificationDate();
    song->uncacheInfotag();
    song->infotag(); // tells whether the song is damaged now
    job.result.heldBytes += undone->bytes();
    job.result.changed.push_back({song, {}, {}, std::move(undone)});
    return std::nullopt;
}

void TagEditing::refuse(Job &job, const std::shared_ptr<SongFile> &song, const QString &reason)
{
    const SongStatus status = song->activityStatus();
    const AudioInfoTag *tag = song->infotag();
    song->setActivityStatus(status); // reading may have changed it
    const QString title = tag ? tag->title().value_or(QString()) : song->filename();
    const QString artist = tag ? tag->artist().value_or(QString()) : QString();
    mLog.addLog(qtTrId("ErrorCannotModify").arg(title, artist, reason), LogColor::Error);
    job.result.refused.push_back({song, reason});
}
