#include "sources/picturesizes.h"

#include <algorithm>

std::optional<QString> pictureNearestAbove(const PictureSizes &sizes, float width)
{
    if (sizes.isEmpty())
        return std::nullopt;
    const auto wideEnough = std::find_if(sizes.keyBegin(), sizes.keyEnd(), [width](int each) {
        return static_cast<float>(each) >= width;
    });
    return wideEnough == sizes.keyEnd() ? sizes.last() : *wideEnough.base();
}
