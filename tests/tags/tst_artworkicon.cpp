#include "tags/mp3infotag.h"

#include <QBuffer>
#include <QImage>
#include <QTest>

#include <atomic>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

QByteArray pictureOf(QSize size, const char *format, Qt::GlobalColor color = Qt::red)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    image.save(&buffer, format);
    return buffer.data();
}

/// A PNG file of the given size that ends behind its header.
QByteArray headerOfPNG(const QByteArray &size)
{
    return "\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR"_ba + size + "\x08\2\0\0\0"_ba;
}

} // namespace

class tst_ArtworkIcon : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sizes_data();
    void sizes();
    void pictureInABlackFrame();
    void unreadablePicturesHaveTheBuiltInIcon_data();
    void unreadablePicturesHaveTheBuiltInIcon();
    void iconIsKeptUntilItIsTooLarge();
    void sameBytesHaveTheSameIconWhateverTheBox();
    void severalThreads();
};

void tst_ArtworkIcon::sizes_data()
{
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QSize>("icon");
    QTest::newRow("square") << QSize(600, 600) << QSize(32, 32);
    QTest::newRow("wide") << QSize(640, 320) << QSize(32, 16);
    QTest::newRow("small ones grow") << QSize(4, 8) << QSize(16, 32);
    QTest::newRow("odd sides shrink by one") << QSize(320, 130) << QSize(32, 12);
}

void tst_ArtworkIcon::sizes()
{
    QFETCH(QSize, picture);
    for (const char *format : {"PNG", "JPG", "BMP"}) {
        MP3InfoTag tag;
        tag.addImage(ID3Image::imageWithData(pictureOf(picture, format), {}));
        QTEST(tag.imageIconNoLargerThan(32, 32).size(), "icon");
    }
    QVERIFY(MP3InfoTag().imageIconNoLargerThan(32, 32).isNull());
}

void tst_ArtworkIcon::pictureInABlackFrame()
{
    MP3InfoTag tag;
    tag.addImage(ID3Image::imageWithData(pictureOf({100, 100}, "PNG"), {}));
    tag.addImage(ID3Image::imageWithData(pictureOf({100, 100}, "PNG", Qt::green), {}));
    const QImage icon = tag.imageIconNoLargerThan(32, 32);
    QCOMPARE(icon.pixelColor(16, 16), QColor(Qt::red));
    for (const QPoint edge : {QPoint(0, 16), {31, 16}, {16, 0}, {16, 31}})
        QVERIFY(icon.pixelColor(edge).red() < 200);
}

void tst_ArtworkIcon::unreadablePicturesHaveTheBuiltInIcon_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("no picture") << "nothing"_ba;
    QTest::newRow("no bytes") << QByteArray();
    QTest::newRow("cut off") << pictureOf({100, 100}, "PNG").first(60);
    QTest::newRow("nearly endless") << headerOfPNG("\0\1\0\0\0\1\0\0"_ba);
    QTest::newRow("other formats are not tried")
        << "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"_ba;
}

void tst_ArtworkIcon::unreadablePicturesHaveTheBuiltInIcon()
{
    QFETCH(QByteArray, data);
    MP3InfoTag tag;
    tag.addImage(ID3Image::imageWithData(data, u"image/png"_s));
    QCOMPARE(tag.imageIconNoLargerThan(32, 32).size(), QSize(32, 32));
}

void tst_ArtworkIcon::iconIsKeptUntilItIsTooLarge()
{
    MP3InfoTag tag;
    tag.addImage(ID3Image::imageWithData(pictureOf({90, 90}, "PNG"), {}));
    QCOMPARE(tag.imageIconNoLargerThan(16, 16).width(), 16);
    QCOMPARE(tag.imageIconNoLargerThan(64, 64).width(), 16);
    // Another tag's picture is the remembered one by now.
    MP3InfoTag other;
    other.addImage(ID3Image::imageWithData(pictureOf({91, 91}, "PNG"), {}));
    QCOMPARE(other.imageIconNoLargerThan(16, 16).width(), 16);
    QCOMPARE(tag.imageIconNoLargerThan(8, 8).width(), 8);
    QVERIFY(tag.removeImageAtIndex(0));
    QVERIFY(tag.imageIconNoLargerThan(8, 8).isNull());
}

void tst_ArtworkIcon::sameBytesHaveTheSameIconWhateverTheBox()
{
    const auto image = ID3Image::imageWithData(pictureOf({92, 92}, "PNG"), {});
    MP3InfoTag tag;
    tag.addImage(image);
    QCOMPARE(tag.imageIconNoLargerThan(64, 64).width(), 64);
    MP3InfoTag other;
    other.addImage(image);
    QCOMPARE(other.imageIconNoLargerThan(32, 32).width(), 64);
}

void tst_ArtworkIcon::severalThreads()
{
    const QByteArray pictures[]{pictureOf({40, 20}, "PNG"), pictureOf({20, 40}, "PNG")};
    std::atomic<int> right = 0;
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            const QByteArray &picture = pictures[thread % 2];
            for (int i = 0; i < 50; ++i) {
                MP3InfoTag tag;
                tag.addImage(ID3Image::imageWithData(picture, {}));
                const QSize size = tag.imageIconNoLargerThan(32, 32).size();
                right += size == (thread % 2 ? QSize(16, 32) : QSize(32, 16));
            }
        });
    }
    threads.clear();
    QCOMPARE(right.load(), 200);
}

QTEST_GUILESS_MAIN(tst_ArtworkIcon)
#include "tst_artworkicon.moc"
