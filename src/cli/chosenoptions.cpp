#include "cli/chosenoptions.h"

ReadOptions readOptionsOf(const Arguments &arguments, const PrefsController &prefs)
{
    ReadOptions options = prefs.readOptions();
    options.dialect = arguments.id3.value_or(options.dialect);
    return options;
}

WriteOptions writeOptionsOf(const Arguments &arguments, const PrefsController &prefs)
{
    WriteOptions options = prefs.writeOptions();
    options.dialect = arguments.id3.value_or(options.dialect);
    options.v24Sizes = arguments.v24Sizes.value_or(options.v24Sizes);
    if (arguments.keepTime)
        options.keepTime = KeepTime::Yes;
    return options;
}

GatheringOptions gatheringOptionsOf(const Arguments &arguments, const PrefsController &prefs)
{
    GatheringOptions options = prefs.gatheringOptions();
    options.gather = arguments.want.value_or(options.gather);
    options.overwrite = arguments.overwrite.value_or(options.overwrite);
    options.albumPickingMethod = arguments.pick.value_or(options.albumPickingMethod);
    options.allowSubstrings = arguments.substrings.value_or(options.allowSubstrings);
    options.identify = arguments.identify;
    options.parallelSearch = arguments.parallel.value_or(options.parallelSearch);
    options.minimumImageSize = arguments.minArt.value_or(options.minimumImageSize);
    options.maximumImageSize = arguments.maxArt.value_or(options.maximumImageSize);
    options.overwriteImageThreshold = arguments.artBelow.value_or(options.overwriteImageThreshold);
    options.ignoreNonSquareArtwork = arguments.squareArt.value_or(options.ignoreNonSquareArtwork);
    return options;
}
