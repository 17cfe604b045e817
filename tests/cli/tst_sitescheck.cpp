#include "app/sharedtables.h"
#include "base/texts.h"
#include "cli/sitesreport.h"
#include "demo/samplesites.h"
#include "sources/builtinsources.h"
#include "sources/sitedefinitionstore.h"
#include "support/httpserver.h"
#include "support/samplesource.h"
#include "support/songs.h"
#include "support/table.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using Then = HttpAnswer::Then;

namespace {

/// A shop whose album page is asked for at once, under the name and with the keys of one.
void searchShop(SampleSource &shop)
{
    const QUrl url(shop.resources().formatted(u"queryAlbumTitle"_s, {*shop.albumTitle()}).value());
    shop.addSearchURL(url, [&shop](const FetchResult &result) {
        const auto page = shop.usablePage(result);
        const auto title = page ? shop.visibleTextOn(*page, u"parseAlbumTitle"_s) : std::nullopt;
        const auto year = page ? shop.visibleTextOn(*page, u"parseAlbumYear1"_s) : std::nullopt;
        if (!title || *title != shop.albumTitle())
            return;
        AlbumInfo album(shop.artist(), title);
        album.setYear(year);
        const auto art =
            shop.textBetweenOn(*page, u"parseAlbumArtURLBegin"_s, u"parseAlbumArtURLEnd"_s);
        if (art)
            album.setArtURLString(result.url.resolved(QUrl(*art)).toString());
        shop.addAlbum(album);
    });
}

HttpAnswer page(const QByteArray &html)
{
    return {.type = "text/html", .body = html + QByteArray(100, ' ')};
}

HttpAnswer results(const QByteArray &rows)
{
    return page("<p>Results</p><table class=\"results\">" + rows + "</table>");
}
} // namespace

class TestSitesCheck : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        installTexts();
        SiteDefinitionStore store(mSettings);
        mDefaults = store.liveResources();
        installTables(mDefaults);
    }

    void everySampleSiteHasTheKnownAlbum_data()
    {
        QTest::addColumn<QString>("className");
        for (const QString &className : sampleDefinitions(mDefaults, {}).sourcelist())
            QTest::newRow(qPrintable(className)) << className;
    }
    void everySampleSiteHasTheKnownAlbum()
    {
        QFETCH(QString, className);
        SampleSites sites;
        QVERIFY(sites.listen());
        const QString told = answerOf(builtInSources(), sites.definitions(mDefaults), className);
        QVERIFY2(told.startsWith(className + u": found\n"_s), qPrintable(told));
    }

    void firstStepThatFoundNothing_data()
    {
        const QByteArray row = "<tr><td>x</td><td>1</td><td>Nila Oster / Harbour Lights</td></tr>";
        const QByteArray record = "DTITLE=Nila Oster / Harbour Lights\nDYEAR=2007\n"
                                  "DGENRE=Folk\nTTITLE0=Low Water\n";
        // told: pieces of what is told, in their order
        const Table<HttpAnswer, HttpAnswer, QVariantMap, QStringList> table("search", "disc",
                                                                            "changes", "told");
        const HttpAnswer disc{.body = record};
        const auto fails = [&](const char *name, const HttpAnswer &search,
                               const QStringList &told) { table(name, search, disc, {}, told); };
        table("found", results(row), disc, {},
              {u"found\n"_s, u"Album, Title, Genre, Year, Track"_s});
        for (const int status : {401, 403, 429})
            QTest::addRow("status %d", status)
                << HttpAnswer{.status = status} << disc << QVariantMap()
                << QStringList{u": blocked\n"_s, u"status %1"_s.arg(status)};
        fails("challenge", {.status = 503, .body = "<TITLE>Just a moment...</TITLE>"},
              {u": blocked\n"_s, u"challenge page"_s});
        fails("no such page", {.status = 404, .body = "gone"},
              {u": not reachable\n"_s, u"status 404"_s, u"/search\n"_s, u"gone"_s});
        fails("nothing came", {}, {u"nothing found, no page"_s});
        fails("list begins otherwise", page("<b>\n</b><table class=\"result\x1b\">" + row),
              {u"nothing found, list not found"_s, u"parseAlbumList/listBegin\n"_s,
               u"<table class=\"results\">\n"_s, u"<b>\\n</b><table class=\"result\\u001b\">"_s});
        fails("list is empty", results({}), {u"no row matched"_s, u"/entryBegin\n"_s});
        table("recipe is missing", results(row), disc, {{u"parseAlbumList"_s, {}}},
              {u"list not found"_s, u"the definition lacks it"_s});
        table("blocked later", results(row), {.status = 403}, {}, {u": blocked\n"_s, u"/disc?1"_s});
        table("record without a genre", results(row),
              {.body = QByteArray(record).replace("DGENRE", "X")}, {},
              {u"incomplete, no field read"_s, u"missing  Genre\n"_s});
        table("another album is known there", results(row), disc, {{u"checkArtist"_s, u"Else"_s}},
              {u"no row matched"_s});
        table("no site", results(row), disc, {{u"queryPOST"_s, u""_s}, {u"discInfoURL"_s, u""_s}},
              {u": no site configured"_s});
    }
    void firstStepThatFoundNothing()
    {
        QFETCH(HttpAnswer, search);
        QFETCH(HttpAnswer, disc);
        QFETCH(QVariantMap, changes);
        HttpServer server;
        server.serve(u"/search"_s, search);
        server.serve(u"/disc?1"_s, disc);
        const QMap<QString, QString> addresses{{u"queryPOST"_s, u"/search"_s},
                                               {u"discInfoURL"_s, u"/disc?%@"_s}};
        QFETCH(QStringList, told);
        verifyTold(answerWith(builtInSources(), u"FreeDBInterface"_s, server, addresses, changes),
                   told);
    }

    void fieldsAndPicturesAreLookedAt_data()
    {
        const Table<QByteArray, HttpAnswer, QVariantMap, QStringList> table("html", "picture",
                                                                            "changes", "told");
        const QByteArray good = "<h1>Harbour Lights</h1><i>2007</i><img src=\"/p.png\">";
        const HttpAnswer picture{.body = plainPicture(2, 2)};
        table("found", good, picture, {}, {u": found\n"_s, u"Album, Year, Artwork"_s});
        table("title stands otherwise", "<h1 id=x>Harbour Lights</h1>", picture, {},
              {u"nothing found, no field read"_s, u"parseAlbumTitle\n"_s, u"marker   <h1>\n"_s,
               u"there    <h1 id=x>Harbour"_s});
        table("one field is missing", QByteArray(good).replace("<i>", "<b>"), picture, {},
              {u"incomplete, no field read"_s, u"missing  Year\n"_s, u"parseAlbumYear1\n"_s});
        table("field that the definition leaves out", QByteArray(good).replace("<i>", "<b>"),
              picture, {{u"parseAlbumYear1"_s, u""_s}}, {u": found\n"_s, u"Album, Artwork"_s});
        table("end of the picture's address", QByteArray(good).replace(".png\"", ".png'"), picture,
              {}, {u"incomplete"_s, u"parseAlbumArtURLEnd\n"_s, u"<img src=\"/p.png'>"_s});
        table("picture is gone", good, {.status = 404}, {},
              {u"incomplete"_s, u"status 404\n"_s, u"/p.png"_s});
    }
    void fieldsAndPicturesAreLookedAt()
    {
        QFETCH(QByteArray, html);
        QFETCH(HttpAnswer, picture);
        QFETCH(QVariantMap, changes);
        QVariantMap definition{{u"parseAlbumTitle"_s, u"<h1>"_s},
                               {u"parseAlbumYear1"_s, u"<i>"_s},
                               {u"parseAlbumYear2"_s, QString()},
                               {u"parseAlbumArtURLBegin"_s, u"src=\""_s},
                               {u"parseAlbumArtURLEnd"_s, u"\""_s}};
        definition.insert(changes);
        HttpServer server;
        server.serve(u"/album?Harbour%20Lights"_s, page(html));
        server.serve(u"/p.png"_s, picture);
        QFETCH(QStringList, told);
        const QString name = u"CDUniverseInterface"_s;
        const SourceCatalog shops(
            {SampleSource::entry(name, AssetAlbumName | AssetYear | AssetArtwork, searchShop)});
        const QMap<QString, QString> addresses{{u"queryAlbumTitle"_s, u"/album?%@"_s}};
        verifyTold(answerWith(shops, name, server, addresses, definition), told);
    }

    void nothingIsAskedWithoutAnAlbum()
    {
        const QVariantMap site{{u"queryPOST"_s, u"http://127.0.0.1:1/"_s}};
        const SiteDefinitions set({{u"res_FreeDBInterface"_s, site}, {u"checkAlbum"_s, u""_s}});
        verifyTold(answerOf(builtInSources(), set, u"FreeDBInterface"_s), {u"name no album"_s});
    }

    void listNamesWhatIsMissing()
    {
        const QVariantMap partly{{u"queryPOST"_s, u"http://a/"_s},
                                 {u"parseAlbumList"_s, QVariantMap{{u"listEnd"_s, u"x"_s}}},
                                 {u"discInfoURL"_s, u""_s},
                                 {u"albumResultDelimiter"_s, u""_s}};
        const SiteDefinitions set(
            {{u"res_FreeDBInterface"_s, partly},
             {u"res_CKDigestInterface"_s, QVariantMap{{u"prefix"_s, u""_s}}}});
        const auto told = [&](const QString &className) {
            return listedAsText(listedSource(builtInSources(), set, className));
        };
        QCOMPARE(told(u"FreeDBInterface"_s),
                 u"FreeDBInterface: configured\n  supplies Album, Title, Genre, Year, Track\n"
                 "  missing  parseAlbumList/listBegin, parseAlbumList/entryBegin, "
                 "parseAlbumList/textBegin, parseAlbumList/textEnd, firstResultsFragment, "
                 "moreResultsFragment, discInfoURL"_s);
        QCOMPARE(told(u"CKDigestInterface"_s),
                 u"CKDigestInterface: no site configured\n  supplies Artwork\n"
                 "  missing  prefix, maxPossibleArtWidth"_s);
        QCOMPARE(told(u"NoSuch"_s), u"NoSuch: no source of that name"_s);
        QVERIFY(!told(u"CDUniverseInterface"_s).contains(u"ownMarkers"_s)); // off without the key
    }

private:
    static QString answerOf(const SourceCatalog &catalog, const SiteDefinitions &definitions,
                            const QString &className)
    {
        HVHTTPQueue queue{QString()};
        SiteCheck check(catalog, definitions, queue, className);
        QSignalSpy finished(&check, &SiteCheck::finished);
        check.begin();
        return finished.wait() ? findingAsText(check.finding()) : u"the check did not end"_s;
    }

    /// The default definition with the addresses below the server's, then the changes.
    QString answerWith(const SourceCatalog &catalog, const QString &className,
                       const HttpServer &server, const QMap<QString, QString> &addresses,
                       const QVariantMap &changes)
    {
        QVariantMap definition =
            mDefaults.definitionOf(className).value_or(SiteDefinition()).values();
        for (const auto &[key, below] : addresses.asKeyValueRange())
            definition[key] = QString(server.url(QString()).toString() + below);
        definition.insert(changes);
        QVariantMap values = mDefaults.values();
        values[u"res_"_s + className] = definition;
        return answerOf(catalog, SiteDefinitions(values), className);
    }

    /// The pieces stand in the text one behind the other.
    static void verifyTold(const QString &text, const QStringList &pieces)
    {
        qsizetype at = 0;
        for (const QString &piece : pieces) {
            at = text.indexOf(piece, at);
            QVERIFY2(at >= 0, qPrintable(piece + u" is not told in its place: "_s + text));
        }
    }

    QTemporaryDir mFolder;
    QSettings mSettings{mFolder.filePath(u"conf"_s), QSettings::IniFormat};
    SiteDefinitions mDefaults;
};

QTEST_GUILESS_MAIN(TestSitesCheck)
#include "tst_sitescheck.moc"
