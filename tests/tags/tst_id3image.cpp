#include "support/table.h"
#include "tags/id3image.h"

using namespace Qt::StringLiterals;

namespace {

const ID3Dialect classic = ID3Dialect::classic();
const ID3Dialect standard = ID3Dialect::standard();

/// "encoding type mime|description|data in hex"
QString shown(const std::optional<ID3Image> &image)
{
    if (!image)
        return u"nothing"_s;
    const QString none = u"none"_s;
    return u"%1 %2 %3|%4|%5"_s.arg(
        QString::number(image->textEncoding), QString::number(image->pictureType),
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
    void guessesTheFormat_data();
    void guessesTheFormat();
    void suffixAndLogText();
};

void TestID3Image::readsAPIC_data()
{
    const Table<QByteArray, QString, QString> row("body", "inClassic", "inStandard");
    const auto both = [&row](const char *name, const QByteArray &body, const QString &image) {
        row(name, body, image, image);
    };
    both("three bytes", "\0\0\3"_ba, u"nothing"_s);
    both("no description", "\0image/png\0\3\0\x89P"_ba, u"0 3 image/png|none|8950"_s);
    both("description", "\0image/png\0\3ab\0\x89P"_ba, u"0 3 image/png|ab|8950"_s);
    both("UTF-16 description",
         "\1image/png\0\3\xFF\xFE"
         "a\0\0\0\x89P"_ba,
         u"1 3 image/png|a|8950"_s);
    both("no data", "\0image/png\0\3\0"_ba, u"0 3 image/png|none|"_s);
    both("MIME type without an end", "\0image/png"_ba, u"0 0 image/png|none|"_s);
    row("type read early without image/", "\0PNG\0\3\0\x89P"_ba, u"0 0 image/PNG|\3|8950"_s,
        u"0 3 image/PNG|none|8950"_s);
    row("type read early after an empty MIME type", "\0\0\3\0\x89P"_ba, u"0 0 none|\3|8950"_s,
        u"0 3 none|none|8950"_s);
    row("empty UTF-16 description", "\1image/png\0\3\0\0\x89P"_ba, u"1 3 image/png|none|008950"_s,
        u"1 3 image/png|none|8950"_s);
    row("empty UTF-16 description with one zero byte", "\1image/png\0\3\0\x89P"_ba,
        u"1 3 image/png|none|8950"_s, u"1 3 image/png|none|8950"_s);
}

void TestID3Image::readsAPIC()
{
    QFETCH(QByteArray, body);
    QTEST(shown(ID3Image::imageWithID3v23Frame(body, classic)), "inClassic");
    QTEST(shown(ID3Image::imageWithID3v23Frame(body, standard)), "inStandard");
}

void TestID3Image::readsPIC_data()
{
    const Table<QByteArray, QString, QString> row("body", "inClassic", "inStandard");
    row("no description", "\0JPG\3\0\xFF\xD8"_ba, u"0 3 image/jpg|none|ffd8"_s,
        u"0 3 image/jpg|none|ffd8"_s);
    row("the description's terminator becomes data", "\0JPG\3x\0\xFF\xD8"_ba,
        u"0 3 image/jpg|x|00ffd8"_s, u"0 3 image/jpg|x|ffd8"_s);
    row("UTF-16 description", "\1PNG\3\xFE\xFF\0x\0\0\x89P"_ba,
        u"1 3 image/png|\u00FE\u00FF|007800008950"_s, u"1 3 image/png|x|8950"_s);
    row("no data", "\0PNG\3\0"_ba + 'x', u"0 3 image/png|none|78"_s, u"0 3 image/png|none|78"_s);
}

void TestID3Image::readsPIC()
{
    QFETCH(QByteArray, body);
    QTEST(shown(ID3Image::imageWithID3v22Frame(body, classic)), "inClassic");
    QTEST(shown(ID3Image::imageWithID3v22Frame(body, standard)), "inStandard");
    QTest::ignoreMessage(QtWarningMsg, "initWithID3v22Frame insufficient data");
    QVERIFY(!ID3Image::imageWithID3v22Frame(body.first(6), classic));
}

void TestID3Image::guessesTheFormat_data()
{
    const Table<QByteArray, QString, QString> row("data", "inClassic", "inStandard");
    const QString png = u"image/png"_s;
    const QString jpeg = u"image/jpeg"_s;
    row("PNG", "\x89PNG\r\n\x1A\n"_ba, png, png);
    row("PNG but for the first byte", "\0PNG"_ba, png, QString());
    row("JPEG", "\xFF\xD8\xFF\xE0"_ba, QString(), jpeg);
    row("JPEG's bytes in another order", "\xE0\xFF\xD8\xFF"_ba, jpeg, QString());
    row("GIF", "GIF89a"_ba, QString(), u"image/gif"_s);
    row("BMP", "BMxx"_ba, QString(), u"image/bmp"_s);
    row("WebP", "RIFF\4\0\0\0WEBP"_ba, QString(), u"image/webp"_s);
    row("TIFF", "II*\0"_ba, QString(), u"image/tiff"_s);
    row("three bytes", "\x89PN"_ba, QString(), QString());
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
    const ID3Image image = picture("\1\2"_ba, "image/jpeg", 3, u"%1"_s);
    QCOMPARE(image.descriptionForLog(classic),
             u"{enc=0 type=3 format='image/jpeg' suffix='JPG' desc='%1' image=2 bytes}"_s);
    QCOMPARE(ID3Image().descriptionForLog(classic),
             u"{enc=0 type=0 format='(null)' suffix='(null)' desc='(null)' image=0 bytes}"_s);
    QCOMPARE(shown(image.copy()), u"0 3 image/jpeg|none|0102"_s);
}

QTEST_GUILESS_MAIN(TestID3Image)
#include "tst_id3image.moc"
