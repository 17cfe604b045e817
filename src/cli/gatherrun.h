#pragma once

#include "app/engine.h"
#include "app/worklist.h"
#include "cli/progressline.h"
#include "gathering/librarylending.h"

#include <QObject>

#include <functional>

class Interrupt;

/// One run of the work list over songs, from the command line: with a progress line, ended by
/// an interrupt of the user.
class GatherRun : public QObject {
    Q_OBJECT

public:
    struct Summary {
        int processed = 0;
        int modified = 0;
        int failed = 0;
        bool cancelled = false;
        QMap<QString, QStringList>
            unasked{}; ///< paths by source that could not be asked about them
        QStringList leftAlone{}; ///< sources that were marked as giving no answer
    };
    using TellOutcome = std::function<void(const SongOutcome &)>;

    /// Engine and interrupt must outlive the run.
    GatherRun(Engine &engine, const SongList &songs, const Interrupt &interrupt);

    /// Runs an event loop until every song is done. `tell` is called for each, in order.
    Summary run(const GatheringOptions &options, const WriteOptions &writeOptions, WriteSongs write,
                const TellOutcome &tell);

private:
    void songFinished(const SongOutcome &outcome, const TellOutcome &tell);

    SongList mSongs;
    LibraryLending mLibrary;
    GatherContext mContext;
    WorkList mWorkList;
    ProgressLine mProgress;
    Summary mSummary;
};
