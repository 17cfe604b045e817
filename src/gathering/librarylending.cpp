#include "gathering/librarylending.h"

#include "tags/tagfactory.h"
#include "text/simplifier.h"

#include <QElapsedTimer>

#include <algorithm>

namespace {

/// The songs of an album hold the same picture, or a few: after so many that turn out to be
/// damaged no further ones are read.
constexpr std::size_t maxPicturesOffered = 16;

/// The song's tag as it is held, or read for the moment: neither what it holds nor its status
/// changes by that.
template<typename Use>
void withTagOf(SongFile &song, Use use)
{
    const bool wasHeld = song.hasInfotagCached();
    const SongStatus status = song.activityStatus();
    if (const AudioInfoTag *tag = song.infotag())
        use(*tag);
    if (wasHeld)
        return;
    song.uncacheInfotag();
    song.setActivityStatus(status);
}

template<typename Positions>
void insertInOrder(Positions &positions, std::size_t position)
{
    positions.insert(std::lower_bound(positions.begin(), positions.end(), position), position);
}

template<typename Positions>
void removeInOrder(Positions &positions, std::size_t position)
{
    const auto found = std::lower_bound(positions.begin(), positions.end(), position);
    if (found != positions.end() && *found == position)
        positions.erase(found);
}

Assets satisfiedBy(const LendingOffers &offers)
{
    Assets satisfied;
    satisfied.setFlag(AssetYear, offers.year.has_value());
    satisfied.setFlag(AssetGenre, offers.genres.has_value());
    satisfied.setFlag(AssetArtwork, offers.pictures.size() >= maxPicturesOffered);
    return satisfied;
}

} // namespace

LibraryLending::LibraryLending(SongList library, const SongList &excluded)
    : mLibrary(std::move(library))
{
    mPositions.reserve(static_cast<qsizetype>(mLibrary.size()));
    for (std::size_t position = 0; position < mLibrary.size(); ++position)
        mPositions.insert(mLibrary[position].get(), position);
    for (const auto &song : excluded)
        mExcludedPaths.insert(song->path());
}

void LibraryLending::addSong(const std::shared_ptr<SongFile> &song)
{
    mPositions.insert(song.get(), mLibrary.size());
    mLibrary.push_back(song);
}

bool LibraryLending::readTagsFor(std::chrono::milliseconds budget)
{
    QElapsedTimer timer;
    timer.start();
    while (mWords.size() < mLibrary.size() && !timer.hasExpired(budget.count()))
        readNextTag();
    return mWords.size() == mLibrary.size();
}

LendingOffers LibraryLending::offersTo(const Borrower &borrower)
{
    while (mWords.size() < mLibrary.size())
        readNextTag();
    LendingOffers offers;
    const Positions *songs = songsOfAlbum(borrower);
    for (std::size_t index = 0; songs && index < songs->size(); ++index) {
        const Assets open = borrower.wanted & lendableAssets & ~satisfiedBy(offers);
        if (!open)
            break;
        const std::size_t position = (*songs)[index];
        const Assets lent = open & assetsLentTo(borrower, position);
        if (lent.testFlag(AssetYear))
            offers.year = mWords[position].year;
        if (lent.testFlag(AssetGenre))
            offers.genres = mWords[position].genres;
        if (lent.testFlag(AssetArtwork))
            offers.pictures.push_back(mLibrary[position]);
    }
    return offers;
}

void LibraryLending::songChanged(const std::shared_ptr<SongFile> &song)
{
    const auto position = mPositions.constFind(song.get());
    if (position == mPositions.cend() || *position >= mWords.size())
        return; // not ours, or read later anyway
    removeFromAlbums(*position);
    readTag(*position);
    addToAlbums(*position);
}

void LibraryLending::readNextTag()
{
    const std::size_t position = mWords.size();
    mWords.emplace_back();
    readTag(position);
    addToAlbums(position);
}

void LibraryLending::readTag(std::size_t position)
{
    mWords[position] = {};
    withTagOf(*mLibrary[position],
              [&](const AudioInfoTag &tag) { mWords[position] = wordsOf(tag); });
}

LibraryLending::Words LibraryLending::wordsOf(const AudioInfoTag &tag)
{
    Words words;
    words.album = shared(HVUtility::simplifyString(tag.album().value_or(QString())));
    words.artist = shared(HVUtility::simplifyString(tag.artist().value_or(QString())));
    if (const auto year = tag.year())
        words.year = shared(*year);
    if (const auto genres = tag.genres())
        words.genres = shared(*genres);
    words.hasPicture = tag.numberOfImages() > 0;
    const QList<ID3Image> images = tag.images();
    if (images.isEmpty())
        return words;
    words.pictureSize = imageSize(images.first().data);
    words.hasPicture = words.pictureSize.isValid();
    return words;
}

QString LibraryLending::shared(const QString &text)
{
    return *mTexts.insert(text);
}

void LibraryLending::addToAlbums(std::size_t position)
{
    const Words &words = mWords[position];
    if (words.album.isEmpty() || !(words.year || words.genres || words.hasPicture))
        return;
    insertInOrder(mByAlbum[words.album], position);
    if (!words.artist.isEmpty())
        insertInOrder(mByAlbumAndArtist[{words.album, words.artist}], position);
}

void LibraryLending::removeFromAlbums(std::size_t position)
{
    const Words &words = mWords[position];
    if (const auto songs = mByAlbum.find(words.album); songs != mByAlbum.end())
        removeInOrder(*songs, position);
    const auto songs = mByAlbumAndArtist.find({words.album, words.artist});
    if (songs != mByAlbumAndArtist.end())
        removeInOrder(*songs, position);
}

const LibraryLending::Positions *LibraryLending::songsOfAlbum(const Borrower &borrower) const
{
    const QString album = HVUtility::simplifyString(borrower.album.value_or(QString()));
    if (borrower.isCompilation) {
        const auto found = mByAlbum.constFind(album);
        return found == mByAlbum.cend() ? nullptr : &*found;
    }
    const QString artist = HVUtility::simplifyString(borrower.artist.value_or(QString()));
    const auto found = mByAlbumAndArtist.constFind({album, artist});
    return found == mByAlbumAndArtist.cend() ? nullptr : &*found;
}

Assets LibraryLending::assetsLentTo(const Borrower &borrower, std::size_t position) const
{
    const SongFile &lender = *mLibrary[position];
    if (&lender == borrower.song)
        return {};
    const Words &words = mWords[position];
    const bool mayFit =
        !words.pictureSize.isValid() || isAcceptableSize(words.pictureSize, borrower.artwork);
    Assets lent;
    lent.setFlag(AssetYear, words.year.has_value());
    lent.setFlag(AssetGenre, words.genres.has_value());
    lent.setFlag(AssetArtwork, words.hasPicture && mayFit);
    if (mExcludedPaths.contains(lender.path()))
        lent &= ~borrower.present;
    return lent;
}

std::optional<ID3Image> firstPictureOf(SongFile &song)
{
    std::optional<ID3Image> first;
    const auto takeFirst = [&first](const AudioInfoTag &tag) {
        if (const QList<ID3Image> images = tag.images(); !images.isEmpty())
            first = images.first();
    };
    if (!song.hasInfotagCached() || !song.infotag()->isLazy())
        withTagOf(song, takeFirst);
    else if (const auto tag = tagWithPath(song.path(), song.readOptions()))
        takeFirst(*tag);
    return first;
}
