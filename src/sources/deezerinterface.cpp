#include "sources/deezerinterface.h"

#include "gathering/jsonanswer.h"
#include "sources/picturesizes.h"
#include "sources/shopalbum.h"

#include <algorithm>

namespace {

/// A thousand tracks; no album has so many.
constexpr int mostPages = 10;

/// "artist:"nila oster"": a quote would end it.
QString field(const QString &name, QString words)
{
    return name + QStringLiteral(":\"") + words.replace(u'"', u' ') + u'"';
}

/// The service knows no such thing, which is no failure.
bool saysNone(const FetchResult &result)
{
    const JsonAnswer answer = jsonAnswerOf(result);
    return !answer.document && answer.failedAt == SearchStep::Row;
}

} // namespace

void DeezerInterface::startSearch()
{
    if (artist().value_or(QString()).isEmpty())
        return;
    if (const auto known = shelf().addressFor(wish()))
        lookUp(*known);
    else if (isKnownByAlbum())
        searchAlbums();
    else
        searchTracks();
}

void DeezerInterface::searchAlbums()
{
    const QString ofArtist =
        isCompilation() ? QString() : field(QStringLiteral("artist"), *artist()) + u' ';
    search(QStringLiteral("queryAlbum"), ofArtist + field(QStringLiteral("album"), *albumTitle()),
           shopAlbums);
}

/// By plain words: tracks are not dependably found by their fields.
void DeezerInterface::searchTracks()
{
    mSearchedTracks = true;
    if (!songTitle())
        return;
    const QStringList words{*artist(), *songTitle(), albumTitle().value_or(QString())};
    search(QStringLiteral("queryTrack"), words.join(u' ').simplified(), albumsOfShopTracks);
}

void DeezerInterface::search(const QString &key, const QString &words, Reading albumsIn)
{
    const QString encoded = QString::fromLatin1(QUrl::toPercentEncoding(words));
    const auto address = resources().formatted(key, {encoded});
    if (!address)
        return;
    addSearchURL(QUrl(*address), [=, this](const FetchResult &result) {
        const auto page = jsonPage(result);
        if (!page && !saysNone(result))
            return;
        const QJsonArray listed = page ? shopList(page->object()) : QJsonArray();
        if (listed.isEmpty())
            keepForThisRun(result);
        mFound = albumsIn(listed, wish());
        if (mFound.isEmpty() && !mSearchedTracks)
            searchTracks();
        else
            lookUpNext();
    });
}

void DeezerInterface::lookUpNext()
{
    if (mFound.isEmpty() || mLookUps >= resources().integer(QStringLiteral("maxLookUps")))
        return;
    const QString number = QString::number(mFound.takeFirst());
    if (const auto address = resources().formatted(QStringLiteral("albumLookup"), {number}))
        lookUp(QUrl(*address));
}

void DeezerInterface::lookUp(const QUrl &address)
{
    ++mLookUps;
    mAddress = address;
    addSearchURL(address, [this](const FetchResult &result) { gotAlbum(result); });
}

void DeezerInterface::gotAlbum(const FetchResult &result)
{
    const auto page = jsonPage(result);
    if (!page && !saysNone(result))
        return;
    mAlbum = page ? page->object() : QJsonObject();
    mTracks = {};
    mPages = 0;
    const qint64 number = mAlbum[QLatin1String("id")].toInteger();
    const auto address =
        resources().formatted(QStringLiteral("trackList"), {QString::number(number)});
    if (number > 0 && address && isShopAlbumOf(wish(), mAlbum))
        addSearchURL(QUrl(*address), [this](const FetchResult &list) { gotTracks(list); });
    else
        lookUpNext();
}

/// The list comes in pages; none leads to another host.
void DeezerInterface::gotTracks(const FetchResult &result)
{
    const auto page = jsonPage(result);
    if (!page)
        return;
    for (const QJsonArray tracks = shopList(page->object()); const QJsonValue &track : tracks)
        mTracks << track;
    const QUrl next(page->object()[QLatin1String("next")].toString());
    const bool isOnSite = next.adjusted(QUrl::RemovePath | QUrl::RemoveQuery)
        == result.url.adjusted(QUrl::RemovePath | QUrl::RemoveQuery);
    if (isOnSite && ++mPages < mostPages)
        addSearchURL(next, [this](const FetchResult &list) { gotTracks(list); });
    else
        takeAlbum();
}

void DeezerInterface::takeAlbum()
{
    const ReleaseRecord record = shopRecord(mAlbum, mTracks);
    shelf().put(record, mAddress);
    if (record.title.isEmpty() || record.lacks(soughtTrack()))
        return lookUpNext();
    AlbumInfo album = record.albumWith(record.mediumFor(soughtTrack()));
    const float width = std::max(maximumImageWidth(), minimumAcceptableImageSize());
    album.setArtURLString(pictureNearestAbove(shopCover(mAlbum), width));
    addAlbum(std::move(album));
}
