#include "app/regenerationrun.h"

#include "app/regeneration.h"
#include "app/songsummary.h"
#include "itunes/itunesinterface.h"

#include <QElapsedTimer>

namespace {
constexpr qint64 timeOfATurn = 6; // milliseconds; a song in hand is finished
} // namespace

RegenerationRun::RegenerationRun(iTunesInterface &itunes, SongFileInfoCache *cache)
    : mItunes(itunes)
    , mCache(cache)
{
    mNextTurn.setSingleShot(true);
    connect(&mNextTurn, &QTimer::timeout, this, &RegenerationRun::takeTurn);
}

RegenerationRun::~RegenerationRun() = default;

void RegenerationRun::add(const SongList &songs, const WriteOptions &options)
{
    if (songs.empty())
        return;
    if (!isRunning()) {
        mKeptJournal.emplace();
        mProgress.setMaximum(0);
        mProgress.setValue(0);
        mNextTurn.start();
    }
    mOptions = options;
    mOptions.keptJournal = &*mKeptJournal;
    mWaiting.insert(mWaiting.end(), songs.begin(), songs.end());
    mProgress.setMaximum(mProgress.maximum() + static_cast<double>(songs.size()));
}

void RegenerationRun::cancel()
{
    mNextTurn.stop();
    if (isRunning())
        finish();
}

void RegenerationRun::takeTurn()
{
    QElapsedTimer time;
    time.start();
    while (isRunning() && time.elapsed() < timeOfATurn) {
        const std::shared_ptr<SongFile> song = mWaiting.front();
        const QString error = regenerate(*song);
        mWaiting.pop_front();
        mProgress.advance(1);
        Q_EMIT songDone(song, error);
    }
    if (isRunning())
        mNextTurn.start();
    else
        finish();
}

/// Why it could not be done; empty when it was.
QString RegenerationRun::regenerate(SongFile &song)
{
    const SongStatus status = song.activityStatus();
    if (status == SongStatus::Pending || status == SongStatus::Processing)
        return qtTrId("ErrorSongBeingGathered");
    song.updatePathFromAlias();
    const auto sound =
        SongFile::songWithPath(song.path(), Regeneration::readOptions(song.readOptions()));
    if (!sound)
        return qtTrId("ErrorSongVanished");
    if (sound->activityStatus() == SongStatus::Locked)
        return qtTrId("ErrorSongLocked");
    if (!sound->infotag())
        return sound->reasonOfNoTag();
    const auto outcome = Regeneration::regenerate(*sound, mOptions, mItunes);
    if (outcome.kind == InPlaceFile::Outcome::Kind::Failed)
        return outcome.error;
    song.adoptCurrentModificationDate();
    song.uncacheInfotag();
    adoptSummary(song, storeSummary(song, mCache));
    return song.activityStatus() == SongStatus::Problem ? qtTrId("ErrorStillDamaged") : QString();
}

void RegenerationRun::finish()
{
    mWaiting.clear();
    mKeptJournal.reset();
    Q_EMIT finished();
}
