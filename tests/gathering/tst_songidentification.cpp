#include "base/texts.h"
#include "gathering/librarylending.h"
#include "gathering/songinfotask.h"
#include "support/cases.h"
#include "support/httpserver.h"
#include "support/samplesource.h"
#include "support/songs.h"

#include <QProcess>
#include <QSignalSpy>
#include <QUrlQuery>

using namespace Qt::StringLiterals;

namespace {

/// The status of fpcalc for sound shorter than what it listens to.
constexpr int endedEarly = 3;

/// What a program of that name prints. A failure ends the test.
QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || (process.exitCode() != 0 && process.exitCode() != endedEarly))
        qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
    return process.readAllStandardOutput().trimmed();
}

QString ownProgram()
{
    return QFileInfo(qEnvironmentVariable("TAGWRIGHT_PROGRAM")).path()
        + u"/tagwright-fingerprint"_s;
}

/// What the service says of a song.
QByteArray answerNamed(const char *name)
{
    for (const QByteArrayList &cells : casesIn("acoustidanswers"))
        if (cells[0] == name)
            return cells[1];
    qFatal("no answer %s", name);
}

QString asText(const std::optional<QString> &text)
{
    return text.value_or(u"-"_s);
}

/// One song, the service, and a task between them.
class World {
public:
    World()
    {
        context.identifying = IdentifyingMeans{u"my key"_s, ownProgram()};
        server.serve(u"/lookup"_s, {.body = answerNamed("the song")});
    }

    void makeTask(const QString &song, Assets want)
    {
        task = std::make_unique<SongInfoTask>(SongFile::songWithPath(song), context);
        task->setIdentify(true);
        task->setGatherFlags(want);
        task->setOverwriteFlags({});
    }

    void run()
    {
        QSignalSpy finished(task.get(), &SongInfoTask::finished);
        task->gather();
        QVERIFY(finished.wait());
    }

    [[nodiscard]] AudioInfoTag &tag() const { return *task->song()->infotag(); }
    [[nodiscard]] QString names() const
    {
        return QStringList{asText(tag().artist()), asText(tag().title()), asText(tag().album())}
            .join(u'|');
    }

    HttpServer server;
    HVHTTPQueue queue{QString()};
    QString asked;
    qint64 duration = 0; ///< milliseconds
    SourceCatalog catalog{{SampleSource::entry(
        u"AskedSource"_s, Assets(AssetYear) | AssetArtwork, [this](SampleSource &source) {
            duration = source.songDuration().value_or(0);
            asked = QStringList{asText(source.artist()), asText(source.songTitle()),
                                asText(source.albumTitle())}
                        .join(u'|');
        })}};
    LibraryLending library{SongList()};
    GatherContext context{
        queue, catalog,
        SiteDefinitions({{u"sourcelist"_s, QStringList{u"AskedSource"_s}},
                         {u"res_AcoustIDLookup"_s,
                          QVariantMap{{u"queryPOST"_s, server.url(u"/lookup"_s).toString()},
                                      {u"minScore"_s, 0.5}}}}),
        library};
    std::unique_ptr<SongInfoTask> task;
};

} // namespace

class TestSongIdentification : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }

    void choosesAmongAnswers_data()
    {
        const Table<QByteArray, QString> row("json", "expected");
        addCases(row, "acoustidanswers");
        row("an answer cut short", answerNamed("the song").chopped(20),
            qtTrId("ErrorStrangeAnswer"));
    }

    void choosesAmongAnswers()
    {
        QFETCH(QByteArray, json);
        const AcoustIDAnswer answer = readAcoustIDAnswer(json, 0.5, {.seconds = 6});
        QString text = answer.problem + (answer.isKeyRefused ? u"!"_s : QString());
        if (answer.song)
            text =
                answer.song->artist + u'|' + answer.song->title + u'|' + asText(answer.song->album);
        QTEST(text, "expected");
    }

    void asksForWhatAnotherProgramHears()
    {
        const QString song = soundOf({});
        World world;
        world.makeTask(song, AssetYear);
        world.run();
        QVERIFY2(qAbs(world.duration - 6000) < 100, QByteArray::number(world.duration).constData());
        QCOMPARE(world.server.requests().size(), 1);
        const QUrlQuery form(QString::fromLatin1(world.server.requests().first().body));
        QCOMPARE(form.queryItemValue(u"client"_s, QUrl::FullyDecoded), u"my key"_s);
        QCOMPARE(form.queryItemValue(u"duration"_s), u"6"_s);
        QCOMPARE(form.queryItemValue(u"meta"_s), u"recordings+releasegroups+compress"_s);
        QCOMPARE(form.queryItemValue(u"fingerprint"_s, QUrl::FullyDecoded).toLatin1(),
                 outputOf(u"fpcalc"_s, {u"-plain"_s, song}));
    }

    void fillsWhatItMay_data()
    {
        const Table<QString, Assets, QString, QString> row("tag", "want", "asked", "names");
        const Assets names = Assets(AssetSongTitle) | AssetAlbumName | AssetYear;
        const QString all = u"Nila Oster|Harbour Lights|Salt & Iron"_s;
        row("all that it lacks", u""_s, names, all, all);
        row("unwanted: for the search alone", u""_s, AssetYear, all, u"Nila Oster|07 - track|-"_s);
        row("an album that it has", u"album=Sea"_s, names, u"Nila Oster|Harbour Lights|Sea"_s,
            u"Nila Oster|Harbour Lights|Sea"_s);
        row("its own title", u"title=Track 07"_s, names, all, u"Nila Oster|Track 07|Salt & Iron"_s);
        row("an artist of its own stays", u"artist=Unknown Artist"_s, names, all,
            u"Unknown Artist|Harbour Lights|Salt & Iron"_s);
        row("nothing but the artist is lacking", u"title=Harbour Lights"_s, {}, {},
            u"Nila Oster|Harbour Lights|-"_s);
        row("another song", u"title=Tidewater"_s, AssetYear, u"-|Tidewater|-"_s,
            u"-|Tidewater|-"_s);
        row("one that has its names is not asked for", u"artist=Jon;title=Harbour"_s, AssetYear,
            u"Jon|Harbour|-"_s, u"Jon|Harbour|-"_s);
    }

    void fillsWhatItMay()
    {
        QFETCH(QString, tag);
        QFETCH(Assets, want);
        World world;
        world.makeTask(soundOf(tag), want);
        QCOMPARE(world.task->mayBeIdentified(), !tag.contains(u"artist=Jon"_s));
        world.run();
        QTEST(world.asked, "asked");
        QTEST(world.names(), "names");
        QCOMPARE(world.tag().tagHasBeenModified(), bool(world.task->changedAssetFlags()));
    }

    void saysWhatFailed_data()
    {
        const Table<QByteArray, QString, QString> row("answer", "program", "problem");
        row("the service knows it not", answerNamed("nothing found"), ownProgram(),
            qtTrId("ErrorSoundUnknown"));
        row("no program that decodes", {}, u"/nowhere"_s, u"execvp: No such file or directory"_s);
        row("a program that ends", {}, u"/bin/false"_s, qtTrId("ErrorNoSound"));
        row("a program without end", {}, u"/usr/bin/yes"_s, u"Process crashed"_s);
    }

    void saysWhatFailed()
    {
        QFETCH(QByteArray, answer);
        QFETCH(QString, program);
        QFETCH(QString, problem);
        World world;
        world.server.serve(u"/lookup"_s, {.body = answer});
        world.context.identifying->fingerprintProgram = program;
        world.makeTask(soundOf({}), AssetYear);
        world.run();
        QCOMPARE(world.task->errorMessage().value_or(QString()),
                 qtTrId("ErrorNotIdentified").arg(u"07 - track"_s, problem));
        QCOMPARE(world.asked, u"-|07 - track|-"_s); // the sources are asked all the same
    }

    void asksNoMoreWithARefusedKey()
    {
        World world;
        world.server.serve(
            u"/lookup"_s,
            {.status = 400,
             .body = R"({"status": "error", "error": {"code": 4, "message": "invalid API key"}})"});
        for (int i = 0; i < 2; ++i) {
            world.makeTask(soundOf({}), AssetYear);
            world.run();
            QVERIFY(world.task->errorMessage()->endsWith(u"invalid API key"_s));
        }
        QCOMPARE(world.server.requests().size(), 1);
    }

    void aServiceWithoutAnswersIsLeftAlone()
    {
        World world;
        world.server.serve(u"/lookup"_s, {.body = "<html>Sorry</html>"});
        for (int songs = 0; songs < SourceOutages::mostUnanswered + 2; ++songs) {
            world.makeTask(soundOf({}), Assets(AssetYear) | AssetSongTitle);
            world.run();
            QCOMPARE(world.task->unaskedSources(),
                     (QList<UnaskedSource>{{AcoustIDLookup::name, AssetArtist}}));
        }
        QCOMPARE(world.server.requests().size(), SourceOutages::mostUnanswered);
        QCOMPARE(world.context.outages.marked(), QSet<QString>{AcoustIDLookup::name});
    }

    void endsWhenCancelled()
    {
        for (const bool isAsked : {false, true}) { // while it decodes, or waits for the answer
            World world;
            world.server.hold();
            world.makeTask(soundOf({}), AssetYear);
            QSignalSpy finished(world.task.get(), &SongInfoTask::finished);
            world.task->gather();
            if (isAsked)
                QTRY_COMPARE(world.server.requests().size(), 1);
            world.task->cancel();
            QVERIFY(finished.wait());
            QCOMPARE(finished.size(), 1);
            QCOMPARE(world.names(), u"-|07 - track|-"_s);
        }
    }

private:
    /// A song of six seconds with such a tag: "title=A;artist=B".
    QString soundOf(const QString &tag)
    {
        const QString path = mFolder.filePath(u"07 - track.mp3"_s);
        QStringList arguments = u"-v error -y -f lavfi -i sine=440:d=6 -b:a 64k"_s.split(u' ');
        for (const QString &field : tag.split(u';', Qt::SkipEmptyParts))
            arguments << u"-metadata"_s << field;
        outputOf(u"ffmpeg"_s, arguments << path);
        return path;
    }

    QTemporaryDir mFolder;
};

QTEST_GUILESS_MAIN(TestSongIdentification)

#include "tst_songidentification.moc"
