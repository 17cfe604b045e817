#pragma once

#include <QString>

#include <functional>

/// What is called while a folder is walked.
struct FolderVisitor {
    std::function<void(const QString &path)> file; ///< everything that is no folder
    std::function<void(const QString &path, const QString &reason)> problem;
    /// Asked before each step where it is set; a walk that does not go on ends early.
    std::function<bool()> goesOn = {};
};

/// Visits every file below the folder, at any depth, in sorted order of their paths. Links to
/// folders are not followed, so that no walk is endless. One folder's names are held at a time,
/// not the whole tree. Folders that cannot be read and names that are no text are problems.
void walkFolder(const QString &folder, const FolderVisitor &visitor);
