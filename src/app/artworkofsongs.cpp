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

void addNewOnes(QList<ID3Image> &pictures, const QList<ID3Image> &images)
{
    constexpr qsizetype mostPictures = 40;
    for (const ID3Image &image : images)
        if (pictures.size() < mostPictures
            && std::none_of(pictures.begin(), pictures.end(),
                            [&image](const ID3Image &other) { return other.data == image.data; }))
            pictures << image;
}

} // namespace

ArtworkReading::ArtworkReading(const SongList &songs)
{
    mKnown.songs = songs.size();
    mKnown.lookedAt = std::min(songs.size(), mostSongs);
    mKnown.isMixed = !haveSameNumberOfImages(songs, mKnown.lookedAt);
    for (std::size_t i = 0; i < std::min(songs.size(), mostFilesRead); ++i)
        mEntries.push_back({songs[i]->path(), songs[i]->readOptions()});
}

ArtworkOfSongs ArtworkReading::read() const
{
    ArtworkOfSongs artwork = mKnown;
    if (!artwork.isMixed)
        artwork.lookedAt = mEntries.size();
    QList<ID3Image> firstImages;
    for (std::size_t i = 0; i < mEntries.size(); ++i) {
        const auto bytes = openForTag(mEntries[i].path);
        const TagOrReason read = bytes ? readTag(*bytes, mEntries[i].options)
                                       : TagOrReason{nullptr, qtTrId("ErrorCannotOpenForRead")};
        const QList<ID3Image> images = read.tag ? read.tag->images() : QList<ID3Image>();
        if (!read.tag)
            artwork.reason = read.reason;
        if (i == 0)
            firstImages = images;
        artwork.isMixed = artwork.isMixed || !haveSameData(images, firstImages);
        addNewOnes(artwork.pictures, images);
    }
    if (!artwork.isMixed)
        artwork.pictures = firstImages;
    return artwork;
}

bool haveSameData(const QList<ID3Image> &images, const QList<ID3Image> &others)
{
    return std::equal(
        images.begin(), images.end(), others.begin(), others.end(),
        [](const ID3Image &image, const ID3Image &other) { return image.data == other.data; });
}
