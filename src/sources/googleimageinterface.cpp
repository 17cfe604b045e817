#include "sources/googleimageinterface.h"

#include "base/background.h"
#include "base/log.h"
#include "gathering/picturereader.h"
#include "text/integervalue.h"
#include "text/queryterms.h"
#include "text/simplifier.h"
#include "text/stringextensions.h"

namespace {

/// Titles of compilations are too generic to search for when fewer characters say something.
constexpr qsizetype shortestCompilationTitle = 13;

/// A first page of results holds 20 to 100; each pair of thumbnails is compared.
constexpr int mostThumbnails = 200;

constexpr qsizetype fewestImageBytes = 16;

/// An address as it stands in mImages.
QString keyOf(const QUrl &url)
{
    return url.toString(QUrl::FullyEncoded);
}

/// The address of the full-size picture is what stands behind the last colon of the thumbnail's.
/// Where it has a port its own colon must be escaped ("%3A"), or only the port would be left.
QUrl fullSizeAddress(const QString &thumbnail)
{
    const qsizetype colon = thumbnail.lastIndexOf(u':');
    if (colon < 1)
        return {};
    QString address = thumbnail.mid(colon + 1);
    while (!address.startsWith(QLatin1String("//")))
        address.prepend(u'/');
    return QUrl(HVStringExtensions::safelyEscapedString(QStringLiteral("http:") + address));
}

/// Pixels; 0 when the picture does not decode.
int widthOfDecoded(const QByteArray &picture)
{
    PictureReader reader(picture);
    return reader.image(reader.size()).width();
}

} // namespace

void GoogleImageInterface::startSearch()
{
    const QString query = queryText();
    if (query.isEmpty() || !resources().holds({QStringLiteral("similarThreshold")}))
        return;
    const QString words =
        HVUtility::stringForPost(query, HVUtility::AlphaNumericOnly::No, QStringLiteral("+"));
    if (const auto address = resources().formatted(QStringLiteral("queryArtistAndAlbum"), {words}))
        addSearchURL(QUrl(*address),
                     [this](const FetchResult &result) { subSearchComplete(result); });
}

/// Empty where nothing is to be searched: a self-titled album finds pictures of the artist.
QString GoogleImageInterface::queryText() const
{
    const QString artistName = artist().value_or(QString());
    const QString title = albumTitle().value_or(QString());
    if (isCompilation()) {
        const QString words =
            HVStringExtensions::stringWithoutWords(title, HVUtility::minorWords());
        return words.size() >= shortestCompilationTitle ? title : QString();
    }
    if (artistName.isEmpty() || title.isEmpty()
        || HVUtility::isStringSimpleEqual(artistName, title))
        return {};
    return artistName + u' ' + title;
}

void GoogleImageInterface::subSearchComplete(const FetchResult &result)
{
    const QStringList addresses = thumbnailAddresses(pageText(result)).mid(0, mostThumbnails);
    for (const QString &address : addresses)
        if (!address.isEmpty())
            addSearchURL(QUrl(address),
                         [this](const FetchResult &loaded) { thumbnailFinishedLoading(loaded); });
}

/// Pages that carry their results in a script hold at least three there; others are read as
/// plain HTML.
QStringList GoogleImageInterface::thumbnailAddresses(const QString &page) const
{
    constexpr qsizetype fewestScriptRows = 3;
    const QList<QStringList> scriptRows = rowsOn(page, QStringLiteral("scriptParse"));
    const bool isScript = scriptRows.size() >= fewestScriptRows;
    const QList<QStringList> rows =
        isScript ? scriptRows : rowsOn(page, QStringLiteral("htmlParse"));
    QStringList addresses;
    for (const QStringList &row : rows)
        addresses << (isScript ? addressInScript(row.first()) : addressInHTML(row.first()));
    return addresses;
}

/// Numbers of the recipe stand for the cell's pieces, anything else for itself.
QString GoogleImageInterface::addressInScript(const QString &cell) const
{
    const QStringList chunks = cell.split(u',');
    const QStringList recipe =
        resources().textOrEmpty(QStringLiteral("scriptChunkOrder")).split(u',');
    QString address;
    for (const QString &item : recipe) {
        const int chunk = integerValue(item);
        if (chunk < 0 || chunk > chunks.size())
            return {};
        address += chunk == 0 ? item : withoutScriptTrim(chunks[chunk - 1]);
    }
    return address;
}

QString GoogleImageInterface::addressInHTML(const QString &cell) const
{
    const QStringList delimiters =
        resources().textOrEmpty(QStringLiteral("htmlDelimiters")).split(u',');
    const qsizetype begin = delimiters.size() < 2 ? -1 : cell.indexOf(delimiters[0]);
    if (begin < 0)
        return {};
    const qsizetype from = begin + delimiters[0].size();
    const qsizetype to = cell.indexOf(delimiters[1], from);
    if (to < 0)
        return {};
    return resources().textOrEmpty(QStringLiteral("htmlPrefix"))
        + withoutScriptTrim(cell.mid(from, to - from));
}

QString GoogleImageInterface::withoutScriptTrim(const QString &text) const
{
    const QString trimmed = resources().textOrEmpty(QStringLiteral("scriptTrim"));
    qsizetype from = 0;
    qsizetype to = text.size();
    while (from < to && trimmed.contains(text[from]))
        ++from;
    while (from < to && trimmed.contains(text[to - 1]))
        --to;
    return text.mid(from, to - from);
}

/// The last thumbnail starts the choice, whether it is of use or not.
void GoogleImageInterface::thumbnailFinishedLoading(const FetchResult &result)
{
    addPlaceholderSearch(result.url);
    runInBackground([picture = result.data] { return thumbnailOf(picture); }, this,
                    [this, url = result.url](const std::optional<Thumbnail> &thumbnail) {
                        finishedSearch(url);
                        if (thumbnail)
                            mImages.insert(keyOf(url), *thumbnail);
                        if (!isLoading())
                            pickBestThumbnail();
                    });
}

void GoogleImageInterface::pickBestThumbnail()
{
    const auto choice =
        chooseThumbnail(mImages, resources().integer(QStringLiteral("similarThreshold")));
    if (!choice || wasCancelled())
        return;
    for (const QString &unlike : choice->unlike)
        mImages.remove(unlike);
    mGoogleCachedImageURL = choice->address;
    addSearchURL(fullSizeAddress(mGoogleCachedImageURL),
                 [this](const FetchResult &result) { gotRealImage(result); });
}

void GoogleImageInterface::gotRealImage(const FetchResult &result)
{
    const QString type = result.MIMEType.value_or(QString());
    if (result.data.size() < fewestImageBytes)
        return rejectRealImage(QStringLiteral("no data (%1 bytes)").arg(result.data.size()));
    if (!type.startsWith(QLatin1String("image/")))
        return rejectRealImage(QStringLiteral("not an image (%1)").arg(type));
    addPlaceholderSearch(result.url);
    runInBackground([picture = result.data] { return widthOfDecoded(picture); }, this,
                    [this, url = result.url](int width) { gotWidthOfRealImage(url, width); });
}

void GoogleImageInterface::gotWidthOfRealImage(const QUrl &url, int width)
{
    finishedSearch(url);
    const float minWidth = minimumAcceptableImageSize();
    if (wasCancelled())
        return;
    if (width == 0)
        rejectRealImage(QStringLiteral("cannot initialize image"));
    else if (float(width) < minWidth)
        rejectRealImage(QStringLiteral("not large enough (%1 < %2)").arg(width).arg(int(minWidth)));
    else
        takeRealImage(url);
}

void GoogleImageInterface::takeRealImage(const QUrl &url)
{
    AlbumInfo album(artist(), albumTitle());
    album.setArtURLString(keyOf(url));
    addAlbum(std::move(album));
}

/// The reason is for whoever debugs a definition; users never see it.
void GoogleImageInterface::rejectRealImage(const QString &reason)
{
    qCDebug(logSources).noquote() << mGoogleCachedImageURL << reason;
    mImages.remove(mGoogleCachedImageURL);
    pickBestThumbnail();
}
