#include "sources/googleimageinterface.h"
#include "sources/thumbnailconsensus.h"
#include "support/cases.h"
#include "support/songs.h"
#include "support/sourcesearch.h"

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

constexpr int step = 32 * 32 * 3;

/// Grey all over, as light as the letter's code; two letters differ by a step for each between.
ShrunkenBitmap grey(char letter)
{
    ShrunkenBitmap bitmap;
    bitmap.fill(quint8(letter));
    return bitmap;
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
        add("in plain HTML", inHTML("abcd"), u"c!"_s);
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
        add("not large enough", five, u"cd!"_s, {}, {}, 400);
        add("a choice needs four that are left", four, u"c"_s, {}, {}, 400);

        add("number beyond the pieces", four, {}, {{u"scriptChunkOrder"_s, u"1,?q=,2,:,30"_s}});
        add("prefix of addresses in HTML", inHTML("abcd").replace("http://", ""), u"c!"_s,
            {{u"htmlPrefix"_s, u"http://"_s}});
        add("one delimiter alone", inHTML("abcd"), {}, {{u"htmlDelimiters"_s, u"src="_s}});
        for (const char *key : {"queryArtistAndAlbum", "similarThreshold", "scriptChunkOrder"})
            add(key, four, {}, {{QString::fromLatin1(key), {}}});
        add("script without an end", QByteArray(four).replace("</script>", ""), {});
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

    void searchesFor()
    {
        const auto query = [this](const Song &song) {
            serve({});
            static_cast<void>(mScene->search<GoogleImageInterface>(song, definition()));
            return mScene->server.paths().join(u' ').remove(u"/search?q="_s);
        };
        QCOMPARE(query({.artist = u"Señora Malva"_s, .album = u"Salt & Iron"_s}),
                 u"Senora+Malva+Salt+Iron"_s);
        QCOMPARE(query({.artist = {}}), QString());
        QVERIFY2(query({.artist = u"The Oster"_s, .album = u"oster!"_s}).isEmpty(), "self-titled");
        // Of a compilation's title 13 characters must say something.
        QCOMPARE(query({.album = u"Hits of the Sixties"_s, .isCompilation = true}), QString());
        QCOMPARE(query({.artist = {}, .album = u"Hits of the Sixties!"_s, .isCompilation = true}),
                 u"Hits+of+the+Sixties!"_s);
    }

    /// Searches count when they begin, decoding included.
    void endsInEachPhase()
    {
        // While the page, the thumbnails load, the last of them is decoded, the picture loads, is
        // decoded.
        for (const int searches : {1, 5, 9, 10, 11}) {
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
    }

    void pictureFillsTheSquareOnBlack()
    {
        QImage wide(2, 1, QImage::Format_ARGB32);
        wide.setPixelColor(0, 0, QColor(200, 200, 200, 0));
        wide.setPixelColor(1, 0, QColor(255, 0, 100));
        const ShrunkenBitmap bitmap = shrunkenBitmap(wide);
        for (std::size_t row = 0; row < 32; ++row) {
            const auto pixel = [&](std::size_t column) {
                const auto *bytes = &bitmap[(row * 32 + column) * 3];
                return QColor(bytes[0], bytes[1], bytes[2]);
            };
            QCOMPARE(pixel(0), QColor(0, 0, 0));
            QCOMPARE(pixel(31), QColor(255, 0, 100));
        }
    }

    void damagedAndHugeThumbnailsAreNone()
    {
        const QByteArray good = plainPicture(2000, 2000);
        QCOMPARE(thumbnailOf(good).value().width, 2000);
        for (const QByteArray &picture :
             {{}, good.chopped(good.size() / 2), plainPicture(2001, 2000)})
            QVERIFY(!thumbnailOf(picture));
    }

    /// A letter is a thumbnail: four between two are alike, five are not. Addresses are 1, 2, 3...
    void chooses_data()
    {
        const Table<QByteArray, QByteArray, QString, QString> row("greys", "widths", "address",
                                                                  "unlike");
        addCases(row, "thumbnailchoices");
    }
    void chooses()
    {
        QFETCH(QByteArray, greys);
        QFETCH(QByteArray, widths);
        Thumbnails images;
        for (qsizetype i = 0; i < greys.size(); ++i)
            images[QChar(u'1' + char16_t(i))] = {grey(greys[i]), i < widths.size() ? widths[i] : 1};
        const auto choice = chooseThumbnail(images, 5 * step);
        QTEST(choice ? choice->address : u"-"_s, "address");
        QTEST(choice ? choice->unlike.join(QString()) : QString(), "unlike");
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
        return mScene->definition(u"GoogleImageInterface"_s,
                                  {{u"queryArtistAndAlbum"_s, u"search?q=%@"_s}}, changes);
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
