#pragma once

#include <QStringList>

class QObject;

/// Shows the files, selected, in the file manager of the desktop; where there is none that can,
/// opens the folder of the first. `owner` must live as long as that is wanted.
void showInFileManager(const QStringList &paths, QObject *owner);
