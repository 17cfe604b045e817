#pragma once

#include <QByteArray>

#include <optional>

enum class NonSquare { Refuse, Allow };

struct AdjustedImage {
    QByteArray data;
    bool wasReencoded = false; ///< then it is a JPEG
};

/// The picture, scaled down where it is too large; nothing when it cannot be decoded, is too
/// narrow, or is far from square where that matters. Widths in pixels.
[[nodiscard]] std::optional<AdjustedImage> adjustedImage(const QByteArray &picture, float minWidth,
                                                         float maxWidth, NonSquare nonSquare);

/// The width in pixels of an encoded picture; 0 when it is none. Nothing is decoded.
[[nodiscard]] int imageWidth(const QByteArray &picture);
