#include "app/review.h"

#include "base/texts.h"
#include "gathering/librarylending.h"
#include "itunes/itunesinterface.h"
#include "support/httpserver.h"
#include "support/songs.h"
#include "support/testsource.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
const WriteOptions standard{.dialect = ID3Dialect::standard()};
} // namespace

class TestReview : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }
    void init()
    {
        mReview.reset();
        mFolder = std::make_unique<QTemporaryDir>();
        mServer = std::make_unique<HttpServer>();
        mServer->serve(u"/Neon%20Rain"_s,
                       {.body = "Paper Moons;1987\nBest Of;1999;"
                            + mServer->url(u"/art"_s).toString().toLatin1()});
        mServer->serve(u"/art"_s, {.type = "image/png", .body = plainPicture(120, 120)});
        mQueue = std::make_unique<HVHTTPQueue>(QString());
        mLibrary = std::make_unique<LibraryLending>(SongList());
        mContext.reset(new GatherContext{
            *mQueue, mCatalog, testDefinitions({{u"query"_s, mServer->url(u"/"_s).toString()}}),
            *mLibrary});
        mWorkList = std::make_unique<WorkList>(*mContext, mItunes, mLog);
        mWorkList->setKeepsChanges(true);
        mEditing = std::make_unique<TagEditing>(mItunes, nullptr, mLog);
        mHistory = std::make_unique<EditHistory>(*mEditing);
        mReview = std::make_unique<Review>(*mContext, mWorkList->writing(), *mEditing, *mHistory);
        connect(mWorkList.get(), &WorkList::songFinished, mReview.get(), &Review::add);
    }

    void acceptedFieldsAreWrittenAndGivenBack()
    {
        const auto song = gathered(WriteSongs::AfterReview);
        QCOMPARE(fields(*song), u"Neon Rain||"_s);
        QCOMPARE(mReview->at(0).changes, AssetAlbumName | AssetYear);
        QCOMPARE(mReview->countToWrite(), 1);
        mReview->accept(0, AssetYear, false);
        write();
        QCOMPARE(fields(*song), u"Neon Rain|Paper Moons|"_s);
        QCOMPARE(mReview->at(0).state, ReviewState::Written);

        mReview->accept(0, AssetYear, true);
        mReview->accept(0, AssetAlbumName, false);
        write();
        QCOMPARE(fields(*song), u"Neon Rain||1987"_s);

        mHistory->undo(standard);
        QTRY_COMPARE(mReview->at(0).accepted, Assets(AssetAlbumName));
        QCOMPARE(mReview->at(0).written, Assets(AssetAlbumName));
        QCOMPARE(fields(*song), u"Neon Rain|Paper Moons|"_s);
    }

    void songThatWasWrittenIsGivenBack()
    {
        const auto song = gathered(WriteSongs::Yes);
        QCOMPARE(fields(*song), u"Neon Rain|Paper Moons|1987"_s);
        QVERIFY(!mReview->at(0).hasToBeWritten());
        mReview->accept(0, AssetAlbumName, false);
        write();
        QCOMPARE(fields(*song), u"Neon Rain||1987"_s);
    }

    void songChangedMeanwhileIsShownAgainInsteadOfWritten()
    {
        const auto song = gathered(WriteSongs::AfterReview);
        writtenSong(song->path(), {.title = u"Neon Rain"_s, .year = u"1986"_s});
        write();
        QCOMPARE(fields(*song), u"Neon Rain||1986"_s);
        QCOMPARE(mReview->at(0).problem, qtTrId("ErrorSongChangedMeanwhile"));
        QCOMPARE(mReview->at(0).change.before.texts.value(AssetYear), u"1986"_s);
        QCOMPARE(mReview->at(0).accepted, Assets(AssetAlbumName)); // its own year stays
        write();
        QCOMPARE(fields(*song), u"Neon Rain|Paper Moons|1986"_s);
    }

    void songThatCannotBeWrittenSaysWhy()
    {
        const auto song = gathered(WriteSongs::AfterReview);
        QVERIFY(QFile::remove(song->path()));
        write();
        QCOMPARE(mReview->at(0).problem, qtTrId("ErrorSongVanished"));
        QCOMPARE(mReview->at(0).state, ReviewState::Open);
    }

    void anotherAlbumIsTaken()
    {
        const auto song = gathered(WriteSongs::AfterReview);
        QCOMPARE(mReview->at(0).change.albums.size(), 2);
        takeAlbum(u"Best Of"_s);
        const ReviewedSong &reviewed = mReview->at(0);
        QCOMPARE(reviewed.changes, AssetAlbumName | AssetYear | AssetArtwork);
        QCOMPARE(reviewed.sources.value(AssetArtwork), u"TestInterface"_s);
        QCOMPARE(fields(*song), u"Neon Rain||"_s); // not written yet
        QCOMPARE(song->activityStatus(), SongStatus::Ready);
        write();
        QCOMPARE(fields(*song), u"Neon Rain|Best Of|1999"_s);
        QCOMPARE(song->infotag()->numberOfImages(), 1);

        takeAlbum(u"Paper Moons"_s); // in place of what is written
        write();
        QCOMPARE(fields(*song), u"Neon Rain|Paper Moons|1987"_s);
        QCOMPARE(song->infotag()->numberOfImages(), 0);
    }

    void albumOfAnotherNameReplacesWhatTheTagSaysOfItsOwn()
    {
        const auto song =
            gathered(WriteSongs::AfterReview, {.title = u"Neon Rain"_s, .album = u"Paper Moons"_s});
        QCOMPARE(mReview->at(0).changes, Assets(AssetYear));
        takeAlbum(u"Best Of"_s);
        write();
        QCOMPARE(fields(*song), u"Neon Rain|Best Of|1999"_s);
    }

    void cancelledWritingLeavesSongsOpen()
    {
        gathered(WriteSongs::AfterReview);
        mReview->write({0}, standard);
        QVERIFY(mReview->at(0).isBusy());
        mEditing->cancel();
        QTRY_COMPARE(mReview->at(0).state, ReviewState::Open);
        QVERIFY(mReview->at(0).hasToBeWritten());
    }

    void decidedSongsMakeRoom()
    {
        const QSignalSpy full(mReview.get(), &Review::fullChanged);
        const QSignalSpy removed(mReview.get(), &Review::songRemoved);
        mReview->setMostBytes(1);
        for (const char *name : {"1", "2", "3"})
            gathered(WriteSongs::AfterReview, {.title = u"Neon Rain"_s}, QLatin1String(name));
        QVERIFY(mReview->isFull());
        QCOMPARE(mReview->count(), 3); // nothing that is to be decided is lost
        mReview->skip({0, 1});
        QCOMPARE(mReview->count(), 1);
        QCOMPARE(removed.size(), 2);
        QCOMPARE(full.size(), 1);
    }

private:
    std::shared_ptr<SongFile> gathered(WriteSongs write,
                                       const SongFields &fields = {.title = u"Neon Rain"_s},
                                       const QString &name = u"song"_s)
    {
        const QString path = mFolder->filePath(name + u".mp3"_s);
        writtenSong(path, fields);
        const auto song = SongFile::songWithPath(path, {.dialect = standard.dialect});
        GatheringOptions options;
        options.gather = AssetAlbumName | AssetYear | AssetArtwork;
        options.albumPickingMethod = AlbumPick::EarliestYear;
        const QSignalSpy finished(mWorkList.get(), &WorkList::runFinished);
        mWorkList->beginGathering({song}, options, standard, write);
        [&] { QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, 60000); }();
        return song;
    }

    void write()
    {
        mReview->write({0}, standard);
        QTRY_VERIFY_WITH_TIMEOUT(!mReview->at(0).isBusy(), 60000);
    }

    void takeAlbum(const QString &name)
    {
        const AlbumList &albums = mReview->at(0).change.albums;
        for (qsizetype i = 0; i < albums.size(); ++i)
            if (albums[i].name() == name)
                mReview->takeCandidate(0, i);
        QVERIFY(mReview->at(0).isBusy());
        QTRY_VERIFY_WITH_TIMEOUT(!mReview->at(0).isBusy(), 60000);
    }

    /// "title|album|year", as the file has them.
    static QString fields(SongFile &song)
    {
        song.uncacheInfotag();
        const AudioInfoTag &tag = *song.infotag();
        return tag.title().value_or(QString()) + u'|' + tag.album().value_or(QString()) + u'|'
            + tag.year().value_or(QString());
    }

    std::unique_ptr<QTemporaryDir> mFolder;
    std::unique_ptr<HttpServer> mServer;
    std::unique_ptr<HVHTTPQueue> mQueue;
    std::unique_ptr<LibraryLending> mLibrary;
    std::unique_ptr<GatherContext> mContext;
    SourceCatalog mCatalog = testSources();
    iTunesInterface mItunes;
    UserLog mLog;
    std::unique_ptr<WorkList> mWorkList;
    std::unique_ptr<TagEditing> mEditing;
    std::unique_ptr<EditHistory> mHistory;
    std::unique_ptr<Review> mReview;
};

QTEST_GUILESS_MAIN(TestReview)
#include "tst_review.moc"
