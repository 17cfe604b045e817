#include "app/songvalues.h"

#include <array>

namespace {

struct AssetText {
    Asset asset;
    TagText which;
};

constexpr std::array assetTexts{
    AssetText{AssetArtist, TagText::Artist},   AssetText{AssetAlbumName, TagText::Album},
    AssetText{AssetSongTitle, TagText::Title}, AssetText{AssetLyrics, TagText::Lyrics},
    AssetText{AssetGenre, TagText::Genres},    AssetText{AssetYear, TagText::Year},
    AssetText{AssetTrack, TagText::Track},
};

void replaceText(SongValues &values, const SongValues &from, Asset asset)
{
    const auto text = from.texts.constFind(asset);
    if (text == from.texts.constEnd())
        values.texts.remove(asset);
    else
        values.texts[asset] = *text;
}

} // namespace

SongValues valuesOf(const AudioInfoTag &tag)
{
    SongValues values;
    for (const AssetText &each : assetTexts)
        if (const auto text = textOf(tag, each.which))
            values.texts[each.asset] = *text;
    values.pictures = tag.images();
    return values;
}

Assets differences(const SongValues &one, const SongValues &other)
{
    Assets different;
    for (const AssetText &each : assetTexts)
        different.setFlag(each.asset,
                          one.texts.contains(each.asset) != other.texts.contains(each.asset)
                              || one.texts.value(each.asset) != other.texts.value(each.asset));
    different.setFlag(AssetArtwork, one.pictures != other.pictures);
    return different;
}

SongValues replaced(SongValues values, const SongValues &from, Assets which)
{
    for (const AssetText &each : assetTexts)
        if (which.testFlag(each.asset))
            replaceText(values, from, each.asset);
    if (which.testFlag(AssetArtwork))
        values.pictures = from.pictures;
    return values;
}

TagValues tagValues(const SongValues &values, Assets which)
{
    TagValues set;
    for (const AssetText &text : assetTexts)
        if (which.testFlag(text.asset))
            set.texts[text.which] = values.texts.value(text.asset);
    if (which.testFlag(AssetArtwork))
        set.images = values.pictures;
    return set;
}
