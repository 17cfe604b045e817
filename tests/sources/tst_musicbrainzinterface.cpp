#include "sources/musicbrainzinterface.h"

#include "base/resources.h"
#include "support/sourcesearch.h"
#include "support/table.h"
#include "tags/genretable.h"

using namespace Qt::StringLiterals;

namespace {

/// "@1" is the identifier of number 1.
QString mbid(const QString &number)
{
    return u"0000000%1-0000-4000-8000-00000000000a"_s.arg(number);
}

/// With ' for ", and identifiers by their numbers.
QByteArray json(QString text)
{
    text.replace(u'\'', u'"');
    for (char number = '1'; number <= '8'; ++number)
        text.replace(u"@%1"_s.arg(QLatin1Char(number)), mbid(QString(QLatin1Char(number))));
    return text.toUtf8();
}

const QString nila = u"'artist-credit':[{'name':'Nila Oster','joinphrase':''}]"_s;

/// A release of a search: what is said of it, and of its group.
QString found(const QString &release, const QString &group = u"'primary-type':'Album'"_s)
{
    return u"{'score':100,'title':'Salt & Iron',%1,'status':'Official',%2,"
           "'release-group':{'id':'@4',%3}}"_s.arg(nila, release, group);
}

QString releases(const QStringList &list)
{
    return u"{'count':1,'releases':[%1]}"_s.arg(list.join(u','));
}

QString recordings(const QStringList &onReleases, const QString &more = {})
{
    return u"{'recordings':[{'score':100,'title':'First Light',%1%2,'releases':[%3]}]}"_s.arg(
        nila, more, onReleases.join(u','));
}

/// A looked-up release, with one disc for each list of tracks.
QString
record(const QString &number, const QString &discs,
       const QString &group = u"'primary-type':'Album','first-release-date':'2007-05-14',"
                              "'genres':[{'name':'seaside','count':9},{'name':'rock','count':2}]"_s)
{
    QString media;
    for (const QString &disc : discs.split(u'/')) {
        QStringList tracks;
        for (const QString &title : disc.split(u','))
            tracks << u"{'title':'%1','length':215000}"_s.arg(title);
        media += u"%1{'tracks':[%2]}"_s.arg(media.isEmpty() ? u""_s : u","_s, tracks.join(u','));
    }
    return u"{'id':'@%1','title':'Salt & Iron','date':'2019',%2,'status':'Official',"
           "'release-group':{'id':'@4',%3},'media':[%4]}"_s.arg(number, nila, group, media);
}

const QString byAlbum =
    u"/release?query=release%3A%28salt%20%5C%26%20iron%29%20AND%20artist%3A%28nila%20oster%29"
    "&limit=25&fmt=json"_s;
const QString byTitle =
    u"/recording?query=recording%3A%28first%20light%29%20AND%20artist%3A%28nila%20oster%29"
    "&limit=25&fmt=json"_s;
const QString byTitleAndAlbum =
    u"/recording?query=recording%3A%28first%20light%29%20AND%20artist%3A%28nila%20oster%29"
    "%20AND%20release%3A%28salt%20%5C%26%20iron%29&limit=25&fmt=json"_s;
const QString inc = u"?inc=artist-credits+recordings+release-groups+genres+tags&fmt=json"_s;

QString lookUp(const QString &number)
{
    return u"/release/"_s + mbid(number) + inc;
}

const QString two = u"First Light,Ebb"_s;
const QString found2007 = u"Nila Oster|Salt & Iron|2007|Rock|First Light,Ebb|-"_s;
const HttpAnswer busy{.status = 503, .headers = {"Retry-After: 0"}};
const SearchedSong noAlbum{.album = {}};
const SearchedSong noTitle{.title = {}};

using Pages = QMap<QString, QString>;

struct Scene : SampleSiteScene {
    Scene() { GenreTable::install({u"Blues"_s, u"Rock"_s}); }

    QStringList search(const SearchedSong &song)
    {
        const QVariantMap values =
            definitionAtHome(u"MusicBrainzInterface"_s, {u"https://musicbrainz.org/ws/2"_s});
        albums = SampleSiteScene::search<MusicBrainzInterface>(song, values, shelf);
        return shown(albums);
    }

    std::shared_ptr<ReleaseShelf> shelf = std::make_shared<ReleaseShelf>();
    AlbumList albums;
};

} // namespace

class MusicBrainzInterfaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void searches_data()
    {
        const Table<SearchedSong, Pages, QStringList, int> row("song", "pages", "albums",
                                                               "requests");
        const QString one = found(u"'id':'@1'"_s);
        row("year of the work, genre by votes", {},
            {{byAlbum, releases({one})}, {lookUp(u"1"_s), record(u"1"_s, two)}}, {found2007}, 2);
        row("own album before compilation, bootleg and reissue", noAlbum,
            {{byTitle,
              recordings({found(u"'id':'@1','date':'1999'"_s,
                                u"'primary-type':'Album','secondary-types':['Compilation']"_s),
                          found(u"'id':'@3','date':'1998'"_s).replace(u"Official"_s, u"Bootleg"_s),
                          found(u"'id':'@4','date':'2019'"_s),
                          found(u"'id':'@2','date':'2007'"_s)})},
             {lookUp(u"2"_s), record(u"2"_s, two)}},
            {found2007}, 2);
        row("song on a compilation", {.isCompilation = true},
            {{byTitleAndAlbum,
              recordings({one, found(u"'id':'@2'"_s, u"'secondary-types':['Compilation']"_s)})},
             {lookUp(u"2"_s), record(u"2"_s, two)}},
            {found2007}, 2);
        const QString onTwo = recordings({one}, u",'length':215000"_s).chopped(2)
            + recordings({found(u"'id':'@2','date':'2020'"_s)}, u",'length':400000"_s)
                  .replace(u"{'recordings':["_s, u","_s);
        row("version of that length", {.album = {}, .duration = 399'000},
            {{byTitle, onTwo}, {lookUp(u"2"_s), record(u"2"_s, two)}}, {found2007}, 2);
        row("title looked for on one of two discs", noTitle,
            {{byAlbum, releases({one})}, {lookUp(u"1"_s), record(u"1"_s, two + u"/Flow"_s)}},
            {u"Nila Oster|Salt & Iron|2007|Rock|-|-"_s}, 2);
        const auto byNumber = [&](const char *name, const SearchedSong &song,
                                  const QString &tracks) {
            row(name, song,
                {{byAlbum, releases({one})},
                 {lookUp(u"1"_s),
                  record(u"1"_s, two + u"/Flow"_s)
                      .replace(u"'Flow','length':215000"_s, u"'Flow','length':100000"_s)}},
                {QString(found2007).replace(two, tracks)}, 2);
        };
        byNumber("title looked for on the disc of as many tracks",
                 {.title = {}, .track = 1, .tracks = 1}, u"Flow"_s);
        byNumber("title looked for on the disc with its length",
                 {.title = {}, .duration = 101'000, .track = 1}, u"Flow"_s);
        byNumber("title looked for on discs in a row", {.title = {}, .track = 3, .tracks = 3},
                 two + u",Flow"_s);
        row("disc of the song's length", {.duration = 101'000},
            {{byAlbum, releases({one})},
             {lookUp(u"1"_s),
              record(u"1"_s, two + u"/Flow,First Light"_s)
                  .replace(u"Light','length':215000}]}]"_s, u"Light','length':100000}]}]"_s)}},
            {QString(found2007).replace(two, u"Flow,First Light"_s)}, 2);
        row("release that the user took", {.identifiers = {mbid(u"1"_s), {}}},
            {{lookUp(u"1"_s), record(u"1"_s, u"Ebb"_s)}}, {QString(found2007).replace(two, u"-"_s)},
            1);
        row("disc of the song", {},
            {{byAlbum, releases({one})}, {lookUp(u"1"_s), record(u"1"_s, u"Flow/"_s + two)}},
            {found2007}, 2);
        row("edition with the song", {},
            {{byAlbum,
              releases({found(u"'id':'@1','date':'2007'"_s),
                        found(u"'id':'@2','track-count':9,'date':'2010'"_s)})},
             {lookUp(u"1"_s), record(u"1"_s, u"Ebb"_s)},
             {lookUp(u"2"_s), record(u"2"_s, two)}},
            {found2007}, 3);
        row("no worse edition where the look-up fails", {},
            {{byAlbum,
              releases({found(u"'id':'@1','date':'2007'"_s),
                        found(u"'id':'@2','track-count':9,'date':'2010'"_s)})},
             {lookUp(u"1"_s), u"<p>busy</p>"_s},
             {lookUp(u"2"_s), record(u"2"_s, two)}},
            {}, 2);
        row("other edition's name", {.album = u"Salt & Iron (Live) [Bonus]"_s},
            {{QString(byAlbum).replace(u"iron"_s, u"iron%20%5C%28live%5C%29%20%5C%5Bbonus%5C%5D"_s),
              releases({one})},
             {lookUp(u"1"_s), record(u"1"_s, two)}},
            {found2007}, 2);
        row("other artist", noAlbum, {{byTitle, recordings({one}).replace(u"Nila"_s, u"Jon"_s)}},
            {}, 1);
        row("optional keys missing", {},
            {{byAlbum, u"{'releases':[{'id':'@1','title':'Salt & Iron',%1},{},7]}"_s.arg(nila)},
             {lookUp(u"1"_s), u"{'id':'@1','title':'Salt & Iron'}"_s},
             {byTitleAndAlbum, u"{}"_s}},
            {}, 2);
        row("nulls", noTitle,
            {{byAlbum,
              releases({found(u"'id':'@1','date':null,'track-count':null"_s,
                              u"'primary-type':null,'secondary-types':null"_s)})},
             {lookUp(u"1"_s),
              record(u"1"_s, u"Ebb"_s, u"'first-release-date':null,'genres':null"_s)
                  .replace(u"215000"_s, u"null"_s)}},
            {u"Nila Oster|Salt & Iron|2019|-|Ebb|-"_s}, 2);
        row("identifier is a path", {}, {{byAlbum, releases({found(u"'id':'../x'"_s)})}}, {}, 2);
        row("words of the syntax", {.artist = u"AC/DC \"OR\" *é*"_s, .album = {}},
            {{u"/recording?query=recording%3A%28first%20light%29%20AND%20artist%3A%28ac%5C%2Fdc%20"
              "%5C%22or%5C%22%20%5C%2A%C3%A9%5C%2A%29&limit=25&fmt=json"_s,
              recordings({one}).replace(u"Nila Oster"_s, u"AC/DC \\'OR\\' *e*"_s)},
             {lookUp(u"1"_s), record(u"1"_s, two)}},
            {found2007}, 2);
        row("no artist", {.artist = {}}, {}, {}, 0);
    }
    void searches()
    {
        QFETCH(SearchedSong, song);
        QFETCH(Pages, pages);
        QFETCH(QStringList, albums);
        Scene scene;
        for (const auto &[path, body] : pages.asKeyValueRange())
            scene.server.serve(path, {.type = "application/json", .body = json(body)});
        QCOMPARE(scene.search(song), albums);
        QTEST(int(scene.server.requests().size()), "requests");
    }

    void tellsWhatItLeft()
    {
        const auto inGroup = [](const QString &group, QString release) {
            return release.replace(u"'release-group':{'id':'@4'"_s,
                                   u"'release-group':{'id':'@%1'"_s.arg(group));
        };
        const QString others =
            recordings({inGroup(u"7"_s, found(u"'id':'@7'"_s))}, u",'length':9"_s);
        const QString strangers = recordings({found(u"'id':'@8'"_s)}).replace(u"Nila"_s, u"Jon"_s);
        const QString all = recordings(
            {found(u"'id':'@1','date':'2007'"_s),
             found(u"'id':'@2','date':'2019','track-count':14"_s),
             inGroup(u"5"_s, found(u"'id':'@5','date':'2008-01'"_s)),
             inGroup(u"6"_s, found(u"'id':'@6'"_s, u"'primary-type':'Single'"_s)),
             inGroup(u"3"_s, found(u"'id':'@3'"_s)).replace(u"Official"_s, u"Bootleg"_s)},
            u",'length':215000"_s);
        Scene scene;
        scene.serveJson({});
        scene.server.serve(
            byTitle,
            {.body = json(all.chopped(2) + u","_s
                          + QString(others).remove(u"{'recordings':["_s).chopped(2) + u","_s
                          + QString(strangers).remove(u"{'recordings':["_s))});
        scene.server.serve(lookUp(u"1"_s), {.body = json(record(u"1"_s, two))});
        QCOMPARE(scene.search({.album = {}, .duration = 215'000}), QStringList{found2007});
        using enum AlbumFate;
        QStringList expected;
        for (const auto &[told, fate] : {std::pair{u"2019|14"_s, OtherEdition},
                                         {u"2008|0"_s, LaterWork},
                                         {u"|0"_s, OfOtherKind},
                                         {u"|0"_s, Unofficial},
                                         {u"|0"_s, OfOtherLength},
                                         {u"|0"_s, ByOtherArtist}})
            expected << u"Salt & Iron|"_s + told + u'|' + QString::number(int(fate));
        QCOMPARE(scene.passedOver, expected);
    }

    void faultsAreNotKept_data()
    {
        const Table<HttpAnswer> row("fault");
        row("error in spite of the status", {.body = R"({"error":"busy"})"});
        row("too many requests", {.status = 429, .body = R"({"error":"rate"})"});
        row("server is busy", busy);
        row("own limit", {.status = 503, .headers = {"Retry-After: 1"}});
    }
    void faultsAreNotKept()
    {
        QFETCH(HttpAnswer, fault);
        Scene scene;
        const bool isRetried = !fault.headers.isEmpty();
        scene.server.serveInTurn(byAlbum,
                                 {fault, {.body = json(releases({found(u"'id':'@1'"_s)}))}});
        // The release was merged with another one.
        scene.server.serve(lookUp(u"1"_s),
                           {.status = 301, .headers = {"Location: " + lookUp(u"2"_s).toUtf8()}});
        scene.server.serve(lookUp(u"2"_s), {.body = json(record(u"2"_s, two))});
        QCOMPARE(scene.search({}), isRetried ? QStringList{found2007} : QStringList());
        QCOMPARE(scene.search({}), QStringList{found2007});
        const AlbumInfo &album = scene.albums.first();
        QCOMPARE(album.identifiers(), (ReleaseIdentifiers{mbid(u"2"_s), mbid(u"4"_s)}));
        QCOMPARE(album.trackLengths(), (QList<qint64>{215'000, 215'000}));
    }

    void songsFindTheSameInAnyOrder_data()
    {
        const QString byEbb = QString(byTitle).replace(u"first%20light"_s, u"ebb"_s);
        const QString on1 = found(u"'id':'@1','date':'2007'"_s);
        const auto ofEbb = [](const QStringList &found, const QString &length) {
            return recordings(found, u",'length':"_s + length).replace(u"First Light"_s, u"Ebb"_s);
        };
        const auto dated = [](QString record, const QString &title, const QString &date) {
            return record.replace(
                u"'%1',"_s.arg(title),
                u"'%1','recording':{'first-release-date':'%2'},"_s.arg(title, date));
        };
        const Table<Pages, QStringList, qint64> row("pages", "albums", "lengthOfEbb");
        const auto other = [&](const QString &release) {
            return QString(release).replace(u"'id':'@4'"_s, u"'id':'@3'"_s);
        };
        row("other version on another album",
            {{byTitle, recordings({on1})},
             {byEbb, ofEbb({other(found(u"'id':'@2'"_s))}, u"400000"_s)},
             {lookUp(u"1"_s), record(u"1"_s, two)},
             {lookUp(u"2"_s), other(record(u"2"_s, u"Ebb"_s)).replace(u"215000"_s, u"400000"_s)}},
            {two, u"Ebb"_s}, 400'000);
        row("came out before on another album",
            {{byTitle, recordings({on1})},
             {byEbb, ofEbb({on1, other(found(u"'id':'@2','date':'1999'"_s))}, u"null"_s)},
             {lookUp(u"1"_s), dated(record(u"1"_s, two), u"Ebb"_s, u"1999"_s)},
             {lookUp(u"2"_s), other(record(u"2"_s, u"Ebb"_s)).replace(u"2007"_s, u"1999"_s)}},
            {two, u"Ebb"_s});
        const QString more = found(u"'id':'@2','date':'2019','track-count':3"_s);
        row("edition with more tracks", // which the first song alone is on
            {{byTitle, recordings({more})},
             {byEbb, ofEbb({more, on1}, u"null"_s)},
             {lookUp(u"1"_s), dated(record(u"1"_s, u"Ebb"_s), u"Ebb"_s, u"2007-05"_s)},
             {lookUp(u"2"_s), dated(record(u"2"_s, two), u"Ebb"_s, u"2007-05"_s)}},
            {two, u"Ebb"_s});
    }
    void songsFindTheSameInAnyOrder()
    {
        QFETCH(Pages, pages);
        QFETCH(QStringList, albums);
        QFETCH(qint64, lengthOfEbb);
        SearchedSong ebb{.album = {}, .title = u"Ebb"_s};
        if (lengthOfEbb > 0)
            ebb.duration = lengthOfEbb;
        for (const bool isEbbFirst : {false, true}) {
            Scene scene;
            for (const auto &[path, body] : pages.asKeyValueRange())
                scene.server.serve(path, {.type = "application/json", .body = json(body)});
            const QStringList before = isEbbFirst ? scene.search(ebb) : QStringList();
            const QStringList found = scene.search(noAlbum);
            const QStringList ofEbb = isEbbFirst ? before : scene.search(ebb);
            QCOMPARE(found.value(0).section(u'|', 4, 4), albums.at(0));
            QCOMPARE(ofEbb.value(0).section(u'|', 4, 4), albums.at(1));
        }
    }

    void songsOfAnAlbumShareItsRequests()
    {
        Scene scene;
        scene.server.serve(byTitle, {.body = json(recordings({found(u"'id':'@1'"_s)}))});
        scene.server.serve(lookUp(u"1"_s), {.body = json(record(u"1"_s, two))});
        QCOMPARE(scene.search(noAlbum), QStringList{found2007});
        QCOMPARE(scene.search({.album = {}, .title = u"Ebb"_s}), QStringList{found2007});
        QCOMPARE(scene.server.requests().size(), 2);
        const QByteArray agent = scene.server.requests().first().headers["user-agent"];
        QVERIFY(agent.startsWith("Tagwright/" TAGWRIGHT_VERSION " ( "));
        QVERIFY(scene.passedOver.isEmpty());
        // Another artist's song of that title is not on it, nor is one of a collection.
        for (const SearchedSong &other : {SearchedSong{.artist = u"Jon Vale"_s, .album = {}},
                                          SearchedSong{.album = {}, .isCompilation = true}})
            static_cast<void>(scene.search(other));
        QCOMPARE(scene.server.requests().size(), 3);
    }
};

QTEST_GUILESS_MAIN(MusicBrainzInterfaceTest)
#include "tst_musicbrainzinterface.moc"
