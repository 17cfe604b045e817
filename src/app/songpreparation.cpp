#include "app/songpreparation.h"

#include <algorithm>

namespace {
constexpr qint64 slice = 5; // milliseconds
constexpr qint64 progressInterval = 200; // milliseconds
} // namespace

SongPreparation::SongPreparation()
{
    mNextSlice.setSingleShot(true);
    connect(&mNextSlice, &QTimer::timeout, this, &SongPreparation::prepareSome);
}

bool SongPreparation::isWorthwhile(const SongList &songs)
{
    const auto unfollowed = std::count_if(songs.begin(), songs.end(),
                                          [](const auto &song) { return !song->hasAlias(); });
    return unfollowed > mostAtOnce;
}

void SongPreparation::add(const SongList &songs)
{
    const bool isFirst = mSongs.empty();
    mSongs.insert(mSongs.end(), songs.begin(), songs.end());
    mTotal += songs.size();
    mNextSlice.start();
    if (!isFirst)
        return;
    mSinceProgress.start();
    mProgress.setMaximum(static_cast<double>(mTotal));
    mProgress.setValue(0);
    Q_EMIT started();
}

void SongPreparation::cancel()
{
    if (!isPreparing())
        return;
    mNextSlice.stop();
    mSongs.clear();
    mTotal = 0;
    Q_EMIT finished(true);
}

void SongPreparation::prepareSome()
{
    QElapsedTimer time;
    time.start();
    while (!mSongs.empty() && time.elapsed() < slice) {
        const auto song = mSongs.front();
        mSongs.pop_front();
        song->setAliasFromPath();
        Q_EMIT prepared(song);
    }
    if (!mSongs.empty()) {
        mNextSlice.start();
        return showProgress();
    }
    mProgress.setValue(static_cast<double>(mTotal));
    mTotal = 0;
    Q_EMIT finished(false);
}

void SongPreparation::showProgress()
{
    if (mSinceProgress.elapsed() < progressInterval)
        return;
    mSinceProgress.start();
    mProgress.setMaximum(static_cast<double>(mTotal));
    mProgress.setValue(static_cast<double>(mTotal - mSongs.size()));
}
