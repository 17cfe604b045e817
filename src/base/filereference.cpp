#include "base/filereference.h"

#include "base/descriptor.h"
#include "base/fileattributes.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <atomic>
#include <fcntl.h>
#include <sys/resource.h>

namespace {
/// A list may hold very many songs, of which some thousands are followed this way: whoever looks
/// through the descriptors of the process shall not take long for it.
constexpr rlim_t wantedDescriptors = 8192;

/// How many descriptors references may hold: half of those, or of what the process may have.
rlim_t descriptorLimit()
{
    rlimit limit = {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return 0;
    const rlim_t wanted = std::min(limit.rlim_max, wantedDescriptors);
    if (limit.rlim_cur < wanted) {
        const rlimit raised = {.rlim_cur = wanted, .rlim_max = limit.rlim_max};
        if (::setrlimit(RLIMIT_NOFILE, &raised) == 0)
            limit = raised;
    }
    return std::min(limit.rlim_cur, wantedDescriptors) / 2;
}

std::atomic<rlim_t> &descriptorsInUse()
{
    static std::atomic<rlim_t> count = 0;
    return count;
}

/// A descriptor that names the file without opening it, so that nothing but its moves is seen;
/// none when the limit is reached or the system has no such thing.
Descriptor nameOnly([[maybe_unused]] const QString &path)
{
#ifdef O_PATH
    static const rlim_t limit = descriptorLimit();
    if (descriptorsInUse() < limit)
        return Descriptor(::open(QFile::encodeName(path).constData(), O_PATH | O_CLOEXEC));
#endif
    return {};
}

bool isFile(const QString &path)
{
    const auto attributes = FileAttributes::at(path);
    return attributes && attributes->isRegular();
}
} // namespace

class FileReference::Private {
public:
    explicit Private(QString path)
        : mPath(std::move(path))
        , mFile(nameOnly(mPath))
    {
        if (mFile)
            ++descriptorsInUse();
    }

    Private(const Private &) = delete;
    Private &operator=(const Private &) = delete;

    ~Private()
    {
        if (mFile)
            --descriptorsInUse();
    }

    [[nodiscard]] std::optional<QString> path() const
    {
        return isFile(mPath) ? mPath : whereItWent();
    }

private:
    /// The kernel's name of the open file. It is believed only when the file is found there: a
    /// deleted one has a name too, with a remark at its end that might as well belong to a name.
    [[nodiscard]] std::optional<QString> whereItWent() const
    {
        const auto attributes = FileAttributes::of(mFile.get());
        if (!attributes)
            return std::nullopt;
        const QString name =
            QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(mFile.get()));
        const auto there = FileAttributes::at(name);
        if (!there || !there->isSameFile(*attributes))
            return std::nullopt;
        return name;
    }

    QString mPath;
    Descriptor mFile;
};

FileReference::FileReference(std::unique_ptr<Private> d_)
    : d(std::move(d_))
{
}

FileReference::~FileReference() = default;

std::unique_ptr<FileReference> FileReference::referenceTo(const QString &path)
{
    if (!isFile(path))
        return nullptr;
    auto d = std::make_unique<Private>(QFileInfo(path).absoluteFilePath());
    return std::unique_ptr<FileReference>(new FileReference(std::move(d)));
}

std::optional<QString> FileReference::path() const
{
    return d->path();
}
