#include "app/songreading.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace {
/// Large enough that threads seldom meet, small enough that progress shows.
constexpr std::size_t songsOfChunk = 32;
/// More than two also use the time in which a disk or a network is waited for.
constexpr unsigned fewestReaders = 2;
constexpr unsigned mostReaders = 8;
} // namespace

std::shared_ptr<SongReading> SongReading::start(SongSource source, const ReadOptions &options,
                                                SongFileInfoCache &cache, Wake wake,
                                                SongList discarded)
{
    std::shared_ptr<SongReading> reading(
        new SongReading(std::move(source), options, cache, std::move(wake)));
    const unsigned readers =
        std::clamp(std::thread::hardware_concurrency(), fewestReaders, mostReaders);
    reading->mThreads = static_cast<int>(readers) + 1;
    std::thread([reading, list = std::move(discarded)]() mutable {
        reading->walk(std::move(list));
        reading->threadEnds();
    }).detach();
    for (unsigned i = 0; i < readers; ++i)
        std::thread([reading] {
            reading->readChunks();
            reading->threadEnds();
        }).detach();
    return reading;
}

SongReading::SongReading(SongSource source, const ReadOptions &options, SongFileInfoCache &cache,
                         Wake wake)
    : mSource(std::move(source))
    , mReadOptions(options)
    , mCache(&cache)
    , mWake(std::move(wake))
{
}

SongReading::~SongReading() = default;

std::optional<ReadEntries> SongReading::takeNext()
{
    const std::scoped_lock lock(mMutex);
    while (mIsCancelled && !mChunks.empty() && !mChunks.front()->isRead)
        mChunks.pop_front();
    if (mChunks.empty() || !mChunks.front()->isRead)
        return std::nullopt;
    ReadEntries read = std::move(mChunks.front()->read);
    mChunks.pop_front();
    return read;
}

QList<SongReading::Problem> SongReading::takeProblems()
{
    const std::scoped_lock lock(mMutex);
    return std::exchange(mProblems, {});
}

SongReading::Count SongReading::count() const
{
    const std::scoped_lock lock(mMutex);
    return mCount;
}

bool SongReading::isOver() const
{
    const std::scoped_lock lock(mMutex);
    return mIsCancelled ? mThreads == 0 : mCount.isFinal && mChunks.empty();
}

void SongReading::cancel()
{
    const std::scoped_lock lock(mMutex);
    mIsCancelled = true;
    mWorkCame.notify_all();
}

void SongReading::abandon()
{
    cancel();
    const std::scoped_lock lock(mOwnerMutex);
    mCache = nullptr;
    mWake = nullptr;
}

void SongReading::waitForThreads(std::chrono::milliseconds patience)
{
    std::unique_lock lock(mMutex);
    mThreadEnded.wait_for(lock, patience, [this] { return mThreads == 0; });
}

void SongReading::walk(SongList discarded)
{
    discarded.clear();
    mSource.readEntries(*this);
    pushChunk();
    const std::scoped_lock lock(mMutex);
    mCount.isFinal = true;
    mWorkCame.notify_all();
}

bool SongReading::add(SourceEntry entry)
{
    mFound.push_back(std::move(entry));
    if (mFound.size() == songsOfChunk)
        pushChunk();
    return goesOn();
}

void SongReading::problem(const QString &subject, const QString &reason)
{
    const std::scoped_lock lock(mMutex);
    mProblems.append({subject, reason});
}

void SongReading::pushChunk()
{
    if (mFound.empty())
        return;
    auto chunk = std::make_shared<Chunk>();
    chunk->entries = std::exchange(mFound, {});
    const std::scoped_lock lock(mMutex);
    mCount.entries += static_cast<qsizetype>(chunk->entries.size());
    mChunks.push_back(chunk);
    mUnread.push_back(std::move(chunk));
    mWorkCame.notify_one();
}

void SongReading::readChunks()
{
    while (const auto chunk = nextUnread()) {
        readChunk(*chunk);
        bool isNext = false;
        {
            const std::scoped_lock lock(mMutex);
            chunk->isRead = true;
            isNext = !mChunks.empty() && mChunks.front() == chunk;
        }
        if (isNext)
            wake();
    }
}

/// Null when there is no further one.
std::shared_ptr<SongReading::Chunk> SongReading::nextUnread()
{
    std::unique_lock lock(mMutex);
    mWorkCame.wait(lock, [this] { return mIsCancelled || !mUnread.empty() || mCount.isFinal; });
    if (mIsCancelled || mUnread.empty())
        return nullptr;
    auto chunk = std::move(mUnread.front());
    mUnread.pop_front();
    return chunk;
}

void SongReading::readChunk(Chunk &chunk)
{
    const InfoLookUp lookUp = [this](const QString &path) { return storedInfo(path); };
    CachedInfoPointer neighbour;
    chunk.read.reserve(chunk.entries.size());
    for (const SourceEntry &entry : chunk.entries) {
        if (mIsCancelled)
            return;
        chunk.read.push_back(readSourceEntry(entry, mReadOptions, lookUp, neighbour));
        neighbour = chunk.read.back().info;
    }
}

CachedInfoPointer SongReading::storedInfo(const QString &path)
{
    const std::shared_lock lock(mOwnerMutex);
    return mCache ? mCache->storedInfo(path) : nullptr;
}

void SongReading::threadEnds()
{
    {
        const std::scoped_lock lock(mMutex);
        --mThreads;
        mThreadEnded.notify_all();
    }
    wake();
}

void SongReading::wake()
{
    const std::shared_lock lock(mOwnerMutex);
    if (mWake)
        mWake();
}
