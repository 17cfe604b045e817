#pragma once

#include "app/engine.h"
#include "app/songlist.h"
#include "cli/progressline.h"

class Interrupt;
class Report;

/// Loads sources from the command line: with a progress line, ended by an interrupt of the user.
class SourceLoading : public QObject {
    Q_OBJECT

public:
    /// All three must outlive this.
    SourceLoading(Engine &engine, const Interrupt &interrupt, Report &report);

    /// The songs of the source in the order in which the list shows them. Runs an event loop;
    /// after an interrupt nothing is loaded any more.
    SongList load(const SongSource &source, const ReadOptions &options);
    [[nodiscard]] bool isCancelled() const { return mIsCancelled; }

private:
    LoadedSongs mLoaded;
    ProgressLine mProgress;
    bool mIsCancelled = false;
};
