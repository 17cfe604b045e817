#pragma once

#include "app/prefscontroller.h"
#include "app/userlog.h"
#include "gathering/songinfotask.h"

#include <QObject>

#include <memory>

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
};

enum class WriteSongs { Yes, No };

/// The main loop: gathers the songs given to it one after the other, writes back what changed,
/// and tells of each. It never has more than one task running.
class WorkList : public QObject {
    Q_OBJECT

public:
    /// `library`: every song of the list, which lend to each other. `context` and `itunes` must
    /// outlive the work list.
    WorkList(GatherContext &context, iTunesInterface &itunes, UserLog &log);
    ~WorkList() override;

    /// Starts a run, or adds to the one under way. Songs that are not ready are told of as
    /// failed when they are locked or have problems, else passed over.
    void beginGathering(const SongList &songs, const GatheringOptions &options,
                        const WriteOptions &writeOptions, WriteSongs write = WriteSongs::Yes);
    /// Cancels the run. The song in hand is left as it is; after 4 seconds it is given up on.
    void stopGathering();

    [[nodiscard]] bool isRunning() const;
    [[nodiscard]] int songsProcessed() const;
    [[nodiscard]] int songsModified() const;
    [[nodiscard]] int songsRemaining() const;
    /// "%@ - %@" of the song in hand, with what remains; empty without one.
    [[nodiscard]] QString statusLine() const;

Q_SIGNALS:
    void songStarted(const std::shared_ptr<SongFile> &song);
    void songFinished(const SongOutcome &outcome);
    /// The run ended. `cancelled`: by stopGathering().
    void runFinished(bool cancelled);

private:
    class Private;
    std::unique_ptr<Private> d;
};
