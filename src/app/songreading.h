#pragma once

#include "app/readentry.h"
#include "songs/songfileinfocache.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <vector>

/// Entries that follow each other in the source.
using ReadEntries = std::vector<ReadEntry>;

/// Reads a source on threads of its own: one walks it, several read its songs, and what was read
/// comes in the order of the source.
///
/// A thread may hang for ever in a file system that does not answer. Such threads are left to
/// themselves: they hold what they touch, and see when they wake that nobody waits for them.
class SongReading : public std::enable_shared_from_this<SongReading>, private EntrySink {
public:
    using Wake = std::function<void()>;

    /// `wake` is called on any thread when there is something to take or it is over, until
    /// abandon(). `discarded` is a list that is no longer needed: freeing a large one takes time.
    [[nodiscard]] static std::shared_ptr<SongReading> start(SongSource source,
                                                            const ReadOptions &options,
                                                            SongFileInfoCache &cache, Wake wake,
                                                            SongList discarded);

    SongReading(const SongReading &) = delete;
    SongReading &operator=(const SongReading &) = delete;
    ~SongReading() override;

    /// What comes next, if it was read. After cancel() also what stands behind a gap.
    [[nodiscard]] std::optional<ReadEntries> takeNext();
    struct Problem {
        QString subject;
        QString reason;
    };
    /// What went wrong with the source itself since the last call.
    [[nodiscard]] QList<Problem> takeProblems();

    struct Count {
        qsizetype entries = 0; ///< found so far
        bool isFinal = false;
    };
    [[nodiscard]] Count count() const;
    /// Whether nothing comes any more. Of a cancelled reading: no thread works on it.
    [[nodiscard]] bool isOver() const;

    /// The threads end after the entry in hand.
    void cancel();
    /// The same, and cache and `wake` are not touched again when this returns.
    void abandon();
    /// Until all threads have ended, but for no longer than that.
    void waitForThreads(std::chrono::milliseconds patience);

private:
    struct Chunk {
        std::vector<SourceEntry> entries;
        ReadEntries read;
        bool isRead = false;
    };

    SongReading(SongSource source, const ReadOptions &options, SongFileInfoCache &cache, Wake wake);

    // On the thread that walks the source.
    void walk(SongList discarded);
    bool add(SourceEntry entry) override;
    void problem(const QString &subject, const QString &reason) override;
    [[nodiscard]] bool goesOn() const override { return !mIsCancelled; }
    void pushChunk();

    // On the threads that read songs.
    void readChunks();
    [[nodiscard]] std::shared_ptr<Chunk> nextUnread();
    void readChunk(Chunk &chunk);
    [[nodiscard]] CachedInfoPointer storedInfo(const QString &path);

    void threadEnds();
    void wake();

    const SongSource mSource;
    const ReadOptions mReadOptions;
    std::atomic<bool> mIsCancelled = false;

    std::shared_mutex mOwnerMutex; ///< of what belongs to the owner
    SongFileInfoCache *mCache;
    Wake mWake;

    std::vector<SourceEntry> mFound; ///< less than a chunk, of the thread that walks

    mutable std::mutex mMutex; ///< of what follows
    std::condition_variable mWorkCame;
    std::condition_variable mThreadEnded;
    std::deque<std::shared_ptr<Chunk>> mChunks; ///< from the next one to take on
    std::deque<std::shared_ptr<Chunk>> mUnread; ///< from the next one to read on
    QList<Problem> mProblems;
    Count mCount;
    int mThreads = 0; ///< that have not ended
};
