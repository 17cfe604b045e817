#pragma once

#include "tags/id3image.h"

#include <QString>

class QImage;

/// More than any cover needs; a larger picture is taken for a mistake.
inline constexpr qint64 mostPictureBytes = qint64(32) * 1024 * 1024;

/// A picture as it goes into songs, or why it cannot.
struct PictureForSongs {
    ID3Image image; ///< without data when it cannot be used
    QString reason; ///< then: one line for the user
};

/// JPEG and PNG as they are; what players may not know is converted to one of them. Takes up to
/// seconds for a huge picture; used on any thread.
[[nodiscard]] PictureForSongs pictureForSongs(const QByteArray &bytes);
/// The same for a picture that has no bytes of its own, such as one of the clipboard.
[[nodiscard]] PictureForSongs pictureForSongs(const QImage &image);
/// The same for a file of this machine.
[[nodiscard]] PictureForSongs pictureForSongsInFile(const QString &path);
