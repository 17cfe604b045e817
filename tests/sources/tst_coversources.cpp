#include "sources/bestcoversinterface.h"
#include "sources/coverkingdominterface.h"
#include "support/cases.h"
#include "support/sourcesearch.h"

using namespace Qt::StringLiterals;

namespace {

using Song = SearchedSong;

const QString bestCovers = u"BestCoversInterface"_s;
const QString coverKingdom = u"CoverKingdomInterface"_s;

/// Lines of cells, where {s} is the searched artist and {t} the title.
QList<QByteArrayList> cellsOf(QByteArray lines)
{
    QList<QByteArrayList> cells;
    for (const QByteArray &line :
         lines.replace("{s}", "Nila Oster").replace("{t}", "Salt & Iron").split('\n'))
        cells << line.split('|');
    return cells;
}

/// A page of BestCovers: artist, title and file of each row.
HttpAnswer rowsPage(const QByteArray &lines)
{
    QByteArray page = "<h1>Covers by artist, more each week</h1><table class=\"covers\">";
    for (const QByteArrayList &row : cellsOf(lines))
        page += "<tr><td><b>" + row[0] + "</b></td><td>" + row[1] + "</td><td><a href=\"" + row[2]
            + "\">Front</a></td></tr>\n";
    return {.body = page + "</table>"};
}

/// A page of CoverKingdom: folder and title of each album, index and file of each scan.
HttpAnswer listsPage(const QByteArray &albums, const QByteArray &scans, const QByteArray &more = {})
{
    QByteArray page = "<h1>Audio covers</h1><ul id=\"albums\">";
    for (const QByteArrayList &album : cellsOf(albums))
        page += "<li><a href=\"" + album.join("\">") + "</a></li>\n";
    page += "</ul><script id=\"scans\">";
    for (const QByteArrayList &scan : cellsOf(scans))
        page += "scan([" + scan.join("],\"") + "\",\"Front\");\n";
    return {.body = page + more + "</script>"};
}

QVariantMap definitionAt(const SampleSiteScene &scene, const QString &className)
{
    QVariantMap definition = builtInDefinition(className);
    definition[u"baseURL"_s] = scene.server.url(QString()).toString(); // no slash at its end
    definition[u"query"_s] = u"/index/%@.html"_s;
    definition[u"coverAudioPrefix"_s] = scene.server.url(u"/"_s).toString();
    return definition;
}

AlbumList search(SampleSiteScene &scene, const QString &className, const Song &song,
                 const QVariantMap &definition)
{
    return className == bestCovers ? scene.search<BestCoversInterface>(song, definition)
                                   : scene.search<CoverKingdomInterface>(song, definition);
}
} // namespace

class TestCoverSources : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void searches_data()
    {
        // pictures: their addresses on the server, with blanks between
        const Table<QString, Song, QVariantMap, HttpAnswer, QString> row(
            "source", "song", "changes", "index", "pictures");
        // Name, pictures, lines of the page, kind of song; of CoverKingdom the scans, and more.
        for (const QByteArrayList &cells : casesIn("coverlists")) {
            const QByteArray kind = cells.value(3);
            Song song{.isCompilation = kind.contains("compilation")};
            song.substrings = kind.contains("substrings") ? Substrings::Allow : Substrings::Refuse;
            if (kind == "alternate")
                song.alternateArtist = u"Oster Nila"_s;
            const bool hasScans = cells.size() > 4;
            row(cells[0].constData(), hasScans ? coverKingdom : bestCovers, song, {},
                hasScans ? listsPage(cells[2], cells[4], cells.value(5)) : rowsPage(cells[2]),
                QString::fromUtf8(cells[1]));
        }
        row("scans without end of an endless album", coverKingdom, {}, {},
            listsPage("s|" + QByteArray(2'000'000, 'x'),
                      QByteArray("0|f\n").repeated(50'000) + "0|f"),
            {});
        for (const QString &source : {bestCovers, coverKingdom}) {
            const HttpAnswer good =
                source == bestCovers ? rowsPage("{s}|{t}|/1") : listsPage("s|{s} - {t}", "0|f");
            const QList<std::tuple<QString, Song, HttpAnswer>> failures{
                {u"no artist"_s, {.artist = {}}, good},
                {u"no album"_s, {.album = {}}, good},
                {u"garbage"_s, {}, {.body = QByteArray(5000, '\xFF')}}};
            for (const auto &[what, song, index] : failures)
                row(qPrintable(source + u' ' + what), source, song, {}, index, {});
            for (const char *key :
                 {"baseURL", "query", "linkBegin", "textEnd", "coverAudioPrefix", "mainListParse"})
                if (builtInDefinition(source).contains(QLatin1String(key)))
                    row(key, source, {}, {{QLatin1String(key), QString()}}, good, {});
        }
    }
    void searches()
    {
        QFETCH(QString, source);
        QFETCH(Song, song);
        QFETCH(QVariantMap, changes);
        QFETCH(HttpAnswer, index);
        SampleSiteScene scene;
        for (const char letter : {'n', 's', 'N'})
            scene.server.serve(u"/index/%1.html"_s.arg(QLatin1Char(letter)), index);
        QVariantMap definition = definitionAt(scene, source);
        definition.insert(changes);
        QStringList pictures;
        for (const AlbumInfo &album : search(scene, source, song, definition))
            pictures << QString(album.artURLString().value_or(QString()))
                            .remove(scene.server.url(QString()).toString());
        QTEST(pictures.join(u' '), "pictures");
    }

    void indexPagesAreNamedByALetter_data()
    {
        const Table<QString, Song, QString> row("source", "song", "page");
        row("lower case", bestCovers, {}, u"n"_s);
        row("title of a compilation", bestCovers, {.isCompilation = true}, u"s"_s);
        row("digit", bestCovers, {.artist = u"3 Lanterns"_s}, u"zz"_s);
        row("letter beyond z", bestCovers, {.artist = u"Édouard"_s}, u"zz"_s);
        row("upper case", coverKingdom, {.artist = u"nila"_s}, u"N"_s);
        row("artist of a compilation", coverKingdom, {.isCompilation = true}, u"N"_s);
        row("digit in capitals", coverKingdom, {.artist = u"3 Lanterns"_s}, u"1"_s);
        row("letter beyond Z", coverKingdom, {.artist = u"Édouard"_s}, u"1"_s);
    }
    /// Pages of 99 bytes are no pages, and are asked for anew by the next search.
    void indexPagesAreNamedByALetter()
    {
        QFETCH(QString, source);
        QFETCH(Song, song);
        QFETCH(QString, page);
        SampleSiteScene scene;
        const QString path = u"/index/"_s + page + u".html"_s;
        scene.server.serve(path, {.body = QByteArray(99, ' ')});
        for (int i = 0; i < 2; ++i)
            QCOMPARE(search(scene, source, song, definitionAt(scene, source)).size(), 0);
        QCOMPARE(scene.server.paths(), (QStringList{path, path}));
    }
};

QTEST_GUILESS_MAIN(TestCoverSources)
#include "tst_coversources.moc"
