#include "gathering/decodedpage.h"

#include "gathering/definitioncheck.h"
#include "gathering/definitionformat.h"
#include "gathering/definitionschema.h"
#include "gathering/sitedefinition.h"
#include "support/cases.h"
#include "support/tempfiles.h"

using namespace Qt::StringLiterals;

class TestSiteDefinition : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void formatsAreFilled_data()
    {
        const Table<QString, QStringList, QString, QStringList> row("format", "values", "filled",
                                                                    "placeholders");
        const QStringList one{u"x"_s};
        row("no placeholder", u"plain"_s, one, u"plain"_s, {});
        row("text", u"a=%@&b"_s, one, u"a=x&b"_s, {u"%@"_s});
        row("values are not searched for placeholders", u"%@/%@"_s, {u"%@"_s, u"y"_s}, u"%@/y"_s,
            {u"%@"_s, u"%@"_s});
        row("percent sign", u"100%%20%@"_s, one, u"100%20x"_s, {u"%@"_s});
        row("number", u"<%d.>"_s, one, u"<x.>"_s, {u"%d"_s});
        row("lone percent sign is a placeholder", u"100%"_s, one, u"100x"_s, {u"%"_s});
    }
    void formatsAreFilled()
    {
        QFETCH(QString, format);
        QFETCH(QStringList, values);
        QTEST(filledFormat(format, values), "filled");
        QTEST(placeholdersOf(format), "placeholders");
        const SiteDefinition definition({{u"key"_s, format}, {u"empty"_s, QString()}});
        QTEST(definition.formatted(u"key"_s, values).value(), "filled");
        QVERIFY(!definition.formatted(u"empty"_s, values));
        QVERIFY(!definition.formatted(u"missing"_s, values));
    }

    void numbersMayStandAsTexts()
    {
        for (const auto &[value, integer] : {std::pair<QVariant, int>{qint64(8), 8},
                                             {u"8"_s, 8},
                                             {2.9, 2},
                                             {{}, 0},
                                             {u"many"_s, 0},
                                             {u"nan"_s, 0},
                                             {qint64(1) << 40, INT_MAX}})
            QCOMPARE(SiteDefinition({{u"key"_s, value}}).integer(u"key"_s), integer);
    }

    void hostsAreThoseOfAddresses()
    {
        const SiteDefinition definition({{u"a"_s, u"http://one.example/search?q=%@"_s},
                                         {u"b"_s, u"https://one.example/other"_s},
                                         {u"c"_s, u"http://two.example:81/"_s},
                                         {u"d"_s, u"http:"_s},
                                         {u"e"_s, u"<a href=http://three.example/>"_s},
                                         {u"f"_s, 7}});
        QCOMPARE(definition.hosts(), (QStringList{u"one.example"_s, u"two.example"_s}));
    }

    void faultsAreNamed_data()
    {
        // source: empty: a key of the whole set; fault: empty: none
        const Table<QString, QString, QVariant, QString> row("source", "key", "value", "fault");
        addCases(row, "definitionfaults");
        row("other list", {}, u"genres"_s, QVariantList{u"a"_s, 7}, u"is no list of texts"_s);
        row("unknown key", {}, u"whatever"_s, 7);
        row("marker inside a recipe", u"FreeDBInterface"_s, u"parseAlbumList/listEnd"_s, 7,
            u"is no text"_s);
        row("source that no schema knows", u"NoSuchInterface"_s, u"queryPOST"_s, 7);
        row("table", {}, u"simplifiers"_s, QVariantMap{{u"a"_s, QString()}});
        row("table of numbers", {}, u"lyricsSubstitutions"_s, QVariantMap{{u"a"_s, 7}},
            u"is no table from texts to texts"_s);
    }
    void faultsAreNamed()
    {
        QFETCH(QString, source);
        QFETCH(QString, key);
        QFETCH(QVariant, value);
        QFETCH(QString, fault);
        QStringList path = key.split(u'/');
        if (!source.isEmpty())
            path.prepend(u"res_"_s + source);
        const QString shown = value.toString().isEmpty() ? QString() : u": "_s + value.toString();
        for (auto step = path.crbegin(); step != path.crend(); ++step)
            value = QVariantMap{{*step, value}};
        const QString expected =
            fault.isEmpty() ? QString() : path.join(u'/') + u' ' + fault + shown;
        QCOMPARE(problemOfDefinitions(value.toMap()).value_or(QString()), expected);
    }

    void documentationNamesEveryKey()
    {
        const QString page = QString::fromUtf8(fileContents(
            qEnvironmentVariable("TAGWRIGHT_TEST_DATA") + u"/../../docs/site-definitions.md"_s));
        const auto verifyNamed = [](const QString &section, std::span<const DefinitionKey> keys) {
            for (const DefinitionKey &key : keys)
                QVERIFY2(section.contains(u'`' + QString::fromLatin1(key.key) + u'`'), key.key);
        };
        verifyNamed(page, topLevelSchema());
        verifyNamed(page, commonSchema());
        verifyNamed(page, parseRecipeSchema());
        for (const SourceSchema &source : sourceSchemas()) {
            const QString heading = u"### "_s + QString::fromLatin1(source.className) + u'\n';
            QVERIFY2(page.contains(heading), source.className);
            verifyNamed(page.section(heading, 1).section(u"\n#"_s, 0, 0), source.keys);
        }
    }

    void pagesAreDecoded()
    {
        QCOMPARE(decodedPage("caf\xE9", {}), u"café"_s); // Latin 1 is the default
        QCOMPARE(decodedPage("caf\xC3\xA9", u"UTF-8"_s), u"café"_s);
        QCOMPARE(decodedPage("caf\xE9", u"x-none"_s), u"café"_s);
        QCOMPARE(decodedPage("a\xFF.", u"UTF-8"_s), u"a\uFFFD."_s);
    }
};

QTEST_GUILESS_MAIN(TestSiteDefinition)
#include "tst_sitedefinition.moc"
