#pragma once

#include "demo/samplealbums.h"

#include <QByteArray>

enum class PictureFormat { PNG, JPEG };

/// The bytes of a square cover for an album, `width` pixels wide, drawn when asked for. Albums
/// look clearly different; variants of one album, 0 to 40, nearly alike.
[[nodiscard]] QByteArray samplePicture(const SampleAlbum &album, int width, PictureFormat format,
                                       int variant = 0);
