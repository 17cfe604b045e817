#include "sources/freedbinterface.h"

#include "sources/freedbrecord.h"
#include "support/sourcesearch.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace {

using Song = SearchedSong;

/// A row of the results: a number, the disc, artist and title.
QByteArray row(const QByteArray &disc, const QByteArray &artistAndTitle)
{
    return "<tr><td>1</td><td><b>" + disc + "</b></td><td><a href=\"/disc\">" + artistAndTitle
        + "</a></td></tr>\n";
}

QByteArray page(int number, const QByteArray &rows, const char *rest = "")
{
    return "<html><h1>Search results, page " + QByteArray::number(number)
        + "</h1><table class=\"results\">" + rows + "</table>" + rest + "</html>";
}

constexpr char more[] = R"(<input type="submit" name="iButton" value="&gt;&gt;">)";

using Pages = QList<HttpAnswer>;

/// A record's album; records hold no pictures.
QString shownRecord(const QByteArray &record)
{
    return shown(albumWithFreeDBData(record).value()).chopped(2);
}
} // namespace

class TestFreeDBInterface : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void searches_data()
    {
        const Table<Song, QVariantMap, Pages, QStringList> table("song", "changes", "results",
                                                                 "albums");
        const auto add = [&](const char *name, const Song &song, const Pages &results,
                             const QStringList &albums, const QVariantMap &changes = {}) {
            table(name, song, changes, results, albums);
        };
        const QString salt = u"Salt & Iron"_s;
        const QString harbour = u"Harbour"_s;
        const QByteArray one = row("1", "Nila Oster / Salt &amp; Iron");
        const QByteArray two = row("2", "Nila Oster / Harbour");
        const QByteArray all = one + row("3", "Someone Else / Salt")
            + row("4", "Nila Oster Trio / Trio") + row("5", "Oster Nila Duo / Duo")
            + row("6", "Oster / Alone");
        const Song substrings{.alternateArtist = u"Oster Nila"_s, .substrings = Substrings::Allow};

        add("rows in page order", {}, {{.body = page(1, one + two)}}, {salt, harbour});
        add("rows of other artists are left out", {}, {{.body = page(1, all)}}, {salt});
        add("compilation keeps every row", {.isCompilation = true}, {{.body = page(1, all)}},
            {salt, u"Salt"_s, u"Trio"_s, u"Duo"_s, u"Alone"_s});
        add("album artist containing the alternate artist alone is dropped", substrings,
            {{.body = page(1, all)}}, {salt, u"Trio"_s, u"Alone"_s});
        add("no artist matches nothing", {.artist = {}}, {{.body = page(1, one)}}, {});
        add("empty alternate artist matches nothing", {.alternateArtist = QString()},
            {{.body = page(1, all)}}, {salt});
        add("equal discs are fetched once", {}, {{.body = page(1, one + one)}}, {salt});
        add("rows of two or four cells", {},
            {{.body = page(1,
                           "<tr><td>1</td><td>2</td></tr><tr><td>1</td><td>2</td>"
                           "<td>Nila Oster / Harbour</td><td>4</td></tr>"
                               + one)}},
            {salt});
        add("second page", {}, {{.body = page(1, one, more)}, {.body = page(2, two, more)}},
            {salt, harbour});
        add("first page again instead of a second", {},
            {{.body = page(1, one, more)}, {.body = page(1, two, more)}}, {salt});
        add("no marker of a first page: every page is one", {},
            {{.body = page(1, one, more)}, {.body = page(2, two)}}, {salt},
            {{u"firstResultsFragment"_s, QString()}});
        add("second page fails", {}, {{.body = page(1, one, more)}, {.status = 500}}, {salt});
        add("broken records among the discs", {},
            {{.body = page(1,
                           row("garbage", "Nila Oster / A") + row("empty", "Nila Oster / B")
                               + row("reset", "Nila Oster / C") + row("gone", "Nila Oster / D")
                               + one)}},
            {salt});
        add("no list on the page", {}, {{.body = "<html>Sorry</html>"}}, {});
        add("list without an end", {},
            {{.body = "<h1>Search results, page 1</h1><table class=\"results\">" + one}}, {});
        add("reset", {}, {{.then = HttpAnswer::Then::Reset}}, {});
        add("garbage", {}, {{.body = QByteArray(5000, '\xFF')}}, {});
        for (const char *key : {"queryPOST", "discInfoURL", "albumResultDelimiter"})
            add(key, {}, {{.body = page(1, one)}}, {}, {{QString::fromLatin1(key), QString()}});
    }
    void searches()
    {
        QFETCH(Song, song);
        QFETCH(QVariantMap, changes);
        QFETCH(Pages, results);
        serve(results);
        QStringList names;
        const AlbumList albums = search(song, changes);
        for (const AlbumInfo &album : albums)
            names << album.name().value_or(QString());
        QTEST(names, "albums");
    }

    void formHoldsWhatIsSearched_data()
    {
        const Table<Song, QByteArray> row("song", "rest"); // of the form, behind the button
        row("album title", {}, "&ifFields=1&ifSearch=Salt+&+Iron");
        row("song title where no album is known", {.album = {}},
            "&ifFields=2&ifSearch=First+Light");
        row("the button alone without an artist", {.artist = {}}, {});
        row("the button alone without titles", {.album = {}, .title = {}}, {});
    }
    void formHoldsWhatIsSearched()
    {
        QFETCH(Song, song);
        QFETCH(QByteArray, rest);
        serve({{.body = page(1, row("1", "Nila Oster / Salt"), more)}, {.body = page(2, {})}});
        search(song);
        QList<QByteArray> forms;
        for (const SeenRequest &request : mScene->server.requests())
            if (request.method == "POST")
                forms << request.body;
        QCOMPARE(forms, (QList<QByteArray>{"iButton=Search" + rest, "iButton=%3E%3E" + rest}));
    }

    void brokenRecordIsFetchedAfresh()
    {
        serve({{.body = page(1, row("garbage", "Nila Oster / A") + row("1", "Nila Oster / B"))}});
        search({});
        search({});
        QCOMPARE(mScene->server.paths().count(u"/disc?id=garbage"_s), 2);
        QCOMPARE(mScene->server.paths().count(u"/disc?id=1"_s), 1); // the second from the cache
    }

    void recordsAreRead_data()
    {
        const Table<QByteArray, QString> row("record", "album");
        row("artist and name", "DTITLE=Various / Hits\n", u"Various|Hits|-|-|-"_s);
        row("no delimiter: artist and name alike", "DTITLE=Hits", u"Hits|Hits|-|-|-"_s);
        row("first delimiter counts", "DTITLE=A / B / C\r\n", u"A|B / C|-|-|-"_s);
        row("slash without blanks is no delimiter", "DTITLE=Ac/Dc\n", u"Ac/Dc|Ac/Dc|-|-|-"_s);
        row("title that begins with a blank is ignored", "DTITLE= Various / Hits\n",
            u"-|-|-|-|-"_s);
        row("empty title is ignored", "DTITLE=\nDTITLE=Hits\n", u"-|-|-|-|-"_s);
        row("further lines of a title are not joined", "DTITLE=Long /\nDTITLE= Name\n",
            u"Long /|Long /|-|-|-"_s);
        row("title is cleaned", "DTITLE=LANTERNS, THE / Greatest Hits**\n",
            u"The Lanterns|Greatest Hits|-|-|-"_s);
        row("keys are in capitals", "dtitle=A / B\n", u"-|-|-|-|-"_s);
        row("year and genre", "DYEAR=1998\rDGENRE=Folk / Rock\r", u"-|-|1998|Folk/Rock|-"_s);
        row("empty year is none", "DYEAR=\nDGENRE=\n", u"-|-|-|-|-"_s);
        row("year that begins with a blank counts", "DYEAR= 1998\n", u"-|-| 1998|-|-"_s);
        row("tracks in the order of their numbers", "TTITLE1=Two\nTTITLE0=One\nTTITLE10=No\n",
            u"-|-|-|-|One,Two"_s);
        row("empty title ends the list", "TTITLE0=One\nTTITLE1=\nTTITLE2=Three\n",
            u"-|-|-|-|One"_s);
        row("track title that begins with a blank counts", "TTITLE0= One\n", u"-|-|-|-|One"_s);
        row("first line of a number counts", "TTITLE0=One\nTTITLE0=Uno\n", u"-|-|-|-|One"_s);
        row("number written otherwise is another", "TTITLE00=No\nTTITLE=No\n", u"-|-|-|-|-"_s);
        row("key behind half a key", "TTITLETTITLE0=One", u"-|-|-|-|One"_s);
        row("empty", "", u"-|-|-|-|-"_s);
        row("Latin 1 is the default", "DYEAR=\xE9", u"-|-|é|-|-"_s);
        row("endless line is cut", "DYEAR=" + QByteArray(10'000, '1'),
            u"-|-|"_s + QString(4096, u'1') + u"|-|-"_s);
    }
    void recordsAreRead()
    {
        QFETCH(QByteArray, record);
        QTEST(shownRecord(record), "album");
        QVERIFY(!albumWithFreeDBData(QByteArrayView()));
        QCOMPARE(albumWithFreeDBData("DYEAR=\xC3\xA9", u"UTF-8"_s)->year(), u"é"_s);
    }

    /// Looking for each number from the front again would take minutes here.
    void endlessRecordIsReadOnceFromTheFront()
    {
        QByteArray record;
        for (int track = 0; record.size() < 2'000'000; ++track)
            record += "TTITLE" + QByteArray::number(track) + "=x\n";
        const int tracks = albumWithFreeDBData(record)->numberOfTracks();
        QVERIFY(tracks > 10'000 && tracks < 200'000);
    }

private:
    void serve(const Pages &results)
    {
        mScene = std::make_unique<SampleSiteScene>();
        mScene->server.serveInTurn(u"/search"_s, results);
        const QList<std::pair<QString, QByteArray>> discs{
            {u"1"_s, "Nila Oster / Salt & Iron"}, {u"2"_s, "Nila Oster / Harbour"},
            {u"3"_s, "Someone Else / Salt"},      {u"4"_s, "Nila Oster Trio / Trio"},
            {u"5"_s, "Oster Nila Duo / Duo"},     {u"6"_s, "Oster / Alone"},
        };
        for (const auto &[disc, title] : discs)
            mScene->server.serve(
                u"/disc?id="_s + disc,
                {.body = "DTITLE=" + title
                     + "\nDYEAR=1998\nDGENRE=Folk\nTTITLE0=First Light\nTTITLE1=Low Tide\n"});
        mScene->server.serve(u"/disc?id=garbage"_s, {.body = "\x01\x02<html>busy</html>"});
        mScene->server.serve(u"/disc?id=empty"_s, {});
        mScene->server.serve(u"/disc?id=reset"_s, {.then = HttpAnswer::Then::Reset});
    }

    AlbumList search(const Song &song, const QVariantMap &changes = {})
    {
        QVariantMap definition = mScene->definition(
            u"FreeDBInterface"_s,
            {{u"queryPOST"_s, u"search"_s}, {u"discInfoURL"_s, u"disc?id=%@"_s}});
        definition.insert(changes);
        return mScene->search<FreeDBInterface>(song, definition);
    }

    std::unique_ptr<SampleSiteScene> mScene;
};

QTEST_GUILESS_MAIN(TestFreeDBInterface)
#include "tst_freedbinterface.moc"
