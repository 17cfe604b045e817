#include "gathering/suggestednames.h"

#include "tags/audioinfotag.h"
#include "text/simplifier.h"

#include <QDir>

using HVUtility::isStringSimpleEqual;

namespace {

QStringList sourcesByPath(const SiteDefinitions &definitions)
{
    QStringList sources = definitions.sourcelist();
    sources.removeIf([&definitions](const QString &source) {
        const auto definition = definitions.definitionOf(source);
        return !definition || definition->integer(QStringLiteral("namesFromPath")) == 0;
    });
    return sources;
}

bool lacksArtist(const AudioInfoTag &tag)
{
    return !tag.artist() || isPlaceholder(*tag.artist());
}

bool lacksTitle(const AudioInfoTag &tag)
{
    return tag.hasTitleOfPathname() || isPlaceholder(tag.title().value_or(QString()));
}

/// What the path says beyond the tag. Without any artist there is nothing to search by.
PathNames usefulNames(const AudioInfoTag &tag, const AssetLedger &ledger, PathNames names)
{
    if (!lacksArtist(tag))
        names.artist.reset();
    if (!lacksTitle(tag) || ledger.isDesired(AssetSongTitle) || names.title == tag.title())
        names.title.reset();
    if ((lacksArtist(tag) && !names.artist) || (!names.artist && !names.title))
        return {};
    if (tag.album()) {
        names.album.reset();
        names.isOfVarious = false;
    }
    return names;
}

} // namespace

void SuggestedNames::lend(AudioInfoTag &tag, const QString &path,
                          const SiteDefinitions &definitions, const AssetLedger &ledger)
{
    mSources = sourcesByPath(definitions);
    if (!ledger.desired || mSources.isEmpty() || !(lacksArtist(tag) || lacksTitle(tag)))
        return;
    mPath = path;
    mNames = usefulNames(tag, ledger,
                         namesOfPath(QDir::current().absoluteFilePath(path), QDir::homePath()));
    mOwn = searchRequestFor(tag, {});
    mWasModified = tag.tagHasBeenModified();
    if (mNames.artist) {
        mArtistBefore = tag.artist();
        tag.setArtist(*mNames.artist);
    }
    if (mNames.title) {
        if (!tag.hasTitleOfPathname())
            mTitleBefore = tag.title();
        tag.setTitle(*mNames.title);
    }
}

SearchRequest SuggestedNames::requestFor(const QString &source, SearchRequest request) const
{
    if (mSources.contains(source)) {
        if (!request.albumTitle)
            request.albumTitle = mNames.album;
        request.isCompilation |= mNames.isOfVarious;
        return request;
    }
    if (mNames.artist) {
        request.artist = mOwn.artist;
        request.alternateArtist = mOwn.alternateArtist;
    }
    if (mNames.title && request.songTitle)
        request.songTitle = mOwn.songTitle;
    return request;
}

void SuggestedNames::noteAlbum(const AlbumInfo &album, const AudioInfoTag &tag,
                               Substrings allowSubstrings)
{
    if (!mSources.contains(album.sourceInterfaceName()))
        return;
    const QString title = tag.title().value_or(QString());
    const int number = album.numberOfTrackNamed(title, allowSubstrings);
    const bool isSameArtist = isStringSimpleEqual(album.artist(), mNames.artist);
    if (number == 0 && (mNames.title || !isSameArtist))
        return;
    mKnowingSource = album.sourceInterfaceName();
    if (isSameArtist)
        mNames.artist = album.artist();
    if (mNames.title && isStringSimpleEqual(album.trackNames()->at(number - 1), mNames.title))
        mNames.title = album.trackNames()->at(number - 1);
}

void SuggestedNames::settle(AudioInfoTag &tag, Assets gather, AssetLedger &ledger)
{
    if (!mNames.artist && !mNames.title)
        return;
    const QString sourceOfLyrics = ledger.sources.value(AssetLyrics);
    if (mKnowingSource.isEmpty() && mSources.contains(sourceOfLyrics))
        mKnowingSource = sourceOfLyrics;
    if (mNames.artist)
        settleArtist(tag, mKnowingSource, ledger);
    if (mNames.title)
        settleTitle(tag, mKnowingSource, !mTitleBefore && gather.testFlag(AssetSongTitle), ledger);
    if (!ledger.changed && !mWasModified)
        tag.setTagHasBeenModified(false);
}

/// There is no way to ask for an artist, so it stays only where there was none.
void SuggestedNames::settleArtist(AudioInfoTag &tag, const QString &source,
                                  AssetLedger &ledger) const
{
    if (source.isEmpty() || mArtistBefore)
        return tag.setArtist(mArtistBefore.value_or(QString()));
    tag.setArtist(*mNames.artist);
    ledger.supplied(AssetArtist, source);
}

void SuggestedNames::settleTitle(AudioInfoTag &tag, const QString &source, bool mayStay,
                                 AssetLedger &ledger) const
{
    if (mayStay && !source.isEmpty()) {
        tag.setTitle(*mNames.title);
        return ledger.supplied(AssetSongTitle, source);
    }
    tag.setTitle(mTitleBefore.value_or(QString()));
    tag.gatherTagsFromPathname(mPath);
}
