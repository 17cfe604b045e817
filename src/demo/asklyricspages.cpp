#include "demo/asklyricspages.h"

#include "demo/lyricspages.h"

using namespace Qt::StringLiterals;

namespace {

const QString className = u"AskLyricsInterface"_s;

/// All artists that there are, whoever was asked for.
QString artistsPage()
{
    QStringList artists;
    for (const SampleLyrics &song : sampleLyricsAt(className))
        artists << song.artist;
    artists.removeDuplicates();
    QString page = u"<html><body><h1>Artists</h1>\n<ul class=\"artists\">\n"_s;
    for (const QString &artist : std::as_const(artists))
        page += u"<li><a href=\"songs?artist=%1\">%2</a></li>\n"_s.arg(
            QString::fromLatin1(QUrl::toPercentEncoding(artist)), artist.toHtmlEscaped());
    return page + u"</ul></body></html>\n"_s;
}

QString songsPage(const QString &artist)
{
    QString page =
        u"<html><body><h1>Songs of %1</h1>\n<ul class=\"songs\">\n"_s.arg(artist.toHtmlEscaped());
    int number = 0;
    for (const SampleLyrics &song : sampleLyricsAt(className)) {
        if (song.artist == artist)
            page += u"<li><a href=\"lyrics?id=%1\">%2</a></li>\n"_s.arg(QString::number(number),
                                                                        song.title.toHtmlEscaped());
        ++number;
    }
    return page + u"</ul></body></html>\n"_s;
}

QString songPage(const SampleLyrics &song)
{
    return u"<html><body><h1>%1</h1>\n<pre class=\"lyrics\">%2</pre></body></html>\n"_s.arg(
        song.title.toHtmlEscaped(), htmlLines(song, u"<br>"_s));
}

} // namespace

SampleSite askLyricsPages()
{
    return {.className = className,
            .addresses = {{u"queryArtist"_s, u"artists?name=%@"_s}},
            .answer = [](const SampleRequest &request) -> std::optional<SamplePage> {
                if (request.path == u"artists")
                    return htmlPage(artistsPage());
                if (request.path == u"songs")
                    return htmlPage(songsPage(fieldOf(request.query, u"artist"_s)));
                const auto song = songAskedFor(request, className);
                return song && request.path == u"lyrics"
                    ? std::optional(lyricsPage(songPage(*song)))
                    : std::nullopt;
            }};
}
