#include "sources/asklyricsinterface.h"
#include "sources/leoslyricsinterface.h"
#include "sources/lyricsandsongsinterface.h"

#include "base/texts.h"
#include "gathering/librarylending.h"
#include "gathering/songinfotask.h"
#include "sources/builtinsources.h"
#include "sources/lyricspage.h"
#include "support/songs.h"
#include "support/sourcesearch.h"
#include "support/table.h"

#include <QSignalSpy>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using Answers = QMap<QString, HttpAnswer>; // by path
using Cleaning = std::function<QString(const QString &)>;

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
    void initTestCase() { installTexts(); }

    void searches_data()
    {
        const Table<QString, SearchedSong, QVariantMap, Answers, QString, QString> table(
            "source", "song", "changes", "changedPages", "lyrics", "fetched");
        // Behind the first page.
        const auto row = [&](const char *name, const QString &source, const Answers &changed,
                             const QString &lyrics, const QString &fetched,
                             const SearchedSong &searched = {}, const QVariantMap &changes = {}) {
            table(name, source, searched, changes, changed, lyrics, fetched);
        };
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
        one("alternate artist", las, "Oster Nila", "First Light", true,
            {.alternateArtist = u"Oster Nila"_s});
        one("artist within another", las, "Trio of Nila Oster", "First Light", false);
        one("the same with substrings", las, "Trio of Nila Oster", "First Light", true,
            {.substrings = Substrings::Allow});
        one("references in rows are not undone", las, "Nila Oster", "First &amp; Light", false,
            signs);
        one("references in rows are undone", leo, "Nila Oster", "First &#38; Light", true, signs);

        row("the first match alone is followed", las,
            listed(las,
                   rowOf(las, "Ann", "First Light", "2") + right
                       + rowOf(las, "Nila", "First Light", "2")),
            u"la la"_s, u"/1"_s);
        row("artist in the first cell", las,
            listed(las,
                   "<tr><td>Nila Oster</td><td><a href=\"1\">First Light</a></td><td>1</td>"
                   "<td>*</td></tr>"),
            u"la la"_s, u"/1"_s);
        row("rows of three and five cells", las,
            listed(las,
                   "<tr><td>1</td><td>Nila Oster</td><td><a href=\"2\">First Light</a></td></tr>"
                       + QByteArray(right).replace("</tr>", "<td></td></tr>")),
            {}, {});
        row("links that lead nowhere", las,
            listed(las,
                   rowOf(las, "Nila Oster", "First Light", "")
                       + rowOf(las, "Nila Oster", "First Light", "file:///1")
                       + rowOf(las, "Nila Oster", "First Light", QByteArray(5000, 'x')) + right),
            u"la la"_s, u"/1"_s);
        row("page without the head", las, {{u"/1"_s, page("la la</div>")}}, {}, u"/1"_s);
        row("page without the foot", las, {{u"/1"_s, page("<div class=\"lyrics\">la la")}}, {},
            u"/1"_s);
        row("UTF-8 that is none is Windows-1252", las, {{u"/1"_s, song(las, "l\xE9 l\x92 la")}},
            u"lé l’ la"_s, u"/1"_s);
        row("a charset of the definition counts", las, {{u"/1"_s, song(las, "l\xC3\xA9")}},
            u"lĂŠ"_s, u"/1"_s, {}, {{u"charset"_s, u"ISO-8859-2"_s}});

        row("rows of one and three cells", leo,
            listed(leo,
                   "<tr><td>First Light</td></tr>"
                       + QByteArray(leosRight).replace("</tr>", "<td></td></tr>")),
            {}, {});
        const QByteArray others = rowOf(leo, "Ann", "First Light", "2");
        const QByteArray next = "<a class=\"next\" href=\"next?a&amp;b\">Next</a>";
        const Answers twoPages{{u"/search"_s, results(leo, others, next)},
                               {u"/next?a&b"_s, results(leo, leosRight)}};
        row("next page", leo, twoPages, u"la la"_s, u"/next?a&b /1"_s);
        row("further pages are not wanted", leo, twoPages, {}, {}, {}, {{u"keepLooking"_s, false}});
        row("no further page behind a match", leo, listed(leo, leosRight, next), u"la la"_s,
            u"/1"_s);
        row("no further page behind one without rows", leo, listed(leo, {}, next), {}, {});
        row("next page that is the page itself", leo,
            listed(leo, others, "<a class=\"next\" href=\"search\">"), {}, {});
        row("match without a link", leo,
            listed(leo, "<tr><td>Nila Oster</td><td>First Light</td></tr>", next), {},
            u"/next?a&b"_s);

        row("artist of that very name before one that begins so", ask,
            {{u"/search"_s,
              list("artists", askRow("Nila", "none") + askRow("Nila Oster", "songs"))}},
            u"la la"_s, u"/songs /1"_s);
        row("artist that begins so", ask,
            {{u"/search"_s, list("artists", askRow("Ann", "none") + askRow("Nila", "songs"))}},
            u"la la"_s, u"/songs /1"_s);
        row("other songs", ask, {{u"/songs"_s, list("songs", askRow("First", "1"))}}, {},
            u"/songs"_s);
        row("marker of links missing", ask, {}, u"la la"_s, u"/songs /1"_s, {},
            {{u"linkPrefix"_s, u"no such"_s}});

        // What holds for all of them.
        for (const QString &source : sources) {
            const QString way = source == ask ? u"/songs /1"_s : u"/1"_s;
            row("a song that is there", source, {}, u"la la"_s, way);
            row("lyrics in UTF-8", source, {{u"/1"_s, song(source, "l\xC3\xA0 &amp; la")}},
                u"là & la"_s, way);
            row("no artist", source, {}, {}, u"-"_s, {.artist = {}});
            row("no title", source, {}, {}, u"-"_s, {.title = {}});
            row("title of which no letter is searched", source, {}, {}, u"-"_s,
                {.title = u"Ключ"_s});
            row("no address", source, {}, {}, u"-"_s, {}, {{queryKeyOf(source), QString()}});
            row("no list", source, first(page("nothing found")), {}, {});
            row("garbage", source, first({.body = QByteArray(5000, '\xFF')}), {}, {});
            row("reset", source, first({.then = HttpAnswer::Then::Reset}), {}, {});
            row("endless page", source,
                first({.body = QByteArray(100'000, '<'), .then = HttpAnswer::Then::RepeatBody}), {},
                {});
            row("words that would fill the song's file", source,
                {{u"/1"_s, song(source, QByteArray(300'000, 'x'))}}, {}, way);
            row("tags without words", source, {{u"/1"_s, song(source, "<b> </b>\n")}}, {}, way);
            row("lyrics page fails", source, {{u"/1"_s, {.status = 500}}}, {}, way);
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

    void queryHoldsLettersAndDigits()
    {
        serve(las, {});
        search(
            las, {.artist = u"The Ànd&Or"_s, .title = u"A Q&A #1"_s},
            {{queryKeyOf(las), QString(mScene->server.url(u"/"_s).toString() + u"?a=%@&t=%@"_s)}});
        QCOMPARE(mScene->server.paths(), QStringList{u"/?a=AndOr&t=QA+1"_s});
    }

    void shortPagesAreFetchedAfresh()
    {
        serve(leo, {{u"/1"_s, {.body = QByteArray(99, 'x')}}});
        QCOMPARE(search(leo, {}), QString());
        QCOMPARE(search(leo, {}), QString());
        QCOMPARE(mScene->server.paths().count(u"/1"_s), 2);
        QCOMPARE(mScene->server.paths().count(u"/search"_s), 1);
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

    void failureIsTold()
    {
        serve(ask, {{u"/1"_s, page("busy" + QByteArray(2000, 'x'))}});
        const QString line =
            u"Failed getting lyrics for Nila Oster/First Light from %1:\n<html>busy%2"_s;
        QTest::ignoreMessage(
            QtWarningMsg,
            qPrintable(line.arg(mScene->server.url(u"/1"_s).toString(), QString(490, u'x'))));
        QCOMPARE(search(ask, {}), QString());
    }

    void cleaning_data()
    {
        const Table<Cleaning, QString, QString> row("cleaning", "markup", "lyrics");
        const Cleaning lasClean = [](const QString &markup) {
            return LyricsPage::lyricsAndSongsLyrics(markup, u"[ad]"_s, u"[/ad]"_s);
        };
        const Cleaning leoClean = [](const QString &markup) {
            return LyricsPage::leosLyrics(markup, u"<br />"_s);
        };
        row("advertisements", lasClean, u"a[ad]x[/ad]b[ad][/ad]c"_s, u"abc"_s);
        row("nested ones, one after another", lasClean, u"a[ad]x[ad]y[/ad]b[ad]z[/ad]c"_s,
            u"abc"_s);
        row("beginning that a deletion joins", lasClean, u"a[a[ad]x[/ad]d]y[/ad]b"_s, u"ab"_s);
        row("advertisement without an end", lasClean, u"a[ad]x[/ad][ad]b"_s, u"a[ad]b"_s);
        row("line ends and blanks behind them", lasClean, u"\n a\r\r\n   b\r\n\r\n\r\n\r\nc \n"_s,
            u"a\nb\n\nc"_s);
        row("tags before references", lasClean, u"<b>I</b> &lt;3 <br>\nyou"_s, u"I <3 \nyou"_s);
        row("references are undone last", lasClean, u"&#10;a&#10;&#10;&#10;b"_s, u"\na\n\n\nb"_s);

        row("marked line ends", leoClean, u"\r\na<br />\r\nb \r\n\r\n<br />\r<br />c\nd<br />"_s,
            u"a\nb\n\nc\nd"_s);
        row(
            "marker of one character",
            [](const QString &markup) { return LyricsPage::leosLyrics(markup, u"|"_s); }, u"a|b|"_s,
            u"a\nb"_s);
        row("no line end is marked", leoClean, u"a \r\nb\r\r\rc"_s, u"a\nb\n\nc"_s);
        row("references that are line ends", leoClean, u"a&#13;&#10;b&#32;&#10;&#10;&#10;c&#60;"_s,
            u"a\nb\n\nc<"_s);

        row("breaks in either case", LyricsPage::askLyrics, u"<pre x>a<br>b<BR><br><BR>c\nd"_s,
            u"a\nb\n\nc\nd"_s);

        // Going through these again and again would run into the time limit of the test programs.
        const int many = 300'000;
        row("nested deeply", lasClean, u"[ad]"_s.repeated(many) + u"a"_s,
            u"[ad]"_s.repeated(many) + u"a"_s);
        row("joined deeply", lasClean,
            u"[a"_s.repeated(many) + u"[ad][/ad]"_s + u"d][/ad]"_s.repeated(many), {});
        row("many line ends", leoClean,
            u"a"_s + u"\r"_s.repeated(many) + u"\n"_s.repeated(many) + u" \n"_s.repeated(many)
                + u"<br />"_s.repeated(many) + u"&#10;"_s.repeated(many) + u"b"_s,
            u"a\n\nb"_s);
    }
    void cleaning()
    {
        QFETCH(Cleaning, cleaning);
        QFETCH(QString, markup);
        QTEST(cleaning(markup), "lyrics");
    }

    void songGetsItsLyrics_data()
    {
        const Table<bool> row("parallel");
        row("serial", false);
        row("parallel", true);
    }
    /// Beside a source of albums that knows two of them.
    void songGetsItsLyrics()
    {
        QFETCH(bool, parallel);
        serve(leo, {});
        HttpServer &server = mScene->server;
        server.serve(u"/albums"_s,
                     {.body =
                          "<table class=\"results\"><tr><td></td><td>1</td><td>Nila Oster / A</td>"
                          "</tr><tr><td></td><td>2</td><td>Nila Oster / B</td></tr></table>"});
        for (const char *disc : {"1", "2"})
            server.serve(u"/disc"_s + QString::fromLatin1(disc),
                         {.body = "DTITLE=Nila Oster / " + QByteArray(disc)
                              + "\nDYEAR=1998\nTTITLE0=First Light\n"});
        const QString albums = u"FreeDBInterface"_s;
        const SiteDefinitions definitions(QVariantMap{
            {u"sourcelist"_s, QStringList{albums, leo}},
            {u"res_"_s + leo, mScene->definition(leo, {{queryKeyOf(leo), u"search"_s}})},
            {u"res_"_s + albums,
             mScene->definition(
                 albums, {{u"queryPOST"_s, u"albums"_s}, {u"discInfoURL"_s, u"disc%@"_s}})}});
        const QTemporaryDir folder;
        const auto written = writtenSong(folder.filePath(u"song.mp3"_s),
                                         {.title = u"First Light"_s, .artist = u"Nila Oster"_s});
        LibraryLending lending({written});
        const SourceCatalog catalog = builtInSources();
        GatherContext context{mScene->queue, catalog, definitions, lending};
        SongInfoTask task(written, context);
        task.setParallelMode(parallel);
        task.setGatherFlags(Assets(AssetAlbumName) | AssetYear | AssetLyrics);
        QSignalSpy finished(&task, &SongInfoTask::finished);
        task.gather();
        QVERIFY(finished.wait(20'000));
        QCOMPARE(written->infotag()->lyrics(), u"la la"_s);
        QCOMPARE(task.sourcesOfAssets(), (QMap<Asset, QString>{{AssetLyrics, leo}}));
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
        QVariantMap definition = mScene->definition(source, {{queryKeyOf(source), u"search"_s}});
        definition.insert(changes);
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
