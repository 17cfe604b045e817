#pragma once

#include <QByteArrayView>
#include <QString>

#include <chrono>
#include <system_error>
#include <utility>

/// The one owner of an open file of the system.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int fd)
        : mFd(fd)
    {
    }
    Descriptor(Descriptor &&other) noexcept
        : mFd(std::exchange(other.mFd, -1))
    {
    }
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        std::swap(mFd, other.mFd);
        return *this;
    }
    ~Descriptor();

    [[nodiscard]] int get() const { return mFd; }
    explicit operator bool() const { return mFd >= 0; }

private:
    int mFd = -1;
};

/// Why the last call of the system failed.
std::error_code lastError();

/// Found instead of the bytes that were there before.
std::error_code fileBecameShorter();

/// One line for the user.
QString reasonOf(std::error_code error);

/// A folder opened so that it can be synced or locked.
Descriptor openFolder(const QString &path);

/// Up to `length` bytes at `offset`, fewer only at the file's end; -1 with errno on failure.
qint64 readUpTo(int fd, qint64 offset, char *into, qint64 length);

/// Exactly `length` bytes; a file that ends before them became shorter.
std::error_code readAt(int fd, qint64 offset, char *into, qint64 length);

std::error_code writeAt(int fd, qint64 offset, QByteArrayView bytes);

/// The data and what is needed to find it are on the disk when this returns without error.
std::error_code syncData(int fd);

/// The same and times, owner and permissions; for a folder the names in it.
std::error_code syncAll(int fd);

std::error_code setSize(int fd, qint64 size);

/// Takes the advisory lock that other writers of ours respect, waiting for `patience` at most.
/// True also where the file system knows no locks.
bool lockFile(int fd, std::chrono::milliseconds patience);
