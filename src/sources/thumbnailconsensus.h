#pragma once

#include "sources/shrunkenbitmap.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <vector>

// The cover that many sites show is the thumbnail that looks like the most others.

/// By address, whose order decides between equals.
using Thumbnails = QMap<QString, Thumbnail>;

/// Row by row the difference of each thumbnail from each, both in the order of the addresses; the
/// one from itself is 0.
using BitmapDifferences = std::vector<std::vector<int>>;

[[nodiscard]] BitmapDifferences measuredBitmapDifferences(const Thumbnails &images);

struct ThumbnailChoice {
    QString address; ///< of the widest that looks like the candidate, which never is it itself
    QStringList unlike; ///< what does not look like the candidate
};

/// The candidate is the thumbnail from which the most others differ by less than
/// `similarThreshold`. Nothing when too few do: a third of more than 9 images must, else 3.
[[nodiscard]] std::optional<ThumbnailChoice> chooseThumbnail(const Thumbnails &images,
                                                             int similarThreshold);
