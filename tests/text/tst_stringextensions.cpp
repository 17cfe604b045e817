#include "support/cases.h"
#include "text/characterreferences.h"
#include "text/lyricscleanup.h"
#include "text/numericorder.h"
#include "text/queryterms.h"
#include "text/stringextensions.h"

using namespace HVStringExtensions;
using namespace HVUtility;
using namespace Qt::StringLiterals;

using Conversion = QString (*)(const QString &);

class TestStringExtensions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QCOMPARE(LyricsCleanup::cleanUpLyrics(u"im"_s), u"im"_s);
        LyricsCleanup::setSubstitutions({{u"im"_s, u"I'm"_s},
                                         {u"i im"_s, u"it's"_s},
                                         {u" ,"_s, u","_s},
                                         {u"``"_s, u"\""_s},
                                         {u""_s, u"x"_s}});
    }

    void conversions_data()
    {
        const Table<QString, QString, QString> row("conversion", "text", "result");
        addCases(row, "conversions");
        row("others are dropped", u"plain"_s, QString(u"a日\U0001F600b"_s + QChar(0xD800)),
            u"ab"_s);
        // Quadratic walks of these would run into the time limit of the test programs.
        const int many = 300'000;
        row("many tags", u"visible"_s, u"<a>x"_s.repeated(many), u"x"_s.repeated(many));
        row("many levels of escapes", u"escaped"_s, u'%' + u"25"_s.repeated(many), u"%25"_s);
        row("many unordered accents", u"plain"_s, u'a' + u"\u0301\u0323"_s.repeated(many), u"a"_s);
    }

    void conversions()
    {
        static const QHash<QString, Conversion> conversions{
            {u"escaped"_s, safelyEscapedString},
            {u"corrected"_s, correctedCaseString},
            {u"plain"_s, plainASCIIString},
            {u"normalized"_s, normalizedString},
            {u"visible"_s, stringWithoutHTMLTags},
            {u"stripped"_s, stringWithStrippedParenthesizedText},
            {u"brackets"_s, stringWithStrippedBracketedText},
            {u"replaced"_s, stringByReplacingAmpersandCodes},
            {u"cleaned"_s, LyricsCleanup::cleanUpLyrics}};
        QFETCH(QString, conversion);
        QFETCH(QString, text);
        QTEST(conversions[conversion](text), "result");
    }

    void withoutWords()
    {
        const QStringList words{u"the"_s, u"Live"_s};
        QCOMPARE(stringWithoutWords(u" The live  lantern THE "_s, words), u"lantern"_s);
        QCOMPARE(stringWithoutWords(u"theatre"_s, words), u"theatre"_s);
        QCOMPARE(stringWithoutWords(u"the the x"_s, words), u"the x"_s);
        QCOMPARE(stringWithStrippedEnclosedByChar(u"a|b|c d"_s, u'|', u'|'), u"abc d"_s);
    }

    void utf16()
    {
        QCOMPARE(bigEndianUnicodeData(u"a€"_s), QByteArray::fromHex("feff006120ac"));
        QCOMPARE(bigEndianUnicodeData(u""_s), QByteArray::fromHex("feff"));
    }

    void terms_data()
    {
        const Table<AlphaNumericOnly, QString, QString, QString> row("only", "space", "text",
                                                                     "term");

        using enum AlphaNumericOnly;
        row("letters and digits", Yes, u"+"_s, u"Señor & Co., 2!"_s, u"Senor++Co+2"_s);
        row("signs stay, ampersands collapse", No, u"+"_s, u"You & Me?"_s, u"You+Me?"_s);
        row("blanks as asked", Yes, u"%20"_s, u"a b+c"_s, u"a%20b%20c"_s);
        row("what is unsafe is escaped", No, u"+"_s, u"\"x\" #1"_s, u"%22x%22+%231"_s);
        row("nothing in ASCII", No, u"+"_s, u"日本"_s, u""_s);
    }

    void terms()
    {
        QFETCH(AlphaNumericOnly, only);
        QFETCH(QString, space);
        QFETCH(QString, text);
        QTEST(stringForPost(text, only, space), "term");
    }

    void forms()
    {
        const QMap<QString, QString> fields{
            {u"b"_s, u"x y"_s}, {u"a"_s, u"é&=1"_s}, {u"c d"_s, u""_s}};
        QCOMPARE(HTTPFromDictionary(fields), QByteArray("a=%C3%A9&=1&b=x+y&c%20d="));
        QCOMPARE(HTTPFromDictionary(fields, QStringList{u"b"_s, u"none"_s, u"a"_s}),
                 QByteArray("b=x+y&a=%C3%A9&=1"));
    }

    void order_data()
    {
        const Table<QString, QString, int> row("first", "second", "result");
        addCases(row, "numericorder");
        row("half a surrogate pair", QString(QChar(0xD800)), QString(QChar(0xD800)), 0);
    }

    void order()
    {
        QFETCH(QString, first);
        QFETCH(QString, second);
        QFETCH(int, result);
        const auto sign = [](int number) { return number < 0 ? -1 : number > 0 ? 1 : 0; };
        QCOMPARE(sign(compareCaseInsensitiveNumeric(first, second)), result);
        QCOMPARE(sign(compareCaseInsensitiveNumeric(second, first)), -result);
    }
};

QTEST_GUILESS_MAIN(TestStringExtensions)
#include "tst_stringextensions.moc"
