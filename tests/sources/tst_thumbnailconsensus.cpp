#include "sources/thumbnailconsensus.h"

#include "support/songs.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int step = 32 * 32 * 3;

/// Grey all over, as light as the letter's code; two letters differ by a step for each between.
ShrunkenBitmap grey(char letter)
{
    ShrunkenBitmap bitmap;
    bitmap.fill(quint8(letter));
    return bitmap;
}

} // namespace

class TestThumbnailConsensus : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void differencesAreSumsOfBytes()
    {
        ShrunkenBitmap other = grey('a');
        QCOMPARE(diffBetween(grey('a'), other), 0);
        QCOMPARE(diffBetween(grey('\0'), grey('\xFF')), 32 * 32 * 3 * 255);
        other.front() = 'a' + 100;
        other.back() = 'a' - 20;
        QCOMPARE(diffBetween(grey('a'), other), 120);
        QCOMPARE(diffBetween(other, grey('a')), 120);
        const Thumbnails three{{u"1"_s, {grey('a')}}, {u"2"_s, {grey('c')}}, {u"3"_s, {grey('i')}}};
        const BitmapDifferences expected{
            {0, 2 * step, 8 * step}, {2 * step, 0, 6 * step}, {8 * step, 6 * step, 0}};
        QCOMPARE(measuredBitmapDifferences(three), expected);
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
        row("nothing", {}, {}, u"-"_s, {});
        row("two alike", "aa", {}, u"-"_s, {});
        row("three alike: each has but two", "aaa", {}, u"-"_s, {});
        row("four alike: the first is the candidate, not taken", "aaaa", "9132", u"3"_s, {});
        row("equal widths: the first", "aaaa", "5555", u"2"_s, {});
        row("unlike ones, however wide", "zaaGaa", "912843", u"5"_s, u"14"_s);
        row("just below the threshold", "aaae", "1234", u"4"_s, {});
        row("at the threshold is unlike", "aaaf", "1234", u"-"_s, {});
        row("alike to the candidate, not to each other", "eaei", "1234", u"4"_s, {});
        row("alike to the taken, not to the candidate", "eaeim", "12349", u"4"_s, u"5"_s);
        row("equal counts: the first", "zzzzaaaa", "11111999", u"2"_s, u"5678"_s);
        row("nine: three look-alikes", "aaaa05AFK", "123456789", u"4"_s, u"56789"_s);
        row("ten: a third is three", "aaaa05AFKP", "1234567899", u"4"_s, u"56789:"_s);
        row("twelve: three are too few", "aaaa05AFKPUz", {}, u"-"_s, {});
        row("twelve: four are a third", "aaaaa05AFKPU", "123459999999", u"5"_s, u"6789:;<"_s);
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
};

QTEST_GUILESS_MAIN(TestThumbnailConsensus)
#include "tst_thumbnailconsensus.moc"
