#pragma once

#include "app/tagedit.h"
#include "base/progress.h"
#include "base/writejournal.h"
#include "songs/songfile.h"

#include <QTimer>

#include <deque>

class SongFileInfoCache;
class iTunesInterface;

/// Regenerates songs, some a turn of the event loop.
class RegenerationRun : public QObject {
    Q_OBJECT

public:
    /// All must outlive this; `cache` may be null.
    RegenerationRun(iTunesInterface &itunes, SongFileInfoCache *cache);
    ~RegenerationRun() override;

    /// Songs that come while others are in hand wait for their turn.
    void add(const SongList &songs, const WriteOptions &options);
    /// Ends the run after the song in hand.
    void cancel();

    [[nodiscard]] bool isRunning() const { return !mWaiting.empty(); }
    /// In songs.
    [[nodiscard]] Progress &progress() { return mProgress; }

Q_SIGNALS:
    /// `error` is empty when the song was written; then it is told whether that can be undone.
    void songDone(const std::shared_ptr<SongFile> &song, const QString &error, bool canBeUndone);
    /// With what can be undone.
    void finished(const TagEditResult &result);

private:
    void takeTurn();
    [[nodiscard]] QString regenerate(SongFile &song);
    bool keepReplaced(const std::shared_ptr<SongFile> &song);
    void finish();

    iTunesInterface &mItunes;
    SongFileInfoCache *mCache;
    std::deque<std::shared_ptr<SongFile>> mWaiting;
    WriteOptions mOptions;
    std::optional<ReplacedBytes> mReplaced; ///< by the song in hand
    TagEditResult mResult;
    std::optional<KeptJournal> mKeptJournal; ///< while songs are written
    Progress mProgress;
    QTimer mNextTurn;
};
