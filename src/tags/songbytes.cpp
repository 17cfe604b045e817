#include "tags/songbytes.h"

#include <QFile>
#include <QtGlobal>

#include <utility>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

/// Read in one go when a song is first looked at: enough to sniff it, for most tags, and the
/// whole of a very short song.
constexpr qint64 firstStretch = 32 << 10;

} // namespace

#ifdef Q_OS_UNIX

/// The system's own calls: QFile asks the system more often than songs by the ten thousands
/// should cost.
class SongBytes::File {
public:
    explicit File(const QString &path)
        // Without waiting, lest a pipe in a music folder hold everything up.
        : mDescriptor(::open(QFile::encodeName(path).constData(),
                             O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY))
    {
        struct stat status { };
        if (mDescriptor >= 0 && ::fstat(mDescriptor, &status) == 0 && S_ISREG(status.st_mode))
            mSize = status.st_size;
    }

    File(const File &) = delete;
    File &operator=(const File &) = delete;

    ~File()
    {
        if (mDescriptor >= 0)
            ::close(mDescriptor);
    }

    /// Negative when this is no regular file that can be read.
    [[nodiscard]] qint64 size() const { return mSize; }

    [[nodiscard]] qint64 readAt(qint64 offset, char *into, qint64 length) const
    {
        qint64 had = 0;
        while (had < length) {
            const ssize_t got =
                ::pread(mDescriptor, into + had, static_cast<size_t>(length - had), offset + had);
            if (got == 0 || (got < 0 && errno != EINTR))
                break;
            had += qMax<ssize_t>(got, 0);
        }
        return had;
    }

private:
    int mDescriptor;
    qint64 mSize = -1;
};

#else

class SongBytes::File {
public:
    explicit File(const QString &path)
        : mFile(path)
    {
        if (mFile.open(QIODevice::ReadOnly) && !mFile.isSequential())
            mSize = mFile.size();
    }

    [[nodiscard]] qint64 size() const { return mSize; }

    [[nodiscard]] qint64 readAt(qint64 offset, char *into, qint64 length)
    {
        return mFile.seek(offset) ? qMax<qint64>(mFile.read(into, length), 0) : 0;
    }

private:
    QFile mFile;
    qint64 mSize = -1;
};

#endif

SongBytes::SongBytes(QString path, std::unique_ptr<File> file)
    : mPath(std::move(path))
    , mFile(std::move(file))
    , mSize(mFile->size())
{
}

SongBytes::~SongBytes() = default;

std::unique_ptr<SongBytes> SongBytes::open(const QString &path)
{
    auto file = std::make_unique<File>(path);
    if (file->size() < 0)
        return {};
    return std::unique_ptr<SongBytes>(new SongBytes(path, std::move(file)));
}

void SongBytes::keepUpTo(qint64 end) const
{
    const qint64 had = mHead.size();
    end = qMin(mSize, had == 0 ? qMax(end, firstStretch) : end);
    if (end <= had)
        return;
    mHead.resize(end);
    mHead.truncate(had + mFile->readAt(had, mHead.data() + had, end - had));
}

QByteArrayView SongBytes::view(qint64 offset, qint64 length) const
{
    length = qMin(length, mSize - offset);
    if (offset < 0 || length <= 0)
        return {};
    keepUpTo(offset + length);
    return offset < mHead.size()
        ? QByteArrayView(mHead).sliced(offset).first(qMin<qint64>(length, mHead.size() - offset))
        : QByteArrayView();
}

QByteArray SongBytes::read(qint64 offset, qint64 length) const
{
    length = qMin(length, mSize - offset);
    if (offset < 0 || length <= 0)
        return {};
    if (offset < firstStretch)
        keepUpTo(qMin(offset + length, firstStretch));
    if (isAtHand(offset, length))
        return mHead.mid(offset, length);
    QByteArray bytes(length, Qt::Uninitialized);
    bytes.truncate(mFile->readAt(offset, bytes.data(), length));
    return bytes;
}
