#pragma once

#include "base/progress.h"
#include "songs/songfile.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <deque>

/// Follows the files of very many songs before a run, some at a time, so that no turn of the event
/// loop takes long.
class SongPreparation : public QObject {
    Q_OBJECT

public:
    /// So many are prepared at once, without anyone noticing.
    static constexpr int mostAtOnce = 100;

    SongPreparation();

    /// Whether more of them wait to be followed than are prepared at once.
    [[nodiscard]] static bool isWorthwhile(const SongList &songs);

    void add(const SongList &songs);
    /// Those that were not prepared yet are given up.
    void cancel();

    [[nodiscard]] bool isPreparing() const { return !mSongs.empty(); }
    /// Those that are still to be prepared.
    [[nodiscard]] const std::deque<std::shared_ptr<SongFile>> &songs() const { return mSongs; }
    /// Moves at most every 0.2 seconds.
    [[nodiscard]] Progress &progress() { return mProgress; }

Q_SIGNALS:
    void started();
    void prepared(const std::shared_ptr<SongFile> &song);
    void finished(bool cancelled);

private:
    void prepareSome();
    void showProgress();

    std::deque<std::shared_ptr<SongFile>> mSongs;
    QTimer mNextSlice;
    QElapsedTimer mSinceProgress;
    Progress mProgress;
    std::size_t mTotal = 0;
};
