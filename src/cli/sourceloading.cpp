#include "cli/sourceloading.h"

#include "base/interrupt.h"
#include "cli/report.h"

#include <QEventLoop>

#include <algorithm>

SourceLoading::SourceLoading(Engine &engine, const Interrupt &interrupt, Report &report,
                             TellRefused refused)
    : mLoaded(engine.infoCache, engine.log)
{
    connect(&interrupt, &Interrupt::interrupted, this, [this] {
        mIsCancelled = true;
        mLoaded.cancel();
    });
    connect(&mLoaded, &LoadedSongs::problemFound, this,
            [this, &report](const QString &subject, const QString &reason) {
                mProgress.clear();
                report.error(subject, reason);
            });
    connect(&mLoaded, &LoadedSongs::songRefused, this,
            [this, refused = std::move(refused)](const QString &path, const QString &reason) {
                mProgress.clear();
                refused(path, reason);
            });
    connect(&mLoaded.progress(), &Progress::changed, this, [this] {
        const Progress &progress = mLoaded.progress();
        mProgress.show(mLoaded.source().progressText, static_cast<int>(progress.value()),
                       static_cast<int>(progress.maximum()));
    });
}

SongList SourceLoading::load(SongSource source, const ReadOptions &options)
{
    if (mIsCancelled)
        return {};
    QEventLoop loop;
    connect(&mLoaded, &LoadedSongs::loadFinished, &loop, &QEventLoop::quit);
    source.unreadable = UnreadableSongs::Keep;
    mLoaded.load(source, options);
    loop.exec();
    mProgress.clear();
    SongList songs = mLoaded.allSongs();
    std::stable_sort(songs.begin(), songs.end(), [&source](const auto &song, const auto &other) {
        return source.order && source.order(*song, *other) < 0;
    });
    return songs;
}
