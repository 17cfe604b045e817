#include "sources/freedbinterface.h"

#include "sources/freedbrecord.h"
#include "support/cases.h"
#include "support/sourcesearch.h"

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
        const Table<Song, Pages, QStringList, QVariantMap> add("song", "results", "albums",
                                                               "changes");
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
        for (const char *key : {"queryPOST", "discInfoURL", "albumResultDelimiter"})
            add(key, {}, {{.body = page(1, one)}}, {}, {{QString::fromLatin1(key), QString()}});
    }
    void searches()
    {
        QFETCH(Song, song);
        QFETCH(QVariantMap, changes);
        QFETCH(Pages, results);
        serve(results);
        QTEST(namesOf(search(song, changes)), "albums");
    }

    void formHoldsWhatIsSearched()
    {
        // The title of the song where no album is known; the button alone without an artist.
        for (const auto &[song, rest] : {std::pair{Song{}, "&ifFields=1&ifSearch=Salt+&+Iron"_ba},
                                         {{.album = {}}, "&ifFields=2&ifSearch=First+Light"},
                                         {{.artist = {}}, ""}}) {
            serve({{.body = page(1, row("1", "Nila Oster / Salt"), more)}, {.body = page(2, {})}});
            search(song);
            QList<QByteArray> forms;
            for (const SeenRequest &request : mScene->server.requests())
                if (request.method == "POST")
                    forms << request.body;
            QCOMPARE(forms, (QList<QByteArray>{"iButton=Search" + rest, "iButton=%3E%3E" + rest}));
        }
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
        addCases(row, "freedbrecords");
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
    }

    AlbumList search(const Song &song, const QVariantMap &changes = {})
    {
        return mScene->search<FreeDBInterface>(
            song,
            mScene->definition(u"FreeDBInterface"_s,
                               {{u"queryPOST"_s, u"search"_s}, {u"discInfoURL"_s, u"disc?id=%@"_s}},
                               changes));
    }

    std::unique_ptr<SampleSiteScene> mScene;
};

QTEST_GUILESS_MAIN(TestFreeDBInterface)
#include "tst_freedbinterface.moc"
