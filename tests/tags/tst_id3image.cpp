#include "support/bytesliteral.h"
#include "tags/id3image.h"

#include <QTest>

namespace {

const ID3Dialect classic = ID3Dialect::classic();
const ID3Dialect standard = ID3Dialect::standard();

/// "encoding type mime|description|data in hex"
QString shown(const std::optional<ID3Image> &image)
{
    if (!image)
        return QStringLiteral("nothing");
    const QString none = QStringLiteral("none");
    return QStringLiteral("%1 %2 %3|%4|%5")
        .arg(QString::number(image->textEncoding), QString::number(image->pictureType),
             image->storedMimeFormat.value_or(none), image->description.value_or(none),
             QString::fromLatin1(image->data.toHex()));
}

ID3Image picture(const QByteArray &data, const char *mime, int type, const QString &description)
{
    ID3Image image = ID3Image::imageWithData(data, QString::fromLatin1(mime));
    image.pictureType = type;
    image.description = description;
    return image;
}

} // namespace

class TestID3Image : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsAPIC_data();
    void readsAPIC();
    void readsPIC_data();
    void readsPIC();
    void writesAPIC();
    void writesPIC();
    void whatIsWrittenIsReadAgain();
    void guessesTheFormat_data();
    void guessesTheFormat();
    void suffixAndLogText();
    void aCopyHasNoDescription();
};

void TestID3Image::readsAPIC_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("inClassic");
    QTest::addColumn<QString>("inStandard");
    const auto both = [](const char *name, const QByteArray &body, const char *image) {
        QTest::newRow(name) << body << QString::fromLatin1(image) << QString::fromLatin1(image);
    };
    both("three bytes", "\0\0\3"_bytes, "nothing");
    both("no description", "\0image/png\0\3\0\x89P"_bytes, "0 3 image/png|none|8950");
    both("description", "\0image/png\0\3ab\0\x89P"_bytes, "0 3 image/png|ab|8950");
    both("UTF-16 description",
         "\1image/png\0\3\xFF\xFE"
         "a\0\0\0\x89P"_bytes,
         "1 3 image/png|a|8950");
    both("no data", "\0image/png\0\3\0"_bytes, "0 3 image/png|none|");
    both("MIME type without an end", "\0image/png"_bytes, "0 0 image/png|none|");
    QTest::newRow("type read early without image/")
        << "\0PNG\0\3\0\x89P"_bytes << QStringLiteral("0 0 image/PNG|\3|8950")
        << QStringLiteral("0 3 image/PNG|none|8950");
    QTest::newRow("type read early after an empty MIME type")
        << "\0\0\3\0\x89P"_bytes << QStringLiteral("0 0 none|\3|8950")
        << QStringLiteral("0 3 none|none|8950");
    QTest::newRow("empty UTF-16 description")
        << "\1image/png\0\3\0\0\x89P"_bytes << QStringLiteral("1 3 image/png|none|008950")
        << QStringLiteral("1 3 image/png|none|8950");
    QTest::newRow("empty UTF-16 description with one zero byte")
        << "\1image/png\0\3\0\x89P"_bytes << QStringLiteral("1 3 image/png|none|8950")
        << QStringLiteral("1 3 image/png|none|8950");
}

void TestID3Image::readsAPIC()
{
    QFETCH(QByteArray, body);
    QTEST(shown(ID3Image::imageWithID3v23Frame(body, classic)), "inClassic");
    QTEST(shown(ID3Image::imageWithID3v23Frame(body, standard)), "inStandard");
}

void TestID3Image::readsPIC_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("inClassic");
    QTest::addColumn<QString>("inStandard");
    QTest::newRow("no description")
        << "\0JPG\3\0\xFF\xD8"_bytes << QStringLiteral("0 3 image/jpg|none|ffd8")
        << QStringLiteral("0 3 image/jpg|none|ffd8");
    QTest::newRow("the description's terminator becomes data")
        << "\0JPG\3x\0\xFF\xD8"_bytes << QStringLiteral("0 3 image/jpg|x|00ffd8")
        << QStringLiteral("0 3 image/jpg|x|ffd8");
    QTest::newRow("UTF-16 description") << "\1PNG\3\xFE\xFF\0x\0\0\x89P"_bytes
                                        << QStringLiteral("1 3 image/png|\u00FE\u00FF|007800008950")
                                        << QStringLiteral("1 3 image/png|x|8950");
    QTest::newRow("no data") << "\0PNG\3\0"_bytes + 'x' << QStringLiteral("0 3 image/png|none|78")
                             << QStringLiteral("0 3 image/png|none|78");
}

void TestID3Image::readsPIC()
{
    QFETCH(QByteArray, body);
    QTEST(shown(ID3Image::imageWithID3v22Frame(body, classic)), "inClassic");
    QTEST(shown(ID3Image::imageWithID3v22Frame(body, standard)), "inStandard");
    QTest::ignoreMessage(QtWarningMsg, "initWithID3v22Frame insufficient data");
    QVERIFY(!ID3Image::imageWithID3v22Frame(body.first(6), classic));
}

void TestID3Image::writesAPIC()
{
    const ID3Image image = picture("\x89PNG"_bytes, "image/png", 3, QStringLiteral("ab"));
    QCOMPARE(image.dataForID3v23Frame(FrameSizes::Plain, false, classic),
             "APIC\0\0\0\x11\0\0\0image/png\0\0\0\x89PNG"_bytes);
    QCOMPARE(image.dataForID3v23Frame(FrameSizes::Plain, false, standard),
             "APIC\0\0\0\x13\0\0\0image/png\0\3"
             "ab\0\x89PNG"_bytes);
    const ID3Image large = ID3Image::imageWithData(QByteArray(124, 'x'), {});
    QCOMPARE(large.dataForID3v23Frame(FrameSizes::Plain, true, classic).sliced(4, 9),
             "\0\0\0\x80\0\0\0\0\0"_bytes);
    QCOMPARE(large.dataForID3v23Frame(FrameSizes::Accurate, true, classic).sliced(4, 4),
             "\0\0\1\0"_bytes);
}

void TestID3Image::writesPIC()
{
    const ID3Image image = picture("\xFF\xD8"_bytes, "image/jpeg", 3, QStringLiteral("x"));
    QCOMPARE(image.dataForID3v22Frame(classic), "PIC\0\0\x8\0JPG\0\0\xFF\xD8"_bytes);
    QCOMPARE(image.dataForID3v22Frame(standard), "PIC\0\0\x9\0JPG\3x\0\xFF\xD8"_bytes);
    QCOMPARE(ID3Image::imageWithData({}, QStringLiteral("image/png")).dataForID3v22Frame(classic),
             QByteArray());
    QCOMPARE(ID3Image::imageWithData("\xFF\xD8"_bytes, {}).dataForID3v22Frame(classic),
             QByteArray());
}

void TestID3Image::whatIsWrittenIsReadAgain()
{
    for (const QString &description : {QStringLiteral("Ä"), QStringLiteral("\u4100\u0142")}) {
        const ID3Image image = picture("\x89PNG"_bytes, "image/png", 4, description);
        for (const bool isVersion24 : {false, true}) {
            const auto frame = image.dataForID3v23Frame(FrameSizes::Plain, isVersion24, standard);
            auto read = ID3Image::imageWithID3v23Frame(frame.sliced(10), standard);
            read->textEncoding = 0;
            QCOMPARE(shown(read), shown(image));
        }
        const auto frame = image.dataForID3v22Frame(standard);
        auto read = ID3Image::imageWithID3v22Frame(frame.sliced(6), standard);
        read->textEncoding = 0;
        QCOMPARE(shown(read), shown(image));
    }
}

void TestID3Image::guessesTheFormat_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("inClassic");
    QTest::addColumn<QString>("inStandard");
    const QString png = QStringLiteral("image/png");
    const QString jpeg = QStringLiteral("image/jpeg");
    QTest::newRow("PNG") << "\x89PNG\r\n\x1A\n"_bytes << png << png;
    QTest::newRow("PNG but for the first byte") << "\0PNG"_bytes << png << QString();
    QTest::newRow("JPEG") << "\xFF\xD8\xFF\xE0"_bytes << QString() << jpeg;
    QTest::newRow("JPEG's bytes in another order") << "\xE0\xFF\xD8\xFF"_bytes << jpeg << QString();
    QTest::newRow("GIF") << "GIF89a"_bytes << QString() << QStringLiteral("image/gif");
    QTest::newRow("BMP") << "BMxx"_bytes << QString() << QStringLiteral("image/bmp");
    QTest::newRow("WebP") << "RIFF\4\0\0\0WEBP"_bytes << QString() << QStringLiteral("image/webp");
    QTest::newRow("TIFF") << "II*\0"_bytes << QString() << QStringLiteral("image/tiff");
    QTest::newRow("three bytes") << "\x89PN"_bytes << QString() << QString();
}

void TestID3Image::guessesTheFormat()
{
    QFETCH(QByteArray, data);
    const ID3Image image = ID3Image::imageWithData(data, {});
    QTEST(image.mimeFormat(classic).value_or(QString()), "inClassic");
    QTEST(image.mimeFormat(standard).value_or(QString()), "inStandard");
}

void TestID3Image::suffixAndLogText()
{
    const auto suffix = [](const char *mime) {
        return ID3Image::imageWithData({}, QString::fromLatin1(mime)).filenameSuffix(classic);
    };
    QCOMPARE(suffix("image/jpeg"), QStringLiteral("JPG"));
    QCOMPARE(suffix("image/gif"), QStringLiteral("GIF"));
    QVERIFY(!ID3Image().filenameSuffix(classic));
    QCOMPARE(ID3Image().descriptionForLog(classic),
             QStringLiteral(
                 "{enc=0 type=0 format='(null)' suffix='(null)' desc='(null)' image=0 bytes}"));
    QCOMPARE(
        picture("\1\2"_bytes, "image/png", 3, QStringLiteral("%1")).descriptionForLog(classic),
        QStringLiteral("{enc=0 type=3 format='image/png' suffix='PNG' desc='%1' image=2 bytes}"));
}

void TestID3Image::aCopyHasNoDescription()
{
    const ID3Image image = picture("\1"_bytes, "image/png", 3, QStringLiteral("x"));
    QCOMPARE(shown(image.copy()), QStringLiteral("0 3 image/png|none|01"));
}

QTEST_GUILESS_MAIN(TestID3Image)
#include "tst_id3image.moc"
