#include "sources/cduniverseinterface.h"

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

const QByteArray knownMarkup =
    R"(<font color="#006699" size="3"><b><i>Salt</i> & Iron - Import</b>)"
    R"(<a href="/sresult.asp?x=1">Nila Oster </a>Orig Year: </td><td>May 1987 (1971)</td>)"
    R"(Street Date: </td><td>1999</td>Category: </td><td>Folk / Rock</td>)"
    R"(<td class="track1">Low Tide / Nila Oster</td>)"
    R"(<table cellPadding=0 cellSpacing=0><tr><td><table cellspacing="0" cellpadding="0" )"
    R"(align=left border=0><tr><td><img src="/a.jpg">)";

const Song compilation{.isCompilation = true};
const Song substrings{.alternateArtist = u"Oster Nila"_s, .substrings = Substrings::Allow};

} // namespace

class TestCDUniverseInterface : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void searches_data()
    {
        const Table<Song, HttpAnswer, QStringList, QVariantMap> add("song", "results", "albums",
                                                                    "changes");
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
        add("compilation: heading is title", compilation, artistPage("Salt &amp; Iron", one),
            {salt});
        add("compilation: unless substrings are allowed",
            {.substrings = Substrings::Allow, .isCompilation = true},
            artistPage("Salt &amp; Iron Live", one + three), {salt, other});
        add("one of several artists", {}, artists(linked("artist/2", "Someone Else") + good),
            {salt});
        add("compilation: artists are followed without a test", compilation,
            artists(linked("artist/3", "Somebody")), {salt});
        add("artists in a circle", {}, artists(good + linked("artist/loop", "Nila Oster")), {salt});
        add("no artist", {.artist = {}}, artistPage("Nila Oster", one), {});
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
        for (const char *key : {"queryArtistName", "artistBegin", "albumBegin", "albumEnd",
                                "albumListParse", "parseAlbumArtist", "parseAlbumTitle"})
            add(key, {}, artistPage("Nila Oster", one), {}, {{QString::fromLatin1(key), {}}});
    }
    void searches()
    {
        QFETCH(Song, song);
        QFETCH(QVariantMap, changes);
        QFETCH(HttpAnswer, results);
        QTEST(namesOf(search(song, changes, results)), "albums");
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
        row("title of nothing but parentheses", album("Nila Oster", "(Untitled)"), {});
        row("another artist", album("Nila Oster Trio", "Salt"), {});
        add("genre and first year",
            "<tr class=\"genre\"><td>Genre</td><td>Folk / Rock</td></tr>"
            "<tr class=\"first\"><td>First</td><td>1987</td></tr>"
            "<tr class=\"released\"><td>Released</td><td>2004</td></tr>",
            u"1987|Folk/Rock|-|-"_s);
        add("artist behind the last delimiter of a title",
            "<td class=\"track1\"><b>One / Nila Oster</b><td class=\"track2\">Two / Someone<"
            "td class=\"track3\">A / B / NILA OSTER<td class=\"track4\">D - Nila Oster<",
            u"-|-|One,Two / Someone,A / B,D - Nila Oster|-"_s);
        add("empty title ends the list, and so does a gap",
            "<td class=\"track1\">One<td class=\"track2\">&nbsp;<td class=\"track3\">Three<",
            u"-|-|One|-"_s);
        add("picture of the site", "<div class=\"cover\"><IMG alt=\"\" SRC=\"c/1.jpg\"></DIV>",
            u"-|-|-|%1c/1.jpg"_s);
        // Looking for each number from the front again would take minutes here.
        add("endless page", QByteArray("<td class=\"track1\">").repeated(1'500'000), u"-|-|-|-"_s);
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

    void knownMarkupIsReadWhereTheDefinitionSaysSo()
    {
        const HttpAnswer list = artistPage("Nila Oster", linked("album/known", "Salt &amp; Iron"));
        QCOMPARE(search({}, {}, list).size(), 0);
        QCOMPARE(shown(search({}, {{u"ownMarkers"_s, 1}}, list)),
                 QStringList{u"Nila Oster|Salt & Iron|1971|Folk/Rock|Low Tide|/a.jpg"_s});
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
        server.serve(u"/artists?name=Nila%20Oster"_s, results);
        server.serve(u"/albums?title=Salt%20%20Iron"_s, results);
        const QVariantMap definition =
            mScene->definition(u"CDUniverseInterface"_s,
                               {{u"queryArtistName"_s, u"artists?name=%@"_s},
                                {u"queryAlbumTitle"_s, u"albums?title=%@"_s},
                                {u"multiURLPrefix"_s, {}},
                                {u"rootURLPrefix"_s, {}}},
                               changes);
        return mScene->search<CDUniverseInterface>(song, definition);
    }

    std::unique_ptr<SampleSiteScene> mScene;
};

QTEST_GUILESS_MAIN(TestCDUniverseInterface)
#include "tst_cduniverseinterface.moc"
