#include "support/cases.h"
#include "support/songs.h"
#include "tags/mp3infotag.h"

#include <QImage>

#include <atomic>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

MP3InfoTag &withPicture(MP3InfoTag &tag, const QByteArray &picture)
{
    tag.addImage(ID3Image::imageWithData(picture, {}));
    return tag;
}

/// The side of the square icon of the tag for a box of that side.
int iconSide(const MP3InfoTag &tag, int box)
{
    return tag.imageIconNoLargerThan(box, box).width();
}

} // namespace

class tst_AudioInfoTag : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void trackNumbers()
    {
        const auto numbers = [](const QString &track) {
            MP3InfoTag tag;
            tag.setTrack(track);
            return std::pair(tag.trackNumber(), tag.numberOfTracksOnAlbum());
        };
        QCOMPARE(numbers(u"7/12"_s), std::pair(7, 12));
        QCOMPARE(numbers(u"7"_s), std::pair(7, 7));
        QCOMPARE(numbers(u"/12"_s), std::pair(0, 12));
        QCOMPARE(numbers(u"7/"_s), std::pair(7, 7));
        QCOMPARE(numbers(u" +7/ -1"_s), std::pair(7, -1));
        QCOMPARE(numbers(u"A7"_s), std::pair(0, 0));
        QCOMPARE(numbers(u"99999999999/-99999999999"_s), std::pair(2147483647, -2147483647 - 1));
    }

    void artistNames()
    {
        for (const QByteArrayList &cells : casesIn("artistnames")) {
            MP3InfoTag tag;
            tag.setArtist(QString::fromUtf8(cells[0]));
            QCOMPARE(*tag.normalizedArtist() + u'|' + *tag.reversedArtist(),
                     QString::fromUtf8(cells[1]));
        }
        QVERIFY(!MP3InfoTag().normalizedArtist() && !MP3InfoTag().reversedArtist());
    }

    void titleFromPathname()
    {
        const auto title = [](const QString &path) {
            MP3InfoTag tag;
            tag.gatherTagsFromPathname(path);
            tag.gatherTagsFromPathname(u"/another.mp3"_s);
            return tag.tagHasBeenModified() ? QString() : tag.title().value_or(QString());
        };
        QCOMPARE(title(u"/music/  Intro.flac "_s), u"Intro.flac"_s);
        QCOMPARE(title(u"/music/.mp3"_s), u".mp3"_s);
        QCOMPARE(title(u"a.mp3"_s), u"a"_s);
    }

    void matchString()
    {
        MP3InfoTag tag;
        tag.setTitle(u"Harbour Lights"_s);
        tag.setArtist(u"Nila Oster"_s);
        tag.setGenres(u"Folk"_s);
        tag.setYear(u"2007"_s);
        tag.setLyrics(u"la la"_s);
        for (const auto &held : {u"HARBOUR"_s, u"oster"_s, u"folk"_s, u"2007"_s})
            QVERIFY2(tag.matchString(held) && !MP3InfoTag().matchString(held), qPrintable(held));
        QVERIFY2(!tag.matchString(u"la la"_s), "lyrics are not looked at");
        QVERIFY2(!tag.matchString(u""_s), "nothing holds an empty text");
    }

    void imagesAreRemovedOneByOne()
    {
        MP3InfoTag tag;
        QVERIFY(!tag.removeImageAtIndex(0) && !tag.tagHasBeenModified());
        for (const char *data : {"first", "second", "third"})
            withPicture(tag, data);
        QVERIFY(tag.removeImageAtIndex(1));
        QCOMPARE(tag.images().at(1).data, "third");
        tag.removeAllImages();
        QCOMPARE(tag.numberOfImages(), 0);
    }

    void iconSizes_data()
    {
        const Table<QSize, QSize> row("picture", "icon");
        row("wide", QSize(640, 320), QSize(32, 16));
        row("small ones grow", QSize(4, 8), QSize(16, 32));
        row("odd sides shrink by one", QSize(320, 130), QSize(32, 12));
    }

    void iconSizes()
    {
        QFETCH(QSize, picture);
        for (const char *format : {"PNG", "JPG", "BMP"}) {
            MP3InfoTag tag;
            withPicture(tag, plainPicture(picture.width(), picture.height(), format));
            withPicture(tag, "a second one that is not looked at");
            const QImage icon = tag.imageIconNoLargerThan(32, 32);
            QTEST(icon.size(), "icon");
            const QPoint middle = icon.rect().center();
            QVERIFY(icon.pixelColor(middle).blue() > 250);
            QVERIFY2(icon.pixelColor(middle.x(), 0).blue() < 200, "no black frame");
        }
    }

    void unreadablePicturesHaveTheBuiltInIcon()
    {
        const auto nearlyEndless = "\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\1\0\0\0\1\0\0\x08\2\0\0\0"_ba;
        const auto notTried = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"_ba;
        for (const QByteArray &data : {"nothing"_ba, QByteArray(), plainPicture(100, 100).first(60),
                                       nearlyEndless, notTried}) {
            MP3InfoTag tag;
            QCOMPARE(iconSide(withPicture(tag, data), 32), 32);
        }
    }

    void iconIsKeptUntilItIsTooLarge()
    {
        MP3InfoTag tag;
        QCOMPARE(iconSide(withPicture(tag, plainPicture(90, 90)), 16), 16);
        QCOMPARE(iconSide(tag, 64), 16);
        MP3InfoTag other; // whose picture is the remembered one from now on
        QCOMPARE(iconSide(withPicture(other, plainPicture(91, 91)), 64), 64);
        MP3InfoTag same; // the same bytes have the same icon whatever the box
        QCOMPARE(iconSide(withPicture(same, plainPicture(91, 91)), 32), 64);
        QCOMPARE(iconSide(tag, 8), 8);
        QVERIFY(tag.removeImageAtIndex(0));
        QVERIFY(tag.imageIconNoLargerThan(8, 8).isNull());
    }

    void iconsForSeveralThreads()
    {
        const QByteArray pictures[]{plainPicture(40, 20), plainPicture(20, 40)};
        std::atomic<int> right = 0;
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([&, wide = thread % 2 == 0] {
                for (int i = 0; i < 50; ++i) {
                    MP3InfoTag tag;
                    withPicture(tag, pictures[wide ? 0 : 1]);
                    right += tag.imageIconNoLargerThan(32, 32).width() == (wide ? 32 : 16);
                }
            });
        }
        threads.clear();
        QCOMPARE(right.load(), 200);
    }
};

QTEST_GUILESS_MAIN(tst_AudioInfoTag)
#include "tst_audioinfotag.moc"
