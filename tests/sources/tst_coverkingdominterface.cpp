#include "sources/coverkingdominterface.h"

#include "support/sourcesearch.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace {

using Song = SearchedSong;

QByteArray album(const QByteArray &folder, const QByteArray &title = "Nila Oster - Salt & Iron")
{
    return "<li><a href=\"" + folder + "\">" + title + "</a></li>\n";
}

QByteArray scan(const QByteArray &index, const QByteArray &file, const char *side = "Front")
{
    return "scan([" + index + "],\"" + file + "\",\"" + side + "\");\n";
}

QByteArray page(const QByteArray &albums, const QByteArray &scans)
{
    return "<html><h1>Audio covers</h1><ul id=\"albums\">" + albums + "</ul><script id=\"scans\">"
        + scans + "</script></html>";
}
} // namespace

class TestCoverKingdomInterface : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void searches_data()
    {
        // pictures: behind "coverAudioPrefix"
        const Table<Song, QVariantMap, HttpAnswer, QStringList> table("song", "changes", "index",
                                                                      "pictures");
        const auto add = [&](const char *name, const HttpAnswer &index, const QStringList &pictures,
                             const Song &song = {}, const QVariantMap &changes = {}) {
            table(name, song, changes, index, pictures);
        };
        const auto lists = [](const QByteArray &albums, const QByteArray &scans) {
            return HttpAnswer{.body = page(albums, scans)};
        };
        const QByteArray salt = album("salt");
        const QByteArray front = scan("0", "f.jpg");
        const QByteArray twoCells = "<li><a href=\"x\">A</a><a href=\"y\">B</a></li>";

        add("front of the right album",
            lists(album("x", "Nila Oster - Harbour") + salt,
                  scan("0", "x.jpg") + scan("1", "b.jpg", "Back") + scan("1", "f.jpg")),
            {u"N/salt_f.jpg"_s});
        add("compilation is filed under the artist, by its title alone",
            lists(salt + album("various", "Salt and Iron"), front + scan("1", "v.jpg")),
            {u"N/various_v.jpg"_s}, {.isCompilation = true});
        add("first of two rows with one title counts",
            lists(salt + album("again"), scan("1", "1.jpg") + front + scan("0", "2.jpg")),
            {u"N/again_1.jpg"_s});
        add("titles that differ and are simply equal all count",
            lists(salt + album("b", "NILA OSTER: Salt Iron"), front + scan("1", "b.jpg")),
            {u"N/b_b.jpg"_s, u"N/salt_f.jpg"_s});
        add("index past the list is skipped", lists(salt, front + scan("1", "x.jpg")),
            {u"N/salt_f.jpg"_s});
        add("indexes that are no numbers are skipped",
            lists(salt,
                  front + scan("-1", "a") + scan("99999999999999999999", "b") + scan("x", "c")
                      + scan("", "d") + "scan(\"Front\");scan([0);scan(]0[,\"Front\");"),
            {u"N/salt_f.jpg"_s});
        add("album of two cells ends the walk from the last scan to the first",
            lists(salt + twoCells + album("late", "Nila Oster - Salt Iron"),
                  front + scan("1", "x.jpg") + scan("2", "l.jpg")),
            {u"N/late_l.jpg"_s});
        add("album of two cells behind the list's end ends nothing",
            lists(salt + twoCells, front + scan("2", "x.jpg")), {u"N/salt_f.jpg"_s});
        add("empty pieces are none",
            lists(album("") + album("s", ""), scan("0", "1") + scan("1", "2")), {});
        add("empty file leaves the later row's", lists(salt, scan("0", "") + front),
            {u"N/salt_f.jpg"_s});
        add("blank before the file's name makes it empty",
            lists(salt, "scan([0], \"f.jpg\",\"Front\");"), {});
        add("cells cut short",
            lists("<li><a href=\"salt</a></li><li><a></a></li>",
                  front + scan("1", "x") + "scan([0],\"Front\");scan([0],x\"Front\");"),
            {});
        add("no artist", lists(salt, front), {}, {.artist = {}});
        add("no album", lists(salt, front), {}, {.album = {}});
        add("empty album matches nothing", lists(album("s", "&"), front), {},
            {.album = QString(), .isCompilation = true});
        add("no list of scans",
            {.body = "<ul id=\"albums\">" + salt + "</ul>" + QByteArray(99, ' ')}, {});
        add("garbage", {.body = QByteArray(5000, '\xFF')}, {});
        add("reset", {.then = HttpAnswer::Then::Reset}, {});
        add("endless scans of one endless album",
            lists(album("salt", QByteArray(2'000'000, 'x')), front.repeated(200'000)), {});
        for (const char *key :
             {"baseURL", "query", "coverAudioPrefix", "mainListParse", "resourceListParse"})
            add(key, lists(salt, front), {}, {}, {{QString::fromLatin1(key), QString()}});
    }
    void searches()
    {
        QFETCH(Song, song);
        QFETCH(QVariantMap, changes);
        QFETCH(HttpAnswer, index);
        SampleSiteScene scene;
        scene.server.serve(u"/index/N.html"_s, index);
        QVariantMap definition = definitionAt(scene);
        definition.insert(changes);
        QStringList pictures;
        for (const AlbumInfo &found : scene.search<CoverKingdomInterface>(song, definition))
            pictures << found.artURLString().value_or(QString()).section(u"/scans/"_s, 1);
        QTEST(pictures, "pictures");
    }

    void indexPagesAreNamedByALetter_data()
    {
        const Table<Song, QString> row("song", "page");
        row("upper case", {.artist = u"nila"_s}, u"N"_s);
        row("artist of a compilation, too", {.isCompilation = true}, u"N"_s);
        row("digit", {.artist = u"3 Lanterns"_s}, u"1"_s);
        row("letter beyond Z", {.artist = u"Édouard"_s}, u"1"_s);
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
            QCOMPARE(scene.search<CoverKingdomInterface>(song, definitionAt(scene)).size(), 0);
        QCOMPARE(scene.server.paths(), (QStringList{path, path}));
    }

private:
    static QVariantMap definitionAt(const SampleSiteScene &scene)
    {
        return scene.definition(u"CoverKingdomInterface"_s,
                                {{u"baseURL"_s, QString()}, {u"coverAudioPrefix"_s, u"scans/"_s}});
    }
};

QTEST_GUILESS_MAIN(TestCoverKingdomInterface)
#include "tst_coverkingdominterface.moc"
