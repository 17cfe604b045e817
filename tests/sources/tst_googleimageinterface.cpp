#include "sources/googleimageinterface.h"

#include "support/songs.h"
#include "support/sourcesearch.h"
#include "support/table.h"

#include <QSignalSpy>

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

/// Thumbnails by the letter that each is called. The first five look alike, a is the candidate.
const Answers thumbnails{{'a', image(90)},
                         {'b', image(60)},
                         {'c', image(80)},
                         {'d', image(70)},
                         {'e', image(50)},
                         {'r', image(200, Qt::red)},
                         {'x', {.then = HttpAnswer::Then::Reset}},
                         {'y', {.body = "<html>busy"}},
                         {'z', image(plainPicture(100, 100).chopped(40))}};
/// The full-size pictures behind them.
const Answers pictures{{'c', image(300)}, {'d', image(700)}};

/// Pages hold "%s" where the server's address stands, and "%e" where its colon is escaped.
QByteArray rows(const QByteArray &row, const QByteArray &names)
{
    QByteArray rows;
    for (const char name : names)
        rows += QByteArray(row).replace("%n", QByteArray(1, name));
    return rows;
}
QByteArray inScript(const QByteArray &names)
{
    const char row[] = R"(picture("http://%s/thumbs", "%n", "%e/full/%n", 600);)";
    return "<html><script>" + rows(row, names) + "</script></html>";
}
QByteArray inHTML(const QByteArray &names)
{
    const char row[] = R"(<td><a href="/"><img src="http://%s/thumbs?q=%n:%e/full/%n"></a></td>)";
    return "<table class=\"pictures\">" + rows(row, names) + "</table>";
}

} // namespace

class TestGoogleImageInterface : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// Expected are the full-size pictures that were asked for, with "!" behind the one found.
    void choosesAndFetches_data()
    {
        const Table<QByteArray, QString, QVariantMap, Answers, Song> row("page", "tried", "changes",
                                                                         "changedPictures", "song");
        const auto add = [&](const char *name, const QByteArray &page, const QString &tried,
                             const QVariantMap &changes = {}, const Answers &changedPictures = {},
                             float minImageWidth = 0) {
            row(name, page, tried, changes, changedPictures, {.minImageWidth = minImageWidth});
        };
        const QByteArray four = inScript("abcd");
        const QByteArray five = inScript("abcde");
        add("the widest look-alike, never the candidate", four, u"c!"_s);
        add("several fetches at a time", four, u"c!"_s, {{u"simulConns"_s, 8}});
        add("in plain HTML", inHTML("abcd"), u"c!"_s);
        add("three rows of a script are read", inScript("abz") + inHTML("abcd"), {});
        add("two rows of a script are not", inScript("az") + inHTML("abcd"), u"c!"_s);
        add("thumbnails that fail or do not decode are absent", inScript("zabcydx"), u"c!"_s);
        add("three thumbnails are too few", inScript("abczy"), {});
        add("the same thumbnail again is none more", inScript("abcc"), {});
        add("unlike the consensus, however wide", inScript("abcdr"), u"c!"_s);

        const QByteArray good = plainPicture(900, 900);
        const auto addUnusable = [&](const char *name, const HttpAnswer &answer) {
            add(name, five, u"cd!"_s, {}, {{'c', answer}});
        };
        addUnusable("picture typed as a page", {.type = "text/html", .body = good});
        addUnusable("damaged picture", image(good.chopped(300)));
        addUnusable("picture that is gone", {.status = 404, .type = "image/png"});
        addUnusable("reset instead of the picture", {.then = HttpAnswer::Then::Reset});
        add("not large enough", five, u"cd!"_s, {}, {}, 400);
        add("just large enough", four, u"c!"_s, {}, {{'c', image(400)}}, 400);
        add("a choice needs four that are left", four, u"c"_s, {}, {}, 400);
        add("none is usable", five, u"cd"_s, {}, {{'c', {}}, {'d', {}}});

        add("number beyond the pieces", four, {}, {{u"scriptChunkOrder"_s, u"1,?q=,2,:,30"_s}});
        add("negative number", four, {}, {{u"scriptChunkOrder"_s, u"1,?q=,2,:,-3"_s}});
        add("prefix of addresses in HTML", inHTML("abcd").replace("http://", ""), u"c!"_s,
            {{u"htmlPrefix"_s, u"http://"_s}});
        add("one delimiter alone", inHTML("abcd"), {}, {{u"htmlDelimiters"_s, u"src="_s}});
        for (const char *key : {"queryArtistAndAlbum", "similarThreshold", "scriptChunkOrder"})
            add(key, four, {}, {{QString::fromLatin1(key), {}}});
        add("script without an end", QByteArray(four).replace("</script>", ""), {});
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
        row("compilation", {.album = u"Hits of the Sixties"_s, .isCompilation = true}, {});
        row("compilation with 13 characters that say something",
            {.artist = {}, .album = u"Hits of the Sixties!"_s, .isCompilation = true},
            u"Hits+of+the+Sixties!"_s);
    }
    void searchesFor()
    {
        QFETCH(Song, song);
        QFETCH(QString, query);
        serve({});
        QVERIFY(mScene->search<GoogleImageInterface>(song, definition()).isEmpty());
        QCOMPARE(mScene->server.paths(),
                 query.isEmpty() ? QStringList() : QStringList(u"/search?q="_s + query));
    }

    /// Searches count when they begin, decoding included.
    void endsInEachPhase_data()
    {
        const Table<int> row("searches");
        row("while the page loads", 1);
        row("while the thumbnails load", 5);
        row("while the last thumbnail is decoded", 9);
        row("while the picture loads", 10);
        row("while the picture is decoded", 11);
    }
    void endsInEachPhase()
    {
        QFETCH(int, searches);
        serve(inScript("abcd"), {{'c', image(plainPicture(2000, 2000))}});
        GoogleImageInterface source(SiteDefinition(definition()), mScene->queue);
        source.setArtist(u"Nila Oster"_s);
        source.setAlbumTitle(u"Salt & Iron"_s);
        QSignalSpy complete(&source, &WebDBInterface::searchComplete);
        source.beginSearch();
        while (source.totalSearches() < searches)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        source.cancelSearch();
        QTRY_COMPARE(complete.size(), 1);
        QVERIFY(source.albums().isEmpty());
        QVERIFY(picturesAskedFor().isEmpty() || searches >= 10);
    }

private:
    void serve(QByteArray page, const Answers &changedPictures = {})
    {
        mScene = std::make_unique<SampleSiteScene>();
        const QByteArray host = mScene->server.url({}).toEncoded().mid(7);
        const QByteArray escaped = QByteArray(host).replace(":", "%3A");
        mScene->server.serve(u"/search?q=Nila+Oster+Salt+Iron"_s,
                             {.body = page.replace("%s", host).replace("%e", escaped)});
        const QString thumbnail = u"/thumbs?q=%1:"_s + QString::fromLatin1(escaped) + u"/full/%1"_s;
        for (const auto &[name, answer] : thumbnails.asKeyValueRange())
            mScene->server.serve(QString(thumbnail).replace(u"%1"_s, QString(QLatin1Char(name))),
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
        values.removeIf([](const auto &entry) { return !entry.value().isValid(); });
        return values;
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
