#pragma once

#include <QString>

#include <memory>
#include <optional>

/// Follows a file when it is moved or renamed within its file system (on Linux; elsewhere, and
/// for very many files at once, only the recorded path is known).
class FileReference {
public:
    /// Null when there is no file at `path`.
    [[nodiscard]] static std::unique_ptr<FileReference> referenceTo(const QString &path);

    FileReference(const FileReference &) = delete;
    FileReference &operator=(const FileReference &) = delete;
    ~FileReference();

    /// The recorded path when there is a file, be it this one or another one put in its place;
    /// else where the file was moved to; nothing when it is gone.
    [[nodiscard]] std::optional<QString> path() const;

private:
    class Private;
    explicit FileReference(std::unique_ptr<Private> d);
    std::unique_ptr<Private> d;
};
