#include "base/texts.h"
#include "gui/artworkwell.h"
#include "gui/changesheet.h"
#include "gui/lyricsinspector.h"
#include "gui/mainwindow.h"
#include "gui/pictureframe.h"
#include "gui/picturestrip.h"
#include "gui/regeneratepanel.h"
#include "gui/standardisegenre.h"
#include "gui/tagpasting.h"
#include "support/id3bytes.h"
#include "support/songs.h"
#include "support/table.h"
#include "support/tempfiles.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <QWindow>

using namespace Qt::StringLiterals;

/// The whole window over a folder of songs.
class TestEditing : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }

    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CACHE_HOME", mFolder->filePath(u"cache"_s).toUtf8());
        mEngine =
            std::make_unique<Engine>(Engine::Pages::InMemory, mFolder->filePath(u"settings"_s));
        mEngine->start(Engine::Definitions::Fixed);
        mController = std::make_unique<MainController>(*mEngine);
        mWindow = std::make_unique<MainWindow>(*mController);
        mWindow->setUp();
        mWindow->show();
        QDir().mkdir(music());
    }

    void cleanup()
    {
        mWindow.reset();
        mController.reset();
        mEngine.reset();
    }

    void droppedPictureGoesIntoTheSongAndOutAgain()
    {
        load({{.title = u"One"_s}});
        select({0});
        auto &well = part<ArtworkWell>();
        QTRY_VERIFY(part<PictureFrame>().hint().startsWith(u"No artwork"));
        const QString file = mFolder->filePath(u"cover.bmp"_s);
        writeFile(file, plainPicture(300, 200, "BMP"));
        drop(part<PictureFrame>(), file);
        QTRY_VERIFY(well.shownPicture());
        QCOMPARE(imagesOf(0).first().storedMimeFormat, u"image/png"_s); // no player knows BMP
        QTRY_COMPARE(part<PictureFrame>().picture().size(), QSize(300, 200));
        QVERIFY(mWindow->findChild<QLabel *>(u"artworkCaption"_s)->text().contains(u"300 × 200"));
        command(u"MenuUndo"_s);
        QTRY_VERIFY(!well.shownPicture());
        QVERIFY(imagesOf(0).isEmpty());
        command(u"MenuRedo"_s);
        QTRY_VERIFY(well.shownPicture());
        command(u"MenuRemoveArtwork"_s);
        QTRY_VERIFY(!well.shownPicture());
        writeFile(file, "no picture");
        drop(part<PictureFrame>(), file);
        QTRY_VERIFY(QApplication::activeModalWidget());
        QVERIFY(imagesOf(0).isEmpty());
    }

    void whatIsDroppedGoesWhereItBelongs_data()
    {
        const Table<QString, QString, bool> row("part", "path", "isShown");
        row("folder onto the songs", u"songTable"_s, u"music"_s, true);
        row("folder onto the log", u"logView"_s, u"music"_s, true);
        row("folder onto the artwork", u"artworkWell"_s, u"music"_s, true);
        row("song onto the songs", u"songTable"_s, u"music/1.mp3"_s, false);
    }

    void whatIsDroppedGoesWhereItBelongs()
    {
        QFETCH(QString, part);
        QFETCH(QString, path);
        writtenSong(music() + u"/1.mp3"_s, {.title = u"One"_s});
        const QSignalSpy songs(mWindow.get(), &MainWindow::filesDropped);
        drop(*mWindow->findChild<QWidget *>(part), mFolder->filePath(path));
        QFETCH(bool, isShown);
        if (isShown)
            QTRY_COMPARE(mController->songs().allSongs().size(), std::size_t(1));
        QCOMPARE(songs.size(), isShown ? 0 : 1);
    }

    void severalSongsAreShownBeforeTheyAreChanged()
    {
        const QByteArray cover = plainPicture(40, 40, "JPG");
        load({{.title = u"One"_s, .picture = cover}, {.title = u"Two"_s}});
        select({0, 1});
        QTRY_VERIFY(part<ArtworkWell>().artwork().isMixed);
        QVERIFY(part<PictureFrame>().hint().startsWith(u"Several pictures"));
        auto &strip = part<PictureStrip>();
        QCOMPARE(strip.count(), 1);
        QVERIFY(!part<ArtworkWell>().shownPicture());
        QTest::keyClick(&strip, Qt::Key_Right);
        QCOMPARE(part<ArtworkWell>().shownPicture()->data, cover);
        QImage pasted(20, 20, QImage::Format_RGB32);
        pasted.fill(Qt::red);
        QApplication::clipboard()->setImage(pasted);
        command(u"MenuPasteArtwork"_s);
        QTRY_VERIFY(mWindow->findChild<ChangeSheet *>());
        QCOMPARE(imagesOf(1).size(), 0);
        mWindow->findChild<ChangeSheet *>()->accept();
        QTRY_COMPARE(imagesOf(1).size(), 1);
        QTRY_COMPARE(imagesOf(0).size(), 2);
        QCOMPARE(imagesOf(0).first().data, cover);
    }

    void lyricsAreWrittenWhenTheSongIsLeft()
    {
        load({{.title = u"One"_s}, {.title = u"Two"_s}});
        select({0});
        auto &editor = *mWindow->findChild<QPlainTextEdit *>(u"lyricsEditor"_s);
        editor.insertPlainText(u"La la\nla"_s);
        select({1});
        QTRY_COMPARE(read(0)->lyrics(), u"La la\nla"_s);
        QCOMPARE(editor.toPlainText(), QString());
        select({0, 1});
        QVERIFY(editor.isReadOnly());
        select({0});
        QCOMPARE(editor.toPlainText(), u"La la\nla"_s);
        editor.setPlainText(u"Ta"_s);
        editor.document()->setModified(true);
        mWindow->close();
        QTRY_VERIFY(mWindow->isHidden());
        QCOMPARE(read(0)->lyrics(), u"Ta"_s); // before the window went
    }

    void genresAreChangedAsTheSheetShows()
    {
        load(
            {{.title = u"One"_s, .genres = u"hiphop"_s}, {.title = u"Two"_s, .genres = u"Mine"_s}});
        select({0, 1});
        command(u"MenuStandardiseGenre"_s);
        QTRY_VERIFY(mWindow->findChild<StandardiseGenreSheet *>());
        auto *sheet = mWindow->findChild<StandardiseGenreSheet *>();
        QCOMPARE(sheet->newGenres(), (QHash<QString, QString>{{u"hiphop"_s, u"Hip-Hop"_s}}));
        auto *model = sheet->findChild<QTableView *>()->model();
        model->setData(model->index(1, 2), u"Yours"_s);
        sheet->accept();
        QTRY_COMPARE(read(1)->genres(), u"Yours"_s);
        QCOMPARE(read(0)->genres(), u"Hip-Hop"_s);
    }

    void copiedTagGoesIntoOtherSongs()
    {
        load({{.title = u"One"_s, .artist = u"A"_s, .track = u"1"_s, .picture = plainPicture(9, 9)},
              {.title = u"Two"_s, .artist = u"B"_s},
              {.title = u"Three"_s}});
        select({0});
        QApplication::clipboard()->clear();
        command(u"MenuCopyTags"_s);
        QTRY_VERIFY(canPasteTags());
        select({1, 2});
        command(u"MenuPasteTags"_s);
        mWindow->findChild<PasteTagsSheet *>()->accept();
        QTRY_COMPARE(read(2)->artist(), u"A"_s);
        QCOMPARE(read(1)->title(), u"Two"_s); // titles and tracks belong to one song
        QVERIFY(!read(1)->track());
        QCOMPARE(imagesOf(1).size(), 1);
    }

    void damagedSongsAreRegenerated()
    {
        const QByteArray frames = frame("TIT2", QByteArrayLiteral("\0Kept"))
            + frame("TPE1", QByteArrayLiteral("\0Lost")).first(12);
        const QByteArray damaged = id3Tag(3, frames.first(frames.size() - 1)) + mpegFrames(50);
        writeFile(music() + u"/1.mp3"_s, damaged);
        load({});
        auto &panel = part<RegeneratePanel>();
        QTRY_VERIFY(panel.isVisible());
        QTRY_VERIFY(panel.list().canRegenerateAny());
        const auto text = [&panel](RegenerateList::Column column) {
            return panel.list().index(0, column).data().toString();
        };
        QVERIFY(text(RegenerateList::Problem).contains(u"TPE1"_s));
        QVERIFY(text(RegenerateList::Kept).contains(u"Title"_s));
        auto buttons = panel.findChildren<QPushButton *>();
        buttons.last()->click(); // all
        QTRY_COMPARE(text(RegenerateList::Result), u"Regenerated"_s);
        auto song = mController->songs().allSongs().front();
        QCOMPARE(song->activityStatus(), SongStatus::Ready);
        QCOMPARE(read(0)->title(), u"Kept"_s);
        mController->setSongLibraryFolder(music()); // has records of its own
        QTRY_VERIFY(!mController->songs().isLoading());
        song = mController->songs().allSongs().front();
        const QByteArray regenerated = fileContents(song->path());
        command(u"MenuUndo"_s);
        QTRY_COMPARE(fileContents(song->path()), damaged);
        QCOMPARE(song->activityStatus(), SongStatus::Problem);
        command(u"MenuRedo"_s);
        QTRY_COMPARE(fileContents(song->path()), regenerated);
        QVERIFY(song->activityStatus() != SongStatus::Problem);
    }

    void historyOutlivesARescan()
    {
        load({{.title = u"One"_s}, {.title = u"Two"_s}});
        const SongList songs = mController->songs().allSongs();
        mController->change(
            TagChange::sameForAll(u"Name"_s, songs, {.texts = {{TagText::Artist, u"New"_s}}}));
        mController->setSongLibraryFolder(music()); // while it is under way
        QFile::remove(songs[0]->path());
        mController->setSongLibraryFolder(music());
        QVERIFY(mController->history().undoName().isEmpty());
        QTRY_COMPARE(mController->history().undoName(), u"Name"_s);
        QCOMPARE(read(0)->artist(), u"New"_s);
        mController->undo();
        QTRY_VERIFY(!read(0)->artist());
        QVERIFY(!mController->songs().allSongs().front()->infotag()->artist());
        QDir().mkdir(mFolder->filePath(u"other"_s));
        mController->setSongLibraryFolder(mFolder->filePath(u"other"_s));
        QTRY_VERIFY(!mController->songs().isLoading());
        QCOMPARE(mController->history().redoName(), QString());
    }

private:
    [[nodiscard]] QString music() const { return mFolder->filePath(u"music"_s); }

    /// The window shows the songs in this order.
    void load(const std::vector<SongFields> &songs)
    {
        int number = 0;
        for (const SongFields &fields : songs)
            writtenSong(QStringLiteral("%1/%2.mp3").arg(music()).arg(++number), fields);
        mController->setSongLibraryFolder(music());
        QTRY_VERIFY(!mController->songs().isLoading());
    }

    void select(std::initializer_list<std::size_t> indexes)
    {
        SongList songs;
        for (const std::size_t index : indexes)
            songs.push_back(mController->songs().allSongs()[index]);
        mController->setSelectedSongs(songs);
    }

    /// What the file holds.
    [[nodiscard]] std::unique_ptr<MP3InfoTag> read(std::size_t index) const
    {
        return tagOfFile(mController->songs().allSongs()[index]->path(),
                         mController->prefs().readOptions());
    }
    [[nodiscard]] QList<ID3Image> imagesOf(std::size_t index) const
    {
        return read(index)->images();
    }

    template<typename Part>
    [[nodiscard]] Part &part() const
    {
        return *mWindow->findChild<Part *>();
    }

    void command(const QString &textID)
    {
        auto *action = mWindow->findChild<QAction *>(textID);
        QTRY_VERIFY(action->isEnabled());
        action->trigger();
    }

    /// As a file manager drops onto the part, or onto what is behind it.
    void drop(QWidget &part, const QString &file)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(file), QUrl(u"http://host/b"_s)});
        const QPoint place = part.mapTo(mWindow.get(), part.rect().center());
        QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(mWindow->windowHandle(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent dropped(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(mWindow->windowHandle(), &dropped);
    }

    std::unique_ptr<QTemporaryDir> mFolder;
    std::unique_ptr<Engine> mEngine;
    std::unique_ptr<MainController> mController;
    std::unique_ptr<MainWindow> mWindow;
};

QTEST_MAIN(TestEditing)
#include "tst_editing.moc"
