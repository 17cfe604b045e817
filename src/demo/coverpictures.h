#pragma once

#include "demo/samplealbums.h"
#include "demo/samplesite.h"

/// An album's name as sites put it into the names of files: "harbour-lights".
[[nodiscard]] QString fileNameOf(const SampleAlbum &album);

/// The picture at a path of a source's sample site, of the album whose path that is.
[[nodiscard]] std::optional<SamplePage>
pictureAt(const QString &className, const QString &path,
          const std::function<QString(const SampleAlbum &)> &picturePath, int width);
