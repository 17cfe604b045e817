#include "app/songlist.h"

#include "base/nextturn.h"
#include "songs/cachedinfotag.h"

#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {
/// Of one turn of the event loop. With what else happens in a turn it stays below 10 ms.
constexpr qint64 deliveryTime = 4; // milliseconds
constexpr qint64 betweenProgressUpdates = 250; // milliseconds
/// Threads that take longer to end hang in a file system that does not answer.
constexpr auto patienceWithThreads = 200ms;
constexpr qsizetype shortPlaylist = 20; // tracks
} // namespace

LoadedSongs::LoadedSongs(SongFileInfoCache &cache, UserLog &log)
    : mCache(cache)
    , mLog(log)
{
    mPatience.setSingleShot(true);
    mPatience.setInterval(patienceWithThreads);
    connect(&mPatience, &QTimer::timeout, this, &LoadedSongs::deliver);
}

LoadedSongs::~LoadedSongs()
{
    if (const auto reading = mReading) {
        abandonReading();
        reading->waitForThreads(patienceWithThreads);
    }
}

void LoadedSongs::load(SongSource source, const ReadOptions &options, const SongList &reused)
{
    abandonReading();
    Q_EMIT aboutToBeCleared();
    mSource = std::move(source);
    SongList discarded = std::exchange(mAllSongs, {});
    mCorruptSongs.clear();
    mReused.clear();
    for (const auto &song : reused)
        mReused.insert(song->path(), song);
    mEntriesDone = 0;
    mIsCancelled = false;
    Q_EMIT cleared();
    mProgress.setIndeterminate(true);
    mProgress.setValue(0);
    mSinceProgress.start();
    mReading = SongReading::start(
        mSource, options, mCache,
        [this] { QMetaObject::invokeMethod(this, &LoadedSongs::deliver, Qt::QueuedConnection); },
        std::move(discarded));
}

void LoadedSongs::cancel()
{
    if (!mReading || std::exchange(mIsCancelled, true))
        return;
    mReading->cancel();
    mPatience.start();
}

bool LoadedSongs::isWorthShowingProgress() const
{
    return mSource.kind != SourceKind::Playlist
        || (mReading && mReading->count().entries > shortPlaylist);
}

/// Adds what has been read, for a while, on a turn of its own. Of a cancelled load nothing is taken
/// before its threads have ended, since each may still finish the songs in hand.
void LoadedSongs::deliver()
{
    if (!mReading || (mIsCancelled && mPatience.isActive() && !mReading->isOver()))
        return;
    QElapsedTimer time;
    time.start();
    const auto before = mAllSongs.size();
    bool isAllTaken = false;
    while (!isAllTaken && time.elapsed() < deliveryTime) {
        const auto entries = mReading->takeNext();
        isAllTaken = !entries;
        for (const ReadEntry &read : entries.value_or(ReadEntries()))
            add(read);
    }
    const bool isOver = mReading->isOver(); // asked before the problems: those of its end count
    for (const auto &[subject, reason] : mReading->takeProblems()) {
        mLog.addLog(QStringLiteral("%1: %2").arg(subject, reason), LogColor::Error);
        Q_EMIT problemFound(subject, reason);
    }
    if (mAllSongs.size() > before)
        Q_EMIT songsAdded(static_cast<qsizetype>(mAllSongs.size() - before));
    showProgress();
    if (!isAllTaken)
        onNextTurn(this, [this] { deliver(); });
    else if (mIsCancelled || isOver)
        finish();
}

void LoadedSongs::add(const ReadEntry &read)
{
    ++mEntriesDone;
    switch (read.result) {
    case ReadEntry::Result::NoSong:
        break;
    case ReadEntry::Result::NoRecord:
        // A folder's or library's small and missing files are passed over: they are no songs.
        if (mSource.kind == SourceKind::Playlist || read.entry.proof == SongProof::None)
            refuse(read, qtTrId("NoInitializeSong"), qtTrId("ErrorNoSong"));
        break;
    case ReadEntry::Result::NoTag:
        if (mSource.unreadable == UnreadableSongs::Keep)
            addSong(read);
        else
            refuse(read, qtTrId("NoInitializeTag"), read.song->reasonOfNoTag());
        break;
    case ReadEntry::Result::Song:
        addSong(read);
        break;
    }
}

void LoadedSongs::addSong(const ReadEntry &read)
{
    if (read.isNewInfo)
        mCache.storeInfo(*read.info, read.song->path());
    const auto song = recordFor(read);
    if (mSource.kind != SourceKind::Folder)
        song->setiTunesDBID(read.entry.databaseID);
    if (mSource.kind == SourceKind::Playlist)
        song->setPlayList(mSource.name, read.entry.playlistIndex);
    mAllSongs.push_back(song);
    if (read.isCorrupt)
        mCorruptSongs.push_back(song);
}

/// The reused record, which takes the tag that was read, unless it is being gathered just now.
std::shared_ptr<SongFile> LoadedSongs::recordFor(const ReadEntry &read) const
{
    const auto reused = mReused.constFind(read.song->path());
    if (reused == mReused.cend())
        return read.song;
    const auto &song = *reused;
    if (read.info && song->activityStatus() != SongStatus::Processing) {
        const bool isPending = song->activityStatus() == SongStatus::Pending;
        song->adoptInfotag(tagWithCachedInfo(read.info));
        song->setActivityStatus(isPending ? SongStatus::Pending : read.song->activityStatus());
    }
    return song;
}

void LoadedSongs::refuse(const ReadEntry &read, const QString &line, const QString &reason)
{
    mLog.addLog(QStringLiteral("%1 %2").arg(line, read.entry.path), LogColor::Error);
    Q_EMIT songRefused(read.entry.path, reason);
}

void LoadedSongs::showProgress()
{
    const auto count = mReading->count();
    const bool isLast = count.isFinal && mEntriesDone == count.entries;
    if (!isLast && !mSinceProgress.hasExpired(betweenProgressUpdates))
        return;
    mSinceProgress.start();
    mProgress.setMaximum(static_cast<double>(count.entries));
    mProgress.setIndeterminate(!count.isFinal);
    mProgress.setValue(static_cast<double>(mEntriesDone));
}

void LoadedSongs::finish()
{
    abandonReading();
    mReused.clear();
    Q_EMIT loadFinished(mIsCancelled ? End::Cancelled : End::Complete);
}

void LoadedSongs::abandonReading()
{
    mPatience.stop();
    if (const auto reading = std::exchange(mReading, nullptr))
        reading->abandon();
}
