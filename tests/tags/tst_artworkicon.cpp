#include "support/table.h"
#include "tags/mp3infotag.h"

#include <QBuffer>
#include <QImage>

#include <atomic>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

QByteArray pictureOf(QSize size, const char *format = "PNG", Qt::GlobalColor color = Qt::red)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    image.save(&buffer, format);
    return buffer.data();
}

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

class tst_ArtworkIcon : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sizes_data();
    void sizes();
    void pictureInABlackFrame();
    void unreadablePicturesHaveTheBuiltInIcon();
    void iconIsKeptUntilItIsTooLarge();
    void sameBytesHaveTheSameIconWhateverTheBox();
    void severalThreads();
};

void tst_ArtworkIcon::sizes_data()
{
    const Table<QSize, QSize> row("picture", "icon");
    row("square", QSize(600, 600), QSize(32, 32));
    row("wide", QSize(640, 320), QSize(32, 16));
    row("small ones grow", QSize(4, 8), QSize(16, 32));
    row("odd sides shrink by one", QSize(320, 130), QSize(32, 12));
}

void tst_ArtworkIcon::sizes()
{
    QFETCH(QSize, picture);
    for (const char *format : {"PNG", "JPG", "BMP"}) {
        MP3InfoTag tag;
        withPicture(tag, pictureOf(picture, format));
        QTEST(tag.imageIconNoLargerThan(32, 32).size(), "icon");
    }
    QVERIFY(MP3InfoTag().imageIconNoLargerThan(32, 32).isNull());
}

void tst_ArtworkIcon::pictureInABlackFrame()
{
    MP3InfoTag tag;
    withPicture(withPicture(tag, pictureOf({100, 100})), pictureOf({100, 100}, "PNG", Qt::green));
    const QImage icon = tag.imageIconNoLargerThan(32, 32);
    QCOMPARE(icon.pixelColor(16, 16), QColor(Qt::red));
    for (const QPoint edge : {QPoint(0, 16), {31, 16}, {16, 0}, {16, 31}})
        QVERIFY(icon.pixelColor(edge).red() < 200);
}

void tst_ArtworkIcon::unreadablePicturesHaveTheBuiltInIcon()
{
    const QByteArray nearlyEndless =
        "\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\1\0\0\0\1\0\0\x08\2\0\0\0"_ba;
    const auto notTried = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"_ba;
    for (const QByteArray &data :
         {"nothing"_ba, QByteArray(), pictureOf({100, 100}).first(60), nearlyEndless, notTried}) {
        MP3InfoTag tag;
        QCOMPARE(iconSide(withPicture(tag, data), 32), 32);
    }
}

void tst_ArtworkIcon::iconIsKeptUntilItIsTooLarge()
{
    MP3InfoTag tag;
    withPicture(tag, pictureOf({90, 90}));
    QCOMPARE(iconSide(tag, 16), 16);
    QCOMPARE(iconSide(tag, 64), 16);
    MP3InfoTag other; // whose picture is the remembered one from now on
    QCOMPARE(iconSide(withPicture(other, pictureOf({91, 91})), 16), 16);
    QCOMPARE(iconSide(tag, 8), 8);
    QVERIFY(tag.removeImageAtIndex(0));
    QVERIFY(tag.imageIconNoLargerThan(8, 8).isNull());
}

void tst_ArtworkIcon::sameBytesHaveTheSameIconWhateverTheBox()
{
    MP3InfoTag tag;
    QCOMPARE(iconSide(withPicture(tag, pictureOf({92, 92})), 64), 64);
    MP3InfoTag other;
    QCOMPARE(iconSide(withPicture(other, pictureOf({92, 92})), 32), 64);
}

void tst_ArtworkIcon::severalThreads()
{
    const QByteArray pictures[]{pictureOf({40, 20}), pictureOf({20, 40})};
    std::atomic<int> right = 0;
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            const QByteArray &picture = pictures[thread % 2];
            for (int i = 0; i < 50; ++i) {
                MP3InfoTag tag;
                const QSize size = withPicture(tag, picture).imageIconNoLargerThan(32, 32).size();
                right += size == (thread % 2 ? QSize(16, 32) : QSize(32, 16));
            }
        });
    }
    threads.clear();
    QCOMPARE(right.load(), 200);
}

QTEST_GUILESS_MAIN(tst_ArtworkIcon)
#include "tst_artworkicon.moc"
