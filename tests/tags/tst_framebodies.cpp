#include "base/bytes.h"
#include "support/table.h"
#include "tags/id3image.h"
#include "tags/id3strings.h"
#include "tags/textblock.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const ID3Dialect classic = ID3Dialect::classic();
const ID3Dialect standard = ID3Dialect::standard();

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
    void id3v1String()
    {
        const auto read = [](const QByteArray &bytes) {
            return ID3Strings::id3v1String("xx" + bytes, 2, 5).value_or(u"nothing"_s);
        };
        QCOMPARE(read("AB\0C"_ba), u"AB"_s);
        QCOMPARE(read("ABCDEF"_ba), u"ABCDE"_s);
        QCOMPARE(read("A B \x01"_ba), u"A B"_s);
        QCOMPARE(read("    "_ba), u"nothing"_s);
        QCOMPARE(read("\xC3\xA4"_ba), u"ä"_s);
        QCOMPARE(read("\xE4z"_ba), u"äz"_s);
    }

    void id3v22String()
    {
        const auto read = [](const QByteArray &bytes, int encoding, const ID3Dialect &dialect) {
            return ID3Strings::id3v22String(bytes, 0, encoding, bytes.size(), dialect);
        };
        QCOMPARE(read("\xC4\0x"_ba, 0, classic), u"Ä"_s);
        QCOMPARE(read("\xFF\xFEZ\0\0\0"_ba, 1, classic), u"Z\0"_s);
        QCOMPARE(read("\xFF\xFEZ\0\0\0"_ba, 1, standard), u"Z"_s);
        QCOMPARE(read("\0A\0"_ba, 7, classic), u"A"_s);
    }

    void id3v23String()
    {
        // "text consumed" of the classic dialect, and of the standard one where it differs
        const auto read = [](const QByteArray &bytes, int encoding, int maximum) {
            QStringList seen;
            for (const ID3Dialect &dialect : {classic, standard}) {
                qsizetype consumed = maximum;
                const auto text = ID3Strings::id3v23String(bytes, 0, encoding, consumed, dialect);
                seen += text.value_or(u"nothing"_s) + u' ' + QString::number(consumed);
            }
            seen.removeDuplicates();
            return seen.join(u", ");
        };
        QCOMPARE(read("A\xC4\0c"_ba, 0, 4), u"AÄ 3"_s);
        QCOMPARE(read("ABC"_ba, 0, 2), u"AB 2"_s); // Latin-1 up to the maximum
        QCOMPARE(read("ABC"_ba, 0, 9), u"ABC 4"_s);
        QCOMPARE(read("\0A"_ba, 0, 2), u"nothing 1"_s);
        QCOMPARE(read("\xC3\xA4\0"_ba, 3, 3), u"ä 3"_s);
        QCOMPARE(read("\xE4!\0"_ba, 3, 3), u"ä! 3"_s); // claimed UTF-8 that is Latin-1
        QCOMPARE(read("\xFF\xFEZ\0\0\0zz"_ba, 1, 8), u"Z 6"_s);
        QCOMPARE(read("\xFE\xFF\0A\0\0zz"_ba, 1, 8), u"A 6"_s);
        QCOMPARE(read("\0A\0\0zz"_ba, 2, 6), u"A 4"_s);
        QCOMPARE(read("\xFF\xFE\0\0zz"_ba, 1, 6), u" 4"_s); // a mark alone is an empty text
        QCOMPARE(read("\0\0zz"_ba, 1, 4), u"nothing 2"_s); // no UTF-16 unit is nothing
        QCOMPARE(read("\0A\0B\0C\0D"_ba, 2, 4), u"AB 6"_s);
        QCOMPARE(read("ABC"_ba, 4, 3), u"nothing 3"_s); // unknown encoding leaves the count alone
        QCOMPARE(read(""_ba, 0, 3), u"nothing 3"_s); // past the end leaves the count alone
        QCOMPARE(read("\xFE\xFF\0A\0B"_ba, 1, 6),
                 u"A 6, AB 8"_s); // the last unit before the tag's end
        QCOMPARE(read("\0A\0B\0C\0D"_ba, 2, 3), u"AB 6, A 4"_s); // an odd maximum
    }

    void id3v23Strings()
    {
        const auto read = [](const QByteArray &body, const char *log = nullptr) {
            if (log)
                QTest::ignoreMessage(QtWarningMsg, log);
            return ID3Strings::id3v23Strings("before" + body + "after", 6, body.size(), classic)
                .join(u'+');
        };
        QCOMPARE(read("\0A\0B\0"_ba), u"A+B"_s);
        QVERIFY2(read("\0A\0B"_ba) == u"A+B", "the last one not terminated");
        QVERIFY2(read("\0A\0\0\0B\0"_ba) == u"A+B", "empty ones are left out");
        QVERIFY2(read("\1\xFF\xFE\x41\0\0\0\xFE\xFF\0B\0\0"_ba) == u"A+B", "each with its mark");
        QVERIFY(read("\0"_ba).isEmpty() && read({}).isEmpty());
        QCOMPARE(read("\x1F\x41\0B\0"_ba, "id3v23StringsIn encoding 31 treated as encoding 0"),
                 u"A+B"_s);
        QCOMPARE(read(" A\0B\0"_ba, "id3v23StringsIn encoding 32 (no encoding byte)"), u" A+B"_s);
    }

    void bodies_data()
    {
        const Table<QByteArray, QString, QString> columns("body", "inClassic", "inStandard");
        // With one expectation the dialects agree.
        const auto row = [&columns](const char *name, const QByteArray &body,
                                    const QString &inClassic, const QString &inStandard = {}) {
            columns(name, body, inClassic, inStandard.isEmpty() ? inClassic : inStandard);
        };
        row("text: descriptor and text", "\0engD\0Text"_ba, u"eng|D|Text"_s);
        row("text: no descriptor", "\0eng\0Text\0"_ba, u"eng|none|Text"_s);
        row("text: zero bytes before the text", "\0eng\0\0\0Text"_ba, u"eng|none|Text"_s);
        row("text: language of zero bytes", "\0\0\0\0\0Text"_ba, u"none|none|Text"_s,
            u"|none|Text"_s);
        row("text: odd language", "\0en\0\0Text"_ba, u"none|none|Text"_s, u"en\0|none|Text"_s);
        row("text: a descriptor without a text is nothing", "\0engDesc\0"_ba, u"nothing"_s);
        row("text: no terminator is nothing", "\0engDesc"_ba, u"nothing"_s);
        row("text: six bytes are too few", "\0eng\0T"_ba, u"nothing"_s);
        row("text: UTF-16 with marks, ending with the tag",
            "\1eng\xFF\xFE\x44\0\0\0\xFF\xFET\0x\0"_ba, u"eng|D|T"_s, u"eng|D|Tx"_s);
        row("text: zeros before big-endian text", "\2eng\0\0\0A\0B\0\0"_ba,
            u"eng|none|\u4100\u4200"_s, u"eng|none|AB"_s);
        row("APIC: three bytes", "\0\0\3"_ba, u"nothing"_s);
        row("APIC: no description", "\0image/png\0\3\0\x89P"_ba, u"0 3 image/png|none|8950"_s);
        row("APIC: description", "\0image/png\0\3ab\0\x89P"_ba, u"0 3 image/png|ab|8950"_s);
        row("APIC: UTF-16 description", "\1image/png\0\3\xFF\xFE\x61\0\0\0\x89P"_ba,
            u"1 3 image/png|a|8950"_s);
        row("APIC: no data", "\0image/png\0\3\0"_ba, u"0 3 image/png|none|"_s);
        row("APIC: MIME type without an end", "\0image/png"_ba, u"0 0 image/png|none|"_s);
        row("APIC: type read early without image/", "\0PNG\0\3\0\x89P"_ba,
            u"0 0 image/PNG|\3|8950"_s, u"0 3 image/PNG|none|8950"_s);
        row("APIC: type read early after an empty MIME type", "\0\0\3\0\x89P"_ba,
            u"0 0 none|\3|8950"_s, u"0 3 none|none|8950"_s);
        row("APIC: empty UTF-16 description", "\1image/png\0\3\0\0\x89P"_ba,
            u"1 3 image/png|none|008950"_s, u"1 3 image/png|none|8950"_s);
        row("APIC: empty UTF-16 description with one zero byte", "\1image/png\0\3\0\x89P"_ba,
            u"1 3 image/png|none|8950"_s);
        row("PIC: no description", "\0JPG\3\0\xFF\xD8"_ba, u"0 3 image/jpg|none|ffd8"_s);
        row("PIC: the description's terminator becomes data", "\0JPG\3x\0\xFF\xD8"_ba,
            u"0 3 image/jpg|x|00ffd8"_s, u"0 3 image/jpg|x|ffd8"_s);
        row("PIC: UTF-16 description", "\1PNG\3\xFE\xFF\0x\0\0\x89P"_ba,
            u"1 3 image/png|\u00FE\u00FF|007800008950"_s, u"1 3 image/png|x|8950"_s);
        row("PIC: one byte of data", "\0PNG\3\0x"_ba, u"0 3 image/png|none|78"_s);
    }

    void bodies()
    {
        QFETCH(QByteArray, body);
        const QByteArray kind = QTest::currentDataTag();
        const auto read = [&](const ID3Dialect &dialect) {
            if (kind.startsWith("text"))
                return shown(TextBlock::textBlockIn("12" + body, 2, body.size(), dialect));
            return shown(kind.startsWith("APIC") ? ID3Image::imageWithID3v23Frame(body, dialect)
                                                 : ID3Image::imageWithID3v22Frame(body, dialect));
        };
        QTEST(read(classic), "inClassic");
        QTEST(read(standard), "inStandard");
    }

    void bodiesThatAreRefused()
    {
        const QRegularExpression log(u"^id3v23StringsIn <.* .*: 3 bytes> @ \\{2, 2\\}$"_s);
        QTest::ignoreMessage(QtWarningMsg, log);
        QVERIFY(ID3Strings::id3v23Strings("\0AB"_ba, 2, 2, classic).isEmpty());
        const QByteArray body =
            '\0' + QByteArray("A\0", 2).repeated(ID3Strings::maxStringsInFrame + 1);
        const auto read = [&body] {
            return ID3Strings::id3v23Strings(body, 0, body.size(), classic);
        };
        QVERIFY_THROWS_EXCEPTION(MalformedData, static_cast<void>(read()));
        QTest::ignoreMessage(QtWarningMsg, "textBlockIn encoding 4");
        QVERIFY(!TextBlock::textBlockIn("\4engD\0Text"_ba, 0, 10, classic));
        QVERIFY2(!TextBlock::textBlockIn("\0engD\0Text"_ba, 1, 10, classic), "beyond the tag");
        QTest::ignoreMessage(QtWarningMsg, "initWithID3v22Frame insufficient data");
        QVERIFY(!ID3Image::imageWithID3v22Frame("\0JPG\3\0"_ba, classic));
    }

    void guessesTheFormat()
    {
        const auto formats = [](const QByteArray &data) {
            const ID3Image image = ID3Image::imageWithData(data, {});
            const QString none = u"none"_s;
            return image.mimeFormat(classic).value_or(none) + u' '
                + image.mimeFormat(standard).value_or(none);
        };
        QCOMPARE(formats("\x89PNG\r\n\x1A\n"_ba), u"image/png image/png"_s);
        QCOMPARE(formats("\0PNG"_ba), u"image/png none"_s);
        QCOMPARE(formats("\xFF\xD8\xFF\xE0"_ba), u"none image/jpeg"_s);
        QCOMPARE(formats("\xE0\xFF\xD8\xFF"_ba), u"image/jpeg none"_s);
        QCOMPARE(formats("GIF89a"_ba), u"none image/gif"_s);
        QCOMPARE(formats("BMxx"_ba), u"none image/bmp"_s);
        QCOMPARE(formats("RIFF\4\0\0\0WEBP"_ba), u"none image/webp"_s);
        QCOMPARE(formats("II*\0"_ba), u"none image/tiff"_s);
        QCOMPARE(formats("\x89PN"_ba), u"none none"_s);
    }

    void logTextOfAnImage()
    {
        ID3Image image = ID3Image::imageWithData("\1\2", u"image/jpeg"_s);
        image.description = u"%1"_s;
        QCOMPARE(image.descriptionForLog(classic),
                 u"{enc=0 type=0 format='image/jpeg' suffix='JPG' desc='%1' image=2 bytes}"_s);
        QCOMPARE(ID3Image().descriptionForLog(classic),
                 u"{enc=0 type=0 format='(null)' suffix='(null)' desc='(null)' image=0 bytes}"_s);
    }
};

QTEST_GUILESS_MAIN(tst_FrameBodies)
#include "tst_framebodies.moc"
