#pragma once

#include "gathering/pictureforsongs.h"

#include <functional>

class QMimeData;

/// Pictures that were dropped, pasted or chosen, not looked at yet: to be called on another thread.
using PictureSource = std::function<std::vector<PictureForSongs>()>;

/// Whether there may be a picture in it: a picture, or files of this machine. Nothing is fetched
/// from elsewhere.
[[nodiscard]] bool mayHoldPicture(const QMimeData &data);

/// Takes from the data what it needs at once, so that the data may go.
[[nodiscard]] PictureSource picturesIn(const QMimeData &data);

[[nodiscard]] PictureSource picturesInFiles(const QStringList &paths);
