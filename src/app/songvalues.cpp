#include "app/songvalues.h"

#include "tags/audioinfotag.h"

#include <array>

namespace {

struct TextAccess {
    Asset asset;
    std::optional<QString> (AudioInfoTag::*get)() const;
    void (AudioInfoTag::*set)(const QString &);
};

constexpr std::array textAccesses{
    TextAccess{AssetArtist, &AudioInfoTag::artist, &AudioInfoTag::setArtist},
    TextAccess{AssetAlbumName, &AudioInfoTag::album, &AudioInfoTag::setAlbum},
    TextAccess{AssetSongTitle, &AudioInfoTag::title, &AudioInfoTag::setTitle},
    TextAccess{AssetLyrics, &AudioInfoTag::lyrics, &AudioInfoTag::setLyrics},
    TextAccess{AssetGenre, &AudioInfoTag::genres, &AudioInfoTag::setGenres},
    TextAccess{AssetYear, &AudioInfoTag::year, &AudioInfoTag::setYear},
    TextAccess{AssetTrack, &AudioInfoTag::track, &AudioInfoTag::setTrack},
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
    for (const TextAccess &access : textAccesses)
        if (const auto text = (tag.*access.get)())
            values.texts[access.asset] = *text;
    values.pictures = tag.images();
    return values;
}

Assets differences(const SongValues &one, const SongValues &other)
{
    Assets different;
    for (const TextAccess &access : textAccesses)
        different.setFlag(access.asset,
                          one.texts.contains(access.asset) != other.texts.contains(access.asset)
                              || one.texts.value(access.asset) != other.texts.value(access.asset));
    different.setFlag(AssetArtwork, one.pictures != other.pictures);
    return different;
}

SongValues replaced(SongValues values, const SongValues &from, Assets which)
{
    for (const TextAccess &access : textAccesses)
        if (which.testFlag(access.asset))
            replaceText(values, from, access.asset);
    if (which.testFlag(AssetArtwork))
        values.pictures = from.pictures;
    return values;
}

void setValues(AudioInfoTag &tag, const SongValues &values, Assets which)
{
    for (const TextAccess &access : textAccesses)
        if (which.testFlag(access.asset))
            (tag.*access.set)(values.texts.value(access.asset));
    if (!which.testFlag(AssetArtwork))
        return;
    tag.removeAllImages();
    for (const ID3Image &picture : values.pictures)
        tag.addImage(picture);
}

qint64 textBytesOf(const SongValues &values)
{
    qint64 bytes = 0;
    for (const QString &text : values.texts)
        bytes += text.size() * qint64(sizeof(QChar));
    return bytes;
}
