#include "app/droplist.h"

#include "base/texts.h"
#include "gathering/librarylending.h"
#include "itunes/itunesinterface.h"
#include "support/songs.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

/// Without web sources: what songs lack is lent by others of their album.
class TestDropList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }

    void init()
    {
        mDrops.reset();
        mFolder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CONFIG_HOME", mFolder->path().toUtf8());
        mPrefs = std::make_unique<PrefsController>();
        const auto lender = writtenSong(path(u"lender.mp3"_s),
                                        {.title = u"Lender"_s,
                                         .artist = u"The Lanterns"_s,
                                         .album = u"Paper Moons"_s,
                                         .year = u"1987"_s});
        mLibrary = std::make_unique<LibraryLending>(SongList{lender});
        mContext = std::unique_ptr<GatherContext>(
            new GatherContext{mQueue, mCatalog, SiteDefinitions(), *mLibrary});
        mLines.clear();
        mLog.disconnect();
        connect(&mLog, &UserLog::lineAdded, this, [this](const QString &line) { mLines << line; });
        mDrops = std::make_unique<DropList>(*mContext, *mPrefs, mItunes, mLog);
    }

    void songsAreTakenOnce()
    {
        QDir(mFolder->path()).mkpath(u"deep/er"_s);
        const auto song = borrower(u"deep/er/song.mp3"_s);
        writeFile(path(u"deep/cover.jpg"_s), "x");
        QStringList answers;
        for (const auto *name : {"deep", "deep", "deep/er/song.mp3", "deep/cover.jpg", "none.mp3"})
            mDrops->openFile(path(QLatin1String(name)), [&answers, name](bool isAnyTaken) {
                answers << QLatin1String(name) + (isAnyTaken ? u" taken"_s : QString());
            });
        QVERIFY(!mDrops->isActive()); // nothing was looked at yet
        finish();
        QTRY_COMPARE(answers.size(), 5);
        QCOMPARE(answers.filter(u" taken"_s).size(), 1);
        QCOMPARE(mDrops->fileLine(), u"song.mp3"_s);
        QVERIFY(mDrops->addToDropList(song)); // a new list
    }

    void cancelledSearchIsAnswered()
    {
        QSignalSpy added(mDrops.get(), &DropList::changed);
        borrower(u"song.mp3"_s);
        bool isTaken = true;
        mDrops->openFile(mFolder->path(), [&isTaken](bool isAny) { isTaken = isAny; });
        mDrops->cancel();
        QTRY_VERIFY(!isTaken);
        QCOMPARE(added.size(), 0);
    }

    void songGetsWhatItLacksAndKeepsTheRest()
    {
        writeFile(path(u"small.mp3"_s), "no song");
        mDrops->addToDropList(path(u"small.mp3"_s));
        mDrops->addToDropList(borrower(u"song.mp3"_s));
        QSignalSpy changed(mDrops.get(), &DropList::songChanged);
        finish();
        QCOMPARE(changed.size(), 1);
        QCOMPARE(mDrops->countLine(), u"2 of 2"_s);
        QCOMPARE(mDrops->fileLine(), u"song.mp3"_s);
        QCOMPARE(mDrops->achievementLine(), u"Set Year of “Borrower”"_s);
        QCOMPARE(mLines, QStringList{mDrops->achievementLine()});
        const auto song = SongFile::songWithPath(path(u"song.mp3"_s));
        QCOMPARE(song->infotag()->year(), u"1987"_s);
        QCOMPARE(song->infotag()->title(), u"Borrower"_s);
    }

    void cancelledListLeavesSongsAlone()
    {
        mDrops->addToDropList(borrower(u"song.mp3"_s));
        const QByteArray before = fileContents(path(u"song.mp3"_s));
        connect(mDrops.get(), &DropList::changed, mDrops.get(), &DropList::cancel,
                Qt::QueuedConnection);
        finish();
        QCOMPARE(fileContents(path(u"song.mp3"_s)), before);
        QVERIFY(!mDrops->isActive());
    }

private:
    QString path(const QString &name) const { return mFolder->filePath(name); }

    QString borrower(const QString &name)
    {
        writtenSong(
            path(name),
            {.title = u"Borrower"_s, .artist = u"The Lanterns"_s, .album = u"Paper Moons"_s});
        return path(name);
    }

    void finish()
    {
        QSignalSpy finished(mDrops.get(), &DropList::finished);
        QVERIFY(finished.wait(20'000));
    }

    std::unique_ptr<QTemporaryDir> mFolder;
    std::unique_ptr<PrefsController> mPrefs;
    HVHTTPQueue mQueue{QString()};
    SourceCatalog mCatalog{{}};
    std::unique_ptr<LibraryLending> mLibrary;
    std::unique_ptr<GatherContext> mContext;
    iTunesInterface mItunes;
    UserLog mLog;
    QStringList mLines;
    std::unique_ptr<DropList> mDrops;
};

QTEST_GUILESS_MAIN(TestDropList)
#include "tst_droplist.moc"
