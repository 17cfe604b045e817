#include "base/bytes.h"
#include "support/table.h"
#include "tags/id3image.h"
#include "tags/id3strings.h"
#include "tags/textblock.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;
using Text = std::optional<QString>;

namespace {

const ID3Dialect classic = ID3Dialect::classic();
const ID3Dialect standard = ID3Dialect::standard();

/// A row with what the classic and the standard dialect read; with one of them they agree.
void bodyRow(const char *name, const QByteArray &body, const QString &inClassic,
             const QString &inStandard = {})
{
    QTest::newRow(name) << body << inClassic << (inStandard.isEmpty() ? inClassic : inStandard);
}

/// "language|descriptor|text"
QString shown(const std::optional<TextBlock> &block)
{
    if (!block)
        return u"nothing"_s;
    const QString none = u"none"_s;
    return u"%1|%2|%3"_s.arg(block->lang.value_or(none), block->desc.value_or(none),
                             block->text.value_or(none));
}

/// "encoding type mime|description|data in hex"
QString shown(const std::optional<ID3Image> &image)
{
    if (!image)
        return u"nothing"_s;
    return u"%1 %2 "_s.arg(image->textEncoding).arg(image->pictureType)
        + shown(TextBlock{QString::fromLatin1(image->data.toHex()), image->description,
                          image->storedMimeFormat});
}

} // namespace

class tst_FrameBodies : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void id3v1String_data();
    void id3v1String();
    void id3v22String();
    void id3v23String_data();
    void id3v23String();
    void id3v23Strings_data();
    void id3v23Strings();
    void stringsThatAreRefused();
    void textBlock_data();
    void textBlock();
    void readsAPIC_data();
    void readsAPIC();
    void readsPIC_data();
    void readsPIC();
    void guessesTheFormat_data();
    void guessesTheFormat();
    void logTextOfAnImage();
};

void tst_FrameBodies::id3v1String_data()
{
    const Table<QByteArray, Text> row("bytes", "text");
    row("ends at a zero byte", "AB\0C"_ba, u"AB"_s);
    row("ends at the maximum", "ABCDEF"_ba, u"ABCDE"_s);
    row("drops blanks and controls at the end", "A B \x01"_ba, u"A B"_s);
    row("nothing but blanks is nothing", "    "_ba, {});
    row("UTF-8", "\xC3\xA4"_ba, u"ä"_s);
    row("Latin-1 where it is no UTF-8", "\xE4z"_ba, u"äz"_s);
}

void tst_FrameBodies::id3v1String()
{
    QFETCH(QByteArray, bytes);
    QTEST(ID3Strings::id3v1String("xx" + bytes, 2, 5), "text");
}

void tst_FrameBodies::id3v22String()
{
    const auto read = [](const QByteArray &bytes, int encoding, const ID3Dialect &dialect) {
        return ID3Strings::id3v22String(bytes, 0, encoding, bytes.size(), dialect);
    };
    QCOMPARE(read("\xC4\0x"_ba, 0, classic), u"Ä"_s);
    QCOMPARE(read("\xFF\xFEZ\0\0\0"_ba, 1, classic), u"Z\0"_s);
    QCOMPARE(read("\xFF\xFEZ\0\0\0"_ba, 1, standard), u"Z"_s);
    QCOMPARE(read("\0A\0"_ba, 7, classic), u"A"_s);
}

void tst_FrameBodies::id3v23String_data()
{
    const Table<QByteArray, int, int, Text, int, Text, int> row(
        "bytes", "encoding", "maximum", "classicText", "classicConsumed", "text", "consumed");
    const auto both = [&row](const char *name, const QByteArray &bytes, int encoding, int maximum,
                             const Text &text, int consumed) {
        row(name, bytes, encoding, maximum, text, consumed, text, consumed);
    };
    both("Latin-1 with its terminator", "A\xC4\0c"_ba, 0, 4, u"AÄ"_s, 3);
    both("Latin-1 up to the maximum", "ABC"_ba, 0, 2, u"AB"_s, 2);
    both("Latin-1 up to the end of the bytes", "ABC"_ba, 0, 9, u"ABC"_s, 4);
    both("an empty Latin-1 text is nothing", "\0A"_ba, 0, 2, {}, 1);
    both("UTF-8", "\xC3\xA4\0"_ba, 3, 3, u"ä"_s, 3);
    both("claimed UTF-8 that is Latin-1", "\xE4!\0"_ba, 3, 3, u"ä!"_s, 3);
    both("little-endian mark", "\xFF\xFEZ\0\0\0zz"_ba, 1, 8, u"Z"_s, 6);
    both("big-endian mark", "\xFE\xFF\0A\0\0zz"_ba, 1, 8, u"A"_s, 6);
    both("no mark is big-endian", "\0A\0\0zz"_ba, 2, 6, u"A"_s, 4);
    both("a mark alone is an empty text", "\xFF\xFE\0\0zz"_ba, 1, 6, u""_s, 4);
    both("no UTF-16 unit is nothing", "\0\0zz"_ba, 1, 4, {}, 2);
    both("UTF-16 up to the maximum", "\0A\0B\0C\0D"_ba, 2, 4, u"AB"_s, 6);
    both("unknown encoding leaves the count alone", "ABC"_ba, 4, 3, {}, 3);
    both("past the end leaves the count alone", ""_ba, 0, 3, {}, 3);
    row("the last unit before the tag's end", "\xFE\xFF\0A\0B"_ba, 1, 6, u"A"_s, 6, u"AB"_s, 8);
    row("an odd maximum", "\0A\0B\0C\0D"_ba, 2, 3, u"AB"_s, 6, u"A"_s, 4);
}

void tst_FrameBodies::id3v23String()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, encoding);
    QFETCH(int, maximum);
    for (const bool isClassic : {true, false}) {
        qsizetype consumed = maximum;
        const auto read =
            ID3Strings::id3v23String(bytes, 0, encoding, consumed, isClassic ? classic : standard);
        QTEST(read, isClassic ? "classicText" : "text");
        QTEST(static_cast<int>(consumed), isClassic ? "classicConsumed" : "consumed");
    }
}

void tst_FrameBodies::id3v23Strings_data()
{
    const Table<QByteArray, QByteArray, QString> row("body", "log", "strings");
    row("two", "\0A\0B\0"_ba, {}, u"A+B"_s);
    row("the last one not terminated", "\0A\0B"_ba, {}, u"A+B"_s);
    row("empty ones are left out", "\0A\0\0\0B\0"_ba, {}, u"A+B"_s);
    row("UTF-16, each with its mark", "\1\xFF\xFE\x41\0\0\0\xFE\xFF\0B\0\0"_ba, {}, u"A+B"_s);
    row("an encoding byte alone", "\0"_ba, {}, {});
    row("no byte at all", {}, {}, {});
    row("unknown encoding", "\x1F\x41\0B\0"_ba,
        "id3v23StringsIn encoding 31 treated as encoding 0"_ba, u"A+B"_s);
    row("text without encoding byte", " A\0B\0"_ba,
        "id3v23StringsIn encoding 32 (no encoding byte)"_ba, u" A+B"_s);
}

void tst_FrameBodies::id3v23Strings()
{
    QFETCH(QByteArray, body);
    QFETCH(QByteArray, log);
    for (const ID3Dialect &dialect : {classic, standard}) {
        if (!log.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, log.constData());
        const QByteArray tag = "before" + body + "after";
        QTEST(ID3Strings::id3v23Strings(tag, 6, body.size(), dialect).join(u'+'), "strings");
    }
}

void tst_FrameBodies::stringsThatAreRefused()
{
    const QRegularExpression log(u"^id3v23StringsIn <.* .*: 3 bytes> @ \\{2, 2\\}$"_s);
    QTest::ignoreMessage(QtWarningMsg, log);
    QVERIFY(ID3Strings::id3v23Strings("\0AB"_ba, 2, 2, classic).isEmpty());
    const QByteArray body = '\0' + QByteArray("A\0", 2).repeated(ID3Strings::maxStringsInFrame + 1);
    const auto read = [&body] { return ID3Strings::id3v23Strings(body, 0, body.size(), classic); };
    QVERIFY_THROWS_EXCEPTION(MalformedData, static_cast<void>(read()));
}

void tst_FrameBodies::textBlock_data()
{
    const Table<QByteArray, QString, QString> columns("body", "inClassic", "inStandard");
    bodyRow("descriptor and text", "\0engD\0Text"_ba, u"eng|D|Text"_s);
    bodyRow("no descriptor", "\0eng\0Text\0"_ba, u"eng|none|Text"_s);
    bodyRow("zero bytes before the text", "\0eng\0\0\0Text"_ba, u"eng|none|Text"_s);
    bodyRow("language of zero bytes", "\0\0\0\0\0Text"_ba, u"none|none|Text"_s, u"|none|Text"_s);
    bodyRow("odd language", "\0en\0\0Text"_ba, u"none|none|Text"_s, u"en\0|none|Text"_s);
    bodyRow("a descriptor without a text is nothing", "\0engDesc\0"_ba, u"nothing"_s);
    bodyRow("no terminator is nothing", "\0engDesc"_ba, u"nothing"_s);
    bodyRow("six bytes are too few", "\0eng\0T"_ba, u"nothing"_s);
    bodyRow("UTF-16 with marks, ending with the tag", "\1eng\xFF\xFE\x44\0\0\0\xFF\xFET\0x\0"_ba,
            u"eng|D|T"_s, u"eng|D|Tx"_s);
    bodyRow("zeros before big-endian text", "\2eng\0\0\0A\0B\0\0"_ba, u"eng|none|\u4100\u4200"_s,
            u"eng|none|AB"_s);
}

void tst_FrameBodies::textBlock()
{
    QFETCH(QByteArray, body);
    const QByteArray tag = "12" + body;
    QTEST(shown(TextBlock::textBlockIn(tag, 2, body.size(), classic)), "inClassic");
    QTEST(shown(TextBlock::textBlockIn(tag, 2, body.size(), standard)), "inStandard");
    QTest::ignoreMessage(QtWarningMsg, "textBlockIn encoding 4");
    QVERIFY(!TextBlock::textBlockIn('\4' + body.sliced(1) + "fill", 0, 7, classic));
    QVERIFY(!TextBlock::textBlockIn(body, 1, body.size(), classic));
}

void tst_FrameBodies::readsAPIC_data()
{
    const Table<QByteArray, QString, QString> columns("body", "inClassic", "inStandard");
    bodyRow("three bytes", "\0\0\3"_ba, u"nothing"_s);
    bodyRow("no description", "\0image/png\0\3\0\x89P"_ba, u"0 3 image/png|none|8950"_s);
    bodyRow("description", "\0image/png\0\3ab\0\x89P"_ba, u"0 3 image/png|ab|8950"_s);
    bodyRow("UTF-16 description", "\1image/png\0\3\xFF\xFE\x61\0\0\0\x89P"_ba,
            u"1 3 image/png|a|8950"_s);
    bodyRow("no data", "\0image/png\0\3\0"_ba, u"0 3 image/png|none|"_s);
    bodyRow("MIME type without an end", "\0image/png"_ba, u"0 0 image/png|none|"_s);
    bodyRow("type read early without image/", "\0PNG\0\3\0\x89P"_ba, u"0 0 image/PNG|\3|8950"_s,
            u"0 3 image/PNG|none|8950"_s);
    bodyRow("type read early after an empty MIME type", "\0\0\3\0\x89P"_ba, u"0 0 none|\3|8950"_s,
            u"0 3 none|none|8950"_s);
    bodyRow("empty UTF-16 description", "\1image/png\0\3\0\0\x89P"_ba,
            u"1 3 image/png|none|008950"_s, u"1 3 image/png|none|8950"_s);
    bodyRow("empty UTF-16 description with one zero byte", "\1image/png\0\3\0\x89P"_ba,
            u"1 3 image/png|none|8950"_s);
}

void tst_FrameBodies::readsAPIC()
{
    QFETCH(QByteArray, body);
    QTEST(shown(ID3Image::imageWithID3v23Frame(body, classic)), "inClassic");
    QTEST(shown(ID3Image::imageWithID3v23Frame(body, standard)), "inStandard");
}

void tst_FrameBodies::readsPIC_data()
{
    const Table<QByteArray, QString, QString> columns("body", "inClassic", "inStandard");
    bodyRow("no description", "\0JPG\3\0\xFF\xD8"_ba, u"0 3 image/jpg|none|ffd8"_s);
    bodyRow("the description's terminator becomes data", "\0JPG\3x\0\xFF\xD8"_ba,
            u"0 3 image/jpg|x|00ffd8"_s, u"0 3 image/jpg|x|ffd8"_s);
    bodyRow("UTF-16 description", "\1PNG\3\xFE\xFF\0x\0\0\x89P"_ba,
            u"1 3 image/png|\u00FE\u00FF|007800008950"_s, u"1 3 image/png|x|8950"_s);
    bodyRow("one byte of data", "\0PNG\3\0x"_ba, u"0 3 image/png|none|78"_s);
}

void tst_FrameBodies::readsPIC()
{
    QFETCH(QByteArray, body);
    QTEST(shown(ID3Image::imageWithID3v22Frame(body, classic)), "inClassic");
    QTEST(shown(ID3Image::imageWithID3v22Frame(body, standard)), "inStandard");
    QTest::ignoreMessage(QtWarningMsg, "initWithID3v22Frame insufficient data");
    QVERIFY(!ID3Image::imageWithID3v22Frame(body.first(6), classic));
}

void tst_FrameBodies::guessesTheFormat_data()
{
    const Table<QByteArray, QString, QString> row("data", "inClassic", "inStandard");
    const QString png = u"image/png"_s;
    row("PNG", "\x89PNG\r\n\x1A\n"_ba, png, png);
    row("PNG but for the first byte", "\0PNG"_ba, png, {});
    row("JPEG", "\xFF\xD8\xFF\xE0"_ba, {}, u"image/jpeg"_s);
    row("JPEG's bytes in another order", "\xE0\xFF\xD8\xFF"_ba, u"image/jpeg"_s, {});
    row("GIF", "GIF89a"_ba, {}, u"image/gif"_s);
    row("BMP", "BMxx"_ba, {}, u"image/bmp"_s);
    row("WebP", "RIFF\4\0\0\0WEBP"_ba, {}, u"image/webp"_s);
    row("TIFF", "II*\0"_ba, {}, u"image/tiff"_s);
    row("three bytes", "\x89PN"_ba, {}, {});
}

void tst_FrameBodies::guessesTheFormat()
{
    QFETCH(QByteArray, data);
    const ID3Image image = ID3Image::imageWithData(data, {});
    QTEST(image.mimeFormat(classic).value_or(QString()), "inClassic");
    QTEST(image.mimeFormat(standard).value_or(QString()), "inStandard");
}

void tst_FrameBodies::logTextOfAnImage()
{
    ID3Image image = ID3Image::imageWithData("\1\2", u"image/jpeg"_s);
    image.description = u"%1"_s;
    QCOMPARE(image.descriptionForLog(classic),
             u"{enc=0 type=0 format='image/jpeg' suffix='JPG' desc='%1' image=2 bytes}"_s);
    QCOMPARE(ID3Image().descriptionForLog(classic),
             u"{enc=0 type=0 format='(null)' suffix='(null)' desc='(null)' image=0 bytes}"_s);
}

QTEST_GUILESS_MAIN(tst_FrameBodies)
#include "tst_framebodies.moc"
