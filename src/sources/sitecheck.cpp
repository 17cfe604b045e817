#include "sources/sitecheck.h"

#include "base/nextturn.h"
#include "gathering/artworkcheck.h"
#include "gathering/definitionschema.h"
#include "sources/listedsource.h"

#include <algorithm>
#include <array>

namespace {

/// A check asks for no more of a site than it needs.
constexpr int enoughAlbums = 5;
constexpr qsizetype enoughPictures = 3;
constexpr float enoughWidth = 100; // pixels

/// What stands in the names of the keys by which a kind of information is read from a page.
struct AssetKeys {
    Assets assets;
    const char *word;
};

const std::array assetKeys{
    AssetKeys{AssetYear, "Year"},
    AssetKeys{AssetGenre, "Genre"},
    AssetKeys{AssetSongTitle | AssetTrack, "Track"},
    AssetKeys{AssetArtwork, "ArtURL"},
};

/// Less what none of the keys for it, where there are any, is filled in.
Assets expectedOf(const QString &className, const SiteDefinition &definition, Assets supplies)
{
    for (const auto &[assets, word] : assetKeys) {
        bool hasKey = false;
        bool isFilledIn = false;
        for (const DefinitionKey &each : schemaOfSource(className)) {
            const QString key = QLatin1String(each.key);
            const bool isKey = key.contains(QLatin1String(word));
            hasKey = hasKey || isKey;
            isFilledIn = isFilledIn || (isKey && !definition.textOrEmpty(key).isEmpty());
        }
        if (hasKey && !isFilledIn)
            supplies &= ~assets;
    }
    return supplies;
}

/// What the albums hold between them; pictures have to be looked at first.
Assets foundIn(const AlbumList &albums)
{
    Assets found;
    for (const AlbumInfo &album : albums) {
        const auto lyrics = album.lyrics();
        found |= album.assets() & (AssetAlbumName | AssetYear | AssetGenre);
        if (album.numberOfTracks() > 0)
            found |= AssetSongTitle | AssetTrack;
        if (std::any_of(lyrics.begin(), lyrics.end(),
                        [](const auto &text) { return !text.isEmpty(); }))
            found |= AssetLyrics;
    }
    return found;
}

SiteFinding::Answer answerFor(const SearchFailure &failure)
{
    if (!failure.obstacle)
        return SiteFinding::Answer::NothingFound;
    return *failure.obstacle == Obstacle::Blocked ? SiteFinding::Answer::Blocked
                                                  : SiteFinding::Answer::NotReachable;
}

} // namespace

SiteCheck::SiteCheck(const SourceCatalog &catalog, const SiteDefinitions &definitions,
                     HVHTTPQueue &queue, const QString &className)
    : mCatalog(catalog)
    , mQueue(queue)
    , mFinding{.className = className}
    , mDefinitions(definitions)
    , mDefinition(definitions.definitionOf(className).value_or(SiteDefinition()))
{
}

SiteCheck::~SiteCheck() = default;

void SiteCheck::begin()
{
    const ListedSource listed = listedSource(mCatalog, mDefinitions, mFinding.className);
    if (!listed.isKnown)
        finishWith(SiteFinding::Answer::NoSuchSource);
    else if (!listed.hasSite)
        finishWith(SiteFinding::Answer::NoSite);
    else
        search(*mCatalog.find(mFinding.className));
}

void SiteCheck::finishWith(SiteFinding::Answer answer)
{
    mFinding.answer = answer;
    onNextTurn(this, [this] { Q_EMIT finished(); });
}

void SiteCheck::finishWith(const SearchFailure &failure)
{
    mFinding.missing = mExpected;
    mFinding.failure = failure;
    finishWith(answerFor(failure));
}

void SiteCheck::search(const SourceCatalog::Entry &entry)
{
    mExpected = expectedOf(entry.className, mDefinition, entry.resourcesPossiblyAvailable);
    const SiteDefinition wholeSet(mDefinitions.values());
    const auto known = [&](const QString &key) {
        const QString own = mDefinition.textOrEmpty(key);
        const QString text = own.isEmpty() ? wholeSet.textOrEmpty(key) : own;
        return text.isEmpty() ? std::nullopt : std::optional(text);
    };
    const auto album = known(QStringLiteral("checkAlbum"));
    const auto song = known(QStringLiteral("checkSong"));
    if (!album && !song) {
        finishWith({.step = SearchStep::Row,
                    .reason = QStringLiteral("the definitions name no album to look for"),
                    .key = QStringLiteral("checkAlbum")});
        return;
    }
    mSource = entry.make(mDefinition, mQueue);
    mSource->setArtist(known(QStringLiteral("checkArtist")));
    mSource->setAlbumTitle(album);
    mSource->setSongTitle(song);
    mSource->setMaxAlbums(enoughAlbums);
    mSource->setMaximumImageWidth(enoughWidth);
    mSource->setTrace(&mTrace);
    connect(mSource.get(), &WebDBInterface::searchComplete, this, &SiteCheck::searched);
    mSource->beginSearch();
}

void SiteCheck::searched()
{
    const AlbumList &albums = mSource->albums();
    if (albums.isEmpty()) {
        finishWith(mTrace.firstFailure().value_or(SearchFailure{
            .step = SearchStep::Row,
            .reason =
                QStringLiteral("nothing was asked of the site: the definition lacks a key, or "
                               "what stands beside the program does not hold the album")}));
        return;
    }
    // Albums bear the name that was searched, also where the source knows nothing of it.
    mFinding.found =
        foundIn(albums) & mCatalog.find(mFinding.className)->resourcesPossiblyAvailable;
    if (mExpected.testFlag(AssetArtwork))
        for (const AlbumInfo &album : albums)
            if (album.artURLString() && mPictures.size() < enoughPictures)
                mPictures << *album.artURLString();
    fetchNextPicture();
}

void SiteCheck::fetchNextPicture()
{
    if (mPictures.isEmpty() || mFinding.found.testFlag(AssetArtwork))
        conclude();
    else
        mQueue.addURL(QUrl(mPictures.takeFirst()), this,
                      [this](const FetchResult &result) { gotPicture(result); });
}

void SiteCheck::gotPicture(const FetchResult &result)
{
    if (imageSize(result.data).isValid()) {
        mFinding.found |= AssetArtwork;
    } else if (mPictureFailure.reason.isEmpty()) {
        mPictureFailure = {.step = SearchStep::Field,
                           .reason = QStringLiteral("what came is no picture"),
                           .url = result.url};
        if (const auto obstacle = obstacleOf(result)) {
            mPictureFailure.step = SearchStep::Page;
            mPictureFailure.obstacle = obstacle->kind;
            mPictureFailure.reason = obstacle->reason;
        }
    }
    fetchNextPicture();
}

void SiteCheck::conclude()
{
    mFinding.missing = mExpected & ~mFinding.found;
    if (!mFinding.missing) {
        finishWith(SiteFinding::Answer::Found);
        return;
    }
    QStringList words;
    for (const auto &[assets, word] : assetKeys)
        if (mFinding.missing & assets)
            words << QLatin1String(word);
    mFinding.failure = mPictureFailure;
    if (mPictureFailure.reason.isEmpty())
        mFinding.failure = mTrace.firstMissingField(words).value_or(SearchFailure{
            .step = SearchStep::Field, .reason = QStringLiteral("it is on no page that was read")});
    const bool foundNothing = !(mFinding.found & mExpected);
    finishWith(foundNothing ? answerFor(mFinding.failure) : SiteFinding::Answer::Incomplete);
}
