#include "cli/gatherrun.h"

#include "app/runcontext.h"
#include "base/interrupt.h"

#include <QEventLoop>

GatherRun::GatherRun(Engine &engine, const SongList &songs, const Interrupt &interrupt)
    : mSongs(songs)
    , mLibrary(songs)
    , mContext(runContext(engine, mLibrary))
    , mWorkList(mContext, engine.itunes, engine.log)
{
    mWorkList.setInfoCache(&engine.infoCache);
    connect(&interrupt, &Interrupt::interrupted, &mWorkList, &WorkList::stopGathering);
}

GatherRun::Summary GatherRun::run(const GatheringOptions &options, const WriteOptions &writeOptions,
                                  WriteSongs write, const TellOutcome &tell)
{
    QEventLoop loop;
    connect(&mWorkList, &WorkList::songStarted, this, [this] {
        mProgress.show(mWorkList.statusLine(), mSummary.processed, static_cast<int>(mSongs.size()));
    });
    connect(&mWorkList, &WorkList::songFinished, this,
            [this, &tell](const SongOutcome &outcome) { songFinished(outcome, tell); });
    connect(&mWorkList, &WorkList::runFinished, &loop, [this, &loop](bool cancelled) {
        mSummary.cancelled = cancelled;
        loop.quit();
    });
    mWorkList.beginGathering(mSongs, options, writeOptions, write);
    loop.exec();
    mProgress.clear();
    mSummary.leftAlone = mContext.outages.marked().values();
    mSummary.leftAlone.sort();
    return mSummary;
}

void GatherRun::songFinished(const SongOutcome &outcome, const TellOutcome &tell)
{
    ++mSummary.processed;
    mSummary.modified += outcome.changed && !outcome.failed ? 1 : 0;
    mSummary.failed += outcome.failed ? 1 : 0;
    for (const UnaskedSource &source : outcome.unasked)
        mSummary.unasked[source.className] << outcome.song->path();
    mProgress.clear();
    tell(outcome);
}
