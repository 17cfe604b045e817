#include "app/regenerationrun.h"

#include "app/regeneration.h"
#include "app/songsummary.h"
#include "itunes/itunesinterface.h"

#include <QElapsedTimer>

#include <utility>

namespace {
constexpr qint64 timeOfATurn = 6; // milliseconds; a song in hand is finished
/// Of replaced tags that a run holds. Songs that come after cannot be undone.
constexpr qint64 mostHeldBytes = qint64(128) * 1024 * 1024;
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
        mResult = {};
        mResult.name = qtTrId("ChangeByRegenerating");
    }
    mOptions = options;
    mOptions.keptJournal = &*mKeptJournal;
    mOptions.replaced = &mReplaced;
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
        mReplaced.reset();
        const QString error = regenerate(*song);
        const bool isKept = keepReplaced(song);
        mWaiting.pop_front();
        mProgress.advance(1);
        Q_EMIT songDone(song, error, isKept);
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
    if (outcome.kind != InPlaceFile::Outcome::Kind::Written)
        mReplaced.reset(); // nothing was
    if (outcome.kind == InPlaceFile::Outcome::Kind::Failed)
        return outcome.error;
    song.adoptCurrentModificationDate();
    song.uncacheInfotag();
    adoptSummary(song, storeSummary(song, mCache));
    return song.activityStatus() == SongStatus::Problem ? qtTrId("ErrorStillDamaged") : QString();
}

/// Whether the song can be given back what it held.
bool RegenerationRun::keepReplaced(const std::shared_ptr<SongFile> &song)
{
    if (!mReplaced || mResult.heldBytes + mReplaced->bytes() > mostHeldBytes)
        return false;
    mResult.heldBytes += mReplaced->bytes();
    mResult.changed.push_back(
        {song, {}, {}, std::make_shared<const ReplacedBytes>(*std::move(mReplaced))});
    return true;
}

void RegenerationRun::finish()
{
    mWaiting.clear();
    mKeptJournal.reset();
    Q_EMIT finished(std::exchange(mResult, {}));
}
