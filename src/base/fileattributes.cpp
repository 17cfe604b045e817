#include "base/fileattributes.h"

#include <QFile>

#include <sys/stat.h>

namespace {
FileAttributes attributesFrom(const struct stat &found)
{
    return {.device = found.st_dev,
            .inode = found.st_ino,
            .size = found.st_size,
            .mode = found.st_mode,
            .links = found.st_nlink,
            .accessed = found.st_atim,
            .modified = found.st_mtim,
            .changed = found.st_ctim};
}
} // namespace

std::optional<FileAttributes> FileAttributes::of(int fd)
{
    struct stat found = {};
    if (::fstat(fd, &found) != 0)
        return std::nullopt;
    return attributesFrom(found);
}

std::optional<FileAttributes> FileAttributes::at(const QString &path)
{
    struct stat found = {};
    if (::stat(QFile::encodeName(path).constData(), &found) != 0)
        return std::nullopt;
    return attributesFrom(found);
}

bool FileAttributes::isRegular() const
{
    return S_ISREG(mode);
}

bool FileAttributes::isSameFile(const FileAttributes &other) const
{
    return device == other.device && inode == other.inode;
}

bool FileAttributes::isUnchangedSince(const FileAttributes &other) const
{
    return size == other.size && modified.tv_sec == other.modified.tv_sec
        && modified.tv_nsec == other.modified.tv_nsec;
}

void FileAttributes::restoreMode(int fd) const
{
    const auto now = of(fd);
    if (now && now->mode != mode)
        std::ignore = ::fchmod(fd, mode & 07777);
}

void FileAttributes::restoreTimes(int fd) const
{
    const timespec times[] = {accessed, modified};
    std::ignore = ::futimens(fd, times);
}
