#include "demo/samplesites.h"

#include "demo/samplealbums.h"
#include "text/simplifier.h"

#include <QHttpServerResponse>
#include <QUrlQuery>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString address(quint16 port, const QString &path)
{
    return u"http://127.0.0.1:%1%2"_s.arg(port).arg(path);
}

/// The fields of a posted form.
QUrlQuery formOf(const QHttpServerRequest &request)
{
    return QUrlQuery(QString::fromLatin1(request.body()).replace(u'+', u' '));
}

bool holdsTrack(const SampleAlbum &album, const QString &simplifiedTitle)
{
    return std::any_of(album.tracks.begin(), album.tracks.end(), [&](const QString &track) {
        return HVUtility::simplifyString(track).contains(simplifiedTitle);
    });
}

/// The albums whose name, or one of whose tracks, holds the text of the search form.
std::vector<SampleAlbum> albumsFor(const QUrlQuery &form)
{
    const QString wanted =
        HVUtility::simplifyString(form.queryItemValue(u"ifSearch"_s, QUrl::FullyDecoded));
    const bool searchesAlbums = form.queryItemValue(u"ifFields"_s) == u"1";
    std::vector<SampleAlbum> found;
    if (wanted.isEmpty())
        return found;
    for (const SampleAlbum &album : sampleAlbums())
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

/// Pages go out in the characters that sites of that age used.
QHttpServerResponse response(const QByteArray &mimeType, const QString &text)
{
    return {mimeType + "; charset=ISO-8859-1", text.toLatin1()};
}

QHttpServerResponse disc(const QHttpServerRequest &request)
{
    const QString id = request.query().queryItemValue(u"id"_s, QUrl::FullyDecoded);
    for (const SampleAlbum &album : sampleAlbums())
        if (album.discID == id)
            return response("text/plain", discRecord(album));
    return QHttpServerResponse(QHttpServerResponse::StatusCode::NotFound);
}

} // namespace

bool SampleSites::listen()
{
    mServer.route(u"/search"_s, QHttpServerRequest::Method::Post,
                  [](const QHttpServerRequest &request) {
                      return response("text/html", resultsPage(albumsFor(formOf(request))));
                  });
    mServer.route(u"/disc"_s, QHttpServerRequest::Method::Get,
                  [](const QHttpServerRequest &request) { return disc(request); });
    mPort = mServer.listen(QHostAddress::LocalHost);
    return mPort != 0;
}

SiteDefinitions SampleSites::definitions(const SiteDefinitions &defaults) const
{
    QVariantMap values = defaults.values();
    QVariantMap trackDatabase = values.value(u"res_FreeDBInterface"_s).toMap();
    trackDatabase[u"queryPOST"_s] = address(mPort, u"/search"_s);
    trackDatabase[u"discInfoURL"_s] = address(mPort, u"/disc?id=%@"_s);
    values[u"res_FreeDBInterface"_s] = trackDatabase;
    return SiteDefinitions(values);
}
