#include "app/tagedit.h"

#include "base/texts.h"
#include "itunes/itunesinterface.h"
#include "songs/songfileinfocache.h"
#include "support/songs.h"
#include "support/table.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {
const WriteOptions standard{.dialect = ID3Dialect::standard()};

TagValues artist(const QString &name)
{
    return {.texts = {{TagText::Artist, name}}};
}

QByteArray bytesOf(const SongFile &song)
{
    return fileContents(song.path());
}
} // namespace

class TestTagEdit : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }
    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        mCache = std::make_unique<SongFileInfoCache>(mFolder->filePath(u"cache"_s));
        mEditing = std::make_unique<TagEditing>(mItunes, mCache.get(), mLog);
        mLines.clear();
        connect(&mLog, &UserLog::lineAdded, mEditing.get(),
                [this](const QString &line) { mLines << line; });
    }

    void cleanup()
    {
        mEditing.reset();
        mCache.reset();
    }

    void changeIsWrittenShownUndoneAndDoneAgain()
    {
        const SongList songs{song(u"One"_s), song(u"Two"_s), song(u"Three"_s)};
        const QByteArray cover = plainPicture(30, 30, "PNG", Qt::red);
        TagValues values = artist(u"Łódź Brass"_s);
        values.texts[TagText::Year] = QString();
        values.isPartOfCompilation = true;
        values.images = {ID3Image::imageWithData(cover, u"image/png"_s)};
        const TagEditResult done = change(songs, values);
        QCOMPARE(done.changed.size(), 3u);
        for (const auto &each : songs) {
            QVERIFY(each->infotag()->isLazy()); // by its summary, which is the file's
            QCOMPARE(each->infotag()->artist(), u"Łódź Brass"_s);
            QCOMPARE(mCache->storedInfo(each->path())->artist, u"Łódź Brass"_s);
            QVERIFY(valuesInFile(*each, values).isSame(values));
        }
        const TagEditResult undone = revert(done);
        QVERIFY(undone.refused.empty());
        QCOMPARE(songs[1]->infotag()->year(), u"1987"_s);
        for (const ChangedSong &changed : done.changed)
            QVERIFY(valuesInFile(*changed.song, values).isSame(changed.before));
        QCOMPARE(revert(undone).changed.size(), 3u);
        QVERIFY(valuesInFile(*songs[2], values).isSame(values));
    }

    /// A title that is shown for want of one does not stand in the file after an undo either.
    void titleOfFileNameIsNoTitle()
    {
        const auto nameless = song(QString(), u"Nameless"_s);
        const TagEditResult done = change({nameless}, {.texts = {{TagText::Title, u"Nameless"_s}}});
        QCOMPARE(done.changed.size(), 1u);
        QVERIFY(!SongFile::songWithPath(nameless->path())->infotag()->hasTitleOfPathname());
        revert(done);
        QVERIFY(SongFile::songWithPath(nameless->path())->infotag()->hasTitleOfPathname());
    }

    void songsThatHoldItAlreadyAreNotWritten()
    {
        const auto same = song(u"One"_s);
        const QByteArray before = bytesOf(*same);
        const TagEditResult done = change({same}, artist(u"The Lanterns"_s));
        QVERIFY(done.changed.empty() && done.refused.empty());
        QCOMPARE(bytesOf(*same), before);
    }

    void songIsRefusedAndTheOthersAreChanged_data()
    {
        const Table<SongStatus, QString, QByteArray> row("status", "fate", "reason");
        row("being gathered", SongStatus::Processing, {}, "ErrorSongBeingGathered");
        row("waits for gathering", SongStatus::Pending, {}, "ErrorSongBeingGathered");
        row("locked", SongStatus::Locked, {}, "ErrorSongLocked");
        row("has a problem", SongStatus::Problem, {}, "ErrorSongHasProblem");
        row("damaged meanwhile", SongStatus::Ready, u"damaged"_s, "ErrorSongHasProblem");
        row("gone", SongStatus::Ready, u"gone"_s, "ErrorSongVanished");
    }

    void songIsRefusedAndTheOthersAreChanged()
    {
        QFETCH(SongStatus, status);
        QFETCH(QString, fate);
        QFETCH(QByteArray, reason);
        const SongList songs{song(u"One"_s), song(u"Two"_s), song(u"Three"_s)};
        songs[1]->setActivityStatus(status);
        QByteArray bytes = bytesOf(*songs[1]);
        if (fate == u"gone")
            QFile::remove(songs[1]->path());
        else if (fate == u"damaged") // a frame that is longer than its tag
            bytes.replace(14, 4, QByteArray::fromHex("00ffffff"));
        if (fate != u"gone")
            writeFile(songs[1]->path(), bytes);
        const TagEditResult done = change(songs, artist(u"Others"_s));
        QCOMPARE(done.changed.size(), 2u);
        QCOMPARE(done.refused.size(), 1u);
        QCOMPARE(done.refused[0].song, songs[1]);
        QCOMPARE(done.refused[0].reason, qtTrId(reason.constData()));
        QVERIFY(mLines.size() == 1 && mLines[0].endsWith(done.refused[0].reason));
        if (status != SongStatus::Ready)
            QCOMPARE(songs[1]->activityStatus(), status);
        else
            QCOMPARE(songs[1]->activityStatus(), SongStatus::Problem);
        if (fate != u"gone")
            QCOMPARE(bytesOf(*songs[1]), bytes);
    }

    /// Its status says so until it is changed after all, and the list shows what the file holds.
    void songThatCannotBeWrittenShowsItsOldValues()
    {
        const auto stubborn = song(u"One"_s);
        TagChange lost = TagChange::sameForAll({}, {stubborn}, artist(u"New"_s));
        lost.newValues = [](SongFile &file, const AudioInfoTag &) {
            QFile::remove(file.path()); // after it was read
            return artist(u"New"_s);
        };
        QCOMPARE(run(lost).refused.size(), 1u);
        QCOMPARE(stubborn->activityStatus(), SongStatus::Problem);
        QVERIFY(!stubborn->infotag());
        QCOMPARE(change({stubborn}, artist(u"New"_s)).refused.size(), 1u);
        QCOMPARE(stubborn->activityStatus(), SongStatus::Problem);
        std::ignore = song(u"One"_s); // is there again
        QCOMPARE(change({stubborn}, artist(u"New"_s)).changed.size(), 1u);
        QCOMPARE(stubborn->activityStatus(), SongStatus::Ready);
    }

    void changesOfOthersAreNotUndone()
    {
        const SongList songs{song(u"One"_s), song(u"Two"_s)};
        const TagEditResult done = change(songs, artist(u"Ours"_s));
        change({songs[0]}, artist(u"Theirs"_s));
        change({songs[1]}, {.texts = {{TagText::Year, u"2001"_s}}}); // another field
        const TagEditResult undone = revert(done);
        QCOMPARE(undone.changed.size(), 1u);
        QCOMPARE(undone.refused.at(0).reason, qtTrId("ErrorSongChangedMeanwhile"));
        QCOMPARE(songs[0]->infotag()->artist(), u"Theirs"_s);
        QCOMPARE(songs[1]->infotag()->artist(), u"The Lanterns"_s);
        QCOMPARE(songs[1]->infotag()->year(), u"2001"_s);
    }

    void cancelledChangeTellsWhatItDid()
    {
        SongList songs;
        for (int number = 1; number <= 30; ++number)
            songs.push_back(song(u"Song %1"_s.arg(number)));
        const auto stop = connect(mEditing.get(), &TagEditing::songChanged, mEditing.get(),
                                  [this](const auto &each) {
                                      if (each->filename() == u"Song 10.mp3")
                                          mEditing->cancel();
                                  });
        const TagEditResult done = change(songs, artist(u"New"_s));
        QVERIFY(done.isCancelled && done.changed.size() == 10);
        QObject::disconnect(stop);
        QCOMPARE(revert(done).changed.size(), 10u);
    }

private:
    [[nodiscard]] std::shared_ptr<SongFile> song(const QString &title, const QString &name = {})
    {
        const QString path = mFolder->filePath((name.isEmpty() ? title : name) + u".mp3"_s);
        writtenSong(path,
                    {.title = title,
                     .artist = u"The Lanterns"_s,
                     .year = u"1987"_s,
                     .picture = plainPicture(20, 20)});
        return SongFile::songWithPath(path, {.dialect = standard.dialect});
    }

    static TagValues valuesInFile(const SongFile &song, const TagValues &fields)
    {
        return valuesOf(*SongFile::songWithPath(song.path(), song.readOptions())->infotag(),
                        fields);
    }

    TagEditResult change(const SongList &songs, const TagValues &values)
    {
        return run(TagChange::sameForAll(u"Change"_s, songs, values));
    }

    TagEditResult run(const TagChange &change)
    {
        return waitFor([&](auto then) { mEditing->change(change, standard, then); });
    }

    TagEditResult revert(const TagEditResult &result)
    {
        return waitFor([&](auto then) { mEditing->revert(result, standard, then); });
    }

    template<typename Start>
    TagEditResult waitFor(Start start)
    {
        std::optional<TagEditResult> done;
        start([&done](const TagEditResult &result) { done = result; });
        if (done || !QTest::qWaitFor([&done] { return done.has_value(); }, 30'000))
            qFatal("the change does not end, or at once");
        return *done;
    }

    std::unique_ptr<QTemporaryDir> mFolder;
    std::unique_ptr<SongFileInfoCache> mCache;
    std::unique_ptr<TagEditing> mEditing;
    iTunesInterface mItunes;
    UserLog mLog;
    QStringList mLines;
};

QTEST_GUILESS_MAIN(TestTagEdit)
#include "tst_tagedit.moc"
