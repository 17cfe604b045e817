#include "cli/commandline.h"

#include "cli/progressline.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

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

class TestCommandLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void options_data()
    {
        const Table<QByteArrayList, int, QString> row("words", "status", "expected");

        using Words = QByteArrayList;
        row("nothing given, nothing chosen", Words{"gather", "x"}, 0, {});
        row("kinds are added up", Words{"gather", "--want", "year,lyrics", "x"}, 0, u"want=264"_s);
        row("all kinds", Words{"gather", "--want", "all", "x"}, 0, u"want=379"_s);
        row("nothing may be overwritten", Words{"gather", "--overwrite", "none", "x"}, 0,
            u"overwrite=0"_s);
        row("nothing cannot be wanted", Words{"gather", "--want", "none", "x"}, 2, {});
        row("unknown kind", Words{"gather", "--want", "year,sound", "x"}, 2, {});
        row("picking method", Words{"gather", "--pick", "earliest", "x"}, 0, u"pick=1"_s);
        row("no such method", Words{"gather", "--pick", "latest", "x"}, 2, {});
        row("off is not unset",
            Words{"gather", "--serial", "--no-substrings", "--no-square-art", "x"}, 0,
            u"parallel=0 substrings=0 square=0"_s);
        row("on and off at once", Words{"gather", "--substrings", "--no-substrings", "x"}, 2, {});
        row("widths", Words{"gather", "--min-art", "0", "--art-below", "300", "x"}, 0,
            u"minArt=0 artBelow=300"_s);
        for (const char *width : {"wide", "nan", "0", "99999"})
            QTest::addRow("width that is none: %s", width)
                << Words{"gather", "--max-art", width, "x"} << 2 << u""_s;
        row("dialect and sizes",
            Words{"set", "--id3", "standard", "--id3v24-sizes", "accurate", "x", "year=1"}, 0,
            u"sizes=1 standard"_s);
        row("a folder may be called like a command", Words{"show", "show"}, 0, {});
    }
    void options()
    {
        QFETCH(QByteArrayList, words);
        QFETCH(int, status);
        const ParsedCommandLine parsed = parse(words);
        QCOMPARE(parsed.exitStatus, status);
        QCOMPARE(parsed.text.isEmpty(), status == 0);
        if (status == 0)
            QTEST(chosen(parsed.arguments), "expected");
    }

    void fieldsAndPathsAreToldApart()
    {
        const auto parsed =
            parse({"set", "a.mp3", "title=x=y", "./title=x.mp3", "size=3", "album="});
        QCOMPARE(parsed.arguments.paths,
                 QStringList({u"a.mp3"_s, u"./title=x.mp3"_s, u"size=3"_s}));
        QCOMPARE(parsed.arguments.fields.size(), 2);
        QCOMPARE(parsed.arguments.fields[0].value, u"x=y"_s);
        QCOMPARE(parsed.arguments.fields[1].field, u"album"_s);
        QVERIFY(parsed.arguments.fields[1].value.isEmpty());
    }

    void progress_data()
    {
        const Table<int, qint64, int, QString> row("done", "milliseconds", "columns", "expected");

        row("before the first song", 0, 500, 80, u"0/2000  A   B"_s);
        row("minutes left", 200, 60000, 80, u"200/2000  200 songs/min  9 min left  A   B"_s);
        row("seconds left", 1990, 199000, 80, u"1990/2000  600 songs/min  1 s left  A   B"_s);
        row("hours left", 1, 10000, 80, u"1/2000  6 songs/min  5.6 h left  A   B"_s);
        row("cut to the terminal", 0, 0, 8, u"0/2000  "_s);
    }
    void progress()
    {
        QFETCH(int, done);
        QFETCH(qint64, milliseconds);
        QFETCH(int, columns);
        QTEST(progressText(u"A \u001b B"_s, done, 2000, milliseconds, columns), "expected");
    }
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
