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
    /// Called for each file that is named and is no song.
    using TellRefused = std::function<void(const QString &path, const QString &reason)>;

    /// All three must outlive this.
    SourceLoading(Engine &engine, const Interrupt &interrupt, Report &report, TellRefused refused);

    /// The songs of the source in the order in which the list shows them, also those that cannot
    /// be read. Runs an event loop; after an interrupt nothing is loaded any more.
    SongList load(SongSource source, const ReadOptions &options);
    [[nodiscard]] bool isCancelled() const { return mIsCancelled; }

private:
    LoadedSongs mLoaded;
    ProgressLine mProgress;
    bool mIsCancelled = false;
};
