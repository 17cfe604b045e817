#include "base/texts.h"
#include "gathering/librarylending.h"
#include "gathering/songinfotask.h"
#include "support/httpserver.h"
#include "support/songs.h"
#include "support/table.h"

#include <QFileInfo>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
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

QByteArray recording(const QByteArray &title, const QByteArray &artist, const QByteArray &more = {})
{
    return R"({"id": "r", "title": ")" + title + R"(", "artists": [{"name": ")" + artist + R"("}])"
        + more + '}';
}

QByteArray albums(const QByteArray &groups)
{
    return R"(, "releasegroups": [)" + groups + ']';
}

QByteArray result(double score, const QByteArray &recordings)
{
    return R"({"id": "x", "score": )" + QByteArray::number(score) + R"(, "recordings": [)"
        + recordings + "]}";
}

QByteArray answerOf(const QByteArray &results)
{
    return R"({"status": "ok", "results": [)" + results + "]}";
}

const QByteArray saltAndIron = R"({"title": "Salt & Iron", "type": "Album"})";
const QByteArray harbour =
    recording("Harbour Lights", "Nila Oster", R"(, "duration": 6)" + albums(saltAndIron));

QString asText(const std::optional<QString> &text)
{
    return text.value_or(u"-"_s);
}

/// Tells what it was asked for.
class AskedSource : public WebDBInterface {
public:
    AskedSource(SiteDefinition definition, HVHTTPQueue &queue, QString &asked, qint64 &duration)
        : WebDBInterface(std::move(definition), queue)
        , mAsked(asked)
        , mDuration(duration)
    {
    }
    [[nodiscard]] QString className() const override { return u"AskedSource"_s; }

protected:
    void startSearch() override
    {
        mDuration = songDuration().value_or(0);
        mAsked =
            QStringList{asText(artist()), asText(songTitle()), asText(albumTitle())}.join(u'|');
    }

private:
    QString &mAsked;
    qint64 &mDuration;
};

/// One song, the service, and a task between them.
class World {
public:
    World()
    {
        context.identifying = IdentifyingMeans{u"my key"_s, ownProgram()};
        server.serve(u"/lookup"_s, {.body = answerOf(result(0.9, harbour))});
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
    SourceCatalog catalog{{{u"AskedSource"_s, Assets(AssetYear) | AssetArtwork,
                            [this](SiteDefinition definition, HVHTTPQueue &fetcher) {
                                return std::make_unique<AskedSource>(std::move(definition), fetcher,
                                                                     asked, duration);
                            }}}};
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
        const auto known = [&](const char *name, const QByteArray &results, const char *expected) {
            row(name, answerOf(results), QString::fromLatin1(expected));
        };
        const QByteArray other = recording("Other", "Nila Oster", R"(, "duration": 6)");
        known("the song", result(0.9, harbour), "Nila Oster|Harbour Lights|Salt & Iron");
        known("a poor score", result(0.49, harbour), "");
        known("the best score, wherever it stands", result(0.6, other) + ',' + result(0.9, harbour),
              "Nila Oster|Harbour Lights|Salt & Iron");
        known("an identifier alone", result(0.9, R"({"id": "r"})") + ',' + result(0.8, harbour),
              "Nila Oster|Harbour Lights|Salt & Iron");
        known("a result without recordings", R"({"score": 0.9})", "");
        known("a recording with an album before one without", result(0.9, other + ',' + harbour),
              "Nila Oster|Harbour Lights|Salt & Iron");
        known("the recording of that length",
              result(0.9,
                     recording("Harbour Lights (live)", "Nila Oster",
                               R"(, "duration": 12)" + albums(saltAndIron))
                         + ',' + harbour),
              "Nila Oster|Harbour Lights|Salt & Iron");
        known("an album before a collection, that before a single",
              result(0.9,
                     recording("A", "B",
                               albums(R"({"title": "S", "type": "Single"},
                                   {"title": "C", "type": "Album", "secondarytypes": ["Live"]},)"
                                      + saltAndIron))),
              "B|A|Salt & Iron");
        known("artists joined", result(0.9, R"({"title": "A", "artists":
                  [{"name": "B", "joinphrase": " & "}, {"name": "C"}, {"name": "D"}]})"),
              "B & C, D|A|-");
        known("nothing found", "", "");
        known("no names but other kinds of values",
              result(0.9, R"({"title": 7, "artists": {"name": []}}, null, "r")"), "");
        row("the key is refused",
            R"({"status": "error", "error": {"code": 4, "message": "invalid API key"}})",
            u"invalid API key!"_s);
        row("another error",
            R"({"status": "error", "error": {"code": 3, "message": "invalid fingerprint"}})",
            u"invalid fingerprint"_s);
        const QString strange = qtTrId("ErrorStrangeAnswer");
        row("an answer cut short", answerOf(result(0.9, harbour)).chopped(20), strange);
        row("HTML", "<html></html>", strange);
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
        row("what is not wanted is for the search alone", u""_s, AssetYear, all,
            u"Nila Oster|07 - track|-"_s);
        row("an album that it has", u"album=Sea"_s, names, u"Nila Oster|Harbour Lights|Sea"_s,
            u"Nila Oster|Harbour Lights|Sea"_s);
        row("a title of its own stays", u"title=Track 07"_s, names, all,
            u"Nila Oster|Track 07|Salt & Iron"_s);
        row("an artist of its own stays", u"artist=Unknown Artist"_s, names, all,
            u"Unknown Artist|Harbour Lights|Salt & Iron"_s);
        row("nothing but the artist is lacking", u"title=Harbour Lights"_s, {}, {},
            u"Nila Oster|Harbour Lights|-"_s);
        row("a song of another title", u"title=Tidewater"_s, AssetYear, u"-|Tidewater|-"_s,
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
        row("the service does not know it", answerOf(""), ownProgram(),
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

    void endsWhenCancelled_data()
    {
        const Table<QString> row("during");
        row("the decoding", u"decoding"_s);
        row("the question", u"question"_s);
    }

    void endsWhenCancelled()
    {
        QFETCH(QString, during);
        World world;
        world.server.hold();
        world.makeTask(soundOf({}), AssetYear);
        QSignalSpy finished(world.task.get(), &SongInfoTask::finished);
        world.task->gather();
        if (during == u"question"_s)
            QTRY_COMPARE(world.server.requests().size(), 1);
        world.task->cancel();
        QVERIFY(finished.wait());
        QCOMPARE(finished.size(), 1);
        QCOMPARE(world.names(), u"-|07 - track|-"_s);
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
