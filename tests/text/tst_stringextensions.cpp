#include "support/table.h"
#include "text/characterreferences.h"
#include "text/lyricscleanup.h"
#include "text/stringextensions.h"

using namespace HVStringExtensions;
using namespace Qt::StringLiterals;

using Conversion = QString (*)(const QString &);
Q_DECLARE_METATYPE(Conversion)

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
        const Table<Conversion, QString, QString> row("conversion", "text", "result");

        const Conversion escaped = safelyEscapedString;
        row("escapes what is unsafe, leaves what is reserved", escaped, u"é \"<x>#1&b=c/d?e+f"_s,
            u"%C3%A9%20%22%3Cx%3E%231&b=c/d?e+f"_s);
        row("undoes double escapes", escaped, u"a%252520b"_s, u"a%20b"_s);
        row("undoes escapes made of escapes", escaped, u"%%34%31"_s, u"A"_s);
        row("escapes that are no UTF-8 stay", escaped, u"%E9"_s, u"%E9"_s);

        const Conversion corrected = correctedCaseString;
        row("all capitals", corrected, u"LANTERNS"_s, u"Lanterns"_s);
        row("no capitals", corrected, u"the lanterns (élan) don't"_s,
            u"The Lanterns (Élan) Don't"_s);
        row("mixed stays", corrected, u"McCartney"_s, u"McCartney"_s);

        const Conversion plain = plainASCIIString;
        row("accents, also combining ones", plain, u"Ångström ÇŞẽe\u0301\u0323a"_s,
            u"Angstrom CSeea"_s);
        row("letters that do not decompose", plain, u"Æøßłđþıǿ"_s, u"AEossldthio"_s);
        row("typographic signs, ligatures, fullwidth, bold", plain, u"‘a’ “b”–—… ﬁ Ａ\U0001D400"_s,
            u"'a' \"b\"--... fi AA"_s);
        row("others are dropped", plain, QString(u"a日\U0001F600b"_s + QChar(0xD800)), u"ab"_s);

        const Conversion normalized = normalizedString;
        row("article behind", normalized, u"Lanterns, The"_s, u"The Lanterns"_s);
        row("article in capitals, padded", normalized, u" ,Lanterns, AN"_s, u"AN Lanterns"_s);
        row("no article", normalized, u"Smith, John"_s, u"Smith, John"_s);
        row("nothing in front", normalized, u", The"_s, u", The"_s);

        const Conversion visible = stringWithoutHTMLTags;
        row("tags and white space, not references", visible, u"<b>One</b>\r\n\t two&nbsp; <br>"_s,
            u"One two&nbsp;"_s);
        row("an open tag stays", visible, u"a  < b"_s, u"a < b"_s);

        const Conversion stripped = stringWithStrippedParenthesizedText;
        row("at the end", stripped, u"Song (Live)"_s, u"Song"_s);
        row("several, blanks between stay", stripped, u"(1) Song (2) more "_s, u"Song  more"_s);
        row("nesting is not tracked", stripped, u"a (b (c) d) e"_s, u"a  d) e"_s);
        row("too short", stripped, u"()"_s, u"()"_s);
        row("too short once one is gone", stripped, u"(a)()"_s, u"()"_s);
        row("too short once trimmed", stripped, u"(a) ()  "_s, u"()"_s);
        row("all of it", stripped, u"(abc) (d)"_s, u""_s);
        row("closed before it opens", stripped, u"a) (b"_s, u"a) (b"_s);
        row("nothing to remove is not trimmed", stripped, u" a "_s, u" a "_s);
        row("brackets", stringWithStrippedBracketedText, u"a [b] (c)"_s, u"a  (c)"_s);

        const Conversion replaced = stringByReplacingAmpersandCodes;
        row("names know case", replaced, u"R&amp;B &eacute;&Eacute; &thetasym;&Amp;"_s,
            u"R&B éÉ ϑ&Amp;"_s);
        row("the seven more", replaced, u"&LT;&GT;&AMP;&QUOT;&apos;&percnt;&supl;"_s,
            u"<>&\"'%¹"_s);
        row("the semicolon is optional", replaced, u"a &amp b &amp"_s, u"a & b &"_s);
        row("the longest name counts, if known", replaced, u"&ampx; &foo; & &"_s,
            u"&ampx; &foo; & &"_s);
        row("numbers, not replaced twice", replaced, u"&#65;&#65B&#x41;&#X4a &#38;lt;"_s,
            u"AABAJ &lt;"_s);
        row("Windows-1252", replaced, u"&#150;&#x80;&#129;"_s, u"–€\u0081"_s);
        row("zero, too large, no digits", replaced, u"&#0;&#70000;&#;&#x;&#x10000;"_s,
            u"&#0;&#70000;&#;&#x;&#x10000;"_s);
        row("digits beyond the eighth stay", replaced, u"&#000000650;"_s, u"A0;"_s);

        // Quadratic walks of these would run into the time limit of the test programs.
        const int many = 300'000;
        row("many tags", visible, u"<a>x"_s.repeated(many), u"x"_s.repeated(many));
        row("many levels of escapes", escaped, u'%' + u"25"_s.repeated(many), u"%25"_s);
        row("many unordered accents", plain, u'a' + u"\u0301\u0323"_s.repeated(many), u"a"_s);

        const Conversion cleaned = LyricsCleanup::cleanUpLyrics;
        row("whole words alone", cleaned, u"im, time imp (im)\nim"_s,
            u"I'm, time imp (I'm)\nI'm"_s);
        row("longer ones first, in that case", cleaned, u"i im IM im-in"_s, u"it's IM im-in"_s);
        row("signs", cleaned, u"a ,b ``c``"_s, u"a,b \"c\""_s);
    }

    void conversions()
    {
        QFETCH(Conversion, conversion);
        QFETCH(QString, text);
        QTEST(conversion(text), "result");
    }

    void digits()
    {
        QCOMPARE(CharacterToNumber(u'b', HexAllowed::No), -1);
        QCOMPARE(CharacterToNumber(u'F', HexAllowed::Yes), 15);
        QCOMPARE(CharacterToNumber(u'g', HexAllowed::Yes), -1);
        QCOMPARE(CharacterToNumber(u'\u0661', HexAllowed::Yes), -1);
    }

    void lengths()
    {
        const auto lengthAt = [](const QString &text, qsizetype index) {
            return ampersandCodeEquivalentAtIndex(text, index).codeLength;
        };
        QCOMPARE(lengthAt(u"x&lt;y"_s, 1), 4);
        QCOMPARE(lengthAt(u"x&lt y"_s, 1), 3);
        QCOMPARE(lengthAt(u"x&#x3c;y"_s, 1), 6);
        QCOMPARE(lengthAt(u"x&lt;y"_s, 0), 0);
        QCOMPARE(lengthAt(u"x"_s, 7), 0);
        QCOMPARE(lengthAt(u"&none;"_s, 0), 0);
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
};

QTEST_GUILESS_MAIN(TestStringExtensions)
#include "tst_stringextensions.moc"
