#include "sources/thumbnailconsensus.h"

#include "support/table.h"

#include <QBuffer>

using namespace Qt::StringLiterals;

namespace {

/// Grey of that lightness all over; two of them differ by 3072 for each step.
ShrunkenBitmap grey(int lightness)
{
    ShrunkenBitmap bitmap;
    bitmap.fill(quint8(lightness));
    return bitmap;
}
constexpr int step = 32 * 32 * 3;

QByteArray png(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

QImage plain(QSize size, const QColor &color)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

using Greys = QList<int>;

} // namespace

class TestThumbnailConsensus : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void differencesAreSumsOfBytes()
    {
        ShrunkenBitmap other = grey(10);
        QCOMPARE(diffBetween(grey(10), other), 0);
        QCOMPARE(diffBetween(grey(0), grey(255)), 32 * 32 * 3 * 255);
        other[0] = 255;
        other[step - 1] = 0;
        QCOMPARE(diffBetween(grey(10), other), 245 + 10);
        QCOMPARE(diffBetween(other, grey(10)), 245 + 10);
        const Thumbnails three{{u"a"_s, {grey(1)}}, {u"b"_s, {grey(3)}}, {u"c"_s, {grey(9)}}};
        QCOMPARE(measuredBitmapDifferences(three),
                 (BitmapDifferences{
                     {0, 2 * step, 8 * step}, {2 * step, 0, 6 * step}, {8 * step, 6 * step, 0}}));
    }

    void pictureFillsTheSquareOnBlack()
    {
        QImage wide = plain({200, 10}, Qt::transparent);
        for (int x = 100; x < 200; ++x)
            for (int y = 0; y < 10; ++y)
                wide.setPixelColor(x, y, QColor(255, 0, 100));
        const auto thumbnail = thumbnailOf(png(wide));
        QCOMPARE(thumbnail.value().width, 200);
        for (std::size_t row = 0; row < 32; ++row) {
            const auto *bytes = &thumbnail->bitmap[row * 32 * 3];
            QVERIFY(std::all_of(bytes, bytes + 15 * 3, [](quint8 byte) { return byte == 0; }));
            QCOMPARE(QByteArray(reinterpret_cast<const char *>(bytes) + 31 * 3, 3), "\xFF\0d"_ba);
        }
    }

    void damagedAndHugeThumbnailsAreNone()
    {
        const QByteArray good = png(plain({2000, 2000}, Qt::red));
        const QByteArray huge = png(plain({2001, 2000}, Qt::red));
        QVERIFY(thumbnailOf(good));
        for (const QByteArray &picture : {QByteArray(), good.chopped(good.size() / 2), huge})
            QVERIFY(!thumbnailOf(picture));
    }

    void chooses_data()
    {
        const Table<Greys, Greys, QString, QString> row("greys", "widths", "address", "unlike");
        const QString none = u"none"_s;
        row("nothing", {}, {}, none, {});
        row("two alike", {1, 1}, {}, none, {});
        row("three alike: each has but two", {1, 1, 1}, {}, none, {});
        row("four alike: the first is the candidate and never taken", {1, 1, 1, 1},
            {900, 100, 300, 200}, u"c"_s, {});
        row("equal widths: the first", {1, 1, 1, 1}, {100, 100, 100, 100}, u"b"_s, {});
        row("unlike ones, however wide", {90, 1, 1, 50, 1, 1}, {900, 1, 2, 800, 4, 3}, u"e"_s,
            u"ad"_s);
        row("just below the threshold", {1, 1, 1, 5}, {}, u"b"_s, {});
        row("at the threshold is unlike", {1, 1, 1, 6}, {}, none, {});
        row("alike to the candidate, not to each other", {1, 5, 5, 9}, {1, 2, 3, 4}, u"d"_s, {});
        row("a wide one that is like the taken one but not like the candidate", {5, 1, 5, 9, 13},
            {1, 2, 3, 4, 9}, u"d"_s, u"e"_s);
        row("equal counts: the first", {90, 90, 90, 90, 1, 1, 1, 1}, {}, u"b"_s, u"efgh"_s);
        row("nine: three look-alikes", {1, 1, 1, 1, 20, 30, 40, 50, 60}, {}, u"b"_s, u"efghi"_s);
        row("ten: a third is three", {1, 1, 1, 1, 20, 30, 40, 50, 60, 70}, {}, u"b"_s, u"efghij"_s);
        row("twelve: three are too few", {1, 1, 1, 1, 20, 30, 40, 50, 60, 70, 80, 90}, {}, none,
            {});
        row("twelve: four are a third", {1, 1, 1, 1, 1, 30, 40, 50, 60, 70, 80, 90}, {}, u"b"_s,
            u"fghijkl"_s);
    }
    void chooses()
    {
        QFETCH(Greys, greys);
        QFETCH(Greys, widths);
        Thumbnails images;
        for (qsizetype i = 0; i < greys.size(); ++i)
            images[QChar(u'a' + char16_t(i))] = {grey(greys[i]), widths.value(i, 100)};
        const auto choice = chooseThumbnail(images, 5 * step);
        QTEST(choice ? choice->address : u"none"_s, "address");
        QTEST(choice ? choice->unlike.join(QString()) : QString(), "unlike");
    }
};

QTEST_GUILESS_MAIN(TestThumbnailConsensus)
#include "tst_thumbnailconsensus.moc"
