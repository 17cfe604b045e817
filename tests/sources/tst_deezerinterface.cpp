#include "sources/deezerinterface.h"

#include "support/sourcesearch.h"
#include "support/table.h"
#include "tags/genretable.h"

using namespace Qt::StringLiterals;

namespace {

const QString byAlbum =
    u"/search/album?q=artist%3A%22Nila%20Oster%22%20album%3A%22Salt%20%26%20Iron%22&limit=25"_s;
const QString byTitle = u"/search/track?q=Nila%20Oster%20First%20Light&limit=25"_s;
const QString byTitleAndAlbum =
    u"/search/track?q=Nila%20Oster%20First%20Light%20Salt%20%26%20Iron&limit=25"_s;
const QString albumPage = u"/album/7"_s;
const QString tracksPage = u"/album/7/tracks?limit=100"_s;

QString list(const QStringList &entries)
{
    return u"{'data':[%1],'total':%2}"_s.arg(entries.join(u',')).arg(entries.size());
}

/// ' stands for ", '#' for the address of the shop.
QString album(const QString &id, const QString &more = {}, const QString &title = u"Salt & Iron"_s)
{
    return u"{'id':%1,'title':'%2','artist':{'name':'Nila Oster'}%3}"_s.arg(id, title, more);
}

const QString whole =
    album(u"7"_s,
          u",'release_date':'2007-05-14','record_type':'album','cover_medium':'#250.jpg',"
          "'cover_big':'#500.jpg','cover_xl':'#1000.jpg',"
          "'genres':{'data':[{'name':'Seaside'},{'name':'Rock'}]}"_s);

/// On a disc: "1,First Light,215".
QString track(const QString &onDisc, int disc = 1)
{
    const QStringList facts = onDisc.split(u',');
    return u"{'title':'%1','artist':{'name':'Nila Oster'},'duration':%2,'track_position':%3,"
           "'disk_number':%4,'album':%5}"_s.arg(facts[1], facts[2], facts[0])
               .arg(disc)
               .arg(album(u"7"_s));
}

const QString first = track(u"1,First Light,215"_s);
const QString two = list({track(u"2,Ebb,180"_s), first});
const QString found2007 = u"Nila Oster|Salt & Iron|2007|Rock|First Light,Ebb|#500.jpg"_s;
const QString none = u"{'error':{'type':'DataException','message':'no data','code':800}}"_s;
const SearchedSong noAlbum{.album = {}};

using Pages = QMap<QString, QString>;

struct Scene : SampleSiteScene {
    Scene() { GenreTable::install({u"Blues"_s, u"Rock"_s}); }

    QStringList search(const SearchedSong &song)
    {
        const QVariantMap values =
            definitionAtHome(u"DeezerInterface"_s, {u"https://api.deezer.com"_s});
        return shownHere(SampleSiteScene::search<DeezerInterface>(song, values, shelf));
    }

    std::shared_ptr<ReleaseShelf> shelf = std::make_shared<ReleaseShelf>();
};

} // namespace

class DeezerInterfaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void searches_data()
    {
        const Table<SearchedSong, Pages, QStringList, int> row("song", "pages", "albums",
                                                               "requests");
        const Pages looked{{albumPage, whole}, {tracksPage, two}};
        const auto with = [&](const QString &path, const QString &body, const Pages &more = {}) {
            Pages served = looked;
            served.insert(more);
            served[path] = body;
            return served;
        };
        const QString seven = list({album(u"7"_s)});
        row("album", {}, with(byAlbum, seven), {found2007}, 3);
        row("track", noAlbum, with(byTitle, list({first})), {found2007}, 3);
        row("no data", {}, with(byTitleAndAlbum, list({first}), {{byAlbum, none}}), {found2007}, 4);
        row("compilation", {.isCompilation = true}, with(byTitleAndAlbum, list({first})),
            {found2007}, 3);
        row("track of that length", {.album = {}, .duration = 214'000},
            with(byTitle,
                 list({track(u"1,First Light,400"_s).replace(u"'id':7"_s, u"'id':9"_s), first})),
            {found2007}, 3);
        row("other artist, other title", noAlbum,
            with(byTitle,
                 list({track(u"1,Ebb,215"_s), QString(first).replace(u"Nila"_s, u"Jon"_s)})),
            {}, 1);
        row("album of several artists", noAlbum,
            {{byTitle, list({first})}, {albumPage, QString(whole).replace(u"Nila"_s, u"Jon"_s)}},
            {}, 2);
        row("album that is gone", {}, {{byAlbum, seven}, {albumPage, none}}, {}, 2);
        row("disc of the song", {},
            with(byAlbum, seven,
                 {{tracksPage,
                   list({track(u"1,Flow,99"_s), track(u"1,First Light,215"_s, 2),
                         track(u"2,Ebb,180"_s, 2)})}}),
            {found2007}, 3);
        row("further page", {},
            with(byAlbum, seven,
                 {{tracksPage,
                   list({first}).replace(u"],"_s, u"],'next':'#album/7/tracks?index=1',"_s)},
                  {u"/album/7/tracks?index=1"_s, list({track(u"2,Ebb,180"_s)})}}),
            {found2007}, 4);
        row("further page on another host", {},
            with(byAlbum, seven,
                 {{tracksPage, QString(two).replace(u"],"_s, u"],'next':'http://127.0.0.1/',"_s)}}),
            {found2007}, 3);
        row("track missing", {},
            with(byAlbum, seven, {{tracksPage, list({first, track(u"3,Ebb,180"_s)})}}), {}, 3);
        row("larger cover", {.maxImageWidth = 501}, with(byAlbum, seven),
            {QString(found2007).replace(u"500"_s, u"1000"_s)}, 3);
        row("optional keys missing", {},
            {{byAlbum, u"{'data':[{},7,{'id':-1,'title':'Salt & Iron'},%1]}"_s.arg(album(u"7"_s))},
             {albumPage, album(u"7"_s)},
             {tracksPage, u"{'data':[{'title':'First Light'},{'title':null}]}"_s}},
            {u"Nila Oster|Salt & Iron|-|-|First Light,|-"_s}, 3);
        row("quotes", {.artist = u"\"Nila\" Oster"_s},
            with(QString(byAlbum).replace(u"Nila%20"_s, u"%20Nila%20%20"_s), seven), {found2007},
            3);
    }
    void searches()
    {
        QFETCH(SearchedSong, song);
        QFETCH(Pages, pages);
        QFETCH(QStringList, albums);
        Scene scene;
        scene.serveJson(pages);
        QCOMPARE(scene.search(song), albums);
        QTEST(int(scene.server.requests().size()), "requests");
        QVERIFY(!scene.wasUnanswered);
        // The other songs of an album need no request.
        if (!albums.isEmpty() && !song.isCompilation) {
            QCOMPARE(scene.search({.maxImageWidth = song.maxImageWidth}), albums);
            QTEST(int(scene.server.requests().size()), "requests");
        }
    }

    void faultsAreNotKept_data()
    {
        const Table<QString, HttpAnswer> row("at", "fault");
        const HttpAnswer quota{
            .body = R"({"error":{"type":"Exception","message":"Quota limit exceeded","code":4}})"};
        row("quota, of the search", byAlbum, quota);
        row("quota, of the album", albumPage, quota);
        row("quota, of the tracks", tracksPage, quota);
        row("a page for people", byAlbum, {.type = "text/html", .body = QByteArray(999, '<')});
        row("cut", albumPage, {.body = R"({"id":)"});
        row("too many requests", byAlbum, {.status = 429});
    }
    void faultsAreNotKept()
    {
        QFETCH(QString, at);
        QFETCH(HttpAnswer, fault);
        Scene scene;
        const Pages pages{{byAlbum, list({album(u"7"_s)})}, {albumPage, whole}, {tracksPage, two}};
        scene.serveJson(pages);
        scene.server.serve(at, fault);
        QCOMPARE(scene.search({}), QStringList());
        QVERIFY(scene.wasUnanswered);
        QCOMPARE(scene.server.paths().last(), at); // it is not asked for more
        scene.serveJson(pages);
        QCOMPARE(scene.search({}), QStringList{found2007});
    }
};

QTEST_GUILESS_MAIN(DeezerInterfaceTest)
#include "tst_deezerinterface.moc"
