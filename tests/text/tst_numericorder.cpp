#include "text/numericorder.h"

#include <QTest>

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
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("numbers by value") << u"Take 9"_s << u"Take 10"_s;
    QTest::newRow("numbers in the middle") << u"Vol 2 B"_s << u"vol 12 a"_s;
    QTest::newRow("numbers longer than any integer")
        << u"99999999999999999999"_s << u"100000000000000000000"_s;
    QTest::newRow("numbers of one length") << u"129"_s << u"130"_s;
    QTest::newRow("leading zeros are no digits more") << u"007"_s << u"8"_s;
    QTest::newRow("digits before letters") << u"9 Crimes"_s << u"A Song"_s;
    QTest::newRow("whatever the case") << u"alpha"_s << u"BETA"_s;
    QTest::newRow("the shorter one") << u"Moon"_s << u"Moonlight"_s;
    QTest::newRow("nothing") << u""_s << u"A"_s;
    QTest::newRow("by code point") << u"Z"_s << u"Éclair"_s;
    QTest::newRow("beyond the basic plane") << u"\uFF21"_s << u"\U00010400"_s;
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
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::newRow("case") << u"Élan VITAL"_s << u"élan vital"_s;
    QTest::newRow("case beyond the basic plane") << u"\U00010400"_s << u"\U00010428"_s;
    QTest::newRow("leading zeros") << u"Take 02"_s << u"take 2"_s;
    QTest::newRow("zeros alone") << u"000"_s << u"0"_s;
    QTest::newRow("half a surrogate pair") << QString(QChar(0xD800)) << QString(QChar(0xD800));
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
