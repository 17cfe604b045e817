#include "app/worklist.h"

#include "base/log.h"
#include "gathering/artworkcheck.h"
#include "gathering/librarylending.h"
#include "itunes/itunesinterface.h"
#include "songs/cachedinfotag.h"
#include "songs/songfileinfocache.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace {
constexpr std::chrono::seconds patienceWithCancelledTask{4};

/// In pixels; 0 without pictures.
int widestPicture(const AudioInfoTag &tag)
{
    int widest = 0;
    for (const ID3Image &image : tag.images())
        widest = std::max(widest, imageWidth(image.data));
    return widest;
}

QString titleOf(const AudioInfoTag &tag)
{
    return tag.title().value_or(QString());
}

QString artistOf(const AudioInfoTag &tag)
{
    return tag.artist().value_or(QString());
}

SongOutcome failureOf(const std::shared_ptr<SongFile> &song, const QString &reason)
{
    SongOutcome outcome;
    outcome.song = song;
    outcome.failed = true;
    outcome.error = reason;
    return outcome;
}

SongOutcome outcomeOf(const SongInfoTask &task)
{
    SongOutcome outcome;
    outcome.song = task.song();
    outcome.changed = task.changedAssetFlags();
    outcome.missing = task.desiredAssetFlags();
    outcome.sources = task.sourcesOfAssets();
    outcome.error = task.errorMessage();
    outcome.undecidedCandidates = task.undecidedCandidates();
    outcome.choices = task.choices();
    outcome.unasked = task.unaskedSources();
    outcome.isInstrumental = task.isInstrumental();
    return outcome;
}
} // namespace

Assets overwritableAssets(const GatheringOptions &options, int existingWidth)
{
    Assets assets = options.overwrite;
    if (existingWidth >= options.overwriteImageThreshold)
        assets.setFlag(AssetArtwork, false);
    return assets;
}

WorkList::WorkList(GatherContext &context, iTunesInterface &itunes, UserLog &log)
    : mContext(context)
    , mItunes(itunes)
    , mLog(log)
{
    mNextStep.setSingleShot(true);
    connect(&mNextStep, &QTimer::timeout, this, &WorkList::processNextSongOnWorkList);
    mCancelTimeout.setSingleShot(true);
    mCancelTimeout.setInterval(patienceWithCancelledTask);
    connect(&mCancelTimeout, &QTimer::timeout, this, &WorkList::giveUpOnTask);
}

WorkList::~WorkList() = default;

void WorkList::beginGathering(const SongList &songs, const GatheringOptions &options,
                              const WriteOptions &writeOptions, WriteSongs write)
{
    mOptions = options;
    mWriteOptions = writeOptions;
    append(songs);
    if (mIsRunning)
        return;
    mIsRunning = true;
    mKeptJournal.emplace();
    mIsCancelled = false;
    mWrite = write;
    mSongsProcessed = 0;
    mSongsModified = 0;
    mContext.outages.clear();
    mAllSourceAssetsAvailable =
        mContext.catalog.assetsPossibleFromSources(mContext.definitions.sourcelist());
    mNextStep.start();
}

/// The list stays in the order given, so that what is told follows it.
void WorkList::append(const SongList &songs)
{
    for (const auto &song : songs) {
        if (song->activityStatus() == SongStatus::Ready) {
            song->setAliasFromPath();
            song->setActivityStatus(SongStatus::Pending);
            mSongWorkList.push_back(song);
        } else if (!song->canWriteToOriginalPath()) {
            mSongWorkList.push_back(song);
        }
    }
}

void WorkList::stopGathering()
{
    if (!mIsRunning || std::exchange(mIsCancelled, true) || !mCurrentInfoTask)
        return;
    mCancelTimeout.start();
    mCurrentInfoTask->cancel();
}

SongList WorkList::songs() const
{
    SongList songs(mSongWorkList.begin(), mSongWorkList.end());
    if (mCurrentInfoTask)
        songs.push_back(mCurrentInfoTask->song());
    return songs;
}

QString WorkList::statusLine() const
{
    const AudioInfoTag *tag = mCurrentInfoTask ? mCurrentInfoTask->song()->infotag() : nullptr;
    if (!tag)
        return {};
    QString text = QStringLiteral("%1 - %2").arg(artistOf(*tag), titleOf(*tag));
    if (mSongWorkList.empty())
        return text;
    return qtTrId("NumberRemaining").arg(text, QString::number(songsRemaining()));
}

/// One step of the loop: what is in hand is finished, and the next song begun.
void WorkList::processNextSongOnWorkList()
{
    if (mCurrentInfoTask && mIsCancelled)
        abandonTask();
    else if (mCurrentInfoTask)
        finishTask();
    if (mIsCancelled || mSongWorkList.empty())
        return endRun();
    const auto song = mSongWorkList.front();
    mSongWorkList.pop_front();
    processSong(song);
}

void WorkList::processSong(const std::shared_ptr<SongFile> &song)
{
    if (const auto reason = reasonNotToGather(*song)) {
        mLog.addLog(QStringLiteral("-- %1: %2").arg(song->filename(), *reason), LogColor::Error);
        song->uncacheInfotag();
        tell(failureOf(song, *reason));
        return mNextStep.start();
    }
    makeTask(song);
    if (mCurrentInfoTask->desiredAssetFlags() & mAllSourceAssetsAvailable)
        startTask();
    else
        mNextStep.start(); // nothing can be found: finished, unchanged
}

/// Follows the song and looks at it afresh, before anything is decided by its tag.
std::optional<QString> WorkList::reasonNotToGather(SongFile &song)
{
    song.refresh();
    song.ensureInfotagIsReal();
    if (auto reason = song.reasonNotToWrite())
        return reason;
    if (!song.infotag())
        return song.reasonOfNoTag();
    return song.reasonNotToWrite(); // the tag may have turned out to be damaged
}

void WorkList::makeTask(const std::shared_ptr<SongFile> &song)
{
    mCurrentInfoTask = std::make_unique<SongInfoTask>(song, mContext);
    SongInfoTask &task = *mCurrentInfoTask;
    // On a turn of its own, so that no task is destroyed from inside its signal.
    connect(&task, &SongInfoTask::finished, &mNextStep, qOverload<>(&QTimer::start));
    task.setParallelMode(mOptions.parallelSearch);
    task.setIdentify(mOptions.identify);
    task.setMinimumAcceptableImageSize(static_cast<float>(mOptions.minimumImageSize));
    task.setMaximumImageSize(static_cast<float>(mOptions.maximumImageSize));
    task.setIgnoreNonSquareArt(mOptions.ignoreNonSquareArtwork);
    task.setAlbumSelectionMethod(mOptions.albumPickingMethod);
    task.setAllowSubstringTrackMatches(mOptions.allowSubstrings);
    task.setGatherFlags(mOptions.gather);
    const bool replacesArtwork = mOptions.overwrite.testFlag(AssetArtwork);
    const int existingWidth = replacesArtwork ? widestPicture(*song->infotag()) : 0;
    task.setOverwriteFlags(overwritableAssets(mOptions, existingWidth));
}

void WorkList::startTask()
{
    const auto song = mCurrentInfoTask->song();
    song->rememberOriginalValuesForLaterRefresh();
    song->setActivityStatus(SongStatus::Processing);
    song->setAliasFromPath();
    mCurrentInfoTask->gather();
    Q_EMIT songStarted(song);
}

void WorkList::finishTask()
{
    const auto task = std::exchange(mCurrentInfoTask, nullptr);
    SongOutcome outcome = outcomeOf(*task);
    outcome.song->setDefaultActivityStatus();
    if (outcome.changed)
        ++mSongsModified;
    if (const AudioInfoTag *tag = outcome.song->infotag())
        logGathered(outcome, *tag);
    writeSong(outcome);
    forgetTag(outcome);
    tell(outcome);
}

void WorkList::logGathered(const SongOutcome &outcome, const AudioInfoTag &tag)
{
    if (outcome.changed)
        mLog.addLog(qtTrId("LogSetInfo").arg(summaryOfAssets(outcome.changed), titleOf(tag)),
                    LogColor::Change);
    if (outcome.error)
        mLog.addLog(QStringLiteral("-- %1").arg(*outcome.error), LogColor::Error);
}

void WorkList::writeSong(SongOutcome &outcome)
{
    const AudioInfoTag *tag = outcome.song->infotag();
    if (mWrite == WriteSongs::No || !tag || !tag->tagHasBeenModified())
        return;
    WriteOptions options = mWriteOptions;
    options.keptJournal = &*mKeptJournal;
    const auto write = outcome.song->writeToOriginalPath(options, &mItunes);
    outcome.written = write.kind == InPlaceFile::Outcome::Kind::Written;
    if (write.kind != InPlaceFile::Outcome::Kind::Failed)
        return;
    outcome.failed = true;
    outcome.error = write.error;
    mLog.addLog(qtTrId("ErrorCannotModify").arg(titleOf(*tag), artistOf(*tag), write.error),
                LogColor::Error);
}

/// The song in hand stays as it is on disk: what the task put into its tag is dropped.
void WorkList::abandonTask()
{
    const auto task = std::exchange(mCurrentInfoTask, nullptr);
    task->song()->setDefaultActivityStatus();
    forgetTag(outcomeOf(*task));
}

/// A list of any size fits in memory, and other songs borrow from what the file holds: of a song
/// that was not written that is its old tag.
void WorkList::forgetTag(const SongOutcome &outcome)
{
    SongFile &song = *outcome.song;
    if (!outcome.written)
        song.uncacheInfotag();
    if (outcome.changed)
        mContext.library.songChanged(outcome.song);
    if (outcome.written)
        storeSummary(song);
    song.uncacheInfotag();
    adoptSummary(song);
}

/// The tag in hand is what the file holds now.
void WorkList::storeSummary(SongFile &song)
{
    const AudioInfoTag *tag = mInfoCache ? song.infotag() : nullptr;
    if (!tag)
        return;
    const ID3Dialect &dialect = song.readOptions().dialect;
    if (const auto info = CachedInfoTag::infoDictForTag(*tag, song.path(), dialect))
        mInfoCache->storeInfo(*info, song.path());
}

/// The list shows the song by its summary. One that could not be written stays a problem.
void WorkList::adoptSummary(SongFile &song)
{
    if (!mInfoCache)
        return;
    const ID3Dialect &dialect = song.readOptions().dialect;
    const SongStatus status = song.activityStatus();
    song.adoptInfotag(tagWithCachedInfo(mInfoCache->infoForSongFileAtPath(song.path(), dialect)));
    song.setActivityStatus(status);
}

void WorkList::tell(const SongOutcome &outcome)
{
    ++mSongsProcessed;
    Q_EMIT songFinished(outcome);
}

void WorkList::endRun()
{
    mNextStep.stop();
    mCancelTimeout.stop();
    for (const auto &song : std::exchange(mSongWorkList, {}))
        if (song->activityStatus() == SongStatus::Pending)
            song->setDefaultActivityStatus();
    mIsRunning = false;
    mKeptJournal.reset();
    if (mIsCancelled)
        mLog.addLog(qtTrId("LogCancelled"), LogColor::Cancel);
    else
        mLog.addLog(qtTrId("LogFinished")
                        .arg(QString::number(mSongsProcessed), QString::number(mSongsModified)),
                    LogColor::Finished);
    Q_EMIT runFinished(mIsCancelled);
}

void WorkList::giveUpOnTask()
{
    qCWarning(logApp, "Gave up [mCurrentInfoTask cancel]!");
    processNextSongOnWorkList();
}
