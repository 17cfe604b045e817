#include "support/table.h"
#include "text/numericorder.h"

using namespace Qt::StringLiterals;

class TestNumericOrder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void order_data()
    {
        const Table<QString, QString, int> row("first", "second", "result");
        row("numbers by value", u"Take 9"_s, u"Take 10"_s, -1);
        row("numbers longer than any integer", u"99999999999999999999"_s,
            u"100000000000000000000"_s, -1);
        row("leading zeros are no digits more", u"007"_s, u"8"_s, -1);
        row("digits before letters", u"9 Crimes"_s, u"A Song"_s, -1);
        row("whatever the case", u"alpha"_s, u"BETA"_s, -1);
        row("the shorter one", u"Moon"_s, u"Moonlight"_s, -1);
        row("by code point", u"Z"_s, u"Éclair"_s, -1);
        row("beyond the basic plane", u"\uFF21"_s, u"\U00010400"_s, -1);
        row("whatever the case: equal", u"Élan VITAL"_s, u"élan vital"_s, 0);
        row("case beyond the basic plane", u"\U00010400"_s, u"\U00010428"_s, 0);
        row("leading zeros: equal", u"Take 02"_s, u"take 2"_s, 0);
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

QTEST_GUILESS_MAIN(TestNumericOrder)
#include "tst_numericorder.moc"
