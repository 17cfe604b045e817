#include "support/table.h"
#include "text/htmlpage.h"

using namespace HVUtility;
using namespace Qt::StringLiterals;

using Entries = QList<QStringList>;

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
        const Table<QVariantMap, QString, Entries> table("resources", "page", "entries");
        const auto row = [&](const char *name, const QString &page, const Entries &entries) {
            table(name, markers(), page, entries);
        };

        row("entries and their pieces", u"x<ul><li><b>1</b>, <b>2</b><li><b>3</b></ul>"_s,
            Entries{{u"<b>1</b>"_s, u"<b>2</b>"_s}, {u"<b>3</b>"_s}});
        row("in any case", u"<UL><Li><B>1</B></uL>"_s, Entries{{u"<B>1</B>"_s}});
        row("only between the list's markers",
            u"<li><b>0</b><ul>-<b>0</b><li><b>1</b></ul><li><b>2</b>"_s, Entries{{u"<b>1</b>"_s}});
        row("list without end", u"<ul><li><b>1</b>"_s, Entries{});
        row("an end in front of the list is none", u"</ul><ul><li><b>1</b>"_s, Entries{});
        row("an entry without pieces is left out", u"<ul><li>0<li><b>1</b></ul>"_s,
            Entries{{u"<b>1</b>"_s}});
        row("a piece does not cross entries", u"<ul><li><b>1<li></b><b>2</b></ul>"_s, Entries{});
        row("an end in front of the next begin ends the entry",
            u"<ul><li><b>1</b></b><b>2</b></ul>"_s, Entries{{u"<b>1</b>"_s}});
        table("an end inside the begin makes a bare marker", markers(u"<p>:"_s, u">"_s),
              u"<ul><li a><p>:x></ul>"_s, Entries{});
        table("such an end alone", markers(u"<p>"_s, u">"_s), u"<ul><li<p>x></ul>"_s,
              Entries{{u"<p>"_s}});
        table("equal markers need two places", markers(u"|"_s, u"|"_s), u"<ul><li|1|</ul>"_s,
              Entries{});
        table("an empty marker stands nowhere", markers(u""_s, u""_s), u"<ul><li>1</ul>"_s,
              Entries{});
    }

    void parsing()
    {
        QFETCH(QVariantMap, resources);
        QFETCH(QString, page);
        const auto entries = parsedContentsOfHTML(page, resources);
        QVERIFY(entries);
        QTEST(*entries, "entries");
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

        row("first run", u"x<i>0</i>Year:</b><i> 1984\n</i>"_s, 1, u"1984"_s);
        row("run right behind the marker", u"Year: 1984"_s, 1, u"1984"_s);
        row("second run", u"Year:<i>a</i><b>b"_s, 2, u"b"_s);
        row("white space is a run", u"Year:<i>a</i> <b>b"_s, 2, u""_s);
        row("not so many runs", u"Year:<i>a</i>"_s, 2, std::nullopt);
        row("a tag never closed", u"Year:<i"_s, 1, std::nullopt);
        row("the marker knows case", u"year: 1984"_s, 1, std::nullopt);
        row("no run asked for", u"Year: 1984"_s, 0, std::nullopt);
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
