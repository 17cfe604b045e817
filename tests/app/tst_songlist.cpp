#include "app/songlist.h"

#include "app/songsources.h"
#include "base/texts.h"
#include "support/id3bytes.h"
#include "support/songs.h"

#include <QSignalSpy>
#include <QTest>

#include <semaphore>

using namespace Qt::StringLiterals;

class TestSongList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }

    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        QFile::setPermissions(mFolder->path(), QFile::Permissions(0x7777));
        mMusic = mFolder->filePath(u"music"_s);
        mCache = std::make_unique<SongFileInfoCache>(mFolder->filePath(u"cache"_s));
        mLog = std::make_unique<UserLog>();
        mLines.clear();
        connect(mLog.get(), &UserLog::lineAdded, this,
                [this](const QString &line) { mLines << line; });
        mList = std::make_unique<LoadedSongs>(*mCache, *mLog);
    }

    void cleanup()
    {
        mList.reset();
        mCache.reset();
    }

    void folderIsLoadedInOrderOfItsPaths()
    {
        addSongs({u"b/2.mp3"_s, u"a.mp3"_s, u"b/1.mp3"_s, u"B.mp3"_s, u"b.mp3"_s});
        QCOMPARE(load(), LoadedSongs::End::Complete);
        QCOMPARE(paths(),
                 (QStringList{u"B.mp3"_s, u"a.mp3"_s, u"b.mp3"_s, u"b/1.mp3"_s, u"b/2.mp3"_s}));
        QVERIFY(!mList->progress().isIndeterminate());
        QCOMPARE(mList->progress().value(), 5);
        QCOMPARE(mList->progress().maximum(), 5);
        QVERIFY(!folderSource(mMusic + u"/a.mp3"_s) && !folderSource(mMusic + u"/none"_s));
    }

    void whatIsNoSongIsPassedOver()
    {
        addSongs({u"a.mp3"_s});
        QDir(mMusic).mkpath(u"folder.mp3"_s);
        writeFile(mMusic + u"/short.mp3"_s, QByteArray(200, 'x'));
        writeFile(mMusic + u"/cover.jpg"_s, plainPicture(10, 10, "JPG"));
        QVERIFY(QFile::link(mMusic, mMusic + u"/loop"_s));
        QVERIFY(QFile::link(mMusic, mMusic + u"/loop.mp3"_s));
        QVERIFY(QFile::link(u"/nowhere"_s, mMusic + u"/broken.mp3"_s));
        load();
        QCOMPARE(paths(), QStringList{u"a.mp3"_s});
        QCOMPARE(mLines, QStringList());
    }

    void whatCannotBeReadIsLoggedOnce()
    {
        addSongs({u"a/1.mp3"_s, u"b/2.mp3"_s});
        QFile::setPermissions(mMusic + u"/a"_s, {});
        writeFile(mMusic + u"/b/3.mp3"_s, QByteArray(300, 'x'));
        QFile::setPermissions(mMusic + u"/b/3.mp3"_s, {});
        // Threads take over the rights of the one that starts them.
        withoutRights([this] { return load(); });
        QFile::setPermissions(mMusic + u"/a"_s, QFile::Permissions(0x7777));
        QCOMPARE(paths(), QStringList{u"b/2.mp3"_s});
        QCOMPARE(mLines.size(), 2);
        QVERIFY(mLines.filter(mMusic + u"/a/: "_s).size() == 1);
        QVERIFY(mLines.contains(u"No tag can be read from %1/b/3.mp3"_s.arg(mMusic)));
    }

    void namedPathsAreTakenByWhatTheyHold()
    {
        addSongs({u"b.mp3"_s, u"sub/song"_s, u"sub/a.mp3"_s});
        writeFile(mMusic + u"/sub/text"_s, QByteArray(300, 'x'));
        writeFile(mMusic + u"/text"_s, QByteArray(300, 'x'));
        writeFile(mMusic + u"/empty"_s, {});
        QStringList given;
        for (const char *name : {"b.mp3", "none", "text", "empty", "sub", "b.mp3"})
            given << mMusic + u'/' + QString::fromLatin1(name);
        QSignalSpy problems(mList.get(), &LoadedSongs::problemFound);
        QSignalSpy refusals(mList.get(), &LoadedSongs::songRefused);
        SongSource source = pathsSource(given);
        source.unreadable = UnreadableSongs::Keep;
        loadSource(source);
        QCOMPARE(paths(),
                 (QStringList{u"b.mp3"_s, u"text"_s, u"sub/a.mp3"_s, u"sub/song"_s, u"b.mp3"_s}));
        QVERIFY(!mList->allSongs()[1]->infotag());
        QCOMPARE(problems.size(), 1);
        QCOMPARE(problems[0][0].toString(), given[1]);
        QCOMPARE(refusals.size(), 1);
        QCOMPARE(refusals[0][0].toString(), given[3]);
    }

    void damagedSongsAreKeptAndListed()
    {
        addSongs({u"a.mp3"_s});
        writeFile(
            mMusic + u"/bad.mp3"_s,
            id3Tag(3, frame("TIT2", QByteArray("\0Kept", 5)) + QByteArray("TPE1\0\1\0\0\0\0", 10))
                + mpegFrames(50));
        load();
        QCOMPARE(paths(), (QStringList{u"a.mp3"_s, u"bad.mp3"_s}));
        QCOMPARE(mList->corruptSongs().size(), 1u);
        QCOMPARE(mList->corruptSongs()[0]->activityStatus(), SongStatus::Problem);
    }

    void secondLoadTakesSummariesOfUnchangedSongs()
    {
        addSongs({u"a.mp3"_s, u"b.mp3"_s});
        load();
        QVERIFY(mCache->isDirty());
        mCache->detach();
        for (const auto &song : mList->allSongs()) { // no pictures are held in memory
            QVERIFY(song->infotag()->isLazy() && song->infotag()->images().isEmpty());
            QCOMPARE(song->infotag()->numberOfImages(), 1);
        }
        writtenSong(mMusic + u"/b.mp3"_s, {.title = u"New"_s});
        const CachedInfoPointer kept = mCache->storedInfo(mMusic + u"/a.mp3"_s);
        load();
        QCOMPARE(mList->allSongs()[0]->infotag()->title(), u"a.mp3"_s);
        QCOMPARE(mList->allSongs()[1]->infotag()->title(), u"New"_s);
        QCOMPARE(mCache->storedInfo(mMusic + u"/a.mp3"_s), kept);
    }

    void recordsOfTheWorkListAreTakenAgain()
    {
        addSongs({u"a.mp3"_s, u"b.mp3"_s});
        const auto pending = SongFile::songWithPath(mMusic + u"/b.mp3"_s);
        pending->setActivityStatus(SongStatus::Pending);
        load({pending});
        QCOMPARE(mList->allSongs()[1], pending);
        QCOMPARE(pending->activityStatus(), SongStatus::Pending);
        QCOMPARE(pending->infotag()->title(), u"b.mp3"_s);
    }

    void playlistTellsPositionsAndWhatIsMissing()
    {
        addSongs({u"a.mp3"_s, u"b.mp3"_s});
        SongSource source = listed({{u"b.mp3"_s, 7, 1}, {u"gone.mp3"_s, 8, 2}, {u"b.mp3"_s, 7, 3}});
        source.kind = SourceKind::Playlist;
        source.name = u"Mix"_s;
        loadSource(source);
        QCOMPARE(paths(), (QStringList{u"b.mp3"_s, u"b.mp3"_s}));
        const SongFile &last = *mList->allSongs()[1];
        QCOMPARE(last.iTunesDBID(), 7);
        QCOMPARE(last.playlist(), u"Mix"_s);
        QCOMPARE(last.playlistIndex(), 3);
        QCOMPARE(mLines, QStringList{u"No song can be found at %1/gone.mp3"_s.arg(mMusic)});
    }

    /// "100" before "20"; streams have no file.
    void libraryIsLoadedInOrderOfItsKeys()
    {
        addSongs({u"a.mp3"_s, u"b.mp3"_s});
        const QString file = mFolder->filePath(u"library.xml"_s);
        const auto track = [](const char *key, const QString &location) {
            return u"<key>%1</key><dict><key>Location</key><string>%2</string></dict>"_s.arg(
                QLatin1String(key), location);
        };
        const QString tracks = track("20", u"file://%1/a.mp3"_s.arg(mMusic))
            + track("100", u"file://localhost%1/b.mp3"_s.arg(mMusic))
            + track("3", u"http://radio/c.mp3"_s);
        writeFile(
            file,
            u"<plist><dict><key>Tracks</key><dict>%1</dict></dict></plist>"_s.arg(tracks).toUtf8());
        loadSource(librarySource(file));
        QCOMPARE(paths(), (QStringList{u"b.mp3"_s, u"a.mp3"_s}));
        QCOMPARE(mList->allSongs()[0]->iTunesDBID(), 100);
        writeFile(file, "<plist><dict>");
        loadSource(librarySource(file));
        QVERIFY(mList->allSongs().empty());
        QCOMPARE(mLines.size(), 1);
        QVERIFY(mLines[0].startsWith(file + u": "_s));
    }

    /// Names from a Mac are decomposed.
    void entryIsFoundInTheOtherUnicodeForm()
    {
        addSongs({u"caf\u00e9.mp3"_s});
        loadSource(listed({{u"cafe\u0301.mp3"_s}}));
        QCOMPARE(paths(), QStringList{u"caf\u00e9.mp3"_s});
    }

    /// A source that never answers, as a dead network mount: what came before stays.
    void cancelKeepsWhatWasLoaded()
    {
        addSongs({u"a.mp3"_s});
        auto answer = std::make_shared<std::binary_semaphore>(0);
        const SongSource entries = listed(QList<SourceEntry>(100, {u"a.mp3"_s}));
        SongSource source = entries;
        source.readEntries = [entries, answer](EntrySink &sink) {
            entries.readEntries(sink);
            answer->acquire();
        };
        QSignalSpy finished(mList.get(), &LoadedSongs::loadFinished);
        mList->load(source, {});
        QTRY_VERIFY(mList->allSongs().size() >= 96); // whole pieces of the list
        mList->cancel();
        QVERIFY(finished.wait());
        QCOMPARE(finished[0][0].value<LoadedSongs::End>(), LoadedSongs::End::Cancelled);
        QVERIFY(mList->allSongs().size() >= 96);
        load(); // another source is not held up
        QCOMPARE(paths(), QStringList{u"a.mp3"_s});
        answer->release();
    }

private:
    /// Songs with a picture, whose titles are their names.
    void addSongs(const QStringList &names)
    {
        for (const QString &name : names) {
            const QString path = mMusic + u'/' + name;
            QDir().mkpath(path.first(path.lastIndexOf(u'/')));
            writtenSong(path, {.title = name, .picture = plainPicture(100, 100)});
        }
    }

    /// A library source of these entries, whose paths are below the music folder.
    SongSource listed(QList<SourceEntry> entries)
    {
        for (SourceEntry &entry : entries)
            entry.path = mMusic + u'/' + entry.path;
        SongSource source;
        source.kind = SourceKind::Library;
        source.readEntries = [entries](EntrySink &sink) {
            for (const SourceEntry &entry : entries)
                if (!sink.add(entry))
                    return;
        };
        return source;
    }

    LoadedSongs::End loadSource(const SongSource &source, const SongList &reused = {})
    {
        QSignalSpy finished(mList.get(), &LoadedSongs::loadFinished);
        mList->load(source, {}, reused);
        if (!finished.wait(20'000))
            qFatal("the load does not end");
        return finished[0][0].value<LoadedSongs::End>();
    }

    LoadedSongs::End load(const SongList &reused = {})
    {
        return loadSource(*folderSource(mMusic), reused);
    }

    QStringList paths() const
    {
        QStringList paths;
        for (const auto &song : mList->allSongs())
            paths << song->path().sliced(mMusic.size() + 1);
        return paths;
    }

    std::unique_ptr<QTemporaryDir> mFolder;
    QString mMusic;
    std::unique_ptr<SongFileInfoCache> mCache;
    std::unique_ptr<UserLog> mLog;
    QStringList mLines;
    std::unique_ptr<LoadedSongs> mList;
};

QTEST_GUILESS_MAIN(TestSongList)
#include "tst_songlist.moc"
