#include "app/droplist.h"

#include "base/nextturn.h"
#include "gathering/librarylending.h"
#include "tags/filetype.h"

#include <utility>

using namespace std::chrono_literals;

namespace {
constexpr auto beforeFirstSong = 200ms;
constexpr auto afterNoSong = 100ms;
/// While the list is done and a folder is still looked through.
constexpr auto beforeNextLook = 100ms;

/// Of every kind there is, also those that no source supplies.
constexpr Assets everyAsset = AssetArtwork | AssetAlbumName | AssetArtist | AssetYear
    | AssetSongTitle | AssetTrack | AssetGenre | AssetBPM | AssetLyrics;

QString titleOf(const AudioInfoTag &tag)
{
    return tag.title().value_or(QString());
}
} // namespace

DropList::DropList(GatherContext &context, const PrefsController &prefs, iTunesInterface &itunes,
                   UserLog &log)
    : mContext(context)
    , mPrefs(prefs)
    , mItunes(itunes)
    , mLog(log)
{
    mNextStep.setSingleShot(true);
    connect(&mNextStep, &QTimer::timeout, this, &DropList::processNextInDropList);
}

DropList::~DropList()
{
    for (const Search &search : mSearches)
        search.songs->abandon();
}

void DropList::openFile(const QString &path, Answer answer)
{
    const auto search = mSearches.insert(mSearches.end(), {nullptr, std::move(answer), false});
    search->songs = SongSearch::start(
        path, *this,
        {.found =
             [this, search](const QStringList &paths) {
                 for (const QString &song : paths)
                     search->isAnyTaken |= addToDropList(song);
             },
         .problem =
             [this](const QString &name, const QString &reason) {
                 mLog.addLog(QStringLiteral("%1: %2").arg(name, reason), LogColor::Error);
             },
         .ended = [this, search] { endSearch(search); }});
}

void DropList::endSearch(Searches::iterator search)
{
    const Search ended = std::move(*search);
    mSearches.erase(search);
    if (ended.answer)
        onNextTurn(this, [ended] { ended.answer(ended.isAnyTaken); });
}

/// Each has its answer all the same.
void DropList::abandonSearches()
{
    while (!mSearches.empty()) {
        mSearches.front().songs->abandon();
        endSearch(mSearches.begin());
    }
}

bool DropList::addToDropList(const QString &path)
{
    const bool claims = FileType::claimsToBeMP3(path) || FileType::claimsToBeAAC(path);
    if (!claims || mKnownPaths.contains(path))
        return false;
    mKnownPaths.insert(path);
    mDropList << path;
    if (mDropList.size() == 1)
        begin();
    return true;
}

void DropList::begin()
{
    mIsCancelled = false;
    mProgress.setValue(0);
    mFileLine = qtTrId("Scanning");
    mCountLine.clear();
    mAchievementLine.clear();
    Q_EMIT changed();
    mNextStep.start(beforeFirstSong);
}

void DropList::cancel()
{
    abandonSearches();
    if (!isActive() || std::exchange(mIsCancelled, true))
        return;
    if (mCurrentDropTask)
        mCurrentDropTask->cancel();
    else
        mNextStep.start(0ms);
}

/// One step: what is in hand is finished, and the next song begun.
void DropList::processNextInDropList()
{
    if (mCurrentDropTask)
        finishTask();
    const bool isDone = mNext == mDropList.size();
    if (mIsCancelled || (isDone && mSearches.empty()))
        return end();
    if (isDone)
        return mNextStep.start(beforeNextLook);
    showPosition();
    processSong(mDropList.at(mNext++));
}

void DropList::finishTask()
{
    const auto task = std::exchange(mCurrentDropTask, nullptr);
    SongFile &song = *task->song();
    song.setDefaultActivityStatus();
    if (const AudioInfoTag *tag = song.infotag(); tag && !task->wasCancelled()) {
        logAchievement(*tag, task->changedAssetFlags());
        if (tag->tagHasBeenModified())
            writeSong(song);
    }
    song.uncacheInfotag();
    mContext.library.songChanged(task->song());
    Q_EMIT songChanged(task->song());
}

void DropList::logAchievement(const AudioInfoTag &tag, Assets assets)
{
    mAchievementLine =
        assets ? qtTrId("LogSetInfo").arg(summaryOfAssets(assets), titleOf(tag)) : QString();
    if (assets)
        mLog.addLog(mAchievementLine, LogColor::Change);
    Q_EMIT changed();
}

void DropList::writeSong(SongFile &song)
{
    const AudioInfoTag &tag = *song.infotag();
    const auto write = song.writeToOriginalPath(mPrefs.writeOptions(), &mItunes);
    if (write.kind == InPlaceFile::Outcome::Kind::Failed)
        mLog.addLog(qtTrId("ErrorCannotModify")
                        .arg(titleOf(tag), tag.artist().value_or(QString()), write.error),
                    LogColor::Error);
}

void DropList::showPosition()
{
    const QString &path = mDropList.at(mNext);
    mProgress.setMaximum(static_cast<double>(mDropList.size()));
    mProgress.setValue(static_cast<double>(mNext));
    mFileLine = path.sliced(path.lastIndexOf(u'/') + 1);
    mCountLine =
        qtTrId("SearchSubset").arg(QString::number(mNext + 1), QString::number(mDropList.size()));
    Q_EMIT changed();
}

void DropList::processSong(const QString &path)
{
    const auto song = SongFile::songWithPath(path, mPrefs.readOptions());
    if (!song)
        return mNextStep.start(afterNoSong);
    song->setAliasFromPath();
    const bool hasTag = song->infotag();
    if (const auto reason = song->reasonNotToWrite(); reason || !hasTag) {
        mLog.addLog(QStringLiteral("-- %1: %2")
                        .arg(song->filename(), reason.value_or(song->reasonOfNoTag())),
                    LogColor::Error);
        return mNextStep.start(0ms);
    }
    startTask(song);
}

/// Albums are picked by the first method, which picks none where there are several.
void DropList::startTask(const std::shared_ptr<SongFile> &song)
{
    mContext.library.addSong(song);
    auto task = std::make_unique<SongInfoTask>(song, mContext);
    const GatheringOptions options = mPrefs.gatheringOptions();
    task->setMinimumAcceptableImageSize(static_cast<float>(options.minimumImageSize));
    task->setMaximumImageSize(static_cast<float>(options.maximumImageSize));
    task->setIgnoreNonSquareArt(options.ignoreNonSquareArtwork);
    task->setGatherFlags(everyAsset);
    task->setOverwriteFlags({});
    if (!task->desiredAssetFlags())
        return mNextStep.start(0ms);
    song->refresh();
    song->rememberOriginalValuesForLaterRefresh();
    task->setAlbumSelectionMethod(AlbumPick::None);
    task->setAllowSubstringTrackMatches(Substrings::Refuse);
    // On a turn of its own, so that no task is destroyed from inside its signal.
    connect(task.get(), &SongInfoTask::finished, &mNextStep, [this] { mNextStep.start(0ms); });
    mCurrentDropTask = std::move(task);
    mCurrentDropTask->gather();
}

void DropList::end()
{
    mNextStep.stop();
    mDropList.clear();
    mKnownPaths.clear();
    mNext = 0;
    Q_EMIT finished();
}
