#include "app/worklist.h"

#include "app/tasksetup.h"
#include "base/log.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {
constexpr std::chrono::seconds patienceWithCancelledTask{4};

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

WorkList::WorkList(GatherContext &context, iTunesInterface &itunes, UserLog &log)
    : mContext(context)
    , mLog(log)
    , mWriting(context.library, itunes, log)
{
    mNextStep.setSingleShot(true);
    connect(&mNextStep, &QTimer::timeout, this, &WorkList::processNextSongOnWorkList);
    mCancelTimeout.setSingleShot(true);
    mCancelTimeout.setInterval(patienceWithCancelledTask);
    connect(&mCancelTimeout, &QTimer::timeout, this, &WorkList::giveUpOnTask);
    connect(&mPreparation, &SongPreparation::prepared, this, &WorkList::appendSong);
    connect(&mPreparation, &SongPreparation::finished, this, &WorkList::songsPrepared);
}

WorkList::~WorkList() = default;

void WorkList::setPaused(bool isPaused)
{
    const bool isInLoop = mIsRunning && mKeptJournal; // and not being prepared
    if (std::exchange(mIsPaused, isPaused) && !isPaused && isInLoop && !mCurrentInfoTask)
        mNextStep.start();
}

void WorkList::beginGathering(const SongList &songs, const GatheringOptions &options,
                              const WriteOptions &writeOptions, WriteSongs write)
{
    mOptions = options;
    mWriteOptions = writeOptions;
    const bool isAdding = std::exchange(mIsRunning, true);
    if (!isAdding) {
        mIsCancelled = false;
        mWrite = write;
        mSongsProcessed = 0;
        mSongsModified = 0;
        mContext.outages.clear();
    }
    append(songs);
    // Songs that are in the run already count again: the bar has always been raised by all rows
    // that were selected, and ends before it is full.
    if (isAdding)
        mOverallProgress.setMaximum(mOverallProgress.maximum() + static_cast<double>(songs.size()));
    else if (!mPreparation.isPreparing())
        startLoop();
    if (!isAdding)
        Q_EMIT runStarted();
    Q_EMIT statusLineChanged();
}

void WorkList::append(const SongList &songs)
{
    mNextRow = 0;
    if (mPreparation.isPreparing() || SongPreparation::isWorthwhile(songs))
        return mPreparation.add(songs);
    for (const auto &song : songs)
        appendSong(song);
}

void WorkList::appendSong(const std::shared_ptr<SongFile> &song)
{
    if (song->activityStatus() == SongStatus::Ready) {
        song->setAliasFromPath();
        song->setActivityStatus(SongStatus::Pending);
    } else if (song->canWriteToOriginalPath()) {
        return;
    }
    mSongWorkList.push_back(song);
    mWaiting.insert(song.get());
}

/// In a new run nothing was begun yet.
void WorkList::songsPrepared(bool cancelled)
{
    const bool isNew = !mKeptJournal;
    if (cancelled && isNew) {
        mWaiting.clear();
        for (const auto &song : std::exchange(mSongWorkList, {}))
            song->setDefaultActivityStatus();
    }
    if (isNew)
        startLoop();
    else if (!mCurrentInfoTask)
        mNextStep.start();
}

void WorkList::startLoop()
{
    mKeptJournal.emplace();
    mAllSourceAssetsAvailable =
        mContext.catalog.assetsPossibleFromSources(mContext.definitions.sourcelist());
    mOverallProgress.setMaximum(static_cast<double>(mWaiting.size()) + 1);
    mOverallProgress.setValue(1);
    mNextStep.start();
}

/// The first one that the table shows, and after those the first of the list. Of very many songs
/// that are sorted again and again no list is made each time.
std::shared_ptr<SongFile> WorkList::takeNextSong()
{
    while (const auto song = mVisibleSong ? mVisibleSong(mNextRow) : nullptr) {
        ++mNextRow;
        if (mWaiting.remove(song.get()))
            return song;
    }
    for (;;) {
        const auto song = mSongWorkList.front();
        mSongWorkList.pop_front();
        if (mWaiting.remove(song.get()))
            return song;
    }
}

void WorkList::stopGathering()
{
    if (!mIsRunning || std::exchange(mIsCancelled, true))
        return;
    mPreparation.cancel();
    if (!mCurrentInfoTask)
        return mNextStep.start(); // a paused run takes no step by itself
    mCancelTimeout.start();
    mCurrentInfoTask->cancel();
}

SongList WorkList::songs() const
{
    SongList songs;
    std::copy_if(mSongWorkList.begin(), mSongWorkList.end(), std::back_inserter(songs),
                 [this](const auto &song) { return mWaiting.contains(song.get()); });
    songs.insert(songs.end(), mPreparation.songs().begin(), mPreparation.songs().end());
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
    if (mWaiting.empty())
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
    if (mIsCancelled)
        return endRun();
    if (mIsPaused || (mWaiting.empty() && mPreparation.isPreparing()))
        return;
    if (mWaiting.empty())
        return endRun();
    processSong(takeNextSong());
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
    if ((mCurrentInfoTask->desiredAssetFlags() & mAllSourceAssetsAvailable)
        || mCurrentInfoTask->mayBeIdentified())
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
    setUpTask(task, mOptions);
}

void WorkList::startTask()
{
    const auto song = mCurrentInfoTask->song();
    song->rememberOriginalValuesForLaterRefresh();
    mBefore = mKeepsChanges ? valuesOf(*song->infotag()) : SongValues();
    song->setActivityStatus(SongStatus::Processing);
    song->setAliasFromPath();
    connect(&mCurrentInfoTask->progress(), &Progress::changed, this, &WorkList::showSongProgress);
    mCurrentInfoTask->gather();
    Q_EMIT songStarted(song);
    Q_EMIT statusLineChanged();
}

void WorkList::showSongProgress()
{
    if (!mCurrentInfoTask)
        return;
    const Progress &ofTask = mCurrentInfoTask->progress();
    mSongProgress.setIndeterminate(ofTask.isIndeterminate());
    mSongProgress.setMaximum(ofTask.maximum());
    mSongProgress.setValue(ofTask.value());
}

void WorkList::resetSongProgress()
{
    mSongProgress.setIndeterminate(false);
    mSongProgress.setMaximum(1);
    mSongProgress.setValue(0);
}

void WorkList::finishTask()
{
    const auto task = std::exchange(mCurrentInfoTask, nullptr);
    SongOutcome outcome = outcomeOf(*task);
    outcome.song->setDefaultActivityStatus();
    outcome.change = changeOf(*task);
    if (outcome.changed) {
        ++mSongsModified;
        ++mTotalSongsModified;
    }
    if (const AudioInfoTag *tag = outcome.song->infotag()) {
        logGathered(outcome, *tag);
        warnAboutCompilation(outcome, *tag);
    }
    writeSong(outcome);
    forgetTag(outcome);
    tell(outcome);
}

std::shared_ptr<SongChange> WorkList::changeOf(const SongInfoTask &task)
{
    const AudioInfoTag *tag = task.song()->infotag();
    if (!mKeepsChanges || !task.wasStarted() || !tag)
        return nullptr;
    return std::make_shared<SongChange>(
        SongChange{mBefore, valuesOf(*tag), mBefore, task.candidateAlbums(), mOptions});
}

void WorkList::logGathered(const SongOutcome &outcome, const AudioInfoTag &tag)
{
    const QString line =
        mWrite == WriteSongs::AfterReview ? qtTrId("LogFoundInfo") : qtTrId("LogSetInfo");
    if (outcome.changed)
        mLog.addLog(line.arg(summaryOfAssets(outcome.changed), titleOf(tag)), LogColor::Change);
    if (outcome.error)
        mLog.addLog(QStringLiteral("-- %1").arg(*outcome.error), LogColor::Error);
}

void WorkList::warnAboutCompilation(const SongOutcome &outcome, const AudioInfoTag &tag)
{
    if (tag.isPartOfCompilation() && (outcome.missing & mAllSourceAssetsAvailable))
        Q_EMIT compilationLacksAssets(titleOf(tag), artistOf(tag));
}

void WorkList::writeSong(SongOutcome &outcome)
{
    const AudioInfoTag *tag = outcome.song->infotag();
    if (mWrite != WriteSongs::Yes || !tag || !tag->tagHasBeenModified())
        return;
    WriteOptions options = mWriteOptions;
    options.keptJournal = &*mKeptJournal;
    const auto write = mWriting.write(*outcome.song, options);
    outcome.written = write.kind == InPlaceFile::Outcome::Kind::Written;
    if (outcome.written && outcome.change)
        outcome.change->inFile =
            mWriting.valuesInFile(*outcome.song).value_or(outcome.change->after);
    if (write.kind != InPlaceFile::Outcome::Kind::Failed)
        return;
    outcome.failed = true;
    outcome.error = write.error;
}

/// The song in hand stays as it is on disk: what the task put into its tag is dropped.
void WorkList::abandonTask()
{
    const auto task = std::exchange(mCurrentInfoTask, nullptr);
    task->song()->setDefaultActivityStatus();
    forgetTag(outcomeOf(*task));
}

void WorkList::forgetTag(const SongOutcome &outcome)
{
    mWriting.forgetTag(outcome.song,
                       outcome.written ? SongWriting::Tag::Written : SongWriting::Tag::Dropped,
                       bool(outcome.changed));
}

void WorkList::tell(const SongOutcome &outcome)
{
    ++mSongsProcessed;
    mOverallProgress.advance(1);
    Q_EMIT songFinished(outcome);
    Q_EMIT statusLineChanged();
}

void WorkList::endRun()
{
    mNextStep.stop();
    mCancelTimeout.stop();
    mWaiting.clear();
    for (const auto &song : std::exchange(mSongWorkList, {}))
        if (song->activityStatus() == SongStatus::Pending)
            song->setDefaultActivityStatus();
    mIsRunning = false;
    mKeptJournal.reset();
    mBefore = {};
    resetSongProgress();
    mOverallProgress.setValue(0);
    if (mIsCancelled)
        mLog.addLog(qtTrId("LogCancelled"), LogColor::Cancel);
    else
        mLog.addLog(qtTrId("LogFinished")
                        .arg(QString::number(mSongsProcessed), QString::number(mSongsModified)),
                    LogColor::Finished);
    Q_EMIT statusLineChanged();
    Q_EMIT runFinished(mIsCancelled);
}

void WorkList::giveUpOnTask()
{
    qCWarning(logApp, "Gave up [mCurrentInfoTask cancel]!");
    processNextSongOnWorkList();
}
