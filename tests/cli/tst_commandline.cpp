#include "cli/commandline.h"

#include "cli/progressline.h"
#include "support/cases.h"

using namespace Qt::StringLiterals;

namespace {

ParsedCommandLine parse(const QByteArrayList &words)
{
    std::vector<const char *> argv{"tagwright"};
    for (const QByteArray &word : words)
        argv.push_back(word.constData());
    return parseCommandLine(static_cast<int>(argv.size()), argv.data());
}

} // namespace

class TestCommandLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatIsNotGivenIsNotChosen()
    {
        const Arguments none = parse({"gather", "x"}).arguments;
        QVERIFY(!none.want && !none.overwrite && !none.pick && !none.parallel && !none.substrings
                && !none.minArt && !none.artBelow && !none.squareArt && !none.id3);
        const Arguments off =
            parse({"gather", "--serial", "--no-substrings", "--no-square-art", "--want",
                   "year,lyrics", "--overwrite", "none", "--min-art", "0", "x"})
                .arguments;
        QCOMPARE(off.want, AssetYear | AssetLyrics);
        QCOMPARE(off.overwrite, Assets());
        QVERIFY(off.parallel && off.substrings && off.minArt == 0 && off.squareArt);
        QVERIFY(parse({"show", "show"}).exitStatus == 0); // a folder of that name
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
        addCases(row, "progress");
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
