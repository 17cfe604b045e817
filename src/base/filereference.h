#pragma once

#include <QString>

#include <memory>
#include <optional>

/// Follows a file when it is moved or renamed within its file system.
class FileReference {
public:
    /// Null when there is no file at `path`.
    [[nodiscard]] static std::unique_ptr<FileReference> referenceTo(const QString &path);

    FileReference(const FileReference &) = delete;
    FileReference &operator=(const FileReference &) = delete;
    ~FileReference();

    /// Where the file is now; the recorded path when another file was put in its place; nothing
    /// when it is gone.
    [[nodiscard]] std::optional<QString> path() const;

private:
    class Private;
    explicit FileReference(std::unique_ptr<Private> d);
    std::unique_ptr<Private> d;
};
