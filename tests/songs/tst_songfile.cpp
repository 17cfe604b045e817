#include "itunes/itunesinterface.h"
#include "songs/cachedinfotag.h"
#include "songs/songfile.h"
#include "support/songs.h"
#include "support/table.h"

#include <QDateTime>

using namespace Qt::StringLiterals;
using Outcome = InPlaceFile::Outcome;

namespace {

/// A library program that plays a song, notes what it is asked, and answers as told.
class FakeLibrary : public iTunesInterface {
public:
    [[nodiscard]] bool isiTunesRunning() const override { return true; }
    [[nodiscard]] std::optional<QString> pathOfCurrentlyPlayingTrack() override { return playing; }
    void pausePlaying() override { calls << u"pause"_s; }
    void resumePlaying() override { calls << u"resume"_s; }
    std::optional<QString>
    refreshAndGetPathOfSongWithID(int databaseID, const std::optional<QString> &playlist) override
    {
        calls << u"refresh %1 in %2"_s.arg(databaseID).arg(playlist.value_or(u"library"_s));
        onRefresh();
        return pathByID;
    }
    std::optional<QString> refreshAndGetPathOfSongWithTitle(const QString &title,
                                                            const QString &artist) override
    {
        calls << u"refresh %1 by %2"_s.arg(title, artist);
        return pathByTitle;
    }

    QStringList calls;
    QString playing;
    std::optional<QString> pathByID;
    std::optional<QString> pathByTitle;
    std::function<void()> onRefresh = [] {};
};

void makeOlder(const QString &path, int seconds)
{
    QFile file(path);
    const auto time = QDateTime::currentDateTime().addSecs(-seconds);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
}

} // namespace

class TestSongFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        QFile::setPermissions(mFolder->path(), QFile::Permissions(0x7777));
        mPath = path(u"song.mp3"_s);
        writtenSong(mPath, {.title = u"Neon Rain"_s, .artist = u"The Lanterns"_s});
        mSong = SongFile::songWithPath(mPath);
    }

    /// Sizes are signed 32-bit numbers: 2 GB are negative, and beyond 4 GB they count anew.
    void isSong()
    {
        constexpr qint64 twoGB = qint64(1) << 31;
        QVERIFY(QFile::link(path(u"sparse"_s), path(u"link"_s)));
        writeFile(path(u"sparse"_s), {});
        for (const auto &[size, isSong] : {std::pair<qint64, bool>(255, false),
                                           {256, true},
                                           {twoGB, false},
                                           {2 * twoGB + 256, true}}) {
            QVERIFY(QFile::resize(path(u"sparse"_s), size));
            QCOMPARE(SongFile::songWithPath(path(u"link"_s)) != nullptr, isSong);
        }
        QVERIFY(!SongFile::songWithPath(mFolder->path()));
        QVERIFY(!SongFile::songWithPath(path(u"missing"_s)));
    }

    void tagIsKeptUnlessLazyAndKnowsThePlaylist()
    {
        mSong->setPlayList(u"Mix"_s, 7);
        QCOMPARE(mSong->infotag()->playlistIndex(), 7);
        mSong->setPlayList(u"Mix"_s, 8);
        QCOMPARE(mSong->infotag()->playlistIndex(), 8);
        for (const auto &[isLazy, title] : {std::pair(false, u"Kept"_s), {true, u"Neon Rain"_s}}) {
            mSong->infotag()->setTitle(u"Kept"_s);
            mSong->infotag()->setIsLazy(isLazy);
            mSong->ensureInfotagIsReal();
            QCOMPARE(mSong->infotag()->title(), title);
        }
        mSong->adoptInfotag(tagWithCachedInfo(std::make_shared<const CachedInfo>()));
        QCOMPARE(mSong->infotag()->playlistIndex(), 8);
    }

    void reasonOfNoTag()
    {
        for (const char *name : {"secret.mp3", "notes.txt", "notes.m4a"})
            writeFile(path(QLatin1String(name)), QByteArray(5000, 'a'));
        QVERIFY(QFile::setPermissions(path(u"secret.mp3"_s), QFile::Permissions()));
        for (const auto &[name, reason] : {std::pair(u"missing.mp3"_s, u"ErrorSongVanished"_s),
                                           {u"secret.mp3"_s, u"ErrorCannotOpenForRead"_s},
                                           {u"notes.txt"_s, u"ErrorNoSong"_s},
                                           {u"notes.m4a"_s, u"ErrorMP4Unreadable"_s}}) {
            if (name.endsWith(u".mp3"))
                QTest::ignoreMessage(QtWarningMsg,
                                     qPrintable(u"MP3 nil filehandle for %1"_s.arg(path(name))));
            SongFile song(path(name), {});
            QVERIFY(withoutRights([&] { return song.infotag() == nullptr; }));
            QCOMPARE(song.reasonOfNoTag(), reason);
        }
    }

    void refreshTellsChanges()
    {
        QVERIFY(mSong->infotag());
        QVERIFY(!mSong->refresh());
        QVERIFY(mSong->hasInfotagCached());
        makeOlder(mPath, 60);
        QVERIFY(mSong->refresh());
        QVERIFY(!mSong->hasInfotagCached());
        makeOlder(mPath, 90);
        mSong->adoptCurrentModificationDate();
        QVERIFY(!mSong->refresh());
    }

    void fileIsFollowedUntilItIsGoneOrAnotherPathIsSet()
    {
        const QString moved = path(u"moved.mp3"_s);
        mSong->setAliasFromPath();
        QVERIFY(QFile::rename(mPath, moved));
        QVERIFY(!mSong->refresh());
        QCOMPARE(mSong->path(), moved);
        QCOMPARE(mSong->activityStatus(), SongStatus::Ready);
        QVERIFY(QFile::remove(moved));
        QVERIFY(!mSong->refresh());
        QCOMPARE(mSong->path(), moved);
        QCOMPARE(mSong->activityStatus(), SongStatus::Problem);
        QCOMPARE(mSong->reasonNotToWrite(), u"ErrorSongVanished"_s);
        mSong->setPath(moved);
        QVERIFY(mSong->hasAlias());
        mSong->setPath(mPath);
        QVERIFY(!mSong->hasAlias());
    }

    void relativePathStaysAsGiven()
    {
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(mFolder->path()));
        const auto song = SongFile::songWithPath(u"song.mp3"_s);
        song->setAliasFromPath();
        song->updatePathFromAlias();
        QDir::setCurrent(before);
        QCOMPARE(song->path(), u"song.mp3"_s);
    }

    void writingIsNoOutsideChange()
    {
        makeOlder(mPath, 60);
        mSong->refresh();
        QCOMPARE(writeTitle(), Outcome::Kind::Written);
        QVERIFY(mSong->hasAlias());
        QVERIFY(!mSong->refresh());
        QCOMPARE(SongFile::songWithPath(mPath)->infotag()->title(), u"Paper Moons"_s);
    }

    void refusesToWrite()
    {
        const QByteArray before = fileContents(mPath);
        mSong->infotag()->setTitle(u"Paper Moons"_s);
        for (const auto &[status, error] : {std::pair(SongStatus::Locked, u"ErrorSongLocked"_s),
                                            {SongStatus::Problem, u"ErrorSongHasProblem"_s}}) {
            mSong->setActivityStatus(status);
            const auto outcome = mSong->writeToOriginalPath({}, nullptr);
            QCOMPARE(outcome.kind, Outcome::Kind::Failed);
            QCOMPARE(outcome.error, error);
            QCOMPARE(fileContents(mPath), before);
            QCOMPARE(mSong->activityStatus(), status);
        }
    }

    void failedWriteIsAProblemAndPlayingGoesOn()
    {
        FakeLibrary library;
        QCOMPARE(mSong->writeToOriginalPath({}, &library).kind, Outcome::Kind::Failed); // no tag
        QCOMPARE(mSong->activityStatus(), SongStatus::Problem);
        library.playing = path(u"other.mp3"_s);
        QCOMPARE(writeTitle(&library), Outcome::Kind::Written);
        QCOMPARE(library.calls, QStringList());
        library.playing = mPath;
        QVERIFY(QFile::remove(mPath));
        QCOMPARE(writeTitle(&library), Outcome::Kind::Failed);
        QCOMPARE(mSong->activityStatus(), SongStatus::Problem);
        QCOMPARE(library.calls, QStringList({u"pause"_s, u"resume"_s}));
        QVERIFY(SongFile({}, {}).writeToOriginalPath({}, nullptr).kind == Outcome::Kind::Unchanged);
    }

    void libraryRefresh_data()
    {
        const Table<QString, QString, QString, QString> row("byID", "byTitle", "meanwhile",
                                                            "expected");
        row("the path by ID is taken", u"new.mp3"_s, {}, {}, u"new.mp3"_s);
        row("no answer, nothing moved", {}, {}, {}, u"song.mp3"_s);
        row("no answer, the file is followed", {}, {}, u"moves"_s, u"moved.mp3"_s);
        row("the path by title, where a file is left", {}, u"new.mp3"_s, u"moves"_s,
            u"moved.mp3"_s);
        row("the path by title, where the file is gone", {}, u"new.mp3"_s, u"goes"_s, u"new.mp3"_s);
    }

    void libraryRefresh()
    {
        QFETCH(QString, byID);
        QFETCH(QString, byTitle);
        QFETCH(QString, meanwhile);
        QFETCH(QString, expected);
        FakeLibrary library;
        library.pathByID = byID.isEmpty() ? std::nullopt : std::optional(path(byID));
        library.pathByTitle = byTitle.isEmpty() ? std::nullopt : std::optional(path(byTitle));
        library.onRefresh = [&] {
            if (meanwhile == u"moves")
                QVERIFY(QFile::rename(mPath, path(u"moved.mp3"_s)));
            if (meanwhile == u"goes")
                QVERIFY(QFile::remove(mPath));
        };
        mSong->setPlayList(u"Mix"_s, 3);
        mSong->setiTunesDBID(7);
        mSong->rememberOriginalValuesForLaterRefresh();
        QCOMPARE(writeTitle(&library, {.refreshLibrary = true}), Outcome::Kind::Written);
        QCOMPARE(mSong->path(), path(expected));
        QCOMPARE(library.calls.value(0), u"refresh 7 in Mix"_s);
        QCOMPARE(library.calls.value(1),
                 byID.isEmpty() ? u"refresh Neon Rain by The Lanterns"_s : QString());
    }

private:
    Outcome::Kind writeTitle(iTunesInterface *library = nullptr, const WriteOptions &options = {})
    {
        mSong->infotag()->setTitle(u"Paper Moons"_s);
        return mSong->writeToOriginalPath(options, library).kind;
    }
    [[nodiscard]] QString path(const QString &name) const { return mFolder->filePath(name); }

    std::unique_ptr<QTemporaryDir> mFolder;
    QString mPath;
    std::shared_ptr<SongFile> mSong;
};

QTEST_GUILESS_MAIN(TestSongFile)
#include "tst_songfile.moc"
