#pragma once

#include "app/songchange.h"
#include "app/songpreparation.h"
#include "app/songwriting.h"
#include "base/writejournal.h"
#include "gathering/songinfotask.h"

#include <QObject>
#include <QSet>
#include <QTimer>

#include <chrono>
#include <deque>
#include <functional>

/// What became of one song of a run.
struct SongOutcome {
    std::shared_ptr<SongFile> song;
    Assets changed;
    Assets missing; ///< still desired
    QMap<Asset, QString> sources; ///< class name of the source of each changed asset, or "library"
    bool written = false;
    bool failed = false; ///< could not be read or written; `error` says why
    std::optional<QString> error; ///< the task's message, or why it failed
    int undecidedCandidates = 0; ///< albums among which none was chosen
    ChoiceRecord choices;
    QList<UnaskedSource>
        unasked; ///< could not be asked about what is missing, in the order of the sources
    bool isInstrumental = false; ///< a source says so: lyrics are not missing
    /// What is there to review; null when nobody reviews, or nothing was looked for.
    std::shared_ptr<SongChange> change;
};

enum class WriteSongs {
    Yes,
    No, ///< what would change is told, and that is all
    AfterReview, ///< the user looks at it first
};

/// The main loop: gathers the songs given to it one after the other, writes back what changed,
/// and tells of each. It never has more than one task running.
class WorkList : public QObject {
    Q_OBJECT

public:
    /// All three must outlive the work list.
    WorkList(GatherContext &context, iTunesInterface &itunes, UserLog &log);
    ~WorkList() override;

    /// Where the summaries of songs are kept; without it, songs that are done hold no tag. Must
    /// outlive the work list.
    void setInfoCache(SongFileInfoCache *cache) { mWriting.setInfoCache(cache); }
    /// How the run's songs are written; others write theirs in the same way.
    [[nodiscard]] SongWriting &writing() { return mWriting; }
    /// Outcomes carry what there is to review; off when not set.
    void setKeepsChanges(bool keeps) { mKeepsChanges = keeps; }

    /// The song that a table shows in that row, null behind the last one.
    using VisibleSong = std::function<std::shared_ptr<SongFile>(int row)>;
    /// Songs that a table shows are gathered first, in its order. Without it songs are taken in
    /// the order given.
    void setVisibleSong(VisibleSong visibleSong) { mVisibleSong = std::move(visibleSong); }
    /// The table shows others, or in another order.
    void visibleSongsChanged() { mNextRow = 0; }

    /// Starts a run, or adds to the one under way; nothing is told before a later turn of the
    /// event loop. Very many songs are prepared first. Songs that are locked or have problems are
    /// told of as failed in their turn, songs that are pending or being processed are passed over.
    /// Of a run under way, the options count for what is still to come, and whether it writes stays
    /// as it is.
    void beginGathering(const SongList &songs, const GatheringOptions &options,
                        const WriteOptions &writeOptions, WriteSongs write = WriteSongs::Yes);
    /// For the songs that are still to come.
    void setOptions(const GatheringOptions &options) { mOptions = options; }
    /// A paused run ends the song in hand and waits; one that begins waits at once.
    void setPaused(bool isPaused);
    /// Cancels the run. The song in hand is left as it is and not told of. A task that does not
    /// end is given up on.
    void stopGathering();
    /// How long a cancelled task has to end; 4 seconds when not set.
    void setCancelTimeout(std::chrono::milliseconds timeout)
    {
        mCancelTimeout.setInterval(timeout);
    }

    /// Follows the files of very many songs; cancelling it empties the work list of a new run.
    [[nodiscard]] SongPreparation &preparation() { return mPreparation; }

    /// The song in hand and those to come: another list takes these records for their paths.
    [[nodiscard]] SongList songs() const;

    [[nodiscard]] bool isRunning() const { return mIsRunning; }
    /// Songs of this run, or the last one, that were told of.
    [[nodiscard]] int songsProcessed() const { return mSongsProcessed; }
    /// Those whose tag changed, written or not.
    [[nodiscard]] int songsModified() const { return mSongsModified; }
    /// The same since the program started.
    [[nodiscard]] int totalSongsModified() const { return mTotalSongsModified; }
    [[nodiscard]] int songsRemaining() const
    {
        return static_cast<int>(mWaiting.size()) + static_cast<int>(mPreparation.songs().size());
    }
    /// "%@ - %@" of the song in hand, with what remains; empty without one.
    [[nodiscard]] QString statusLine() const;
    /// Of the whole run.
    [[nodiscard]] Progress &overallProgress() { return mOverallProgress; }
    /// Of the song in hand.
    [[nodiscard]] Progress &songProgress() { return mSongProgress; }

Q_SIGNALS:
    void runStarted();
    void statusLineChanged();
    void songStarted(const std::shared_ptr<SongFile> &song);
    void songFinished(const SongOutcome &outcome);
    /// A song of a compilation is done, and something that sources might have had is missing:
    /// the artist of such a song may be only one of many.
    void compilationLacksAssets(const QString &title, const QString &artist);
    /// The run ended. `cancelled`: by stopGathering().
    void runFinished(bool cancelled);

private:
    void append(const SongList &songs);
    void appendSong(const std::shared_ptr<SongFile> &song);
    void songsPrepared(bool cancelled);
    void startLoop();
    [[nodiscard]] std::shared_ptr<SongFile> takeNextSong();
    void processNextSongOnWorkList();
    void processSong(const std::shared_ptr<SongFile> &song);
    [[nodiscard]] std::optional<QString> reasonNotToGather(SongFile &song);
    void makeTask(const std::shared_ptr<SongFile> &song);
    void startTask();
    void showSongProgress();
    void resetSongProgress();
    void finishTask();
    [[nodiscard]] std::shared_ptr<SongChange> changeOf(const SongInfoTask &task);
    void logGathered(const SongOutcome &outcome, const AudioInfoTag &tag);
    void warnAboutCompilation(const SongOutcome &outcome, const AudioInfoTag &tag);
    void writeSong(SongOutcome &outcome);
    void abandonTask();
    void forgetTag(const SongOutcome &outcome);
    void tell(const SongOutcome &outcome);
    void endRun();
    void giveUpOnTask();

    GatherContext &mContext;
    UserLog &mLog;
    SongWriting mWriting;
    SongPreparation mPreparation;
    VisibleSong mVisibleSong;
    std::deque<std::shared_ptr<SongFile>>
        mSongWorkList; ///< also those that were taken by their row
    QSet<const SongFile *> mWaiting; ///< those of them that are still to come
    int mNextRow = 0; ///< in the rows before it nothing waits
    std::unique_ptr<SongInfoTask> mCurrentInfoTask;
    GatheringOptions mOptions;
    WriteOptions mWriteOptions;
    std::optional<KeptJournal> mKeptJournal; ///< while songs are worked on
    WriteSongs mWrite = WriteSongs::Yes;
    SongValues mBefore; ///< of the song in hand, when changes are kept
    Progress mOverallProgress;
    Progress mSongProgress;
    Assets mAllSourceAssetsAvailable;
    QTimer mNextStep; ///< the loop's next step, on a later turn
    QTimer mCancelTimeout;
    int mSongsProcessed = 0;
    int mSongsModified = 0;
    int mTotalSongsModified = 0;
    bool mKeepsChanges = false;
    bool mIsPaused = false;
    bool mIsRunning = false;
    bool mIsCancelled = false;
};
