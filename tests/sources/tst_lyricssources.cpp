#include "sources/asklyricsinterface.h"
#include "sources/leoslyricsinterface.h"
#include "sources/lyricsandsongsinterface.h"

#include "sources/lyricspage.h"
#include "support/cases.h"
#include "support/sourcesearch.h"

using namespace Qt::StringLiterals;
using Answers = QMap<QString, HttpAnswer>; // by path

namespace {

const QString las = u"LyricsAndSongsInterface"_s;
const QString leo = u"LeosLyricsInterface"_s;
const QString ask = u"AskLyricsInterface"_s;
const QStringList sources{las, leo, ask};

/// A page that is long enough to be one.
HttpAnswer page(const QByteArray &content)
{
    return {.body = "<html>" + content + "</html>" + QByteArray(100, ' ')};
}

/// A row of results.
QByteArray rowOf(const QString &source, const QByteArray &artist, const QByteArray &title,
                 const QByteArray &link)
{
    const QByteArray cells =
        "<td>" + artist + "</td><td><a href=\"" + link + "\">" + title + "</a></td>";
    return source == las ? "<tr><td>1</td>" + cells + "<td>*</td></tr>"
                         : "<tr>\r" + cells + "</tr>";
}
QByteArray askRow(const QByteArray &name, const QByteArray &link)
{
    return "<li><a href=\"" + link + "\">" + name + "</a></li>";
}

HttpAnswer results(const QString &source, const QByteArray &rows, const QByteArray &rest = {})
{
    return page((source == las ? "<table class=\"found\">" : "<table class=\"results\">") + rows
                + "</table>" + rest);
}
HttpAnswer list(const QByteArray &kind, const QByteArray &rows)
{
    return page("<ul class=\"" + kind + "\">" + rows + "</ul>");
}

HttpAnswer song(const QString &source, const QByteArray &words)
{
    if (source == las)
        return page("<div class=\"lyrics\">" + words + "</div></div>");
    return page(source == leo ? "<p class=\"lyrics\">" + words + "</p>"
                              : "<pre class=\"lyrics\">" + words + "</pre>");
}

/// A site that has the song.
Answers siteOf(const QString &source)
{
    Answers site{{u"/1"_s, song(source, "la la")}, {u"/2"_s, song(source, "lo lo")}};
    if (source == ask) {
        site[u"/search"_s] = list("artists", askRow("Nila Oster", "songs"));
        site[u"/songs"_s] = list("songs", askRow("First Light", "1"));
    } else {
        site[u"/search"_s] = results(source, rowOf(source, "Nila Oster", "First Light", "1"));
    }
    return site;
}

QString queryKeyOf(const QString &source)
{
    return source == ask ? u"queryArtist"_s : u"queryArtistTitle"_s;
}

} // namespace

class TestLyricsSources : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void searches_data()
    {
        // Behind the first page.
        const Table<QString, Answers, QString, QString, SearchedSong, QVariantMap> row(
            "source", "changedPages", "lyrics", "fetched", "song", "changes");
        const auto first = [](const HttpAnswer &answer) { return Answers{{u"/search"_s, answer}}; };
        const auto listed = [&](const QString &source, const QByteArray &rows,
                                const QByteArray &rest = {}) {
            return first(results(source, rows, rest));
        };
        const QByteArray right = rowOf(las, "Nila Oster", "First Light", "1");
        const QByteArray leosRight = rowOf(leo, "Nila Oster", "First Light", "1");
        // A list of one row, and whether it is taken for the song.
        const auto one = [&](const char *name, const QString &source, const QByteArray &artist,
                             const QByteArray &title, bool isTaken,
                             const SearchedSong &searched = {}) {
            row(name, source, listed(source, rowOf(source, artist, title, "1")),
                isTaken ? u"la la"_s : QString(), isTaken ? u"/1"_s : QString(), searched);
        };
        const SearchedSong signs{.title = u"First & Light"_s};

        one("title equal but for case and signs", las, "nila oster", "FIRST-light!", true);
        one("title that contains the song's", las, "Nila Oster", "First Light of Day", false);
        one("artist within another, with substrings", las, "Trio of Nila Oster", "First Light",
            true, {.substrings = Substrings::Allow});
        one("references in rows stay", las, "Nila Oster", "First &amp; Light", false, signs);
        one("references in rows are undone", leo, "Nila Oster", "First &#38; Light", true, signs);

        row("the first match alone is followed", las,
            listed(las,
                   rowOf(las, "Ann", "First Light", "2") + right
                       + rowOf(las, "Nila", "First Light", "2")),
            u"la la"_s, u"/1"_s);
        row("links that lead nowhere", las,
            listed(las,
                   rowOf(las, "Nila Oster", "First Light", "")
                       + rowOf(las, "Nila Oster", "First Light", "file:///1")
                       + rowOf(las, "Nila Oster", "First Light", QByteArray(5000, 'x')) + right),
            u"la la"_s, u"/1"_s);
        row("page without the head", las, {{u"/1"_s, page("la la</div>")}}, {}, u"/1"_s);
        row("UTF-8 that is none is Windows-1252", las, {{u"/1"_s, song(las, "l\xE9 l\x92 la")}},
            u"lé l’ la"_s, u"/1"_s);
        row("a charset of the definition counts", las, {{u"/1"_s, song(las, "l\xC3\xA9")}},
            u"lĂŠ"_s, u"/1"_s, {}, {{u"charset"_s, u"ISO-8859-2"_s}});

        const QByteArray others = rowOf(leo, "Ann", "First Light", "2");
        const QByteArray next = "<a class=\"next\" href=\"next?a&amp;b\">Next</a>";
        const Answers twoPages{{u"/search"_s, results(leo, others, next)},
                               {u"/next?a&b"_s, results(leo, leosRight)}};
        row("next page", leo, twoPages, u"la la"_s, u"/next?a&b /1"_s);
        row("further pages are not wanted", leo, twoPages, {}, {}, {}, {{u"keepLooking"_s, false}});
        row("no next page behind a match", leo, listed(leo, leosRight, next), u"la la"_s, u"/1"_s);
        row("next page that is the page itself", leo,
            listed(leo, others, "<a class=\"next\" href=\"search\">"), {}, {});
        row("match without a link", leo,
            listed(leo, "<tr><td>Nila Oster</td><td>First Light</td></tr>", next), {},
            u"/next?a&b"_s);

        row("artist of that very name before one that begins so", ask,
            {{u"/search"_s,
              list("artists", askRow("Nila", "none") + askRow("Nila Oster", "songs"))}},
            u"la la"_s, u"/songs /1"_s);
        row("others", ask, {{u"/songs"_s, list("songs", askRow("First", "1"))}}, {}, u"/songs"_s);

        // What holds for all of them.
        for (const QString &source : sources) {
            const QString way = source == ask ? u"/songs /1"_s : u"/1"_s;
            row("a song that is there", source, {}, u"la la"_s, way);
            row("lyrics in UTF-8", source, {{u"/1"_s, song(source, "l\xC3\xA0 &amp; la")}},
                u"là & la"_s, way);
            row("no artist", source, {}, {}, u"-"_s, {.artist = {}});
            row("no title", source, {}, {}, u"-"_s, {.title = {}});
            row("title without letters to search", source, {}, {}, u"-"_s, {.title = u"Ключ"_s});
            row("words that would fill the song's file", source,
                {{u"/1"_s, song(source, QByteArray(300'000, 'x'))}}, {}, way);
        }
    }
    void searches()
    {
        QFETCH(QString, source);
        QFETCH(SearchedSong, song);
        QFETCH(QVariantMap, changes);
        QFETCH(Answers, changedPages);
        serve(source, changedPages);
        QTEST(search(source, song, changes), "lyrics");
        QStringList paths = mScene->server.paths();
        QTEST(paths.isEmpty() ? u"-"_s : paths.sliced(1).join(u' '), "fetched");
    }

    void pagesWithoutEndAreLeft()
    {
        Answers pages;
        for (int number = 1; number < 30; ++number)
            pages[u"/search%1"_s.arg(number)] =
                results(leo, rowOf(leo, "Ann", "Low Tide", "2"),
                        "<a class=\"next\" href=\"search" + QByteArray::number(number + 1) + "\">");
        pages[u"/search"_s] = pages.value(u"/search1"_s);
        serve(leo, pages);
        search(leo, {});
        QCOMPARE(mScene->server.paths().size(), 20);
    }

    void baseURLStandsBeforeLinks()
    {
        serve(leo, {{u"/sub/1"_s, song(leo, "sub")}});
        const QString base = mScene->server.url(u"/sub/"_s).toString();
        QCOMPARE(search(leo, {}, {{u"baseURL"_s, base}}), u"sub"_s);
    }

    void cleaning_data()
    {
        const Table<QString, QString, QString> row("cleaning", "markup", "lyrics");
        addCases(row, "lyricscleaning");
        // Going through these again and again would run into the time limit of the test programs.
        const int many = 300'000;
        row("nested deeply", las, u"[ad]"_s.repeated(many) + u"a"_s,
            u"[ad]"_s.repeated(many) + u"a"_s);
        row("joined deeply", las,
            u"[a"_s.repeated(many) + u"[ad][/ad]"_s + u"d][/ad]"_s.repeated(many), {});
        row("many line ends", leo,
            u"a"_s + u"\r"_s.repeated(many) + u"\n"_s.repeated(many) + u" \n"_s.repeated(many)
                + u"<br />"_s.repeated(many) + u"&#10;"_s.repeated(many) + u"b"_s,
            u"a\n\nb"_s);
    }
    void cleaning()
    {
        QFETCH(QString, cleaning);
        QFETCH(QString, markup);
        QTEST(cleaning == las ? LyricsPage::lyricsAndSongsLyrics(markup, u"[ad]"_s, u"[/ad]"_s)
                  : cleaning == leo ? LyricsPage::leosLyrics(markup, u"<br />"_s)
                                    : LyricsPage::askLyrics(markup),
              "lyrics");
    }

private:
    void serve(const QString &source, const Answers &changed)
    {
        mScene = std::make_unique<SampleSiteScene>();
        Answers site = siteOf(source);
        site.insert(changed);
        for (const auto &[path, answer] : site.asKeyValueRange())
            mScene->server.serve(path, answer);
    }

    /// The lyrics that were found, and nothing where none were.
    QString search(const QString &source, const SearchedSong &song, const QVariantMap &changes = {})
    {
        const QVariantMap definition =
            mScene->definition(source, {{queryKeyOf(source), u"search"_s}}, changes);
        const AlbumList albums = source == las
            ? mScene->search<LyricsAndSongsInterface>(song, definition)
            : source == leo ? mScene->search<LeosLyricsInterface>(song, definition)
                            : mScene->search<AskLyricsInterface>(song, definition);
        QStringList found;
        for (const AlbumInfo &album : albums)
            found << album.name().value_or(QString())
                    + album.lyrics().value(*song.title, u"no lyrics"_s);
        return found.join(u'|');
    }

    std::unique_ptr<SampleSiteScene> mScene;
};

QTEST_GUILESS_MAIN(TestLyricsSources)
#include "tst_lyricssources.moc"
