#include "support/table.h"
#include "text/queryterms.h"

using namespace HVUtility;
using namespace Qt::StringLiterals;

class TestQueryTerms : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
};

QTEST_GUILESS_MAIN(TestQueryTerms)
#include "tst_queryterms.moc"
