#pragma once

#include <QString>
#include <QtGlobal>

#include <ctime>
#include <optional>
#include <sys/types.h>

enum class KeepTime { No, Yes };

/// What the system knows of a file besides its bytes, as far as a change of the bytes in place
/// touches it or a file is told from another by it. Owner, extended attributes, access lists and
/// the time of birth belong to the inode, which stays.
struct FileAttributes {
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = 0;
    mode_t mode = 0;
    quint64 links = 0; ///< names of the file; 0: it was deleted
    timespec accessed = {};
    timespec modified = {};
    timespec changed = {}; ///< last change of the bytes or of anything else of the inode

    /// Of the open file, or of the file that the path leads to through links; nothing when there
    /// is none.
    static std::optional<FileAttributes> of(int fd);
    static std::optional<FileAttributes> at(const QString &path);

    [[nodiscard]] bool isRegular() const;
    [[nodiscard]] bool isSameFile(const FileAttributes &other) const;

    /// Neither written nor cut since `other` was taken.
    [[nodiscard]] bool isUnchangedSince(const FileAttributes &other) const;

    /// Gives the open file these permissions again where a write took some (set-user-ID bits).
    void restoreMode(int fd) const;

    /// Gives the open file these times again. Only its owner may; for others nothing happens.
    void restoreTimes(int fd) const;
};
