#include "base/descriptor.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace {
/// Calls again when a signal came between.
template<typename Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

std::error_code errorOf(int result)
{
    return result < 0 ? lastError() : std::error_code();
}
} // namespace

Descriptor::~Descriptor()
{
    if (mFd >= 0)
        ::close(mFd);
}

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

std::error_code fileBecameShorter()
{
    return std::make_error_code(std::errc::no_message_available);
}

QString reasonOf(std::error_code error)
{
    if (error == fileBecameShorter())
        return qtTrId("ReasonFileShortened");
    return QString::fromLocal8Bit(error.message().c_str());
}

Descriptor openFolder(const QString &path)
{
    return Descriptor(::open(QFile::encodeName(path).constData(), //
                             O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

qint64 readUpTo(int fd, qint64 offset, char *into, qint64 length)
{
    qint64 done = 0;
    while (done < length) {
        const auto count = uninterrupted([&] {
            return ::pread(fd, into + done, static_cast<size_t>(length - done), offset + done);
        });
        if (count < 0)
            return -1;
        if (count == 0)
            break;
        done += count;
    }
    return done;
}

std::error_code readAt(int fd, qint64 offset, char *into, qint64 length)
{
    const qint64 count = readUpTo(fd, offset, into, length);
    if (count < 0)
        return lastError();
    return count < length ? fileBecameShorter() : std::error_code();
}

std::error_code writeAt(int fd, qint64 offset, QByteArrayView bytes)
{
    while (!bytes.empty()) {
        const auto count = uninterrupted(
            [&] { return ::pwrite(fd, bytes.data(), static_cast<size_t>(bytes.size()), offset); });
        if (count < 0)
            return lastError();
        bytes = bytes.sliced(count);
        offset += count;
    }
    return {};
}

std::error_code syncData(int fd)
{
    return errorOf(uninterrupted([fd] { return ::fdatasync(fd); }));
}

std::error_code syncAll(int fd)
{
    return errorOf(uninterrupted([fd] { return ::fsync(fd); }));
}

std::error_code setSize(int fd, qint64 size)
{
    return errorOf(uninterrupted([=] { return ::ftruncate(fd, size); }));
}

bool lockFile(int fd, std::chrono::milliseconds patience)
{
    constexpr std::chrono::milliseconds pause(5);
    while (uninterrupted([fd] { return ::flock(fd, LOCK_EX | LOCK_NB); }) < 0) {
        if (errno != EWOULDBLOCK)
            return true;
        if (patience <= pause)
            return false;
        patience -= pause;
        std::this_thread::sleep_for(pause);
    }
    return true;
}
