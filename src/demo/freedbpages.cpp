#include "demo/freedbpages.h"

#include "demo/samplealbums.h"
#include "text/simplifier.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool holdsTrack(const SampleAlbum &album, const QString &simplifiedTitle)
{
    return std::any_of(album.tracks.begin(), album.tracks.end(), [&](const QString &track) {
        return HVUtility::simplifyString(track).contains(simplifiedTitle);
    });
}

/// The albums whose name, or one of whose tracks, holds the text of the search form.
std::vector<SampleAlbum> albumsFor(const QUrlQuery &form)
{
    const QString wanted = HVUtility::simplifyString(fieldOf(form, u"ifSearch"_s));
    const bool searchesAlbums = fieldOf(form, u"ifFields"_s) == u"1";
    std::vector<SampleAlbum> found;
    if (wanted.isEmpty())
        return found;
    for (const SampleAlbum &album : sampleAlbumsAt(u"FreeDBInterface"_s))
        if (searchesAlbums ? HVUtility::simplifyString(album.name).contains(wanted)
                           : holdsTrack(album, wanted))
            found.push_back(album);
    return found;
}

QString resultsPage(const std::vector<SampleAlbum> &albums)
{
    QString page = u"<html><body><h1>Search results, page 1</h1>\n<table class=\"results\">\n"_s;
    for (const SampleAlbum &album : albums)
        page += u"<tr><td>%1</td><td>%2</td><td><b>%3 / %4</b></td></tr>\n"_s.arg(
            album.genre.toHtmlEscaped(), album.discID, album.artist.toHtmlEscaped(),
            album.name.toHtmlEscaped());
    return page + u"</table></body></html>\n"_s;
}

QString discRecord(const SampleAlbum &album)
{
    QString record = u"# xmcd\nDISCID=%1\nDTITLE=%2 / %3\nDYEAR=%4\nDGENRE=%5\n"_s.arg(
        album.discID.section(u'/', 1), album.artist, album.name, album.year, album.genre);
    for (qsizetype i = 0; i < album.tracks.size(); ++i)
        record += u"TTITLE%1=%2\n"_s.arg(i).arg(album.tracks[i]);
    return record;
}

std::optional<SamplePage> disc(const QString &id)
{
    for (const SampleAlbum &album : sampleAlbumsAt(u"FreeDBInterface"_s))
        if (album.discID == id)
            return SamplePage{"text/plain; charset=ISO-8859-1", discRecord(album).toLatin1()};
    return std::nullopt;
}

} // namespace

SampleSite freeDBPages()
{
    return {.className = u"FreeDBInterface"_s,
            .addresses = {{u"queryPOST"_s, u"search"_s}, {u"discInfoURL"_s, u"disc?id=%@"_s}},
            .answer = [](const SampleRequest &request) -> std::optional<SamplePage> {
                if (request.path == u"search")
                    return htmlPage(resultsPage(albumsFor(request.form)));
                return request.path == u"disc" ? disc(fieldOf(request.query, u"id"_s))
                                               : std::nullopt;
            }};
}
