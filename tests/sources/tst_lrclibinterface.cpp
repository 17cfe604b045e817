#include "sources/lrclibinterface.h"

#include "support/sourcesearch.h"
#include "support/table.h"
#include "text/syncedlyrics.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Song = SearchedSong;
using Answers = QList<HttpAnswer>;

namespace {

const QString words = u"Salt on the window\nIron in the sea"_s;
const QString timed = u"[00:12.40] Salt on the window\n[00:16.05] Iron in the sea"_s;
const QByteArray notFound =
    R"({"message":"Failed to find specified track","name":"TrackNotFound","statusCode":404})";

QJsonObject record(const QJsonObject &changes = {})
{
    QJsonObject values{{u"id"_s, 9000123},
                       {u"trackName"_s, u"First Light"_s},
                       {u"artistName"_s, u"Nila Oster"_s},
                       {u"albumName"_s, u"Salt & Iron"_s},
                       {u"duration"_s, 215.0},
                       {u"instrumental"_s, false},
                       {u"plainLyrics"_s, QString(words + u'\n')},
                       {u"syncedLyrics"_s, QString(timed + u"\n[00:20.00] "_s)}};
    for (auto change = changes.begin(); change != changes.end(); ++change)
        values[change.key()] = *change;
    return values;
}
QJsonObject wordless(QJsonObject changes = {})
{
    changes[u"plainLyrics"_s] = QJsonValue();
    changes[u"syncedLyrics"_s] = QJsonValue();
    return record(changes);
}
QJsonObject saying(const QString &lyrics, QJsonObject changes = {})
{
    changes[u"plainLyrics"_s] = lyrics;
    return record(changes);
}
HttpAnswer json(const QJsonObject &object)
{
    return {.type = "application/json", .body = QJsonDocument(object).toJson()};
}
HttpAnswer list(const QJsonArray &records)
{
    return {.type = "application/json", .body = QJsonDocument(records).toJson()};
}
const HttpAnswer none{.status = 404, .type = "application/json", .body = notFound};

const QString get = u"get?track_name=First%20Light&artist_name=Nila%20Oster"_s;
const QString exact = get + u"&album_name=Salt%20%26%20Iron"_s;
const QString search = u"search?track_name=First%20Light&artist_name=Nila%20Oster"_s;

} // namespace

class TestLRCLIBInterface : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void searches_data()
    {
        const Table<Song, QVariantMap, Answers, Answers, QString, QStringList> table(
            "song", "changes", "exactly", "searched", "lyrics", "paths");
        const QStringList one{exact};
        const QStringList both{exact, search};
        const auto exactly = [&](const char *name, const HttpAnswer &answer, const QString &lyrics,
                                 const QStringList &paths, const Song &song = {},
                                 const QVariantMap &changes = {}) {
            table(name, song, changes, {answer}, {list({})}, lyrics, paths);
        };
        const auto searched = [&](const char *name, const QJsonArray &records,
                                  const QString &lyrics, const Song &song = {},
                                  const QVariantMap &changes = {}) {
            const QString duration = song.duration ? u"&duration=215"_s : QString();
            table(name, song, changes, {none}, {list(records)}, lyrics, {exact + duration, search});
        };
        const Song ofLength{.duration = 215'400};
        const QVariantMap synced{{u"syncedLyrics"_s, true}};

        exactly("the very song", json(record()), words, one);
        exactly("with its length", json(record()), words, {exact + u"&duration=215"_s}, ofLength);
        exactly("signs in names", json(record()), words,
                {u"get?track_name=A%2BB%3D%25%26%23%3F&artist_name=Nila%20Oster"_s},
                {.album = {}, .title = u"A+B=%&#?"_s});
        exactly("no title", json(record()), {}, {}, {.title = {}});
        exactly("no artist", json(record()), {}, {}, {.artist = {}});
        exactly("no words", json(wordless({{u"instrumental"_s, true}})), u"instrumental"_s, one);
        QJsonObject nulls;
        for (const QString &key : record().keys())
            nulls[key] = QJsonValue();
        exactly("every key null", json(nulls), {}, both);
        exactly("not found", none, {}, both);
        exactly("text without end", json(saying(QString(200'001, u'x'))), {}, both);
        exactly("synced is wanted", json(record()), timed + u"\n[00:20.00]"_s, one, {}, synced);
        exactly("times beyond the song's end",
                json(record({{u"syncedLyrics"_s, u"[04:00.00] la"_s}})), words,
                {exact + u"&duration=215"_s}, ofLength, synced);
        table("refused for a while", {}, {},
              {{.status = 429, .headers = {"Retry-After: 0"}}, json(record())}, {}, words,
              {exact, exact});
        table("refused without a time", {}, {{u"busyPause"_s, 0.01}},
              {{.status = 429}, json(record())}, {}, words, {exact, exact});
        exactly("40 seconds without an answer", {.delay = 40s}, {}, one, {},
                {{u"patience"_s, 0.2}});
        table("three redirects", {}, {}, {{.status = 307, .headers = {"Location: /r1"}}}, {}, words,
              {exact, u"r1"_s, u"r2"_s, u"moved"_s});

        searched("the nearest length",
                 {saying(u"far"_s, {{u"duration"_s, 260.0}}),
                  saying(u"unknown"_s, {{u"duration"_s, QJsonValue()}}),
                  saying(u"near"_s, {{u"duration"_s, 212.5}})},
                 u"near"_s, ofLength);
        searched("other songs and artists",
                 {saying(u"a"_s, {{u"trackName"_s, u"First Light of Day"_s}}),
                  saying(u"b"_s, {{u"artistName"_s, u"Someone"_s}}), u"no record"_s,
                  saying(u"c"_s, {{u"artistName"_s, u"Oster Nila"_s}})},
                 u"c"_s, {.alternateArtist = u"Oster Nila"_s});
        searched("the same artist before one that begins alike",
                 {saying(u"a"_s, {{u"artistName"_s, u"Nila Oster Trio"_s}}),
                  saying(u"b"_s, {{u"duration"_s, 90.0}})},
                 u"b"_s, ofLength);
        searched("the album where no length is known",
                 {saying(u"a"_s, {{u"albumName"_s, u"Live"_s}}), saying(u"b"_s)}, u"b"_s);
        searched("words before an instrumental where no length is known",
                 {wordless({{u"instrumental"_s, true}}), record()}, words);
        searched("an instrumental of the song's length",
                 {record({{u"duration"_s, 200.0}}), wordless({{u"instrumental"_s, true}})},
                 u"instrumental"_s, ofLength);
        searched("times of another", {record({{u"duration"_s, 230.0}})}, words, ofLength, synced);
    }
    void searches()
    {
        QFETCH(Song, song);
        QFETCH(QVariantMap, changes);
        QFETCH(Answers, exactly);
        QFETCH(Answers, searched);
        QFETCH(QStringList, paths);
        SampleSiteScene scene;
        changes[u"minInterval"_s] = 0;
        const QVariantMap definition =
            scene.definition(u"LRCLIBInterface"_s,
                             {{u"recordURL"_s, u"get"_s}, {u"searchURL"_s, u"search"_s}}, changes);
        scene.server.serve(u"/r1"_s, {.status = 301, .headers = {"Location: /r2"}});
        scene.server.serve(u"/r2"_s, {.status = 302, .headers = {"Location: /moved"}});
        scene.server.serve(u"/moved"_s, json(record()));
        scene.server.serve(u'/' + search, searched.value(0));
        if (!paths.isEmpty())
            scene.server.serveInTurn(u'/' + paths.first(), exactly);
        const auto instrumentals = std::make_shared<LRCLIBInterface::Instrumentals>();
        const AlbumList albums = scene.search<LRCLIBInterface>(song, definition, instrumentals);
        QTEST(scene.server.paths().replaceInStrings(QRegularExpression(u"^/"_s), QString()),
              "paths");
        const AlbumInfo album = albums.value(0);
        QTEST(album.isInstrumental() ? u"instrumental"_s
                                     : album.lyrics().value(song.title.value_or(QString())),
              "lyrics");
        QVERIFY(albums.size() <= 1);
        if (!album.isInstrumental())
            return;
        song.duration = 180'000; // a copy of another length
        QVERIFY(
            scene.search<LRCLIBInterface>(song, definition, instrumentals).at(0).isInstrumental());
        QCOMPARE(scene.server.paths().size(), paths.size());
    }

    void timesAreTakenOut()
    {
        QCOMPARE(SyncedLyrics::withoutTimes(u"[ar:Nila]\n[00:10.00][01:10.00]One [sic]\n"
                                            "[00:12]\n[00:13:50] <00:13.50> two <00:14.00> three\n"
                                            "[Chorus: all] four"_s),
                 u"One [sic]\n\ntwo three\n[Chorus: all] four"_s);
        QCOMPARE(SyncedLyrics::lastTime(u"[01:10.25][00:10]a [9:9] 99:99"_s), 70.25);
    }
};

QTEST_GUILESS_MAIN(TestLRCLIBInterface)
#include "tst_lrclibinterface.moc"
