#pragma once

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QString>

#include <optional>

/// A picture of a few kilobytes can claim any size; what is larger would exhaust memory.
inline constexpr qint64 mostPicturePixels = 100'000'000;

/// Reads one encoded picture, whatever its name or stated type says it is, and with a limit on
/// what that may cost. Used on any thread.
class PictureReader {
public:
    /// Pictures of more than `maxPixels` are none.
    explicit PictureReader(const QByteArray &picture, qint64 maxPixels = mostPicturePixels);

    /// In pixels; invalid for what is no picture or too large a one. Nothing is decoded.
    [[nodiscard]] QSize size() const { return mSize; }
    /// By the bytes; empty when they are no picture of a known kind.
    [[nodiscard]] QString mimeType() const { return mMimeType.value_or(QString()); }

    /// The picture scaled smoothly to that size; a null image when it is damaged or has none.
    [[nodiscard]] QImage image(QSize scaledSize);

private:
    std::optional<QString> mMimeType;
    QBuffer mBuffer;
    QImageReader mReader;
    QSize mSize;
};

/// The picture without transparency: what shows through is black.
[[nodiscard]] QImage onBlack(const QImage &image);
