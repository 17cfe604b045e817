#include "app/artworkofsongs.h"

#include "tags/songbytes.h"
#include "tags/tagfactory.h"

#include <algorithm>

namespace {

constexpr std::size_t mostFilesRead = 20;

bool haveSameNumberOfImages(const SongList &songs, std::size_t count)
{
    std::optional<int> number;
    return std::all_of(songs.begin(), songs.begin() + static_cast<std::ptrdiff_t>(count),
                       [&number](const std::shared_ptr<SongFile> &song) {
                           if (!song->hasInfotagCached())
                               return true;
                           const int images = song->infotag()->numberOfImages();
                           return images == number.value_or(images) && (number = images, true);
                       });
}

} // namespace

ArtworkReading::ArtworkReading(const SongList &songs)
{
    mKnown.songs = songs.size();
    mKnown.lookedAt = std::min(songs.size(), mostSongs);
    mKnown.isMixed = !haveSameNumberOfImages(songs, mKnown.lookedAt);
    for (std::size_t i = 0; i < std::min(songs.size(), mostFilesRead) && !mKnown.isMixed; ++i)
        mEntries.push_back({songs[i]->path(), songs[i]->readOptions()});
}

ArtworkOfSongs ArtworkReading::read() const
{
    ArtworkOfSongs artwork = mKnown;
    if (artwork.isMixed)
        return artwork;
    artwork.lookedAt = mEntries.size();
    for (std::size_t i = 0; i < mEntries.size() && !artwork.isMixed; ++i) {
        const auto bytes = openForTag(mEntries[i].path);
        const TagOrReason read = bytes ? readTag(*bytes, mEntries[i].options)
                                       : TagOrReason{nullptr, qtTrId("ErrorCannotOpenForRead")};
        const QList<ID3Image> images = read.tag ? read.tag->images() : QList<ID3Image>();
        if (!read.tag)
            artwork.reason = read.reason;
        if (i == 0)
            artwork.pictures = images;
        artwork.isMixed = !haveSameData(images, artwork.pictures);
    }
    if (artwork.isMixed)
        artwork.pictures.clear();
    return artwork;
}

bool haveSameData(const QList<ID3Image> &images, const QList<ID3Image> &others)
{
    return std::equal(
        images.begin(), images.end(), others.begin(), others.end(),
        [](const ID3Image &image, const ID3Image &other) { return image.data == other.data; });
}
