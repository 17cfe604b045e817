#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <functional>
#include <optional>

class QObject;

enum class NonSquare { Refuse, Allow };

/// Which artwork is good enough, and how large it is kept. In pixels.
struct ArtworkLimits {
    float minWidth = 0;
    float maxWidth = 32768; ///< of the longer side; what is larger is scaled down
    NonSquare nonSquare = NonSquare::Allow;
};

struct AdjustedImage {
    QByteArray data;
    QString mimeType; ///< by its bytes
    bool wasReencoded = false; ///< then it is a JPEG
};

/// The picture, scaled down where it is too large; nothing when it cannot be decoded, is too
/// narrow, or is far from square where that matters. Takes up to seconds for a huge picture.
[[nodiscard]] std::optional<AdjustedImage> adjustedImage(const QByteArray &picture,
                                                         const ArtworkLimits &limits);

using AdjustedImageCallback = std::function<void(const std::optional<AdjustedImage> &)>;

/// adjustedImage() on another thread. The answer comes on a later turn of the event loop of
/// `owner`, exactly once, or never when `owner` is gone by then.
void adjustImageInBackground(const QByteArray &picture, const ArtworkLimits &limits, QObject *owner,
                             AdjustedImageCallback then);

/// Whether a picture of that size is wide enough, and square enough where that matters.
[[nodiscard]] bool isAcceptableSize(QSize size, const ArtworkLimits &limits);

/// The size in pixels of an encoded picture; invalid when it is none. Nothing is decoded.
[[nodiscard]] QSize imageSize(const QByteArray &picture);

/// The width in pixels of an encoded picture; 0 when it is none. Nothing is decoded.
[[nodiscard]] int imageWidth(const QByteArray &picture);
