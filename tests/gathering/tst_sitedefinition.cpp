#include "gathering/decodedpage.h"

#include "gathering/definitioncheck.h"
#include "gathering/definitionformat.h"
#include "gathering/definitionschema.h"
#include "gathering/sitedefinition.h"
#include "support/table.h"
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
        row("two texts in order", u"%@/%@"_s, {u"x"_s, u"y"_s}, u"x/y"_s, {u"%@"_s, u"%@"_s});
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

    void numbersMayStandAsTexts_data()
    {
        const Table<QVariant, int> row("value", "integer");
        row("number", qint64(8), 8);
        row("text", u"8"_s, 8);
        row("fraction is cut off", 2.9, 2);
        row("missing", {}, 0);
        row("no number", u"many"_s, 0);
        row("not a number", u"nan"_s, 0);
        row("beyond 32 bits", qint64(1) << 40, INT_MAX);
    }
    void numbersMayStandAsTexts()
    {
        QFETCH(QVariant, value);
        QTEST(SiteDefinition({{u"key"_s, value}}).integer(u"key"_s), "integer");
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
        QTest::addColumn<QString>("source"); // empty: a key of the whole set
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("fault"); // empty: none
        const QString whole;
        const QString freeDB = u"FreeDBInterface"_s;
        const QString notHttp = u"is no http or https address"_s;
        const auto row = [](const char *name, const QString &source, const char *key,
                            const QVariant &value, const QString &fault) {
            QTest::newRow(name) << source << QString::fromLatin1(key) << value << fault;
        };
        row("unknown key", whole, "whatever", 7, {});
        row("list", whole, "sourcelist", QVariantList{u"NoSuchInterface"_s}, {});
        row("list of other things", whole, "genres", QVariantList{u"a"_s, 7},
            u"is no list of texts"_s);
        row("text for a list", whole, "sourcelist", u"A"_s, u"is no list of texts"_s);
        row("table", whole, "simplifiers", QVariantMap{{u"a"_s, QString()}}, {});
        row("table with an empty key", whole, "simplifiers", QVariantMap{{QString(), u"a"_s}},
            u"is no table from texts to texts"_s);
        row("table of numbers", whole, "lyricsSubstitutions", QVariantMap{{u"a"_s, 7}},
            u"is no table from texts to texts"_s);
        row("number as text", whole, "latestReleaseNumber", u"116"_s, {});
        row("no number", whole, "latestReleaseNumber", u"newest"_s, u"is no number"_s);
        row("source is no dictionary", whole, "res_FreeDBInterface", u"x"_s, u"is no dictionary"_s);
        row("number of loads", freeDB, "simulConns", QVariantList(), u"is no number"_s);
        row("known encoding", freeDB, "charset", u"utf-8"_s, {});
        row("unknown encoding", freeDB, "charset", u"klingon"_s,
            u"is no known character encoding"_s);
        row("address", freeDB, "queryPOST", u"https://discs.example/search"_s, {});
        row("empty address", freeDB, "queryPOST", QString(), {});
        row("address of a file", freeDB, "queryPOST", u"file:///etc/passwd"_s, notHttp);
        row("address without a host", freeDB, "queryPOST", u"http:///search"_s, notHttp);
        row("address that is data", freeDB, "queryPOST", QByteArray("http://a/"), u"is no text"_s);
        row("address format", freeDB, "discInfoURL", u"http://a/?d=%@&e=%%20"_s, {});
        row("number in an address format", freeDB, "discInfoURL", u"http://a/?d=%d"_s,
            u"must hold %@ and no other placeholder (%% is a percent sign)"_s);
        row("bare escape in an address format", freeDB, "discInfoURL", u"http://a/%20?d=%@"_s,
            u"must hold %@ and no other placeholder (%% is a percent sign)"_s);
        row("format that leaves the choice of host to the page", freeDB, "discInfoURL",
            u"http://%@/disc"_s, u"has a placeholder in its host"_s);
        row("format that can lengthen the host", freeDB, "discInfoURL", u"http://a.example%@"_s,
            u"has a placeholder in its host"_s);
        row("format of another scheme", freeDB, "discInfoURL", u"ftp://a/%@"_s, notHttp);
        row("scheme left open", freeDB, "discInfoURL", u"%@"_s, notHttp);
        row("marker that is a number", freeDB, "firstResultsFragment", 7, u"is no text"_s);
        QTest::newRow("marker inside a parse recipe")
            << freeDB << u"parseAlbumList/listEnd"_s << QVariant(7) << u"is no text"_s;
        row("two texts wanted", u"LeosLyricsInterface"_s, "queryArtistTitle", u"http://a/%@"_s,
            u"must hold %@, %@ and no other placeholder (%% is a percent sign)"_s);
        row("track marker", u"TowerInterface"_s, "parseAlbumTrack", u"<b>%d.</b>"_s, {});
        row("track marker without a number", u"TowerInterface"_s, "parseAlbumTrack", u"<b>"_s,
            u"must hold %d and no other placeholder (%% is a percent sign)"_s);
        row("prefix", u"CKDigestInterface"_s, "prefix", u"HTTP://"_s, {});
        row("prefix of another scheme", u"CKDigestInterface"_s, "prefix", u"file://"_s,
            u"does not begin as an http or https address"_s);
        row("source that no schema knows", u"NoSuchInterface"_s, "queryPOST", 7, {});
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
        for (auto step = path.crbegin(); step != path.crend(); ++step)
            value = QVariantMap{{*step, value}};
        const QString expected = fault.isEmpty() ? QString() : path.join(u'/') + u' ' + fault;
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

    void pagesAreDecoded_data()
    {
        const Table<QByteArray, QString, QString> row("bytes", "charset", "text");
        row("Latin 1 is the default", "caf\xE9", {}, u"café"_s);
        row("named", "caf\xC3\xA9", u"UTF-8"_s, u"café"_s);
        row("unknown name", "caf\xE9", u"x-none"_s, u"café"_s);
        row("damaged bytes",
            QByteArray("a\xFF"
                       "b"),
            u"UTF-8"_s, u"a\uFFFDb"_s);
    }
    void pagesAreDecoded()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, charset);
        QTEST(decodedPage(bytes, charset), "text");
    }
};

QTEST_GUILESS_MAIN(TestSiteDefinition)
#include "tst_sitedefinition.moc"
