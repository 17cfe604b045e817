#include "app/songsearch.h"

#include "base/folderwalk.h"
#include "tags/filetype.h"

#include <QFileInfo>

#include <thread>
#include <utility>

namespace {
/// Told at a time, so that no turn of the event loop takes long.
constexpr qsizetype mostAtOnce = 100;
} // namespace

std::shared_ptr<SongSearch> SongSearch::start(const QString &path, QObject &context,
                                              Listener listener)
{
    std::shared_ptr<SongSearch> search(new SongSearch(context, std::move(listener)));
    std::thread([search, path] {
        search->search(path);
        search->tellFound();
        search->tell(search->mListener.ended);
    }).detach();
    return search;
}

SongSearch::SongSearch(QObject &context, Listener listener)
    : mListener(std::move(listener))
    , mContext(&context)
{
}

void SongSearch::abandon()
{
    mIsAbandoned = true;
    const std::scoped_lock lock(mMutex);
    mContext = nullptr;
}

void SongSearch::search(const QString &path)
{
    const QFileInfo info(path);
    if (!info.isDir()) {
        if (info.exists())
            add(path);
        return;
    }
    walkFolder(path,
               {.file = [this](const QString &file) { add(file); },
                .problem =
                    [this](const QString &name, const QString &reason) {
                        tell([this, name, reason] { mListener.problem(name, reason); });
                    },
                .goesOn = [this] { return !mIsAbandoned; }});
}

void SongSearch::add(const QString &path)
{
    if (!FileType::claimsToBeMP3(path) && !FileType::claimsToBeAAC(path))
        return;
    mFound << path;
    if (mFound.size() == mostAtOnce)
        tellFound();
}

void SongSearch::tellFound()
{
    if (!mFound.isEmpty())
        tell([this, paths = std::exchange(mFound, {})] { mListener.found(paths); });
}

void SongSearch::tell(std::function<void()> call)
{
    const std::scoped_lock lock(mMutex);
    if (mContext)
        QMetaObject::invokeMethod(
            mContext,
            [self = shared_from_this(), call = std::move(call)] {
                if (!self->mIsAbandoned)
                    call();
            },
            Qt::QueuedConnection);
}
