#include "support/table.h"
#include "text/numericorder.h"

using namespace Qt::StringLiterals;

class TestNumericOrder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void comesFirst_data();
    void comesFirst();
    void isEqual_data();
    void isEqual();
};

void TestNumericOrder::comesFirst_data()
{
    const Table<QString, QString> row("first", "second");
    row("numbers by value", u"Take 9"_s, u"Take 10"_s);
    row("numbers in the middle", u"Vol 2 B"_s, u"vol 12 a"_s);
    row("numbers longer than any integer", u"99999999999999999999"_s, u"100000000000000000000"_s);
    row("numbers of one length", u"129"_s, u"130"_s);
    row("leading zeros are no digits more", u"007"_s, u"8"_s);
    row("digits before letters", u"9 Crimes"_s, u"A Song"_s);
    row("whatever the case", u"alpha"_s, u"BETA"_s);
    row("the shorter one", u"Moon"_s, u"Moonlight"_s);
    row("nothing", u""_s, u"A"_s);
    row("by code point", u"Z"_s, u"Éclair"_s);
    row("beyond the basic plane", u"\uFF21"_s, u"\U00010400"_s);
}

void TestNumericOrder::comesFirst()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QVERIFY(compareCaseInsensitiveNumeric(first, second) < 0);
    QVERIFY(compareCaseInsensitiveNumeric(second, first) > 0);
}

void TestNumericOrder::isEqual_data()
{
    const Table<QString, QString> row("left", "right");
    row("case", u"Élan VITAL"_s, u"élan vital"_s);
    row("case beyond the basic plane", u"\U00010400"_s, u"\U00010428"_s);
    row("leading zeros", u"Take 02"_s, u"take 2"_s);
    row("zeros alone", u"000"_s, u"0"_s);
    row("half a surrogate pair", QString(QChar(0xD800)), QString(QChar(0xD800)));
}

void TestNumericOrder::isEqual()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    QCOMPARE(compareCaseInsensitiveNumeric(left, right), 0);
    QCOMPARE(compareCaseInsensitiveNumeric(right, left), 0);
}

QTEST_GUILESS_MAIN(TestNumericOrder)
#include "tst_numericorder.moc"
