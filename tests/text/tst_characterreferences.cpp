#include "support/table.h"
#include "text/characterreferences.h"

using namespace HVStringExtensions;
using namespace Qt::StringLiterals;

class TestCharacterReferences : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void replacing_data();
    void replacing();
    void lengths();
    void digits();
};

void TestCharacterReferences::replacing_data()
{
    const Table<QString, QString> row("text", "replaced");

    row("empty", u""_s, u""_s);
    row("names", u"R&amp;B &eacute;&Eacute; &thetasym;"_s, u"R&B éÉ ϑ"_s);
    row("the seven more", u"&LT;&GT;&AMP;&QUOT;&apos;&percnt;&supl;"_s, u"<>&\"'%¹"_s);
    row("the semicolon is optional", u"a &amp b &amp"_s, u"a & b &"_s);
    row("the longest name counts", u"&ampx;"_s, u"&ampx;"_s);
    row("names know case", u"&Amp;"_s, u"&Amp;"_s);
    row("unknown name", u"&foo; & &"_s, u"&foo; & &"_s);
    row("decimal", u"&#65;&#65B"_s, u"AAB"_s);
    row("hexadecimal", u"&#x41;&#X4a"_s, u"AJ"_s);
    row("Windows-1252", u"&#150;&#x80;&#129;"_s, u"–€\u0081"_s);
    row("zero, too large, no digits", u"&#0;&#70000;&#;&#x;&#x10000;"_s,
        u"&#0;&#70000;&#;&#x;&#x10000;"_s);
    row("digits beyond the eighth stay", u"&#000000650;"_s, u"A0;"_s);
    row("not replaced twice", u"&amp;lt;"_s, u"&lt;"_s);
}

void TestCharacterReferences::replacing()
{
    QFETCH(QString, text);
    QTEST(stringByReplacingAmpersandCodes(text), "replaced");
}

void TestCharacterReferences::lengths()
{
    const auto lengthAt = [](const QString &text, qsizetype index) {
        return ampersandCodeEquivalentAtIndex(text, index).codeLength;
    };
    QCOMPARE(lengthAt(u"x&lt;y"_s, 1), 4);
    QCOMPARE(lengthAt(u"x&lt y"_s, 1), 3);
    QCOMPARE(lengthAt(u"x&#x3c;y"_s, 1), 6);
    QCOMPARE(lengthAt(u"x&lt;y"_s, 0), 0);
    QCOMPARE(lengthAt(u"x&"_s, 1), 0);
    QCOMPARE(lengthAt(u"x"_s, 7), 0);
    QCOMPARE(lengthAt(u"&none;"_s, 0), 0);
}

void TestCharacterReferences::digits()
{
    QCOMPARE(CharacterToNumber(u'7', HexAllowed::No), 7);
    QCOMPARE(CharacterToNumber(u'b', HexAllowed::No), -1);
    QCOMPARE(CharacterToNumber(u'b', HexAllowed::Yes), 11);
    QCOMPARE(CharacterToNumber(u'F', HexAllowed::Yes), 15);
    QCOMPARE(CharacterToNumber(u'g', HexAllowed::Yes), -1);
    QCOMPARE(CharacterToNumber(u'\u0661', HexAllowed::Yes), -1);
}

QTEST_GUILESS_MAIN(TestCharacterReferences)
#include "tst_characterreferences.moc"
