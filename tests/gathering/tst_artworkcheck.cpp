#include "gathering/artworkcheck.h"

#include "support/songs.h"

#include <QTest>
#include <QtEndian>

namespace {
/// Noise, so that a lossless file of it is large.
QImage noise(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    quint32 state = 1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            state = state * 1664525 + 1013904223;
            image.setPixel(x, y, 0xFF000000U | (state >> 8));
        }
    }
    return image;
}

/// A BMP of a few bytes whose header claims that size.
QByteArray bmpClaiming(qint32 width, qint32 height)
{
    QByteArray bmp = encoded(noise(8, 8), "BMP");
    qToLittleEndian(width, bmp.data() + 18);
    qToLittleEndian(height, bmp.data() + 22);
    return bmp;
}
} // namespace

class ArtworkCheckTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void acceptsSizes()
    {
        const ArtworkLimits squares{100, 1000, NonSquare::Refuse};
        for (const QSize &size : {QSize(400, 500), QSize(650, 500)}) // 0.8 and 1.3 are square
            QVERIFY(isAcceptableSize(size, squares));
        for (const QSize &size : {QSize(399, 500), QSize(651, 500)})
            QVERIFY(!isAcceptableSize(size, squares));
        const ArtworkLimits any{100, 1000, NonSquare::Allow};
        QVERIFY(isAcceptableSize({100, 50}, any) && isAcceptableSize({300, 500}, any));
        QVERIFY(!isAcceptableSize({99, 500}, any) && !isAcceptableSize({}, any));
    }

    void keepsWhatFits()
    {
        // Of the last one, which is too large, every JPEG is larger still.
        for (const auto &[picture, mimeType] : {std::pair{plainPicture(300, 200), u"image/png"_qs},
                                                {encoded(noise(300, 300), "JPG"), u"image/jpeg"_qs},
                                                {plainPicture(400, 400), u"image/png"_qs}}) {
            const auto adjusted = adjustedImage(picture, {.maxWidth = 300});
            QVERIFY(adjusted && !adjusted->wasReencoded);
            QCOMPARE(adjusted->data, picture);
            QCOMPARE(adjusted->mimeType, mimeType);
        }
    }

    void shrinksWhatIsTooLarge()
    {
        // The last one never gets less than a pixel.
        for (const auto &[size, shrunk] : {std::pair{QSize(1000, 333), QSize(300, 100)},
                                           {QSize(310, 601), QSize(155, 300)},
                                           {QSize(3000, 2), QSize(300, 1)}}) {
            const auto adjusted = adjustedImage(encoded(noise(size.width(), size.height()), "PNG"),
                                                {.maxWidth = 300});
            QVERIFY(adjusted && adjusted->wasReencoded);
            QCOMPARE(adjusted->mimeType, u"image/jpeg"_qs);
            QCOMPARE(imageSize(adjusted->data), shrunk);
            QVERIFY(adjusted->data.startsWith("\xFF\xD8"));
        }
    }

    void lowersTheQualityUntilItFits()
    {
        // A poor JPEG of noise stays smaller than the first, good encodings of a smaller picture.
        const QByteArray poor = encoded(noise(700, 700), "JPG", 8);
        const QByteArray best = encoded(QImage::fromData(poor).scaled(600, 600), "JPG", 80);
        QVERIFY(best.size() > poor.size());
        const auto adjusted = adjustedImage(poor, {.maxWidth = 600});
        QVERIFY(adjusted && adjusted->wasReencoded);
        QVERIFY(adjusted->data.size() < poor.size());
    }

    void putsTransparencyOnBlack()
    {
        QImage image = noise(600, 600).convertToFormat(QImage::Format_ARGB32);
        for (int x = 0; x < 300; ++x) {
            for (int y = 0; y < 600; ++y)
                image.setPixel(x, y, 0x00FFFFFF);
        }
        const auto adjusted = adjustedImage(encoded(image, "PNG"), {.maxWidth = 300});
        QVERIFY(adjusted && adjusted->wasReencoded);
        const QImage shrunk = QImage::fromData(adjusted->data);
        QVERIFY(qGray(shrunk.pixel(50, 150)) < 16);
        QVERIFY(qGray(shrunk.pixel(250, 150)) > 32);
    }

    void refusesWhatIsNoPicture()
    {
        const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' width='300' height='300'/>";
        for (const QByteArray &picture :
             {QByteArray(), QByteArray("<html>not found</html>"), svg,
              encoded(noise(300, 300), "JPG").first(4), plainPicture(300, 300).first(40)})
            QVERIFY(!adjustedImage(picture, {}));
    }

    void measuresWithoutDecoding()
    {
        QCOMPARE(imageWidth(plainPicture(123, 45)), 123);
        QCOMPARE(imageWidth("no picture"), 0);
        QCOMPARE(imageWidth(bmpClaiming(10000, 10000)), 10000);
        // Pictures of more than 100 megapixels are none.
        QCOMPARE(imageWidth(bmpClaiming(10001, 10000)), 0);
        QVERIFY(!adjustedImage(bmpClaiming(0x7FFFFFFF, 0x7FFFFFFF), {}));
    }

    void answersFromTheBackgroundOnceOrNever()
    {
        int answers = 0;
        const auto count = [&answers](const auto &adjusted) { answers += adjusted ? 1 : 100; };
        auto leaving = std::make_unique<QObject>();
        adjustImageInBackground(encoded(noise(1000, 1000), "PNG"), {.maxWidth = 900}, leaving.get(),
                                count);
        adjustImageInBackground(encoded(noise(900, 900), "PNG"), {.maxWidth = 300}, this, count);
        leaving.reset();
        QCOMPARE(answers, 0);
        QTRY_COMPARE(answers, 1);
        adjustImageInBackground("no picture", {}, this, count);
        QTRY_COMPARE(answers, 101);
    }
};

QTEST_GUILESS_MAIN(ArtworkCheckTest)
#include "tst_artworkcheck.moc"
