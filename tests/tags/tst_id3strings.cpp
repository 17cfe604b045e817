#include "base/bytes.h"
#include "support/table.h"
#include "tags/id3strings.h"
#include "tags/textblock.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;
using Text = std::optional<QString>;
Q_DECLARE_METATYPE(Text)

namespace {

const ID3Dialect classic = ID3Dialect::classic();
const ID3Dialect standard = ID3Dialect::standard();

QString joined(const std::optional<TextBlock> &block)
{
    if (!block)
        return u"nothing"_s;
    const QString none = u"none"_s;
    return u"%1|%2|%3"_s.arg(block->lang.value_or(none), block->desc.value_or(none),
                             block->text.value_or(none));
}

} // namespace

class TestID3Strings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void id3v1String_data();
    void id3v1String();
    void id3v22String();
    void id3v23String_data();
    void id3v23String();
    void id3v23Strings_data();
    void id3v23Strings();
    void stringsOutsideTheTagAreRefused();
    void tooManyStringsAreRefused();
    void textBlock_data();
    void textBlock();
};

void TestID3Strings::id3v1String_data()
{
    const Table<QByteArray, Text> row("bytes", "text");
    row("ends at a zero byte", "AB\0C"_ba, u"AB"_s);
    row("ends at the maximum", "ABCDEF"_ba, u"ABCDE"_s);
    row("drops blanks and controls at the end", "A B \x01"_ba, u"A B"_s);
    row("nothing but blanks is nothing", "    "_ba, {});
    row("UTF-8", "\xC3\xA4"_ba, u"ä"_s);
    row("Latin-1 where it is no UTF-8", "\xE4z"_ba, u"äz"_s);
}

void TestID3Strings::id3v1String()
{
    QFETCH(QByteArray, bytes);
    QFETCH(Text, text);
    QCOMPARE(ID3Strings::id3v1String("xx" + bytes, 2, 5), text);
}

void TestID3Strings::id3v22String()
{
    const auto read = [](const QByteArray &bytes, int encoding, const ID3Dialect &dialect) {
        return ID3Strings::id3v22String(bytes, 0, encoding, bytes.size(), dialect);
    };
    QCOMPARE(read("\xC4\0x"_ba, 0, classic), u"Ä"_s);
    QCOMPARE(read("\xFF\xFEZ\0\0\0"_ba, 1, classic), u"Z\0"_s);
    QCOMPARE(read("\xFF\xFEZ\0\0\0"_ba, 1, standard), u"Z"_s);
    QCOMPARE(read("\0A\0"_ba, 7, classic), u"A"_s);
}

void TestID3Strings::id3v23String_data()
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

void TestID3Strings::id3v23String()
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

void TestID3Strings::id3v23Strings_data()
{
    const Table<QByteArray, QByteArray, QStringList> row("body", "log", "strings");
    const QStringList two{u"A"_s, u"B"_s};
    row("two", "\0A\0B\0"_ba, {}, two);
    row("the last one not terminated", "\0A\0B"_ba, {}, two);
    row("empty ones are left out", "\0A\0\0\0B\0"_ba, {}, two);
    row("UTF-16, each with its mark",
        "\1\xFF\xFE"
        "A\0\0\0\xFE\xFF\0B\0\0"_ba,
        {}, two);
    row("an encoding byte alone", "\0"_ba, {}, {});
    row("no byte at all", {}, {}, {});
    row("unknown encoding",
        "\x1F"
        "A\0B\0"_ba,
        "id3v23StringsIn encoding 31 treated as encoding 0"_ba, two);
    row("text without encoding byte", " A\0B\0"_ba,
        "id3v23StringsIn encoding 32 (no encoding byte)"_ba, QStringList{u" A"_s, u"B"_s});
}

void TestID3Strings::id3v23Strings()
{
    QFETCH(QByteArray, body);
    QFETCH(QByteArray, log);
    QFETCH(QStringList, strings);
    for (const ID3Dialect &dialect : {classic, standard}) {
        if (!log.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, log.constData());
        const QByteArray tag = "before" + body + "after";
        QCOMPARE(ID3Strings::id3v23Strings(tag, 6, body.size(), dialect), strings);
    }
}

void TestID3Strings::stringsOutsideTheTagAreRefused()
{
    const QRegularExpression log(u"^id3v23StringsIn <.* .*: 3 bytes> @ \\{2, 2\\}$"_s);
    QTest::ignoreMessage(QtWarningMsg, log);
    QCOMPARE(ID3Strings::id3v23Strings("\0AB"_ba, 2, 2, classic), QStringList());
}

void TestID3Strings::tooManyStringsAreRefused()
{
    const QByteArray body = '\0' + QByteArray("A\0", 2).repeated(ID3Strings::maxStringsInFrame + 1);
    const auto read = [&body] { return ID3Strings::id3v23Strings(body, 0, body.size(), classic); };
    QVERIFY_THROWS_EXCEPTION(MalformedData, static_cast<void>(read()));
}

void TestID3Strings::textBlock_data()
{
    const Table<QByteArray, QString, QString> row("body", "inClassic", "inStandard");
    const auto both = [&row](const char *name, const QByteArray &body, const QString &block) {
        row(name, body, block, block);
    };
    both("descriptor and text", "\0engD\0Text"_ba, u"eng|D|Text"_s);
    both("no descriptor", "\0eng\0Text\0"_ba, u"eng|none|Text"_s);
    both("zero bytes before the text", "\0eng\0\0\0Text"_ba, u"eng|none|Text"_s);
    row("language of zero bytes", "\0\0\0\0\0Text"_ba, u"none|none|Text"_s, u"|none|Text"_s);
    row("odd language", "\0en\0\0Text"_ba, u"none|none|Text"_s, u"en\0|none|Text"_s);
    both("a descriptor without a text is nothing", "\0engDesc\0"_ba, u"nothing"_s);
    both("no terminator is nothing", "\0engDesc"_ba, u"nothing"_s);
    both("six bytes are too few", "\0eng\0T"_ba, u"nothing"_s);
    row("UTF-16 with marks, ending with the tag",
        "\1eng\xFF\xFE"
        "D\0\0\0\xFF\xFET\0x\0"_ba,
        u"eng|D|T"_s, u"eng|D|Tx"_s);
    row("zeros before big-endian text", "\2eng\0\0\0A\0B\0\0"_ba, u"eng|none|\u4100\u4200"_s,
        u"eng|none|AB"_s);
}

void TestID3Strings::textBlock()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, inClassic);
    QFETCH(QString, inStandard);
    const auto read = [&body](const ID3Dialect &dialect) {
        return joined(TextBlock::textBlockIn("12" + body, 2, body.size(), dialect));
    };
    QCOMPARE(read(classic), inClassic);
    QCOMPARE(read(standard), inStandard);
    QTest::ignoreMessage(QtWarningMsg, "textBlockIn encoding 4");
    QVERIFY(!TextBlock::textBlockIn('\4' + body.sliced(1) + "fill", 0, 7, classic));
    QVERIFY(!TextBlock::textBlockIn(body, 1, body.size(), classic));
}

QTEST_GUILESS_MAIN(TestID3Strings)
#include "tst_id3strings.moc"
