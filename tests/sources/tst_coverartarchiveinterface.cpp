#include "sources/coverartarchiveinterface.h"

#include "sources/releaserecord.h"
#include "support/sourcesearch.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace {

const QString release = u"00000001-0000-4000-8000-00000000000a"_s;
const QString group = u"00000004-0000-4000-8000-00000000000a"_s;
const ReleaseIdentifiers both{release, group};

const QString ofRelease = u"/release/"_s + release + u'/';
const QString ofGroup = u"/release-group/"_s + group + u'/';
const QString byAlbum =
    u"/ws/2/release?query=release%3A%28salt%20%5C%26%20iron%29%20AND%20artist%3A%28nila%20oster%29"
    "&limit=25&fmt=json"_s;

/// An image in some sizes, such as "250,original"; its files are called by them. '#' stands for
/// the address of the archive, ' for ".
QString image(const QString &sizes, const QString &ending = u"png"_s)
{
    QStringList thumbnails;
    for (const QString &size : sizes.split(u','))
        thumbnails << u"'%1':'#%1.jpg'"_s.arg(size);
    return u"{'types':['Front'],'front':true,'id':1,'image':'#original.%1','thumbnails':{%2}}"_s
        .arg(ending, thumbnails.join(u','));
}

QString listing(const QStringList &images)
{
    return u"{'images':[%1]}"_s.arg(images.join(u','));
}

const QString all = image(u"250,500,1200,small,large"_s);
const QString found500 = u"Nila Oster|Salt & Iron|-|-|-|#500.jpg"_s;
const QString back = u"{'types':['Back'],'front':false,'image':'#back.jpg'}"_s;

using Pages = QMap<QString, QString>;

struct Scene : SampleSiteScene {
    QStringList search(const SearchedSong &song)
    {
        return shownHere(SampleSiteScene::search<CoverArtArchiveInterface>(
            song,
            definitionAtHome(u"CoverArtArchiveInterface"_s,
                             {u"https://musicbrainz.org"_s, u"https://coverartarchive.org"_s}),
            shelf, emptyListings));
    }

    std::shared_ptr<ReleaseShelf> shelf = std::make_shared<ReleaseShelf>();
    std::shared_ptr<CoverArtArchiveInterface::EmptyListings> emptyListings =
        std::make_shared<CoverArtArchiveInterface::EmptyListings>();
};

} // namespace

class CoverArtArchiveInterfaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void searches_data()
    {
        const Table<SearchedSong, Pages, QStringList, int> row("song", "pages", "albums",
                                                               "requests");
        const auto size = [&](const char *name, const QString &front, float width,
                              const QString &file) {
            row(name, {.identifiers = both, .maxImageWidth = width},
                {{ofRelease, listing({back, front})}},
                {QString(found500).replace(u"500.jpg"_s, file)}, 1);
        };
        size("size of the maximum", all, 500, u"500.jpg"_s);
        size("size above the maximum", all, 501, u"1200.jpg"_s);
        size("original", all, 1201, u"original.png"_s);
        size("without the third size", image(u"250,500"_s), 501, u"original.png"_s);
        size("document with smaller sizes", image(u"250,500"_s, u"PDF"_s), 501, u"500.jpg"_s);
        size("names of old", image(u"small,large"_s), 450, u"large.jpg"_s);
        row("scheme and port of the listing", {.identifiers = both},
            {{ofRelease, listing({all}).replace(u'#', u"http://127.0.0.1/"_s)}}, {found500}, 1);
        row("wide enough for the minimum",
            {.minImageWidth = 600, .identifiers = both, .maxImageWidth = 300},
            {{ofRelease, listing({all})}}, {QString(found500).replace(u"500"_s, u"1200"_s)}, 1);

        const Pages onGroup{{ofGroup, listing({all})}};
        const auto falls = [&](const char *name, const QString &ofThis, int requests) {
            Pages pages = onGroup;
            if (!ofThis.isEmpty())
                pages[ofRelease] = ofThis;
            row(name, {.identifiers = both}, pages, {found500}, requests);
        };
        falls("group where the release has none", {}, 2);
        falls("group where the release has a back alone", listing({back}), 2);
        falls("group where the release leads elsewhere",
              listing({all}).replace(u'#', u"http://elsewhere.example/"_s), 2);
        falls("group where nothing is as it should be",
              u"{'images':[7,{'front':'yes'},{'front':true,'image':null,'thumbnails':[]}]}"_s, 2);
        row("release known to have none", {.identifiers = {release, group, true}}, onGroup,
            {found500}, 1);
        row("release alone", {.identifiers = {release, {}}}, {}, {}, 1);

        const Pages found{{byAlbum,
                           u"{'releases':[{'id':'%1','title':'Salt & Iron','score':100,"
                           "'artist-credit':[{'name':'Nila Oster'}],"
                           "'release-group':{'id':'%2'}}]}"_s.arg(release, group)},
                          {ofRelease, listing({all})}};
        row("album that is searched", {}, found, {found500}, 2);
        row("album that is not found", {.title = {}}, {{byAlbum, u"{'releases':[]}"_s}}, {}, 1);
        row("no album", {.album = {}}, {}, {}, 0);
        row("no artist", {.artist = {}}, {}, {}, 0);
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
        if (albums.isEmpty() && song.album && song.artist && !song.identifiers.isEmpty()) {
            QCOMPARE(scene.search(song), albums); // what is not there is asked for once
            QTEST(int(scene.server.requests().size()), "requests");
        }
    }

    void albumLookedUpBeforeNeedsNoSearch()
    {
        Scene scene;
        const QString lookUp = u"/looked-up"_s;
        scene.serveJson({{lookUp,
                          u"{'id':'%1','title':'Salt & Iron','release-group':{'id':'%2'},"
                          "'cover-art-archive':{'front':false}}"_s.arg(release, group)},
                         {ofGroup, listing({all})}});
        ReleaseRecord record;
        record.title = u"Salt & Iron"_s;
        record.artist = u"Nila Oster"_s;
        record.media = {{{u"First Light"_s}, {0}}};
        scene.shelf->put(record, scene.server.url(lookUp));
        QCOMPARE(scene.search({.isCompilation = true}), QStringList{found500});
        QCOMPARE(scene.server.requests().size(), 2);
    }

    void faultsAreNotTakenForNone_data()
    {
        const Table<HttpAnswer> row("fault");
        row("a page for people", {.type = "text/html", .body = QByteArray(999, '<')});
        row("cut", {.body = R"({"images":[{"front":)"});
        row("too many requests", {.status = 429});
        row("server fails", {.status = 503});
        row("led to a file", {.status = 307, .headers = {"Location: file:///etc/passwd"}});
        row("led in a circle", {.status = 307, .headers = {"Location: " + ofRelease.toUtf8()}});
    }
    void faultsAreNotTakenForNone()
    {
        QFETCH(HttpAnswer, fault);
        Scene scene;
        scene.serveJson({{ofGroup, listing({all})}});
        scene.server.serve(ofRelease, fault);
        QCOMPARE(scene.search({.identifiers = both}), QStringList());
        scene.serveJson({{ofRelease, listing({all})}});
        QCOMPARE(scene.search({.identifiers = both}), QStringList{found500});
    }
};

QTEST_GUILESS_MAIN(CoverArtArchiveInterfaceTest)
#include "tst_coverartarchiveinterface.moc"
