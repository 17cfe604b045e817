#include "base/bytes.h"
#include "support/bytesliteral.h"
#include "tags/id3strings.h"
#include "tags/textblock.h"
#include "text/integervalue.h"

#include <QRegularExpression>
#include <QTest>

using Text = std::optional<QString>;
Q_DECLARE_METATYPE(Text)

namespace {

const ID3Dialect classic = ID3Dialect::classic();
const ID3Dialect standard = ID3Dialect::standard();

Text some(QStringView text)
{
    return text.toString();
}

QString joined(const std::optional<TextBlock> &block)
{
    if (!block)
        return QStringLiteral("nothing");
    const QString none = QStringLiteral("none");
    return QStringLiteral("%1|%2|%3")
        .arg(block->lang.value_or(none), block->desc.value_or(none), block->text.value_or(none));
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
    void integer_data();
    void integer();
};

void TestID3Strings::id3v1String_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Text>("text");
    QTest::newRow("ends at a zero byte") << "AB\0C"_bytes << some(u"AB");
    QTest::newRow("ends at the maximum") << "ABCDEF"_bytes << some(u"ABCDE");
    QTest::newRow("drops blanks and controls at the end") << "A B \x01"_bytes << some(u"A B");
    QTest::newRow("nothing but blanks is nothing") << "    "_bytes << Text();
    QTest::newRow("UTF-8") << "\xC3\xA4"_bytes << some(u"ä");
    QTest::newRow("Latin-1 where it is no UTF-8") << "\xE4z"_bytes << some(u"äz");
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
    QCOMPARE(read("\xC4\0x"_bytes, 0, classic), QStringLiteral("Ä"));
    QCOMPARE(read("\xFF\xFE"
                  "A\0\0\0"_bytes,
                  1, classic),
             QStringLiteral(u"A\0"));
    QCOMPARE(read("\xFF\xFE"
                  "A\0\0\0"_bytes,
                  1, standard),
             u"A");
    QCOMPARE(read("\0A\0"_bytes, 7, classic), QStringLiteral("A"));
}

void TestID3Strings::id3v23String_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("encoding");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<Text>("inClassic");
    QTest::addColumn<int>("consumedInClassic");
    QTest::addColumn<Text>("inStandard");
    QTest::addColumn<int>("consumedInStandard");

    const auto both = [](const char *name, const QByteArray &bytes, int encoding, int maximum,
                         const Text &text, int consumed) {
        QTest::newRow(name) << bytes << encoding << maximum << text << consumed << text << consumed;
    };
    both("Latin-1 with its terminator", "A\xC4\0c"_bytes, 0, 4, some(u"AÄ"), 3);
    both("Latin-1 up to the maximum", "ABC"_bytes, 0, 2, some(u"AB"), 2);
    both("Latin-1 up to the end of the bytes", "ABC"_bytes, 0, 9, some(u"ABC"), 4);
    both("an empty Latin-1 text is nothing", "\0A"_bytes, 0, 2, Text(), 1);
    both("UTF-8", "\xC3\xA4\0"_bytes, 3, 3, some(u"ä"), 3);
    both("claimed UTF-8 that is Latin-1", "\xE4!\0"_bytes, 3, 3, some(u"ä!"), 3);
    both("little-endian mark",
         "\xFF\xFE"
         "A\0\0\0zz"_bytes,
         1, 8, some(u"A"), 6);
    both("big-endian mark", "\xFE\xFF\0A\0\0zz"_bytes, 1, 8, some(u"A"), 6);
    both("no mark is big-endian", "\0A\0\0zz"_bytes, 2, 6, some(u"A"), 4);
    both("a mark alone is an empty text", "\xFF\xFE\0\0zz"_bytes, 1, 6, some(u""), 4);
    both("no UTF-16 unit is nothing", "\0\0zz"_bytes, 1, 4, Text(), 2);
    both("UTF-16 up to the maximum", "\0A\0B\0C\0D"_bytes, 2, 4, some(u"AB"), 6);
    both("unknown encoding leaves the count alone", "ABC"_bytes, 4, 3, Text(), 3);
    both("past the end leaves the count alone", ""_bytes, 0, 3, Text(), 3);
    QTest::newRow("the last unit before the tag's end")
        << "\xFE\xFF\0A\0B"_bytes << 1 << 6 << some(u"A") << 6 << some(u"AB") << 8;
    QTest::newRow("an odd maximum")
        << "\0A\0B\0C\0D"_bytes << 2 << 3 << some(u"AB") << 6 << some(u"A") << 4;
}

void TestID3Strings::id3v23String()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, encoding);
    QFETCH(int, maximum);
    QFETCH(Text, inClassic);
    QFETCH(int, consumedInClassic);
    QFETCH(Text, inStandard);
    QFETCH(int, consumedInStandard);
    qsizetype consumed = maximum;
    QCOMPARE(ID3Strings::id3v23String(bytes, 0, encoding, consumed, classic), inClassic);
    QCOMPARE(consumed, consumedInClassic);
    consumed = maximum;
    QCOMPARE(ID3Strings::id3v23String(bytes, 0, encoding, consumed, standard), inStandard);
    QCOMPARE(consumed, consumedInStandard);
}

void TestID3Strings::id3v23Strings_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QByteArray>("log");
    QTest::addColumn<QStringList>("strings");
    const QStringList two{QStringLiteral("A"), QStringLiteral("B")};
    QTest::newRow("two") << "\0A\0B\0"_bytes
                         << ""_bytes << two;
    QTest::newRow("the last one not terminated") << "\0A\0B"_bytes
                                                 << ""_bytes << two;
    QTest::newRow("empty ones are left out") << "\0A\0\0\0B\0"_bytes
                                             << ""_bytes << two;
    QTest::newRow("UTF-16, each with its mark") << "\1\xFF\xFE"
                                                   "A\0\0\0\xFE\xFF\0B\0\0"_bytes
                                                << ""_bytes << two;
    QTest::newRow("an encoding byte alone") << "\0"_bytes
                                            << ""_bytes << QStringList();
    QTest::newRow("no byte at all") << ""_bytes
                                    << ""_bytes << QStringList();
    QTest::newRow("unknown encoding")
        << "\x1F"
           "A\0B\0"_bytes
        << "id3v23StringsIn encoding 31 treated as encoding 0"_bytes << two;
    QTest::newRow("text without encoding byte")
        << " A\0B\0"_bytes
        << "id3v23StringsIn encoding 32 (no encoding byte)"_bytes
        << QStringList{QStringLiteral(" A"), QStringLiteral("B")};
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
    const QRegularExpression log(QStringLiteral("^id3v23StringsIn <.* .*: 3 bytes> @ \\{2, 2\\}$"));
    QTest::ignoreMessage(QtWarningMsg, log);
    QCOMPARE(ID3Strings::id3v23Strings("\0AB"_bytes, 2, 2, classic), QStringList());
}

void TestID3Strings::tooManyStringsAreRefused()
{
    const QByteArray body = '\0' + QByteArray("A\0", 2).repeated(ID3Strings::maxStringsInFrame + 1);
    const auto read = [&body] { return ID3Strings::id3v23Strings(body, 0, body.size(), classic); };
    QVERIFY_THROWS_EXCEPTION(MalformedData, static_cast<void>(read()));
}

void TestID3Strings::textBlock_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("inClassic");
    QTest::addColumn<QString>("inStandard");
    const auto both = [](const char *name, const QByteArray &body, const QString &block) {
        QTest::newRow(name) << body << block << block;
    };
    both("descriptor and text", "\0engD\0Text"_bytes, QStringLiteral("eng|D|Text"));
    both("no descriptor", "\0eng\0Text\0"_bytes, QStringLiteral("eng|none|Text"));
    both("zero bytes before the text", "\0eng\0\0\0Text"_bytes, QStringLiteral("eng|none|Text"));
    both("language of zero bytes", "\0\0\0\0\0Text"_bytes, QStringLiteral("none|none|Text"));
    both("a descriptor without a text is nothing", "\0engDesc\0"_bytes, QStringLiteral("nothing"));
    both("no terminator is nothing", "\0engDesc"_bytes, QStringLiteral("nothing"));
    both("six bytes are too few", "\0eng\0T"_bytes, QStringLiteral("nothing"));
    QTest::newRow("UTF-16 with marks, ending with the tag")
        << "\1eng\xFF\xFE"
           "D\0\0\0\xFF\xFET\0x\0"_bytes
        << QStringLiteral("eng|D|T") << QStringLiteral("eng|D|Tx");
    QTest::newRow("zeros before big-endian text")
        << "\2eng\0\0\0A\0B\0\0"_bytes << QStringLiteral("eng|none|\u4100\u4200")
        << QStringLiteral("eng|none|AB");
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

void TestID3Strings::integer_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");
    QTest::newRow("digits up to others") << QStringLiteral("12abc3") << 12;
    QTest::newRow("white space and sign") << QStringLiteral(" \t-7") << -7;
    QTest::newRow("no digits") << QStringLiteral("abc") << 0;
    QTest::newRow("sign alone") << QStringLiteral("+") << 0;
    QTest::newRow("too large") << QStringLiteral("99999999999999999999") << 2147483647;
    QTest::newRow("too small") << QStringLiteral("-99999999999") << -2147483647 - 1;
}

void TestID3Strings::integer()
{
    QFETCH(QString, text);
    QTEST(integerValue(text), "value");
}

QTEST_GUILESS_MAIN(TestID3Strings)
#include "tst_id3strings.moc"
