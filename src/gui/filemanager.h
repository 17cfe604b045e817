#pragma once

#include <QStringList>

#include <functional>

class QObject;

/// Shows the files, selected, in the file manager of the desktop; where there is none that can,
/// opens the folder of the first. `failed` is told of the folder when nothing can show it. `owner`
/// must live as long as that is wanted.
void showInFileManager(const QStringList &paths, QObject *owner,
                       const std::function<void(const QString &folder)> &failed);
