#include "sources/bestcoversinterface.h"

#include "support/sourcesearch.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace {

using Song = SearchedSong;

QByteArray row(const QByteArray &first, const QByteArray &second, const QByteArray &file)
{
    return "<tr><td><b>" + first + "</b></td><td>" + second + "</td><td><a href=\"/" + file
        + "\">Front</a></td></tr>\n";
}

QByteArray page(const QByteArray &rows)
{
    return "<html><h1>Covers by artist</h1><table class=\"covers\">" + rows
        + "</table><p>More covers are added each week.</p></html>";
}
} // namespace

class TestBestCoversInterface : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void searches_data()
    {
        // pictures: behind "baseURL"
        const Table<Song, QVariantMap, HttpAnswer, QStringList> table("song", "changes", "index",
                                                                      "pictures");
        const auto add = [&](const char *name, const Song &song, const HttpAnswer &index,
                             const QStringList &pictures, const QVariantMap &changes = {}) {
            table(name, song, changes, index, pictures);
        };
        const auto rows = [](const QByteArray &text) { return HttpAnswer{.body = page(text)}; };
        const QByteArray one = row("Nila Oster", "Salt & Iron", "1");
        const QByteArray both = one + row("NILA OSTER", "Salt, and Iron", "2");
        const QByteArray artists = one + row("Nila Oster Trio", "Salt & Iron", "3")
            + row("The Nila Oster Duo", "Salt & Iron", "4") + row("Oster, Nila", "Salt & Iron", "5")
            + row("Band of Nila Oster", "Salt & Iron", "6") + row("", "Salt & Iron", "7");
        const QByteArray titles = row("Nila Oster", "Salt & Iron Live", "1")
            + row("Nila Oster", "Iron", "2") + row("Nila Oster", "", "3");
        const QByteArray compilations = row("Salt & Iron", "Various", "1")
            + row("Salt & Iron", "(Soundtrack)", "2") + row("Salt & Iron", "Various Artists", "3")
            + row("Salt & Iron Two", "various", "4") + row("Various", "Salt & Iron", "5");
        const Song substrings{.alternateArtist = u"Oster Nila"_s, .substrings = Substrings::Allow};

        add("rows in page order", {}, rows(both), {u"1"_s, u"2"_s});
        add("one name begins with the other", {.alternateArtist = u"Oster Nila"_s}, rows(artists),
            {u"1"_s, u"3"_s, u"4"_s, u"5"_s});
        add("one name contains the other", substrings, rows(artists),
            {u"1"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s});
        add("titles are equal", {}, rows(titles), {});
        add("one title contains the other", substrings, rows(titles), {u"1"_s, u"2"_s});
        add("compilation has its title first and stands under it", {.isCompilation = true},
            rows(compilations), {u"1"_s, u"2"_s});
        add("compilation whose title is contained",
            {.substrings = Substrings::Allow, .isCompilation = true}, rows(compilations),
            {u"1"_s, u"2"_s, u"4"_s});
        add("character references of a row are no characters", {},
            rows(row("Nila Oster", "Salt &amp; Iron", "1")), {});
        add("rows of two cells", {}, rows("<tr><td>Nila Oster</td><td>Salt & Iron</td></tr>" + one),
            {u"1"_s});
        add("links without an end, without a begin and empty", {},
            rows("<tr><td>Nila Oster</td><td>Salt & Iron</td><td><a href=\"1></td></tr>"
                 "<tr><td>Nila Oster</td><td>Salt & Iron</td><td><a HREF=\"2\"></td></tr>"
                 + QByteArray(one).replace("/1", "")),
            {});
        add("path that would lead to another host", {},
            rows(QByteArray(one).replace("/1", "@elsewhere.example/1") + one), {u"1"_s});
        add("no artist", {.artist = {}}, rows(one), {});
        add("empty artist matches nothing", {.artist = QString()}, rows(one), {});
        add("no album", {.album = {}}, rows(one), {});
        add("list without an end", {}, {.body = page(one).replace("</table>", "")}, {});
        add("no list", {}, {.body = "<html>" + QByteArray(200, ' ') + one + "</html>"}, {});
        add("garbage", {}, {.body = QByteArray(5000, '\xFF')}, {});
        add("reset", {}, {.then = HttpAnswer::Then::Reset}, {});
        add("huge row of nothing but cells", {},
            rows("<tr>" + QByteArray("<td></td>").repeated(1'000'000)), {});
        add("hundred thousand rows: the most albums are taken", {}, rows(one.repeated(100'000)),
            QStringList(50, u"1"_s));
        for (const char *key : {"baseURL", "query", "linkBegin", "listBegin", "textEnd"})
            add(key, {}, rows(one), {}, {{QString::fromLatin1(key), QString()}});
    }
    void searches()
    {
        QFETCH(Song, song);
        QFETCH(QVariantMap, changes);
        QFETCH(HttpAnswer, index);
        SampleSiteScene scene;
        for (const auto letter : {'n', 's', 'z'}) // by artist, by title, neither
            scene.server.serve(u"/index/%1.html"_s.arg(QLatin1Char(letter)), index);
        QVariantMap definition = definitionAt(scene);
        definition.insert(changes);
        QStringList pictures;
        for (const AlbumInfo &album : scene.search<BestCoversInterface>(song, definition))
            pictures << album.artURLString().value_or(QString()).section(u'/', 3);
        QTEST(pictures, "pictures");
    }

    void indexPagesAreNamedByALetter_data()
    {
        const Table<Song, QString> row("song", "page");
        row("lower case", {}, u"n"_s);
        row("title of a compilation", {.isCompilation = true}, u"s"_s);
        row("digit", {.artist = u"3 Lanterns"_s}, u"zz"_s);
        row("letter beyond z", {.artist = u"Édouard"_s}, u"zz"_s);
        row("empty", {.artist = QString()}, u"zz"_s);
    }
    /// Pages of 99 bytes are no pages, and are asked for anew by the next search.
    void indexPagesAreNamedByALetter()
    {
        QFETCH(Song, song);
        QFETCH(QString, page);
        SampleSiteScene scene;
        const QString path = u"/index/"_s + page + u".html"_s;
        scene.server.serve(path, {.body = QByteArray(99, ' ')});
        for (int search = 0; search < 2; ++search)
            QCOMPARE(scene.search<BestCoversInterface>(song, definitionAt(scene)).size(), 0);
        QCOMPARE(scene.server.paths(), (QStringList{path, path}));
    }

private:
    /// The site's address has no slash at its end.
    static QVariantMap definitionAt(const SampleSiteScene &scene)
    {
        QVariantMap definition = builtInDefinition(u"BestCoversInterface"_s);
        definition[u"baseURL"_s] = scene.server.url(QString()).toString();
        definition[u"query"_s] = u"/index/%@.html"_s;
        return definition;
    }
};

QTEST_GUILESS_MAIN(TestBestCoversInterface)
#include "tst_bestcoversinterface.moc"
