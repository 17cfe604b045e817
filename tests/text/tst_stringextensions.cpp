#include "text/stringextensions.h"

#include <QTest>

using namespace HVStringExtensions;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(QString (*)(const QString &))

class TestStringExtensions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void conversions_data();
    void conversions();
    void stripping_data();
    void stripping();
    void withoutWords();
    void utf16();
    void hostileTextsTakeLinearTime_data();
    void hostileTextsTakeLinearTime();
};

using Conversion = QString (*)(const QString &);

void TestStringExtensions::conversions_data()
{
    QTest::addColumn<Conversion>("conversion");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");

    const Conversion escaped = safelyEscapedString;
    QTest::newRow("escapes blanks, quotes, accents")
        << escaped << u"é \"<x>"_s << u"%C3%A9%20%22%3Cx%3E"_s;
    QTest::newRow("leaves what is reserved") << escaped << u"a&b=c/d?e+f"_s << u"a&b=c/d?e+f"_s;
    QTest::newRow("escapes the number sign") << escaped << u"#1"_s << u"%231"_s;
    QTest::newRow("is not escaped twice") << escaped << u"a%20b"_s << u"a%20b"_s;
    QTest::newRow("undoes double escapes") << escaped << u"a%252520b"_s << u"a%20b"_s;
    QTest::newRow("undoes escapes made of escapes") << escaped << u"%%34%31"_s << u"A"_s;
    QTest::newRow("a lone percent sign") << escaped << u"100%"_s << u"100%25"_s;
    QTest::newRow("escapes that are no UTF-8 stay") << escaped << u"%E9"_s << u"%E9"_s;

    const Conversion corrected = correctedCaseString;
    QTest::newRow("all capitals") << corrected << u"LANTERNS"_s << u"Lanterns"_s;
    QTest::newRow("no capitals") << corrected << u"the lanterns (élan) don't"_s
                                 << u"The Lanterns (Élan) Don't"_s;
    QTest::newRow("mixed stays") << corrected << u"McCartney"_s << u"McCartney"_s;
    QTest::newRow("no letters") << corrected << u"1984"_s << u"1984"_s;

    const Conversion plain = plainASCIIString;
    QTest::newRow("accents") << plain << u"Ångström ÇŞẽ"_s << u"Angstrom CSe"_s;
    QTest::newRow("combining accents") << plain << u"e\u0301\u0323a"_s << u"ea"_s;
    QTest::newRow("letters that do not decompose") << plain << u"Æøßłđþı"_s << u"AEossldthi"_s;
    QTest::newRow("accent on such a letter") << plain << u"ǿ"_s << u"o"_s;
    QTest::newRow("typographic signs") << plain << u"‘a’ “b”–—…"_s << u"'a' \"b\"--..."_s;
    QTest::newRow("ligatures, fullwidth, bold") << plain << u"ﬁ Ａ\U0001D400"_s << u"fi AA"_s;
    QTest::newRow("others are dropped")
        << plain << QString(u"a日\U0001F600b"_s + QChar(0xD800)) << u"ab"_s;

    const Conversion normalized = normalizedString;
    QTest::newRow("article behind") << normalized << u"Lanterns, The"_s << u"The Lanterns"_s;
    QTest::newRow("article in capitals, padded")
        << normalized << u" ,Lanterns, AN"_s << u"AN Lanterns"_s;
    QTest::newRow("no article") << normalized << u"Smith, John"_s << u"Smith, John"_s;
    QTest::newRow("three parts") << normalized << u"A, B, the"_s << u"A, B, the"_s;
    QTest::newRow("nothing in front") << normalized << u", The"_s << u", The"_s;

    const Conversion visible = stringWithoutHTMLTags;
    QTest::newRow("tags and white space")
        << visible << u"<b>One</b>\r\n\t two <br>"_s << u"One two"_s;
    QTest::newRow("references stay") << visible << u"a&nbsp;<i>b"_s << u"a&nbsp;b"_s;
    QTest::newRow("an open tag stays") << visible << u"a  < b"_s << u"a < b"_s;
}

void TestStringExtensions::conversions()
{
    QFETCH(Conversion, conversion);
    QFETCH(QString, text);
    QTEST(conversion(text), "result");
}

void TestStringExtensions::stripping_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("parentheses");

    QTest::newRow("at the end") << u"Song (Live)"_s << u"Song"_s;
    QTest::newRow("several, blanks between stay") << u"(1) Song (2) more "_s << u"Song  more"_s;
    QTest::newRow("nesting is not tracked") << u"a (b (c) d) e"_s << u"a  d) e"_s;
    QTest::newRow("too short") << u"()"_s << u"()"_s;
    QTest::newRow("too short once one is gone") << u"(a)()"_s << u"()"_s;
    QTest::newRow("too short once trimmed") << u"(a) ()  "_s << u"()"_s;
    QTest::newRow("all of it") << u"(abc) (d)"_s << u""_s;
    QTest::newRow("never closed") << u" a ( b "_s << u" a ( b "_s;
    QTest::newRow("closed before it opens") << u"a) (b"_s << u"a) (b"_s;
    QTest::newRow("nothing to remove is not trimmed") << u" a "_s << u" a "_s;
}

void TestStringExtensions::stripping()
{
    QFETCH(QString, text);
    QTEST(stringWithStrippedParenthesizedText(text), "parentheses");
    QString bracketed = text;
    bracketed.replace(u'(', u'[').replace(u')', u']');
    const QString stripped = stringWithStrippedBracketedText(bracketed);
    QTEST(QString(stripped).replace(u'[', u'(').replace(u']', u')'), "parentheses");
    QCOMPARE(stringWithStrippedEnclosedByChar(u"a|b|c d"_s, u'|', u'|'), u"abc d"_s);
}

void TestStringExtensions::withoutWords()
{
    const QStringList words{u"the"_s, u"Live"_s};
    QCOMPARE(stringWithoutWords(u" The live  lantern THE "_s, words), u"lantern"_s);
    QCOMPARE(stringWithoutWords(u"theatre"_s, words), u"theatre"_s);
    QCOMPARE(stringWithoutWords(u"the the x"_s, words), u"the x"_s);
}

void TestStringExtensions::utf16()
{
    QCOMPARE(bigEndianUnicodeData(u"a€"_s), QByteArray::fromHex("feff006120ac"));
    QCOMPARE(bigEndianUnicodeData(u""_s), QByteArray::fromHex("feff"));
}

void TestStringExtensions::hostileTextsTakeLinearTime_data()
{
    QTest::addColumn<Conversion>("conversion");
    QTest::addColumn<QString>("text");
    QTest::addColumn<qsizetype>("length");

    const int many = 300'000;
    QTest::newRow("tags") << Conversion(stringWithoutHTMLTags) << u"<a>x"_s.repeated(many)
                          << qsizetype(many);
    QTest::newRow("levels of escapes") << Conversion(safelyEscapedString)
                                       << QString(u'%' + u"25"_s.repeated(many)) << qsizetype(3);
    QTest::newRow("unordered accents")
        << Conversion(plainASCIIString) << QString(u'a' + u"\u0301\u0323"_s.repeated(many))
        << qsizetype(1);
}

/// A quadratic walk would run into the time limit of the test programs.
void TestStringExtensions::hostileTextsTakeLinearTime()
{
    QFETCH(Conversion, conversion);
    QFETCH(QString, text);
    QTEST(conversion(text).size(), "length");
}

QTEST_GUILESS_MAIN(TestStringExtensions)
#include "tst_stringextensions.moc"
