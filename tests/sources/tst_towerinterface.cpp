#include "sources/towerinterface.h"

#include "support/sourcesearch.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace {

using Song = SearchedSong;

QByteArray row(const QByteArray &path, const QByteArray &artist)
{
    return "<tr><td><a href=\"" + path + "\"><b class=\"title\">Any</b></a><i class=\"artist\">"
        + artist + "</i></td></tr>\n";
}

HttpAnswer page(const QByteArray &rows, const QList<QByteArray> &furtherPages = {})
{
    QByteArray links;
    for (const QByteArray &further : furtherPages)
        links += "<a href=\"/Music/page/" + further + "\">" + further + "</a>";
    if (!links.isEmpty())
        links = "<p class=\"pages\">" + links + "</p>";
    return {.body = "<html><h1>Results of the search</h1>" + links + "<table class=\"results\">"
                + rows + "</table></html>"};
}

QByteArray album(const QByteArray &artist, const QByteArray &title, const QByteArray &rest = "")
{
    return "<html><h1 class=\"title\">" + title + "</h1><p class=\"artist\">" + artist + "</p>"
        + rest + QByteArray(100, '.');
}

} // namespace

class TestTowerInterface : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void searches_data()
    {
        const Table<Song, HttpAnswer, QStringList, QVariantMap> add("song", "results", "paths",
                                                                    "changes");
        const QString first = u"/search?for=Salt%20Iron"_s;
        const QByteArray rows = row("/1", "Nila Oster") + row("/2", "Nila Oster Trio")
            + row("/3", "The Oster Nila Duo") + row("/4", "Someone");
        add("artists one of whom begins with the other", {}, page(rows), {first, u"/1"_s, u"/2"_s});
        add("parts of both forms of the artist where substrings are allowed",
            {.alternateArtist = u"Oster Nila"_s, .substrings = Substrings::Allow}, page(rows),
            {first, u"/1"_s, u"/2"_s, u"/3"_s});
        add("compilation: any artist", {.isCompilation = true}, page(rows),
            {first, u"/1"_s, u"/2"_s, u"/3"_s, u"/4"_s});
        add("song title where no album is known", {.album = {}}, page(rows),
            {u"/songs?for=First%20Light"_s, u"/1"_s, u"/2"_s});
        add("no artist", {.artist = {}}, page(rows), {});
        add("rows without title, link or artist", {},
            page(row("/1", "Nila Oster").replace("<b class=\"title\">", "<b>") + row("/2", "")
                 + row("/3", "Nila Oster").replace("href", "name")
                 + row("/4", "Nila Oster").replace("<i", "<u")),
            {first});
        add("further pages come before the albums, each once", {},
            page(rows, {"2", "3", "2", "loop"}),
            {first, u"/Music/page/3"_s, u"/Music/page/loop"_s, u"/Music/page/2"_s, u"/1"_s, u"/2"_s,
             u"/4"_s});
        add("no further pages without their marker", {}, page(rows, {"2"}),
            {first, u"/1"_s, u"/2"_s}, {{u"albumPageListIndicator"_s, QString()}});
        add("links to other hosts are not", {}, page(row("@localhost/1", "Nila Oster")), {first});
        for (const char *key : {"baseURLPrefix", "albumLinkPrefix", "albumTitleAfter",
                                "albumArtistAfter", "albumPageListIndicator", "parseAlbumList"})
            add(key, {}, page(rows), {first}, {{QString::fromLatin1(key), {}}});
    }
    void searches()
    {
        QFETCH(Song, song);
        QFETCH(QVariantMap, changes);
        QFETCH(HttpAnswer, results);
        static_cast<void>(search(song, changes, results));
        QTEST(mScene->server.paths(), "paths");
    }

    void albumPages_data()
    {
        const Table<HttpAnswer, QString> row("page", "album");
        const auto add = [&](const char *name, const QByteArray &rest, const QString &fields) {
            row(name, {.body = album("Nila Oster", "Salt &amp; Iron", rest)},
                u"Nila Oster|Salt & Iron|"_s + fields);
        };
        row("names without brackets, CD stays",
            {.body = album("Nila Oster (2)", "Salt [Import] CD")},
            u"Nila Oster|Salt  CD|-|-|-|-"_s);
        row("artist must be equal", {.body = album("Nila Oster Trio", "Salt")}, {});
        row("99 bytes are no page", {.body = album("Nila Oster", "Salt").first(99)}, {});
        add("genre behind its heading, year at once",
            "<p class=\"genre\"><b>Genre:</b> Folk</p><b>Released:</b> May 1987 / 2004 <br>",
            u"2004|Folk|-|-"_s);
        add("artist behind both delimiters",
            "<li id=\"track1\">One - Nila Oster<li id=\"track2\">Two - Nila Oster / Nila Oster"
            "<li id=\"track3\">Three / Nila Oster - Nila Oster<li id=\"track4\">Four - Someone<",
            u"-|-|One,Two,Three / Nila Oster,Four - Someone|-"_s);
        add("lines are broken anywhere in markers",
            "<img\r\n    class=\"cover\"  \r\n src=\"http://a.b/c.jpg\"><li\r\nid=\"track1\">One<",
            u"-|-|One|http://a.b/c.jpg"_s);
    }
    void albumPages()
    {
        QFETCH(HttpAnswer, page);
        const AlbumList albums = search({}, {}, ::page(row("/page", "Nila Oster")), page);
        QTEST(shown(albums).join(u'\n'), "album");
    }

private:
    AlbumList search(const Song &song, const QVariantMap &changes, const HttpAnswer &results,
                     const HttpAnswer &albumPage = {})
    {
        mScene = std::make_unique<SampleSiteScene>();
        HttpServer &server = mScene->server;
        server.serve(u"/search?for=Salt%20Iron"_s, results);
        server.serve(u"/songs?for=First%20Light"_s, results);
        server.serve(u"/Music/page/loop"_s, page(row("/4", "Nila Oster"), {"2", "3", "loop"}));
        server.serve(u"/page"_s, albumPage);
        QVariantMap all{{u"baseURLPrefix"_s, server.url({}).toString()}};
        all.insert(changes);
        const QVariantMap definition = mScene->definition(
            u"TowerInterface"_s,
            {{u"queryAlbumName"_s, u"search?for=%@"_s}, {u"querySongName"_s, u"songs?for=%@"_s}},
            all);
        return mScene->search<TowerInterface>(song, definition);
    }

    std::unique_ptr<SampleSiteScene> mScene;
};

QTEST_GUILESS_MAIN(TestTowerInterface)
#include "tst_towerinterface.moc"
