#include "support/cases.h"
#include "text/htmlpage.h"

using namespace HVUtility;
using namespace Qt::StringLiterals;

namespace {

QVariantMap markers(const QString &textBegin = u"<b>"_s, const QString &textEnd = u"</b>"_s)
{
    return {{u"listBegin"_s, u"<ul>"_s},
            {u"listEnd"_s, u"</ul>"_s},
            {u"entryBegin"_s, u"<li"_s},
            {u"textBegin"_s, textBegin},
            {u"textEnd"_s, textEnd}};
}

} // namespace

class TestHtmlPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void parsing_data()
    {
        // entries: "piece|piece;piece"; markers as below where none are given
        using Marker = std::optional<QString>;
        addCases(Table<QString, QString, Marker, Marker>("page", "entries", "textBegin", "textEnd"),
                 "htmlentries");
    }

    void parsing()
    {
        QFETCH(QString, page);
        QFETCH(std::optional<QString>, textBegin);
        QFETCH(std::optional<QString>, textEnd);
        const auto entries = parsedContentsOfHTML(
            page, markers(textBegin.value_or(u"<b>"_s), textEnd.value_or(u"</b>"_s)));
        QVERIFY(entries);
        QStringList pieces;
        for (const QStringList &entry : *entries)
            pieces << entry.join(u'|');
        QTEST(pieces.join(u';'), "entries");
    }

    void withoutPageOrMarker()
    {
        QVERIFY(!parsedContentsOfHTML(u""_s, markers()));
        const QStringList keys = markers().keys();
        for (const QString &key : keys) {
            QVariantMap resources = markers();
            resources[key] = 7;
            QVERIFY2(!parsedContentsOfHTML(u"<ul></ul>"_s, resources), "no text");
            resources.remove(key);
            QVERIFY2(!parsedContentsOfHTML(u"<ul></ul>"_s, resources), "missing");
        }
    }

    /// A quadratic walk would run into the time limit of the test programs.
    void hostilePagesTakeLinearTime()
    {
        const int many = 150'000;
        const QString entries = u"<ul>"_s + u"<li"_s.repeated(many) + u"<b></ul>"_s;
        QCOMPARE(parsedContentsOfHTML(entries, markers())->size(), 0);
        const QString pieces = u"<ul><li"_s + u"<b></b>"_s.repeated(many) + u"<b></ul>"_s;
        QCOMPARE(parsedContentsOfHTML(pieces, markers())->constFirst().size(), many);
    }

    void visibleText_data()
    {
        const Table<QString, int, std::optional<QString>> row("page", "count", "text");
        addCases(row, "visibletext");
    }

    void visibleText()
    {
        QFETCH(QString, page);
        QFETCH(int, count);
        QTEST(visibleHTMLTextIn(page, count, u"Year:"_s), "text");
    }
};

QTEST_GUILESS_MAIN(TestHtmlPage)
#include "tst_htmlpage.moc"
