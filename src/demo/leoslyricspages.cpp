#include "demo/leoslyricspages.h"

#include "demo/lyricspages.h"

using namespace Qt::StringLiterals;

namespace {

const QString className = u"LeosLyricsInterface"_s;

QString row(const QString &artist, const QString &title, int number)
{
    return u"<tr><td>%1</td><td><a href=\"lyrics?id=%2\">%3</a></td></tr>\r\n"_s.arg(
        artist.toHtmlEscaped(), QString::number(number), title.toHtmlEscaped());
}

/// Versions that others made of the songs stand on the first page, the songs on the second.
QString resultsPage(const QString &title, bool isFirst)
{
    QString page = u"<html><body><h1>Search results</h1>\r\n<table class=\"results\">\r\n"_s;
    int number = 0;
    for (const SampleLyrics &song : sampleLyricsAt(className)) {
        if (sampleNamesOverlap(song.title, title))
            page += row(isFirst ? u"The Quay Street Choir"_s : song.artist, song.title, number);
        ++number;
    }
    page += u"</table>\r\n"_s;
    if (isFirst)
        page += u"<a class=\"next\" href=\"search?title=%1&amp;page=2\">Next</a>\r\n"_s.arg(
            QString::fromLatin1(QUrl::toPercentEncoding(title)));
    return page + u"</body></html>\r\n"_s;
}

QString songPage(const SampleLyrics &song)
{
    return u"<html><body><h1>%1</h1>\r\n<p class=\"lyrics\">\r\n%2<br />\r\n</p></body></html>\r\n"_s
        .arg(song.title.toHtmlEscaped(), htmlLines(song, u"<br />\r\n"_s));
}

} // namespace

SampleSite leosLyricsPages()
{
    return {.className = className,
            .addresses = {{u"queryArtistTitle"_s, u"search?artist=%@&title=%@"_s},
                          {u"baseURL"_s, QString()}},
            .answer = [](const SampleRequest &request) -> std::optional<SamplePage> {
                if (request.path == u"search")
                    return htmlPage(resultsPage(fieldOf(request.query, u"title"_s),
                                                fieldOf(request.query, u"page"_s) != u"2"));
                const auto song = songAskedFor(request, className);
                return song && request.path == u"lyrics"
                    ? std::optional(lyricsPage(songPage(*song)))
                    : std::nullopt;
            }};
}
