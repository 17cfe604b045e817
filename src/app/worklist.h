#pragma once

#include "app/prefscontroller.h"
#include "app/userlog.h"
#include "base/writejournal.h"
#include "gathering/songinfotask.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <deque>
#include <memory>
#include <optional>

class SongFileInfoCache;
class iTunesInterface;

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
};

enum class WriteSongs { Yes, No };

/// What may be overwritten in a song whose widest picture is so many pixels wide (0 without
/// any): wider artwork than the threshold stays.
[[nodiscard]] Assets overwritableAssets(const GatheringOptions &options, int existingWidth);

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
    void setInfoCache(SongFileInfoCache *cache) { mInfoCache = cache; }

    /// Starts a run, or adds to the one under way; nothing is told before a later turn of the
    /// event loop. Songs that are locked or have problems are told of as failed in their turn,
    /// songs that are pending or being processed are passed over. Of a run under way, the
    /// options count for what is still to come, and whether it writes stays as it is.
    void beginGathering(const SongList &songs, const GatheringOptions &options,
                        const WriteOptions &writeOptions, WriteSongs write = WriteSongs::Yes);
    /// Cancels the run. The song in hand is left as it is and not told of. A task that does not
    /// end is given up on.
    void stopGathering();
    /// How long a cancelled task has to end; 4 seconds when not set.
    void setCancelTimeout(std::chrono::milliseconds timeout)
    {
        mCancelTimeout.setInterval(timeout);
    }

    /// The song in hand and those to come: another list takes these records for their paths.
    [[nodiscard]] SongList songs() const;

    [[nodiscard]] bool isRunning() const { return mIsRunning; }
    /// Songs of this run, or the last one, that were told of.
    [[nodiscard]] int songsProcessed() const { return mSongsProcessed; }
    /// Those whose tag changed, written or not.
    [[nodiscard]] int songsModified() const { return mSongsModified; }
    [[nodiscard]] int songsRemaining() const { return static_cast<int>(mSongWorkList.size()); }
    /// "%@ - %@" of the song in hand, with what remains; empty without one.
    [[nodiscard]] QString statusLine() const;

Q_SIGNALS:
    void songStarted(const std::shared_ptr<SongFile> &song);
    void songFinished(const SongOutcome &outcome);
    /// The run ended. `cancelled`: by stopGathering().
    void runFinished(bool cancelled);

private:
    void append(const SongList &songs);
    void processNextSongOnWorkList();
    void processSong(const std::shared_ptr<SongFile> &song);
    [[nodiscard]] std::optional<QString> reasonNotToGather(SongFile &song);
    void makeTask(const std::shared_ptr<SongFile> &song);
    void startTask();
    void finishTask();
    void logGathered(const SongOutcome &outcome, const AudioInfoTag &tag);
    void writeSong(SongOutcome &outcome);
    void abandonTask();
    void forgetTag(const SongOutcome &outcome);
    void storeSummary(SongFile &song);
    void adoptSummary(SongFile &song);
    void tell(const SongOutcome &outcome);
    void endRun();
    void giveUpOnTask();

    GatherContext &mContext;
    iTunesInterface &mItunes;
    UserLog &mLog;
    SongFileInfoCache *mInfoCache = nullptr;
    std::deque<std::shared_ptr<SongFile>> mSongWorkList;
    std::unique_ptr<SongInfoTask> mCurrentInfoTask;
    GatheringOptions mOptions;
    WriteOptions mWriteOptions;
    std::optional<KeptJournal> mKeptJournal; ///< while songs are worked on
    WriteSongs mWrite = WriteSongs::Yes;
    Assets mAllSourceAssetsAvailable;
    QTimer mNextStep; ///< the loop's next step, on a later turn
    QTimer mCancelTimeout;
    int mSongsProcessed = 0;
    int mSongsModified = 0;
    bool mIsRunning = false;
    bool mIsCancelled = false;
};
