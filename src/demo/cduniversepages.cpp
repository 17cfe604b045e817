#include "demo/cduniversepages.h"

#include "demo/shopshelf.h"
#include "text/simplifier.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr int coverWidth = 300;

const ShopShelf &shelf()
{
    static const ShopShelf albums(u"CDUniverseInterface"_s, coverWidth);
    return albums;
}

/// The shop is not choosy: it shows all of its artists, whichever was asked for.
QString artistList()
{
    QStringList artists;
    for (const SampleAlbum &album : shelf().albums())
        artists << album.artist;
    artists.removeDuplicates();
    QString page =
        u"<html><body><h1>Artists with a name like that</h1>\n<ul class=\"artists\">\n"_s;
    for (const QString &artist : std::as_const(artists))
        page += u"<li><a href=\"artist?name=%1\">%2</a></li>\n"_s.arg(
            QString::fromLatin1(QUrl::toPercentEncoding(artist)), artist.toHtmlEscaped());
    return page + u"</ul></body></html>\n"_s;
}

/// A page with a heading and those albums of which `isListed` says so.
template<typename IsListed>
QString albumList(const QString &heading, IsListed isListed)
{
    QString page = u"<html><body><h1 class=\"artist\">%1</h1>\n<table class=\"albums\">\n"_s.arg(
        heading.toHtmlEscaped());
    for (std::size_t place = 0; place < shelf().albums().size(); ++place)
        if (const SampleAlbum &album = shelf().albums()[place]; isListed(album))
            page +=
                u"<tr><td class=\"album\"><a href=\"album/%1\">%2</a></td><td>%3</td></tr>\n"_s.arg(
                    QString::number(place), album.name.toHtmlEscaped(), album.year);
    return page + u"</table></body></html>\n"_s;
}

QString albumPage(const SampleAlbum &album, int place)
{
    QString page = u"<html><body><div class=\"cover\"><img alt=\"\" src=\"covers/%1.jpg\"></div>\n"
                   "<h1 class=\"title\">%2 CD</h1>\n<h2 class=\"artist\">%3</h2>\n"
                   "<table>\n<tr class=\"genre\"><td>Genre</td><td>%4</td></tr>\n"
                   "<tr class=\"first\"><td>First released</td><td>March %5</td></tr>\n"
                   "</table>\n<table class=\"tracks\">\n"_s.arg(
                       QString::number(place), album.name.toHtmlEscaped(),
                       album.artist.toHtmlEscaped(), album.genre.toHtmlEscaped(), album.year);
    for (qsizetype i = 0; i < album.tracks.size(); ++i)
        page += u"<tr><td>%1.</td><td class=\"track%1\">%2</td></tr>\n"_s.arg(
            QString::number(i + 1), album.tracks[i].toHtmlEscaped());
    return page + u"</table></body></html>\n"_s;
}

std::optional<SamplePage> answer(const SampleRequest &request)
{
    if (request.path == u"artists")
        return htmlPage(artistList());
    if (request.path == u"artist") {
        const QString artist = fieldOf(request.query, u"name"_s);
        return htmlPage(
            albumList(artist, [&](const SampleAlbum &album) { return album.artist == artist; }));
    }
    if (request.path == u"albums") {
        const QString title = fieldOf(request.query, u"title"_s);
        return htmlPage(albumList(title, [&](const SampleAlbum &album) {
            return HVUtility::isStringSimpleEqual(album.name, title);
        }));
    }
    return shelf().answer(request.path, albumPage);
}

} // namespace

SampleSite cdUniversePages()
{
    return {.className = u"CDUniverseInterface"_s,
            .addresses = {{u"queryArtistName"_s, u"artists?name=%@"_s},
                          {u"queryAlbumTitle"_s, u"albums?title=%@"_s},
                          {u"multiURLPrefix"_s, {}},
                          {u"rootURLPrefix"_s, {}}},
            .answer = answer};
}
