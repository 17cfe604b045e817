#pragma once

#include "tags/id3image.h"

#include <QList>
#include <QStringList>

/// What editing makes of the pictures of one song.
namespace ArtworkChange {

/// The ID3 picture type of a front cover.
inline constexpr int frontCover = 3;

/// With those that the song does not have yet; the first of a song without one is its front cover.
[[nodiscard]] QList<ID3Image> withAdded(QList<ID3Image> images, const QList<ID3Image> &added);

/// With `by` in the place and role of `shown`. Without a picture shown, as of songs whose pictures
/// differ, `by` is the only one.
[[nodiscard]] QList<ID3Image> withReplaced(QList<ID3Image> images,
                                           const std::optional<ID3Image> &shown, ID3Image by);

/// Without those that are `shown`.
[[nodiscard]] QList<ID3Image> without(QList<ID3Image> images, const ID3Image &shown);

} // namespace ArtworkChange

/// The suffix of a file for the picture, by its bytes, such as "jpg".
[[nodiscard]] QString fileSuffixOf(const ID3Image &image);

/// Id of the text that names an ID3 picture type.
[[nodiscard]] const char *textIDOfPictureType(int pictureType);
