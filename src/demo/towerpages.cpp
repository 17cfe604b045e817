#include "demo/towerpages.h"

#include "demo/shopshelf.h"

#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int coverWidth = 500;
constexpr int albumsOnPage = 2;

const ShopShelf &shelf()
{
    static const ShopShelf albums(u"TowerInterface"_s, coverWidth);
    return albums;
}

QString pageLinks(int shownPage, const QString &wanted)
{
    const int albums = static_cast<int>(shelf().albums().size());
    const int pages = (albums + albumsOnPage - 1) / albumsOnPage;
    QString links = u"<p class=\"pages\">Pages:\n"_s;
    for (int page = 1; page <= pages; ++page)
        links += page == shownPage
            ? u"%1\n"_s.arg(page)
            : u"<a href=\"/Music/page/%1?for=%2\">%1</a>\n"_s.arg(
                QString::number(page), QString::fromLatin1(QUrl::toPercentEncoding(wanted)));
    return links + u"</p>\n"_s;
}

/// The shop is not choosy: whatever was asked for, it shows all that it has.
QString resultsPage(int number, const QString &wanted)
{
    QString page = u"<html><body><h1>Results</h1>\n"_s + pageLinks(number, wanted)
        + u"<table class=\"results\">\n"_s;
    const int first = (number - 1) * albumsOnPage;
    for (int place = first; place < first + albumsOnPage; ++place) {
        if (static_cast<std::size_t>(place) >= shelf().albums().size())
            break;
        const SampleAlbum &album = shelf().albums()[static_cast<std::size_t>(place)];
        page += u"<tr><td><a href=\"/album/%1\"><b class=\"title\">%2</b></a>\n"
                "<i class=\"artist\">%3</i></td></tr>\n"_s.arg(QString::number(place),
                                                               album.name.toHtmlEscaped(),
                                                               album.artist.toHtmlEscaped());
    }
    return page + u"</table></body></html>\n"_s;
}

QString albumPage(const SampleAlbum &album, const QString &cover)
{
    QString page = u"<html><body><img  class=\"cover\"\r\nsrc=\"%1\">\n"
                   "<h1 class=\"title\">%2 [Import]</h1>\n<p class=\"artist\">%3</p>\n"
                   "<p class=\"genre\"><b>Genre:</b> %4</p>\n"
                   "<p><b>Released:</b> 12 May %5</p>\n<ol>\n"_s.arg(
                       cover, album.name.toHtmlEscaped(), album.artist.toHtmlEscaped(),
                       album.genre.toHtmlEscaped(), album.year);
    for (qsizetype i = 0; i < album.tracks.size(); ++i)
        page += u"<li id=\"track%1\">%2 - %3</li>\n"_s.arg(
            QString::number(i + 1), album.tracks[i].toHtmlEscaped(), album.artist.toHtmlEscaped());
    return page + u"</ol></body></html>\n"_s;
}

std::optional<SamplePage> answer(const SampleRequest &request)
{
    const QString path = request.path.section(u'/', 1); // below the shop
    const QString pages = u"Music/page/"_s;
    const QString wanted = fieldOf(request.query, u"for"_s);
    if (path == u"search")
        return htmlPage(resultsPage(1, wanted));
    if (path.startsWith(pages))
        return htmlPage(resultsPage(std::clamp(path.mid(pages.size()).toInt(), 1, 99), wanted));
    return shelf().answer(path, [&](const SampleAlbum &album, int place) {
        return albumPage(album,
                         u"http://%1/TowerInterface/shop/covers/%2.jpg"_s.arg(
                             request.host, QString::number(place)));
    });
}

} // namespace

SampleSite towerPages()
{
    return {.className = u"TowerInterface"_s,
            .addresses = {{u"queryAlbumName"_s, u"shop/search?for=%@"_s},
                          {u"querySongName"_s, u"shop/search?for=%@"_s},
                          {u"baseURLPrefix"_s, u"shop"_s}},
            .answer = answer};
}
