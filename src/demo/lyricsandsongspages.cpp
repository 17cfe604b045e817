#include "demo/lyricsandsongspages.h"

#include "demo/lyricspages.h"

using namespace Qt::StringLiterals;

namespace {

const QString className = u"LyricsAndSongsInterface"_s;

/// All songs of the artist, whatever title was asked for.
QString resultsPage(const QString &artist)
{
    QString page = u"<html><body><h1>Lyrics found</h1>\n<table class=\"found\">\n"_s;
    int number = 0;
    for (const SampleLyrics &song : sampleLyricsAt(className)) {
        if (sampleNamesOverlap(song.artist, artist))
            page += u"<tr><td>%1</td><td><b>%2</b></td>"
                    "<td><a href=\"lyrics?id=%1\">%3</a></td><td>*****</td></tr>\n"_s.arg(
                        QString::number(number), song.artist.toHtmlEscaped(),
                        song.title.toHtmlEscaped());
        ++number;
    }
    return page + u"</table></body></html>\n"_s;
}

QString songPage(const SampleLyrics &song)
{
    QString lines = htmlLines(song, u"<br>\r\n"_s);
    lines.insert(lines.indexOf(u"<br>"),
                 u"<!-- ad --><b>Ring tones of this song!</b><!-- /ad -->"_s);
    return u"<html><body><h1>%1</h1>\n<div class=\"lyrics\">\n%2\n</div></body></html>\n"_s.arg(
        song.title.toHtmlEscaped(), lines);
}

} // namespace

SampleSite lyricsAndSongsPages()
{
    return {.className = className,
            .addresses = {{u"queryArtistTitle"_s, u"search?artist=%@&title=%@"_s}},
            .answer = [](const SampleRequest &request) -> std::optional<SamplePage> {
                if (request.path == u"search")
                    return htmlPage(resultsPage(fieldOf(request.query, u"artist"_s)));
                const auto song = songAskedFor(request, className);
                return song && request.path == u"lyrics"
                    ? std::optional(lyricsPage(songPage(*song)))
                    : std::nullopt;
            }};
}
