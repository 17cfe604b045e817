#include "base/bytes.h"
#include "support/cases.h"
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

    /// "text consumed" of the classic dialect, and of the standard one where it differs.
    void id3v23String_data()
    {
        addCases(Table<QByteArray, int, int, QString>("bytes", "encoding", "maximum", "seen"),
                 "id3v23strings");
    }
    void id3v23String()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, encoding);
        QFETCH(int, maximum);
        QStringList seen;
        for (const ID3Dialect &dialect : {classic, standard}) {
            qsizetype consumed = maximum;
            const auto text = ID3Strings::id3v23String(bytes, 0, encoding, consumed, dialect);
            seen += text.value_or(u"nothing"_s) + u' ' + QString::number(consumed);
        }
        seen.removeDuplicates();
        QTEST(seen.join(u", "), "seen");
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
        // With one expectation the dialects agree.
        const Table<QByteArray, QString, QString> row("body", "inClassic", "inStandard");
        addCases(row, "framebodies");
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
        QFETCH(QString, inClassic);
        QFETCH(QString, inStandard);
        QCOMPARE(read(classic), inClassic);
        QCOMPARE(read(standard), inStandard.isEmpty() ? inClassic : inStandard);
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

    /// Of the classic dialect and of the standard one.
    void guessesTheFormat()
    {
        for (const QByteArrayList &cells : casesIn("imageformats")) {
            const ID3Image image = ID3Image::imageWithData(cells[0], {});
            QCOMPARE(image.mimeFormat(classic).value_or(u"none"_s) + u' '
                         + image.mimeFormat(standard).value_or(u"none"_s),
                     QString::fromLatin1(cells[1]));
        }
    }
};

QTEST_GUILESS_MAIN(tst_FrameBodies)
#include "tst_framebodies.moc"
