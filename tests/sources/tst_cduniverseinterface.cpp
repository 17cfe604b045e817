#include "sources/cduniverseinterface.h"

#include "sources/cduniversepage.h"
#include "support/sourcesearch.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace {

using Song = SearchedSong;

QByteArray linked(const QByteArray &path, const QByteArray &name)
{
    return "<td class=\"album\"><a href=\"" + path + "\">" + name + "</a></td>\n";
}

HttpAnswer artists(const QByteArray &links)
{
    return {.body = "<html><h1>Artists with a name like that</h1>\n<ul class=\"artists\">"
                + QByteArray(links).replace("<td class=\"album\">", "<li>") + "</ul></html>"};
}

HttpAnswer artistPage(const QByteArray &heading, const QByteArray &links)
{
    return {.body = "<html><h1 class=\"artist\">" + heading + "</h1><table class=\"albums\">"
                + links + "</table></html>"};
}

QByteArray album(const QByteArray &artist, const QByteArray &title, const QByteArray &rest = "")
{
    return QByteArray(100, ' ') + "<h1 class=\"title\">" + title + "</h1><h2 class=\"artist\">"
        + artist + "</h2>" + rest;
}

const QByteArray knownName = R"(<font color="#006699" size="3"><b><i>Salt</i> & Iron - Import</b>)";
const QByteArray knownArtist = R"(<a href="/sresult.asp?x=1">Oster, The </a>)";
const QByteArray knownMarkup = knownName
    + QByteArray(knownArtist).replace("Oster, The", "Nila Oster")
    + R"(<td class="track1">Low Tide / Nila Oster</td>)";

const Song compilation{.isCompilation = true};
const Song substrings{.alternateArtist = u"Oster Nila"_s, .substrings = Substrings::Allow};

} // namespace

class TestCDUniverseInterface : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void searches_data()
    {
        const Table<Song, QVariantMap, HttpAnswer, QStringList> table("song", "changes", "results",
                                                                      "albums");
        const auto add = [&](const char *name, const Song &song, const HttpAnswer &results,
                             const QStringList &albums, const QVariantMap &changes = {}) {
            table(name, song, changes, results, albums);
        };
        const QString salt = u"Salt & Iron"_s;
        const QString trio = u"Salt & Iron Live"_s;
        const QString other = u"Iron"_s;
        const QByteArray one = linked("album/1", "Salt &amp; Iron");
        const QByteArray two = linked("album/2", "Salt &amp; Iron Live");
        const QByteArray three = linked("album/3", "Iron");
        const QByteArray good = linked("artist/1", "Nila Oster");

        add("albums one of whose titles begins with the other", {},
            artistPage("Nila Oster", three + two + one), {salt});
        add("parts of titles and artists where substrings are allowed", substrings,
            artistPage("The Nila Oster Trio", one + two + three), {salt, trio});
        add("page of another artist", {}, artistPage("Someone Else", one), {});
        add("page whose heading is empty matches nothing", substrings, artistPage(" ", one), {});
        add("title without letters matches no empty name", {.album = u"?"_s},
            artistPage("Nila Oster", linked("album/1", "")), {});
        add("compilation: the heading is the title", compilation,
            artistPage("Salt &amp; Iron", one), {salt});
        add("compilation: part of the title is not enough", compilation,
            artistPage("Salt &amp; Iron Live", one), {});
        add("compilation: unless substrings are allowed",
            {.substrings = Substrings::Allow, .isCompilation = true},
            artistPage("Salt &amp; Iron Live", one + three), {salt, other});
        add("the right one of several artists", {},
            artists(linked("artist/2", "Someone Else") + good), {salt});
        add("compilation: artists are followed without a test", compilation,
            artists(linked("artist/3", "Somebody")), {salt});
        add("artists in a circle", {}, artists(good + linked("artist/loop", "Nila Oster")), {salt});
        add("query without minor words", {.artist = u"The Nila Oster"_s},
            artistPage("Nila Oster", one), {salt});
        add("no artist", {.artist = {}}, artistPage("Nila Oster", one), {});
        add("broken pages among the albums", {},
            artistPage("Nila Oster",
                       linked("album/short", "Salt") + linked("album/gone", "Salt")
                           + linked("album/reset", "Salt") + linked("album/garbage", "Salt") + one),
            {salt});
        add("links to other hosts are not followed", {},
            artistPage("Nila Oster", linked("album/1", "Salt")), {},
            {{u"rootURLPrefix"_s, u"http://localhost:1"_s}});
        const QVariantMap cells{{u"listBegin"_s, u"<table"_s},
                                {u"listEnd"_s, u"</table>"_s},
                                {u"entryBegin"_s, u"<td"_s},
                                {u"textBegin"_s, u"album/"_s},
                                {u"textEnd"_s, u"</a>"_s}};
        add("cells that begin with the link itself", substrings, artistPage("Nila Oster", one),
            {salt}, {{u"albumListParse"_s, cells}});
        add("the same with an attribute behind the link", substrings,
            artistPage("Nila Oster", linked("album/1\" class=\"x", "Salt &amp; Iron")), {salt},
            {{u"albumListParse"_s, cells}});
        add("no list", {}, {.body = QByteArray(200, ' ')}, {});
        add("list without an end", {}, {.body = artists(good).body.chopped(12)}, {});
        add("empty", {}, {}, {});
        add("reset", {}, {.then = HttpAnswer::Then::Reset}, {});
        for (const char *key : {"queryArtistName", "artistBegin", "albumBegin", "albumEnd",
                                "albumListParse", "parseAlbumArtist", "parseAlbumTitle"})
            add(key, {}, artistPage("Nila Oster", one), {}, {{QString::fromLatin1(key), {}}});
    }
    void searches()
    {
        QFETCH(Song, song);
        QFETCH(QVariantMap, changes);
        QFETCH(HttpAnswer, results);
        QStringList names;
        const AlbumList albums = search(song, changes, results);
        for (const AlbumInfo &album : albums)
            names << album.name().value_or(QString());
        QTEST(names, "albums");
    }

    void albumPages_data()
    {
        const Table<QByteArray, QString> row("page", "album");
        const auto add = [&](const char *name, const QByteArray &rest, const QString &fields) {
            row(name, album("Nila Oster", "Salt &amp; Iron", rest),
                u"Nila Oster|Salt & Iron|"_s + fields);
        };
        row("names without brackets and CD",
            album("Nila Oster (2) [DE]", "Salt (Live) [Import] CD"), u"Nila Oster|Salt|-|-|-|-"_s);
        row("CD without a blank stays", album("Nila Oster", "SaltCD"),
            u"Nila Oster|SaltCD|-|-|-|-"_s);
        row("title of nothing but parentheses", album("Nila Oster", "(Untitled)"), {});
        row("title of nothing but a reference to a blank", album("Nila Oster", "&nbsp;"), {});
        row("another artist", album("Nila Oster Trio", "Salt"), {});
        add("genre and first year",
            "<tr class=\"genre\"><td>Genre</td><td>Folk / Rock</td></tr>"
            "<tr class=\"first\"><td>First</td><td>1987</td></tr>"
            "<tr class=\"released\"><td>Released</td><td>2004</td></tr>",
            u"1987|Folk/Rock|-|-"_s);
        add("second markers",
            "<tr class=\"style\"><td>Style</td><td>Folk</td></tr>"
            "<tr class=\"released\"><td>Released</td><td>May 2004 (1987)!</td></tr>",
            u"1987|Folk|-|-"_s);
        add("too early for a year", "<tr class=\"first\"><td>First</td><td>in 1700</td></tr>",
            u"-|-|-|-"_s);
        add("artist behind the last delimiter of a title",
            "<td class=\"track1\"><b>One / Nila Oster</b><td class=\"track2\">Two / Someone<"
            "td class=\"track3\">A / B / NILA OSTER<td class=\"track4\">D - Nila Oster<",
            u"-|-|One,Two / Someone,A / B,D - Nila Oster|-"_s);
        add("empty title ends the list, and so does a gap",
            "<td class=\"track1\">One<td class=\"track2\">&nbsp;<td class=\"track3\">Three<",
            u"-|-|One|-"_s);
        add("picture of the site", "<div class=\"cover\"><IMG alt=\"\" SRC=\"c/1.jpg\"></DIV>",
            u"-|-|-|%1c/1.jpg"_s);
        add("no source between the markers", "<div class=\"cover\"></div><img src=\"c\">",
            u"-|-|-|-"_s);
        // Looking for each number from the front again would take minutes here.
        add("endless page of one marker", QByteArray("<td class=\"track1\">").repeated(1'500'000),
            u"-|-|-|-"_s);
    }
    void albumPages()
    {
        QFETCH(QByteArray, page);
        const AlbumList albums =
            search({}, {}, artistPage("Nila Oster", linked("album/page", "Salt")), page);
        QFETCH(QString, album);
        if (album.contains(u"%1"))
            album = album.arg(mScene->server.url(u"/"_s).toString());
        QCOMPARE(shown(albums).join(u'\n'), album);
    }

    void pagesInTheKnownMarkup_data()
    {
        const Table<QByteArray, QString> row("page", "album");
        const QByteArray &name = knownName;
        const QByteArray &artist = knownArtist;
        const QByteArray year =
            "Orig Year: </td><td>May 1987 (1971)</td>Street Date: </td><td>1999</td>";
        const QByteArray picture =
            R"(<table cellPadding=0 cellSpacing=0><tr><td><table cellspacing="0" cellpadding="0" )"
            R"(align=left border=0><tr><td><img src="/a.jpg">)";
        row("all of it", name + artist + year + "Category: </td><td>Folk / Rock</td>" + picture,
            u"The Oster|Salt & Iron|1971|Folk/Rock|-|/a.jpg"_s);
        row("artist in front of the name", artist + name, u"-|Salt & Iron|-|-|-|-"_s);
        row("no heading, no artist", artist, u"-|-|-|-|-|-"_s);
        row("heading without an end", name.chopped(4) + artist, u"-|-|-|-|-|-"_s);
        row("street date where the year says nothing",
            "Orig Year: </td><td>1700 BC</td>Street Date: </td><td>3 May 1999</td>",
            u"-|-|1999|-|-|-"_s);
        row("picture that stands for none", picture + "<img src=\"default_coverart.gif\">",
            u"-|-|-|-|-|-"_s);
        row("markers in another case", name.toUpper() + artist, u"-|-|-|-|-|-"_s);
        row("empty", "", u"-|-|-|-|-|-"_s);
    }
    void pagesInTheKnownMarkup()
    {
        QFETCH(QByteArray, page);
        QTEST(shown(albumWithCDUniverseHTMLData(page).value()), "album");
        QVERIFY(!albumWithCDUniverseHTMLData({}));
    }

    void knownMarkupIsReadWhereTheDefinitionSaysSo()
    {
        const HttpAnswer list = artistPage("Nila Oster", linked("album/known", "Salt &amp; Iron"));
        QCOMPARE(search({}, {}, list).size(), 0);
        QCOMPARE(shown(search({}, {{u"ownMarkers"_s, 1}}, list)),
                 QStringList{u"Nila Oster|Salt & Iron|-|-|Low Tide|-"_s});
    }

private:
    AlbumList search(const Song &song, const QVariantMap &changes, const HttpAnswer &results,
                     const QByteArray &page = {})
    {
        mScene = std::make_unique<SampleSiteScene>();
        HttpServer &server = mScene->server;
        const QByteArray one = linked("album/1", "Salt &amp; Iron");
        const QByteArray good = linked("artist/1", "Nila Oster");
        server.serve(u"/artist/1"_s, artistPage("Nila Oster", one));
        server.serve(u"/artist/2"_s, artistPage("Nila Oster", linked("album/2", "Salt")));
        server.serve(u"/artist/3"_s, artistPage("Salt &amp; Iron", one));
        server.serve(u"/artist/loop"_s, artists(good + linked("artist/loop", "Nila Oster")));
        server.serve(u"/album/1"_s, {.body = album("Nila Oster", "Salt &amp; Iron")});
        server.serve(u"/album/2"_s, {.body = album("Nila Oster Trio", "Salt &amp; Iron Live")});
        server.serve(u"/album/3"_s, {.body = album("Someone", "Iron")});
        server.serve(u"/album/known"_s, {.body = knownMarkup + QByteArray(100, ' ')});
        server.serve(u"/album/page"_s, {.body = page});
        server.serve(u"/album/short"_s, {.body = album("Nila Oster", "X").last(99)});
        server.serve(u"/album/reset"_s, {.then = HttpAnswer::Then::Reset});
        server.serve(u"/album/garbage"_s, {.body = QByteArray(5000, '\xFF')});
        server.serve(u"/artists?name=Nila%20Oster"_s, results);
        server.serve(u"/albums?title=Salt%20%20Iron"_s, results);
        QVariantMap definition = mScene->definition(u"CDUniverseInterface"_s,
                                                    {{u"queryArtistName"_s, u"artists?name=%@"_s},
                                                     {u"queryAlbumTitle"_s, u"albums?title=%@"_s},
                                                     {u"multiURLPrefix"_s, {}},
                                                     {u"rootURLPrefix"_s, {}}});
        for (const auto &[key, value] : changes.asKeyValueRange())
            value.isValid() ? static_cast<void>(definition[key] = value)
                            : static_cast<void>(definition.remove(key));
        return mScene->search<CDUniverseInterface>(song, definition);
    }

    std::unique_ptr<SampleSiteScene> mScene;
};

QTEST_GUILESS_MAIN(TestCDUniverseInterface)
#include "tst_cduniverseinterface.moc"
