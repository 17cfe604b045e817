#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// A file that the user named, or that stands in a folder that the user named.
struct FoundPath {
    enum class Origin { Named, InFolder };

    QString path; ///< as given, or the folder joined with the subpath
    Origin origin;
};

/// Walks the paths in the order given; a folder stands for every file in it at any depth, in
/// sorted order of their paths. Links to folders are not followed, so that no walk is endless.
/// One folder's names are held at a time, not the whole tree.
///
/// A path that does not exist as written is tried in the other Unicode forms (names made on a
/// Mac are decomposed). What exists in no form, and a folder that cannot be read, is told of by
/// `problem`, with the path and the reason. `goesOn` is asked before each step where it is set; a
/// walk that does not go on ends early.
void forEachPath(const QStringList &paths, const std::function<void(const FoundPath &)> &visit,
                 const std::function<void(const QString &path, const QString &reason)> &problem,
                 const std::function<bool()> &goesOn = {});
