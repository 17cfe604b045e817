#pragma once

#include "demo/samplealbums.h"
#include "demo/samplesite.h"

/// The albums of a sample record shop, called by their places on its shelf.
class ShopShelf {
public:
    /// With the albums that the sample site of the source knows; covers are `coverWidth` wide.
    ShopShelf(const QString &className, int coverWidth);

    [[nodiscard]] const std::vector<SampleAlbum> &albums() const { return mAlbums; }
    /// The answer to "covers/2.jpg" or "album/2", the latter made by `albumPage`; to any other
    /// path there is none.
    using AlbumPage = std::function<QString(const SampleAlbum &album, int place)>;
    [[nodiscard]] std::optional<SamplePage> answer(const QString &path,
                                                   const AlbumPage &albumPage) const;

private:
    std::vector<SampleAlbum> mAlbums;
    int mCoverWidth; ///< pixels
};
