#include "sources/thumbnailconsensus.h"

#include <algorithm>

namespace {

using Index = std::size_t;

/// How many of the others the thumbnail of that row looks like.
int lookAlikes(const BitmapDifferences &differences, Index thumbnail, int similarThreshold)
{
    int count = 0;
    for (Index other = 0; other < differences.size(); ++other)
        if (other != thumbnail && differences[thumbnail][other] < similarThreshold)
            ++count;
    return count;
}

struct Candidate {
    Index index = 0;
    int lookAlikes = 0;
};

/// The one that has the most look-alikes, the first of equals.
Candidate candidateOf(const BitmapDifferences &differences, int similarThreshold)
{
    Candidate best;
    for (Index thumbnail = 0; thumbnail < differences.size(); ++thumbnail) {
        const int count = lookAlikes(differences, thumbnail, similarThreshold);
        if (count > best.lookAlikes)
            best = {thumbnail, count};
    }
    return best;
}

bool isEnough(int lookAlikes, qsizetype images)
{
    return images > 9 ? lookAlikes >= images / 3 : lookAlikes > 2;
}

} // namespace

BitmapDifferences measuredBitmapDifferences(const Thumbnails &images)
{
    std::vector<const ShrunkenBitmap *> bitmaps;
    for (const Thumbnail &image : images)
        bitmaps.push_back(&image.bitmap);
    const Index count = bitmaps.size();
    BitmapDifferences differences(count, std::vector<int>(count));
    for (Index a = 0; a < count; ++a)
        for (Index b = 0; b < a; ++b)
            differences[a][b] = differences[b][a] = diffBetween(*bitmaps[a], *bitmaps[b]);
    return differences;
}

std::optional<ThumbnailChoice> chooseThumbnail(const Thumbnails &images, int similarThreshold)
{
    const BitmapDifferences differences = measuredBitmapDifferences(images);
    const Candidate candidate = candidateOf(differences, similarThreshold);
    if (!isEnough(candidate.lookAlikes, images.size()))
        return std::nullopt;
    ThumbnailChoice choice;
    int widest = 0;
    Index index = 0;
    for (const auto &[address, image] : images.asKeyValueRange()) {
        const Index thumbnail = index++;
        if (thumbnail == candidate.index)
            continue;
        if (differences[candidate.index][thumbnail] >= similarThreshold) {
            choice.unlike << address;
        } else if (image.width > widest) {
            choice.address = address;
            widest = image.width;
        }
    }
    return choice;
}
