#include "base/progress.h"

#include "base/texts.h"
#include "gathering/librarylending.h"
#include "gathering/songinfotask.h"
#include "support/httpserver.h"
#include "support/samplesource.h"
#include "support/songs.h"
#include "support/table.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <QThreadPool>

namespace {
using enum Asset;

AlbumInfo albumOf(const QString &name, const QString &year = {}, const QStringList &tracks = {},
                  const QUrl &art = {})
{
    AlbumInfo album;
    album.setName(name);
    if (!year.isEmpty())
        album.setYear(year);
    if (!tracks.isEmpty())
        album.setTrackNames(tracks);
    if (!art.isEmpty())
        album.setArtURLString(art.toString());
    return album;
}

AlbumInfo lyricsOf(const QString &text)
{
    AlbumInfo album;
    album.setLyrics(text, u"Dawn"_qs);
    return album;
}

const Assets everything = Assets(AssetArtwork) | AssetAlbumName | AssetYear | AssetSongTitle
    | AssetTrack | AssetGenre | AssetLyrics;
const QStringList nightTracks{u"Dusk"_qs, u"Dawn"_qs};

using Reasons = QMap<Asset, FieldReason::Kind>;

/// One song, the sources that know of it, and a task between them.
struct World {
    World() { server.serve(u"/page"_qs, {}); }

    void adds(const QString &name, Assets supplies, const AlbumList &albums, int artWidth = 1000,
              const QList<PassedOverAlbum> &left = {})
    {
        names << name;
        definitions[u"res_"_qs + name] = QVariantMap{{u"maxPossibleArtWidth"_qs, artWidth}};
        entries.push_back(SampleSource::entry(name, supplies, [=, this](SampleSource &source) {
            searches << name + u':' + source.albumTitle().value_or(QString());
            source.addSearchURL(server.url(u"/page?"_qs + name), [=, &source](auto &) {
                for (const AlbumInfo &album : albums)
                    source.addAlbum(album);
                for (const PassedOverAlbum &each : left)
                    source.passOver(each);
            });
        }));
    }

    QUrl art(const QString &path, const QByteArray &picture)
    {
        server.serve(path, {.type = "image/png", .body = picture});
        return server.url(path);
    }

    /// What is fetched there stays under way until it is cancelled.
    void serveNoEndAt(const QString &path)
    {
        server.serve(path,
                     {.body = "begun", .claimedLength = 1000, .then = HttpAnswer::Then::Stall});
    }

    SongInfoTask &taskFor(const SongFields &fields, Assets gather, Assets overwrite = {})
    {
        song = writtenSong(folder.filePath(u"song.mp3"_qs), fields);
        return makeTask(gather, overwrite);
    }

    /// The task works in the mode of the run.
    SongInfoTask &makeTask(Assets gather, Assets overwrite)
    {
        QFETCH_GLOBAL(bool, parallel);
        library.push_back(song);
        lending = std::make_unique<LibraryLending>(library);
        definitions[u"sourcelist"_qs] = names;
        catalog = SourceCatalog(entries);
        context.emplace(GatherContext{queue, catalog, SiteDefinitions(definitions), *lending});
        task = std::make_unique<SongInfoTask>(song, *context);
        task->setParallelMode(parallel);
        task->setGatherFlags(gather);
        task->setOverwriteFlags(overwrite);
        finished = std::make_unique<QSignalSpy>(task.get(), &SongInfoTask::finished);
        return *task;
    }

    /// Whether the task finished, once.
    bool run()
    {
        task->gather();
        return comesToAnEnd();
    }
    bool comesToAnEnd()
    {
        const bool ended = !finished->isEmpty() || finished->wait();
        QTest::qWait(20);
        return ended && finished->size() == 1;
    }

    /// "Artist=...": the sources of what changed, in the order of the assets' numbers.
    QString changes() const
    {
        QStringList texts;
        for (auto source = task->sourcesOfAssets().cbegin();
             source != task->sourcesOfAssets().cend(); ++source)
            texts << summaryOfAssets(source.key()) + u'=' + *source;
        return texts.join(u' ');
    }

    Reasons reasons() const
    {
        Reasons kinds;
        const QMap<Asset, FieldReason> fields = task->choices().fields;
        for (auto field = fields.cbegin(); field != fields.cend(); ++field)
            kinds[field.key()] = field->kind;
        return kinds;
    }

    AudioInfoTag &tag() { return *song->infotag(); }

    QTemporaryDir folder;
    HttpServer server;
    HVHTTPQueue queue{QString()};
    QStringList names;
    QVariantMap definitions;
    std::vector<SourceCatalog::Entry> entries;
    QStringList searches; ///< "source:album searched for"
    SongList library;
    std::shared_ptr<SongFile> song;
    std::unique_ptr<LibraryLending> lending;
    SourceCatalog catalog;
    std::optional<GatherContext> context;
    std::unique_ptr<SongInfoTask> task;
    std::unique_ptr<QSignalSpy> finished;
};

/// Keeps every worker thread busy until each was allowed to go on.
void occupyWorkers(QSemaphore &mayGoOn)
{
    for (int i = 0; i < QThreadPool::globalInstance()->maxThreadCount(); ++i)
        QThreadPool::globalInstance()->start([&mayGoOn] { mayGoOn.acquire(); });
}

} // namespace

class SongInfoTaskTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }
    /// Every test runs in both modes.
    void initTestCase_data()
    {
        const Table<bool> row("parallel");
        row("serial", false);
        row("parallel", true);
    }

    void fillsWhatIsMissing()
    {
        QFETCH_GLOBAL(bool, parallel);
        World world;
        const QUrl art = world.art(u"/art"_qs, plainPicture(300, 300));
        world.adds(u"Discs"_qs, everything & ~Assets(AssetLyrics),
                   {albumOf(u"Night"_qs, u"1999"_qs, nightTracks, art)});
        world.adds(u"Words"_qs, AssetLyrics, {lyricsOf(u"la la"_qs)});
        SongInfoTask &task = world.taskFor({.title = u"Dawn"_qs, .artist = u"Ann"_qs}, everything);
        QVERIFY(world.run());
        // Artwork comes from a second pass, since the album was not known at first.
        const QString words = parallel ? u"Words:"_qs : u"Words:Night"_qs;
        QCOMPARE(world.searches, (QStringList{u"Discs:"_qs, words, u"Discs:Night"_qs}));
        QCOMPARE(world.changes(),
                 u"Artwork=Discs Album=Discs Year=Discs Track=Discs Lyrics=Words"_qs);
        QCOMPARE(task.desiredAssetFlags(), Assets(AssetGenre));
        using enum FieldReason::Kind;
        QCOMPARE(world.reasons(),
                 (Reasons{{AssetArtwork, Picture},
                          {AssetAlbumName, ChosenAlbum},
                          {AssetYear, ChosenAlbum},
                          {AssetSongTitle, Kept},
                          {AssetTrack, ChosenAlbum},
                          {AssetGenre, NotFound},
                          {AssetLyrics, Lyrics}}));
        QCOMPARE(*world.tag().track(), u"2/2"_qs);
        QCOMPARE(*world.tag().lyrics(), u"la la"_qs);
        QCOMPARE(*world.tag().images().first().storedMimeFormat, u"image/png"_qs);
        QCOMPARE(task.progress().maximum(), 1.0);
    }

    void replacesOnlyWhatMayBe_data()
    {
        const Table<uint, QString, int> row("overwrite", "changes", "pictureWidth");
        row("nothing", 0, {}, 200);
        row("year", AssetYear, u"Year=Discs"_qs, 200);
        row("artwork", AssetArtwork, u"Artwork=Discs"_qs, 300);
        row("an album of another name takes its pictures along", AssetAlbumName | AssetArtwork,
            u"Artwork=Discs Album=Discs"_qs, 300);
        row("the title of the track number", AssetSongTitle, u"Title=Discs"_qs, 200);
    }
    void replacesOnlyWhatMayBe()
    {
        QFETCH(uint, overwrite);
        World world;
        const QUrl art = world.art(u"/art"_qs, plainPicture(300, 300));
        world.adds(u"Discs"_qs, everything, {albumOf(u"Night"_qs, u"1999"_qs, nightTracks, art)});
        const bool otherAlbum = Assets::fromInt(overwrite).testFlag(AssetAlbumName);
        world.taskFor({u"Dawn"_qs, u"Ann"_qs, otherAlbum ? u"Day"_qs : u"Night"_qs, u"2005"_qs,
                       u"1/2"_qs, u"Rock"_qs, false, plainPicture(200, 200)},
                      everything & ~Assets(AssetLyrics), Assets::fromInt(overwrite));
        QVERIFY(world.run());
        QTEST(world.changes(), "changes");
        QCOMPARE(world.tag().images().size(), 1);
        QTEST(imageWidth(world.tag().images().first().data), "pictureWidth");
        QCOMPARE(*world.tag().title(), overwrite == AssetSongTitle ? u"Dusk"_qs : u"Dawn"_qs);
    }

    void explainsWhyNothingWasApplied()
    {
        World world;
        world.adds(u"Discs"_qs, AssetYear, {albumOf(u"Night"_qs, u"1999"_qs, nightTracks)});
        SongInfoTask &task = world.taskFor({.title = u"%3"_qs, .album = u"Night"_qs}, AssetYear);
        QVERIFY(world.run());
        QCOMPARE(task.errorMessage().value_or(QString()),
                 u"“%3” is not on the album “Night” (1:Dusk, 2:Dawn)"_qs);
        QCOMPARE(task.changedAssetFlags(), Assets());
        QCOMPARE(task.desiredAssetFlags(), Assets(AssetYear));
    }

    void recordsWhatWasAnsweredAndChosen()
    {
        World world;
        world.adds(u"Discs"_qs, AssetYear,
                   {albumOf(u"Night"_qs, u"1999"_qs, nightTracks),
                    albumOf(u"Day"_qs, u"1990"_qs, nightTracks),
                    albumOf(u"Noon"_qs, u"1980"_qs, {u"Other"_qs}), lyricsOf(u"la"_qs)});
        world.adds(u"Silent"_qs, AssetGenre, {}, 0,
                   {{albumOf(u"Eve"_qs), AlbumFate::OtherEdition, 14}});
        world.adds(u"Dead"_qs, AssetGenre, {});
        world.server.serve(u"/page?Dead"_qs, {.status = 503});
        SongInfoTask &task = world.taskFor({.title = u"Dawn"_qs}, Assets(AssetYear) | AssetGenre);
        task.setAlbumSelectionMethod(AlbumPick::EarliestYear);
        QVERIFY(world.run());
        const ChoiceRecord record = task.choices();
        QCOMPARE(record.fields[AssetYear].kind, FieldReason::Kind::ChosenAlbum);
        QCOMPARE(record.fields[AssetYear].album.reason, record.reason);
        QCOMPARE(record.fields[AssetGenre].unanswered, QStringList{u"Dead"_qs});
        QCOMPARE(record.reason, ChoiceReason::EarliestYear);
        QStringList candidates;
        for (const AlbumCandidate &candidate : record.candidates)
            candidates << *candidate.album + QString::number(static_cast<int>(candidate.fate));
        QCOMPARE(candidates.join(u' '), u"Night1 Day7 Noon3 Eve16"_qs);
        QCOMPARE(record.candidates.last().tracks, 14);
        QCOMPARE(record.found, 3);
        QList<int> answers;
        for (const SourceAnswer &answer : record.answers)
            answers << static_cast<int>(answer.kind);
        std::sort(answers.begin(), answers.end()); // at once, they answer in any order
        QCOMPARE(answers, (QList{0, 1, 2}));
    }

    void anAlbumThatWasOnlyListedIsLookedUp_data()
    {
        const Table<AlbumList, QString, bool> row("albums", "year", "isProblem");
        row("found", {albumOf(u"Night"_qs, u"1999"_qs, nightTracks)}, u"1999"_qs, false);
        row("not found any more", {}, {}, true);
    }
    void anAlbumThatWasOnlyListedIsLookedUp()
    {
        QFETCH(AlbumList, albums);
        World world;
        world.adds(u"Discs"_qs, AssetYear, albums);
        SongInfoTask &task = world.taskFor({.title = u"Dawn"_qs, .album = u"Night"_qs}, AssetYear);
        AlbumInfo listed = albumOf(u"Night"_qs, u"2001"_qs);
        listed.setIdentifiers({u"release"_qs, {}});
        listed.setSourceInterfaceName(u"Discs"_qs);
        task.gatherFrom(listed);
        QVERIFY(world.comesToAnEnd());
        QTEST(world.tag().year().value_or(QString()), "year");
        QTEST(task.errorMessage().has_value(), "isProblem");
    }

    void coversAreNoAlbumsToChoose_data()
    {
        const AlbumList night{albumOf(u"Night"_qs, u"1999"_qs, nightTracks)};
        const Table<QString, AlbumList, QString, ChoiceReason> row("title", "albums", "changes",
                                                                   "reason");
        row("cover of the chosen album", u"Dawn"_qs, night, u"Artwork=Covers Year=Discs"_qs,
            ChoiceReason::OnlyAlbum);
        row("song is on no album", u"Noon"_qs, night, u"Artwork=Covers"_qs,
            ChoiceReason::SongNotOnAlbum);
        row("nothing but a cover", u"Dawn"_qs, {}, u"Artwork=Covers"_qs, ChoiceReason::CoverAlone);
    }
    void coversAreNoAlbumsToChoose()
    {
        QFETCH(QString, title);
        QFETCH(AlbumList, albums);
        World world;
        AlbumInfo cover = albumOf(u"Night"_qs, {}, {}, world.art(u"/a"_qs, plainPicture(99, 99)));
        cover.setIsCoverAlone(true);
        world.adds(u"Covers"_qs, AssetArtwork, {cover});
        world.adds(u"Discs"_qs, AssetYear, albums);
        SongInfoTask &task =
            world.taskFor({.title = title, .album = u"Night"_qs}, AssetArtwork | AssetYear);
        task.setAlbumSelectionMethod(AlbumPick::Best);
        QVERIFY(world.run());
        QTEST(world.changes(), "changes");
        const ChoiceRecord record = task.choices();
        QTEST(record.reason, "reason");
        QCOMPARE(record.candidates.size(), albums.size() + 1);
        QCOMPARE(record.found, albums.size());
    }

    void whatWasNotAskedForIsNotNotFound()
    {
        World world;
        world.adds(u"Dead"_qs, AssetYear, {});
        world.server.serve(u"/page?Dead"_qs, {.status = 500});
        world.names << u"Silent"_qs;
        world.definitions[u"res_Silent"_qs] = QVariantMap{{u"query"_qs, u"http://127.0.0.1/"_qs}};
        world.entries.push_back(SampleSource::entry(u"Silent"_qs, AssetGenre, [](auto &) {}));
        world.taskFor({.artist = u"Ann"_qs},
                      Assets(AssetYear) | AssetGenre | AssetTrack | AssetSongTitle);
        QVERIFY(world.run());
        using enum FieldReason::Kind;
        QCOMPARE(world.reasons(),
                 (Reasons{{AssetYear, NoAnswer},
                          {AssetGenre, TooLittleKnown},
                          {AssetTrack, NotAsked},
                          {AssetSongTitle, NamedByFile}}));
    }

    void endsWithoutAnySource()
    {
        // None supplies it; its artwork is too small; nothing is desired.
        for (const auto &[supplies, gather] : {std::pair{Assets(AssetLyrics), AssetYear},
                                               {Assets(AssetArtwork), AssetArtwork},
                                               {everything, AssetSongTitle}}) {
            World world;
            world.adds(u"Discs"_qs, supplies, {}, 299);
            SongInfoTask &task = world.taskFor({.title = u"Dawn"_qs}, gather);
            task.setMinimumAcceptableImageSize(300);
            QVERIFY(world.run());
            QVERIFY(world.server.requests().isEmpty());
            QCOMPARE(task.changedAssetFlags(), Assets());
        }
    }

    void aFileThatIsNoSongEndsUnchanged()
    {
        World world;
        const QString path = world.folder.filePath(u"page.mp3"_qs);
        writtenSong(path, {});
        QFile file(path);
        QVERIFY(file.resize(300));
        world.song = SongFile::songWithPath(path);
        QVERIFY(file.remove());
        world.makeTask(everything, everything);
        QVERIFY(world.run());
        QCOMPARE(world.task->changedAssetFlags(), Assets());
    }

    void triesArtworkUntilOneFits()
    {
        QFETCH_GLOBAL(bool, parallel);
        World world;
        const QUrl small = world.art(u"/small"_qs, plainPicture(50, 50));
        const QUrl good = world.art(u"/good"_qs, plainPicture(300, 300));
        world.adds(u"Discs"_qs, AssetArtwork,
                   {albumOf(u"Night"_qs, {}, {}, small),
                    albumOf(u"Night"_qs, {}, {}, world.server.url(u"/gone"_qs))});
        world.adds(u"Covers"_qs, AssetArtwork, {albumOf(u"Night"_qs, {}, {}, good)});
        SongInfoTask &task =
            world.taskFor({.title = u"Dawn"_qs, .album = u"Night"_qs}, AssetArtwork);
        task.setMinimumAcceptableImageSize(100);
        QVERIFY(world.run());
        QCOMPARE(world.changes(), u"Artwork=Covers"_qs);
        QStringList fetched = world.server.paths();
        fetched.removeIf([](const QString &path) { return path.startsWith(u"/page"_qs); });
        // Parallel: in order of sources, in each from the last; serial: one a source.
        QCOMPARE(fetched.join(u' '), (parallel ? u"/gone /small /good"_qs : u"/small /good"_qs));
    }

    void saysWhyAPictureWasRefused_data()
    {
        using enum FieldReason::Kind;
        const Table<QByteArray, FieldReason::Kind, QSize> row("picture", "reason", "size");
        row("too small", plainPicture(99, 99), PictureTooSmall, {99, 99});
        row("far from square", plainPicture(400, 200), PictureNotSquare, {400, 200});
        row("no picture", "<html>", PictureUnreadable, {});
        row("cut short", plainPicture(200, 200).first(100), PictureUnreadable, {200, 200});
        row("nothing", {}, PictureNotFetched, {});
    }
    void saysWhyAPictureWasRefused()
    {
        QFETCH(QByteArray, picture);
        World world;
        world.adds(u"Discs"_qs, AssetArtwork,
                   {albumOf(u"Night"_qs, {}, {}, world.art(u"/art"_qs, picture))});
        SongInfoTask &task =
            world.taskFor({.title = u"Dawn"_qs, .album = u"Night"_qs}, AssetArtwork);
        task.setMinimumAcceptableImageSize(100);
        task.setIgnoreNonSquareArt(true);
        QVERIFY(world.run());
        const FieldReason reason = task.choices().fields[AssetArtwork];
        QTEST(reason.kind, "reason");
        QFETCH(QSize, size);
        QCOMPARE(reason.picture.isEmpty() ? QSize() : reason.picture, size);
    }

    void lyricsAreNotLostBesideAlbums()
    {
        World world;
        world.adds(u"Words"_qs, AssetLyrics, {lyricsOf(u"la la"_qs)});
        world.adds(u"Discs"_qs, AssetYear,
                   {albumOf(u"Night"_qs, u"1999"_qs), albumOf(u"Day"_qs, u"1998"_qs)});
        world.taskFor({.title = u"Dawn"_qs}, AssetYear | AssetLyrics).setParallelMode(true);
        QVERIFY(world.run());
        QCOMPARE(world.changes(), u"Lyrics=Words"_qs);
    }

    void songsOfTheAlbumLend_data()
    {
        const Table<QString, QString> row("album", "changes");
        row("at the start", u"Night"_qs, u"Artwork=library Year=library Genre=library"_qs);
        row("album known later", {}, u"Artwork=library Album=Discs Year=library Genre=library"_qs);
    }
    void songsOfTheAlbumLend()
    {
        QFETCH(QString, album);
        World world;
        world.adds(u"Discs"_qs, AssetAlbumName, {albumOf(u"Night"_qs, u"1999"_qs)});
        const SongFields lender{u"Dusk"_qs, u"Ann"_qs,  u"Night"_qs, u"2001"_qs,
                                {},         u"Rock"_qs, false,       plainPicture(300, 300, "BMP")};
        world.library.push_back(writtenSong(world.folder.filePath(u"lender.mp3"_qs), lender));
        SongInfoTask &task =
            world.taskFor({.title = u"Dawn"_qs, .artist = u"Ann"_qs, .album = album},
                          Assets(AssetAlbumName) | AssetArtwork | AssetYear | AssetGenre);
        task.setMaximumImageSize(200);
        task.setParallelMode(false);
        QVERIFY(world.run());
        QTEST(world.changes(), "changes");
        QCOMPARE(*world.tag().year(), u"2001"_qs);
        const FieldReason reason = task.choices().fields[AssetArtwork];
        QCOMPARE(reason.kind, FieldReason::Kind::Lent);
        QCOMPARE(reason.picture, QSize(200, 200));
        const ID3Image lent = world.tag().images().first();
        QCOMPARE(*lent.storedMimeFormat, u"image/jpeg"_qs);
        QCOMPARE(imageWidth(lent.data), 200);
    }

    void aCancelledTaskEndsOnce_data()
    {
        QTest::addColumn<QString>("when");
        for (const char *when : {"before", "at once", "searching", "artwork", "checking"})
            QTest::newRow(when) << QString::fromLatin1(when);
    }
    void aCancelledTaskEndsOnce()
    {
        QFETCH(QString, when);
        World world;
        const QUrl art = world.art(u"/art"_qs, plainPicture(300, 300));
        world.adds(u"Discs"_qs, everything, {albumOf(u"Night"_qs, {}, {}, art)});
        world.adds(u"More"_qs, everything, {albumOf(u"Night"_qs, {}, {}, art)});
        SongInfoTask &task =
            world.taskFor({.title = u"Dawn"_qs, .album = u"Night"_qs}, AssetArtwork);
        if (when == u"artwork")
            world.serveNoEndAt(u"/art"_qs);
        QSemaphore mayCheck;
        if (when == u"checking")
            occupyWorkers(mayCheck);
        if (when == u"before")
            task.cancel();
        task.gather();
        if (when == u"searching") {
            world.server.hold();
            QTRY_VERIFY(!world.server.requests().isEmpty());
        }
        if (when == u"artwork" || when == u"checking")
            QTRY_VERIFY(world.server.paths().contains(u"/art"_qs));
        if (when == u"checking")
            QTRY_COMPARE(world.queue.numberOfRows(), 0);
        task.cancel();
        task.cancel();
        mayCheck.release(QThreadPool::globalInstance()->maxThreadCount());
        QVERIFY(world.comesToAnEnd());
        QVERIFY(task.wasCancelled());
        QCOMPARE(task.changedAssetFlags(), Assets());
        QThreadPool::globalInstance()->waitForDone(); // the semaphore is about to go
        QCOMPARE(world.queue.numberOfRows(), 0);
    }

    void aTaskMayGoAwayAtAnyTime()
    {
        World world;
        world.serveNoEndAt(u"/art"_qs);
        const QUrl art = world.server.url(u"/art"_qs);
        world.adds(u"Discs"_qs, everything, {albumOf(u"Night"_qs, {}, {}, art)});
        for (const QString &until : {u"/page?Discs"_qs, u"/art"_qs}) {
            world.server.hold();
            world.taskFor({.title = u"Dawn"_qs, .album = u"Night"_qs}, AssetArtwork).gather();
            if (until == u"/art"_qs) {
                QTRY_VERIFY(!world.server.requests().isEmpty());
                world.server.release();
            }
            QTRY_VERIFY(world.server.paths().contains(until));
            world.task.reset();
            world.server.release();
            QTRY_COMPARE(world.queue.numberOfRows(), 0);
        }
        QVERIFY(world.tag().images().isEmpty());
    }
};

QTEST_GUILESS_MAIN(SongInfoTaskTest)
#include "tst_songinfotask.moc"
