#pragma once

#include <QMap>
#include <QString>

#include <limits>
#include <optional>

/// Where a picture is, by its width in pixels.
using PictureSizes = QMap<int, QString>;

/// The width of a picture that is in no known size, and no smaller than the others.
inline constexpr int originalWidth = std::numeric_limits<int>::max();

/// The picture of at least that width that is the smallest; where none is so wide, the widest.
[[nodiscard]] std::optional<QString> pictureNearestAbove(const PictureSizes &sizes, float width);
