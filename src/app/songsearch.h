#pragma once

#include <QObject>
#include <QStringList>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

/// Looks on a thread of its own for what may be songs at a path: the file, or every file of the
/// folder at any depth. A thread that hangs in a file system that does not answer is left to
/// itself.
class SongSearch : public std::enable_shared_from_this<SongSearch> {
public:
    /// Called on the thread of the context, on turns of their own.
    struct Listener {
        std::function<void(const QStringList &paths)> found; ///< some at a time
        std::function<void(const QString &path, const QString &reason)> problem;
        std::function<void()> ended;
    };

    static std::shared_ptr<SongSearch> start(const QString &path, QObject &context,
                                             Listener listener);

    SongSearch(const SongSearch &) = delete;
    SongSearch &operator=(const SongSearch &) = delete;
    ~SongSearch() = default;

    /// The listener is not called any more. To be called on the thread of the context, before
    /// that is destroyed.
    void abandon();

private:
    SongSearch(QObject &context, Listener listener);

    void search(const QString &path);
    void add(const QString &path);
    void tellFound();
    void tell(std::function<void()> call);

    const Listener mListener;
    QStringList mFound; ///< not yet told, of the thread that searches
    std::atomic<bool> mIsAbandoned = false;
    std::mutex mMutex; ///< of what follows
    QObject *mContext; ///< null once abandoned
};
