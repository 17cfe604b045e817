#pragma once

#include "app/songreading.h"
#include "app/userlog.h"
#include "base/progress.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

/// Every song of the current source. A source is loaded in the background: its songs are added in
/// its order, some at a time, and no turn of the event loop takes long.
class LoadedSongs : public QObject {
    Q_OBJECT

public:
    enum class End { Complete, Cancelled };

    /// Both must outlive the list.
    LoadedSongs(SongFileInfoCache &cache, UserLog &log);
    /// A load under way is abandoned.
    ~LoadedSongs() override;

    /// Empties the list and loads the source instead of what was being loaded. Records of
    /// `reused`, as of songs that wait for their gathering, are taken for their paths.
    void load(SongSource source, const ReadOptions &options, const SongList &reused = {});
    /// Ends the load after the songs in hand; what was loaded stays. loadFinished() follows soon,
    /// also when a file system does not answer.
    void cancel();

    [[nodiscard]] bool isLoading() const { return mReading != nullptr; }
    [[nodiscard]] const SongSource &source() const { return mSource; }
    [[nodiscard]] const SongList &allSongs() const { return mAllSongs; }
    /// Those whose tag is damaged, of the last load.
    [[nodiscard]] const SongList &corruptSongs() const { return mCorruptSongs; }

    /// Entries of the source, of which not all become songs.
    [[nodiscard]] Progress &progress() { return mProgress; }
    /// Short playlists load without showing progress.
    [[nodiscard]] bool isWorthShowingProgress() const;

Q_SIGNALS:
    /// The songs are still there.
    void aboutToBeCleared();
    void cleared();
    /// The last `count` of allSongs() are new.
    void songsAdded(qsizetype count);
    /// Was logged as well. `subject` is a path, or the name of a source that cannot be read.
    void problemFound(const QString &subject, const QString &reason);
    /// Was logged as well: a file that the source names, and why it is not in the list.
    void songRefused(const QString &path, const QString &reason);
    void loadFinished(LoadedSongs::End end);

private:
    void deliver();
    void add(const ReadEntry &read);
    void addSong(const ReadEntry &read);
    [[nodiscard]] std::shared_ptr<SongFile> recordFor(const ReadEntry &read) const;
    void refuse(const ReadEntry &read, const QString &line, const QString &reason);
    void showProgress();
    void finish();
    void abandonReading();

    SongFileInfoCache &mCache;
    UserLog &mLog;
    SongSource mSource;
    SongList mAllSongs;
    SongList mCorruptSongs;
    QHash<QString, std::shared_ptr<SongFile>> mReused;
    std::shared_ptr<SongReading> mReading; ///< null when nothing is loaded
    Progress mProgress;
    QElapsedTimer mSinceProgress;
    QTimer mPatience; ///< with the threads of a cancelled load
    qsizetype mEntriesDone = 0;
    bool mIsCancelled = false;
};
