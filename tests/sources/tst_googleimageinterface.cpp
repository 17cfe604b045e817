#include "sources/googleimageinterface.h"

#include "support/songs.h"
#include "support/sourcesearch.h"
#include "support/table.h"

#include <QSignalSpy>
#include <QThreadPool>

using namespace Qt::StringLiterals;

namespace {

using Song = SearchedSong;
using Answers = QMap<char, HttpAnswer>;

HttpAnswer image(const QByteArray &bytes)
{
    return {.type = "image/png", .body = bytes};
}
HttpAnswer image(int width, Qt::GlobalColor color = Qt::blue)
{
    return image(plainPicture(width, 40, "PNG", color));
}

/// By the letter that each is called. The first five look alike, a is the candidate.
const Answers thumbnails{{'a', image(90)},
                         {'b', image(60)},
                         {'c', image(80)},
                         {'d', image(70)},
                         {'e', image(50)},
                         {'r', image(200, Qt::red)},
                         {'x', {.then = HttpAnswer::Then::Reset}},
                         {'y', {.body = "<html>busy</html>"}},
                         {'z', image(plainPicture(100, 100).chopped(40))}};
/// The full-size pictures behind them.
const Answers pictures{{'c', image(300)}, {'d', image(700)}};

/// Pages hold "%s" where the server's address stands, and "%e" where its colon is escaped.
QByteArray inScript(const QByteArray &names)
{
    QByteArray page = "<html><script>";
    for (const char name : names)
        page += QByteArray("picture(\"http://%s/thumbs\", \"%n\", \"%e/full/%n\", 600);\n")
                    .replace("%n", QByteArray(1, name));
    return page + "</script></html>";
}
QByteArray inHTML(const QByteArray &names)
{
    QByteArray page = "<html><table class=\"pictures\">";
    for (const char name : names)
        page += QByteArray("<td><a href=\"/page\"><img src=\"http://%s/thumbs?q=%n:%e/full/%n\">"
                           "</a></td>\n")
                    .replace("%n", QByteArray(1, name));
    return page + "</table></html>";
}

} // namespace

class TestGoogleImageInterface : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// Expected are the full-size pictures that were asked for, with "!" behind the one found.
    void choosesAndFetches_data()
    {
        const Table<Song, QByteArray, Answers, QVariantMap, QString> table(
            "song", "page", "changedPictures", "changes", "tried");
        const auto add = [&](const char *name, const QByteArray &page, const QString &tried,
                             const QVariantMap &changes = {}, const Answers &changedPictures = {},
                             const Song &song = {}) {
            table(name, song, page, changedPictures, changes, tried);
        };
        const QByteArray script = inScript("abcd");
        add("the widest look-alike, never the candidate", script, u"c!"_s);
        add("several fetches at a time", script, u"c!"_s, {{u"simulConns"_s, 8}});
        add("in plain HTML", inHTML("abcd"), u"c!"_s);
        add("three rows of a script are read", inScript("abz") + inHTML("abcd"), {});
        add("two rows of a script are not", inScript("az") + inHTML("abcd"), u"c!"_s);
        add("thumbnails that fail or do not decode are absent", inScript("zabcydx"), u"c!"_s);
        add("none that decodes", inScript("xyzy"), {});
        add("three thumbnails are too few", inScript("abczy"), {});
        add("the same thumbnail again is none more", inScript("abcc"), {});
        add("unlike the consensus, however wide", inScript("abcdr"), u"c!"_s);

        const QList<std::pair<const char *, HttpAnswer>> unusable{
            {"empty picture", {.type = "image/png"}},
            {"15 bytes", {.type = "image/gif", .body = "GIF89a901234567"}},
            {"picture typed as a page", {.type = "text/html", .body = plainPicture(900, 900)}},
            {"picture without a type", {.type = {}, .body = plainPicture(900, 900)}},
            {"garbage typed as a picture", image(QByteArray(99, '\xFF'))},
            {"damaged picture", image(plainPicture(900, 900).chopped(300))},
            {"picture that is gone", {.status = 404, .type = "image/png"}},
            {"reset instead of the picture", {.then = HttpAnswer::Then::Reset}},
        };
        for (const auto &[name, answer] : unusable)
            add(name, inScript("abcde"), u"cd!"_s, {}, {{'c', answer}});
        const Song wide{.minImageWidth = 400};
        add("not large enough", inScript("abcde"), u"cd!"_s, {}, {}, wide);
        add("just large enough", script, u"c!"_s, {}, {{'c', image(400)}}, wide);
        add("a choice needs four that are left", script, u"c"_s, {}, {}, wide);
        add("none is usable", inScript("abcde"), u"cd"_s, {}, {{'c', {}}, {'d', {}}});

        add("number beyond the pieces", script, {}, {{u"scriptChunkOrder"_s, u"1,?q=,2,:,30"_s}});
        add("negative number", script, {}, {{u"scriptChunkOrder"_s, u"1,?q=,2,:,-3"_s}});
        add("prefix of addresses in HTML", inHTML("abcd").replace("\"http://", "\""), u"c!"_s,
            {{u"htmlPrefix"_s, u"http://"_s}});
        add("one delimiter alone", inHTML("abcd"), {}, {{u"htmlDelimiters"_s, u"src="_s}});
        add("nothing is alike below a threshold of 0", script, {}, {{u"similarThreshold"_s, 0}});
        for (const char *key : {"queryArtistAndAlbum", "scriptChunkOrder"})
            add(key, script, {}, {{QString::fromLatin1(key), QString()}});
        add("script without an end", QByteArray(script).replace("</script>", ""), {});
        add("garbage", QByteArray(5000, '\xFF'), {});
        add("empty", {}, {});
    }
    void choosesAndFetches()
    {
        QFETCH(Song, song);
        QFETCH(QByteArray, page);
        QFETCH(Answers, changedPictures);
        QFETCH(QVariantMap, changes);
        serve(page, changedPictures);
        const AlbumList albums = mScene->search<GoogleImageInterface>(song, definition(changes));
        QString tried = picturesAskedFor();
        for (const AlbumInfo &album : albums) {
            QCOMPARE(shown(album),
                     u"Nila Oster|Salt & Iron|-|-|-|"_s
                         + mScene->server.url(u"/full/"_s + tried.right(1)).toString());
            QCOMPARE(album.sourceInterfaceName(), u"GoogleImageInterface"_s);
            tried += u'!';
        }
        QTEST(tried, "tried");
    }

    void searchesFor_data()
    {
        const Table<Song, QString> row("song", "query");
        row("artist and album", {.artist = u"Señora Malva"_s, .album = u"Salt & Iron"_s},
            u"Senora+Malva+Salt+Iron"_s);
        row("no artist", {.artist = {}}, {});
        row("no album", {.album = QString()}, {});
        row("self-titled", {.artist = u"The Oster"_s, .album = u"oster!"_s}, {});
        row("compilation", {.artist = {}, .album = u"Hits of the Sixty"_s, .isCompilation = true},
            {});
        row("compilation with 13 characters that say something",
            {.album = u"Hits of the Sixties X"_s, .isCompilation = true},
            u"Hits+of+the+Sixties+X"_s);
    }
    void searchesFor()
    {
        QFETCH(Song, song);
        QFETCH(QString, query);
        serve({});
        QVERIFY(mScene->search<GoogleImageInterface>(song, definition()).isEmpty());
        QCOMPARE(mScene->server.paths(),
                 query.isEmpty() ? QStringList() : QStringList(u"/search?q="_s + query));
        QVariantMap withoutThreshold = definition();
        withoutThreshold.remove(u"similarThreshold"_s);
        QVERIFY(mScene->search<GoogleImageInterface>(song, withoutThreshold).isEmpty());
        QCOMPARE(mScene->server.paths().size(), query.isEmpty() ? 0 : 1);
    }

    void endsInEachPhase_data()
    {
        const Table<int> row("searches");
        row("while the page loads", 1);
        row("while the first thumbnail loads", 5);
        row("while a thumbnail is decoded", 6);
        row("while the last thumbnail is decoded", 9);
        row("while the picture loads", 10);
        row("while the picture is decoded", 11);
    }
    void endsInEachPhase()
    {
        QFETCH(int, searches);
        auto source = searchInPhase();
        QSignalSpy complete(source.get(), &WebDBInterface::searchComplete);
        source->cancelSearch();
        QTRY_COMPARE(complete.size(), 1);
        QVERIFY(source->albums().isEmpty());
        QVERIFY(picturesAskedFor().isEmpty() || searches >= 10);

        searchInPhase().reset(); // what is decoded then goes nowhere
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents();
    }

private:
    void serve(QByteArray page, const Answers &changedPictures = {})
    {
        mScene = std::make_unique<SampleSiteScene>();
        const QByteArray host = mScene->server.url({}).toEncoded().mid(7);
        const QByteArray escaped = QByteArray(host).replace(":", "%3A");
        mScene->server.serve(u"/search?q=Nila+Oster+Salt+Iron"_s,
                             {.body = page.replace("%s", host).replace("%e", escaped)});
        for (const auto &[name, answer] : thumbnails.asKeyValueRange())
            mScene->server.serve(QString::fromLatin1(QByteArray("/thumbs?q=%n:%e/full/%n")
                                                         .replace("%n", QByteArray(1, name))
                                                         .replace("%e", escaped)),
                                 answer);
        Answers all = pictures;
        all.insert(changedPictures);
        for (const auto &[name, answer] : all.asKeyValueRange())
            mScene->server.serve(u"/full/"_s + QLatin1Char(name), answer);
    }

    [[nodiscard]] QVariantMap definition(const QVariantMap &changes = {}) const
    {
        QVariantMap values = mScene->definition(u"GoogleImageInterface"_s,
                                                {{u"queryArtistAndAlbum"_s, u"search?q=%@"_s}});
        values.insert(changes);
        return values;
    }

    /// A search that has just begun as many searches, decoding included, as the row says.
    [[nodiscard]] std::unique_ptr<WebDBInterface> searchInPhase()
    {
        QFETCH(int, searches);
        serve(inScript("abcd"), {{'c', image(plainPicture(2000, 2000))}});
        auto source =
            std::make_unique<GoogleImageInterface>(SiteDefinition(definition()), mScene->queue);
        source->setArtist(u"Nila Oster"_s);
        source->setAlbumTitle(u"Salt & Iron"_s);
        source->beginSearch();
        while (source->totalSearches() < searches)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return source;
    }

    [[nodiscard]] QString picturesAskedFor() const
    {
        QString names;
        for (const QString &path : mScene->server.paths())
            if (path.startsWith(u"/full/"))
                names += path.back();
        return names;
    }

    std::unique_ptr<SampleSiteScene> mScene;
};

QTEST_GUILESS_MAIN(TestGoogleImageInterface)
#include "tst_googleimageinterface.moc"
