#include "cli/commandline.h"
#include "cli/progressline.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestCommandLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void options_data();
    void options();
    void fieldsAndPathsAreToldApart();
    void progress_data();
    void progress();
};

namespace {

ParsedCommandLine parse(const QByteArrayList &words)
{
    std::vector<const char *> argv{"tagwright"};
    for (const QByteArray &word : words)
        argv.push_back(word.constData());
    return parseCommandLine(static_cast<int>(argv.size()), argv.data());
}

/// What was chosen, as one line: only options that were given show up.
QString chosen(const Arguments &arguments)
{
    QStringList words;
    const auto add = [&words](const char *name, const auto &value) {
        if (value)
            words << u"%1=%2"_s.arg(QLatin1String(name)).arg(static_cast<int>(*value));
    };
    add("want", arguments.want ? std::optional(arguments.want->toInt()) : std::nullopt);
    add("overwrite",
        arguments.overwrite ? std::optional(arguments.overwrite->toInt()) : std::nullopt);
    add("pick", arguments.pick);
    add("parallel", arguments.parallel);
    add("substrings", arguments.substrings);
    add("sizes", arguments.v24Sizes);
    add("minArt", arguments.minArt);
    add("artBelow", arguments.artBelow);
    add("square", arguments.squareArt);
    if (arguments.id3)
        words << (*arguments.id3 == ID3Dialect::standard() ? u"standard"_s : u"classic"_s);
    return words.join(u' ');
}

} // namespace

void TestCommandLine::options_data()
{
    QTest::addColumn<QByteArrayList>("words");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("expected");

    using Words = QByteArrayList;
    QTest::newRow("nothing given, nothing chosen") << Words{"gather", "x"} << 0 << u""_s;
    QTest::newRow("kinds are added up")
        << Words{"gather", "--want", "year,lyrics", "x"} << 0 << u"want=264"_s;
    QTest::newRow("all kinds") << Words{"gather", "--want", "all", "x"} << 0 << u"want=379"_s;
    QTest::newRow("nothing may be overwritten")
        << Words{"gather", "--overwrite", "none", "x"} << 0 << u"overwrite=0"_s;
    QTest::newRow("nothing cannot be wanted")
        << Words{"gather", "--want", "none", "x"} << 2 << u""_s;
    QTest::newRow("unknown kind") << Words{"gather", "--want", "year,sound", "x"} << 2 << u""_s;
    QTest::newRow("picking method")
        << Words{"gather", "--pick", "earliest", "x"} << 0 << u"pick=1"_s;
    QTest::newRow("no such method") << Words{"gather", "--pick", "latest", "x"} << 2 << u""_s;
    QTest::newRow("off is not unset")
        << Words{"gather", "--serial", "--no-substrings", "--no-square-art", "x"} << 0
        << u"parallel=0 substrings=0 square=0"_s;
    QTest::newRow("on and off at once")
        << Words{"gather", "--substrings", "--no-substrings", "x"} << 2 << u""_s;
    QTest::newRow("widths") << Words{"gather", "--min-art", "0", "--art-below", "300", "x"} << 0
                            << u"minArt=0 artBelow=300"_s;
    QTest::newRow("width that is none") << Words{"gather", "--max-art", "wide", "x"} << 2 << u""_s;
    QTest::newRow("dialect and sizes")
        << Words{"set", "--id3", "standard", "--id3v24-sizes", "accurate", "x", "year=1"} << 0
        << u"sizes=1 standard"_s;
    QTest::newRow("a folder may be called like a command") << Words{"show", "show"} << 0 << u""_s;
}

void TestCommandLine::options()
{
    QFETCH(QByteArrayList, words);
    QFETCH(int, status);
    const ParsedCommandLine parsed = parse(words);
    QCOMPARE(parsed.exitStatus, status);
    QCOMPARE(parsed.text.isEmpty(), status == 0);
    if (status == 0)
        QTEST(chosen(parsed.arguments), "expected");
}

void TestCommandLine::fieldsAndPathsAreToldApart()
{
    const auto parsed = parse({"set", "a.mp3", "title=x=y", "./title=x.mp3", "size=3", "album="});
    QCOMPARE(parsed.arguments.paths, QStringList({u"a.mp3"_s, u"./title=x.mp3"_s, u"size=3"_s}));
    QCOMPARE(parsed.arguments.fields.size(), 2);
    QCOMPARE(parsed.arguments.fields[0].value, u"x=y"_s);
    QCOMPARE(parsed.arguments.fields[1].field, u"album"_s);
    QVERIFY(parsed.arguments.fields[1].value.isEmpty());
}

void TestCommandLine::progress_data()
{
    QTest::addColumn<int>("done");
    QTest::addColumn<qint64>("milliseconds");
    QTest::addColumn<int>("columns");
    QTest::addColumn<QString>("expected");

    QTest::newRow("before the first song") << 0 << qint64(500) << 80 << u"0/2000  A - B"_s;
    QTest::newRow("minutes left") << 200 << qint64(60000) << 80
                                  << u"200/2000  200 songs/min  9 min left  A - B"_s;
    QTest::newRow("seconds left") << 1990 << qint64(199000) << 80
                                  << u"1990/2000  600 songs/min  1 s left  A - B"_s;
    QTest::newRow("hours left") << 1 << qint64(10000) << 80
                                << u"1/2000  6 songs/min  5.6 h left  A - B"_s;
    QTest::newRow("cut to the terminal") << 0 << qint64(0) << 8 << u"0/2000  "_s;
}

void TestCommandLine::progress()
{
    QFETCH(int, done);
    QFETCH(qint64, milliseconds);
    QFETCH(int, columns);
    QTEST(progressText(u"A - B"_s, done, 2000, milliseconds, columns), "expected");
}

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
