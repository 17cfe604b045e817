#pragma once

#include <QByteArray>
#include <QImage>

#include <array>
#include <optional>

constexpr int shrunkenSide = 32; ///< pixels

/// A picture shrunk to a square: the red, green and blue bytes of its pixels, row after row. All
/// are of one layout, so that each can be compared with each.
using ShrunkenBitmap = std::array<quint8, shrunkenSide * shrunkenSide * 3>;

/// What is kept of a thumbnail.
struct Thumbnail {
    ShrunkenBitmap bitmap{};
    int width = 0; ///< of the picture itself, in pixels
};

/// Decodes and shrinks a thumbnail; nothing when it is damaged or too large for one. Takes
/// milliseconds, for a hostile picture far more.
[[nodiscard]] std::optional<Thumbnail> thumbnailOf(const QByteArray &picture);

/// The whole picture scaled into the square on black; its aspect ratio is not kept.
[[nodiscard]] ShrunkenBitmap shrunkenBitmap(const QImage &image);

/// The sum of the differences of all bytes: 0 for equal bitmaps, at most 32 * 32 * 3 * 255.
[[nodiscard]] int diffBetween(const ShrunkenBitmap &a, const ShrunkenBitmap &b);
