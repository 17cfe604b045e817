#include "app/tasksetup.h"

#include "gathering/artworkcheck.h"

#include <algorithm>

namespace {

/// In pixels; 0 without pictures.
int widestPicture(const AudioInfoTag &tag)
{
    int widest = 0;
    for (const ID3Image &image : tag.images())
        widest = std::max(widest, imageWidth(image.data));
    return widest;
}

} // namespace

Assets overwritableAssets(const GatheringOptions &options, int existingWidth)
{
    Assets assets = options.overwrite;
    if (existingWidth >= options.overwriteImageThreshold)
        assets.setFlag(AssetArtwork, false);
    return assets;
}

void setUpTask(SongInfoTask &task, const GatheringOptions &options)
{
    task.setParallelMode(options.parallelSearch);
    task.setIdentify(options.identify);
    task.setMinimumAcceptableImageSize(static_cast<float>(options.minimumImageSize));
    task.setMaximumImageSize(static_cast<float>(options.maximumImageSize));
    task.setIgnoreNonSquareArt(options.ignoreNonSquareArtwork);
    task.setAlbumSelectionMethod(options.albumPickingMethod);
    task.setAllowSubstringTrackMatches(options.allowSubstrings);
    task.setGatherFlags(options.gather);
    const bool replacesArtwork = options.overwrite.testFlag(AssetArtwork);
    const int existingWidth = replacesArtwork ? widestPicture(*task.song()->infotag()) : 0;
    task.setOverwriteFlags(overwritableAssets(options, existingWidth));
}
