#include "gui/songtable.h"

#include "app/songsources.h"
#include "base/texts.h"
#include "gui/maincontroller.h"
#include "gui/sortmenu.h"
#include "songs/cachedinfotag.h"
#include "support/songs.h"
#include "support/table.h"

#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolTip>

using namespace Qt::StringLiterals;

class TestSongTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }

    void init()
    {
        mFolder = std::make_unique<QTemporaryDir>();
        for (const char *title :
             {"Low Water", "Anchor", "Neon Rain", "Cellar", "Take 10", "Take 9"})
            writtenSong(mFolder->filePath(QLatin1String(title) + u".mp3"_s),
                        {.title = QLatin1String(title), .artist = u"The Lanterns"_s});
        mEngine = std::make_unique<Engine>(Engine::Pages::InMemory);
        mEngine->prefs.settings().clear();
        mController = std::make_unique<MainController>(*mEngine);
        makeTable();
        load();
    }

    void cleanup()
    {
        mTable.reset();
        mController.reset();
        mEngine.reset();
    }

    void headerSortsAndIsRemembered()
    {
        clickHeader(SongColumn::Title);
        QCOMPARE(titles(), u"Anchor, Cellar, Low Water, Neon Rain, Take 9, Take 10"_s);
        clickHeader(SongColumn::Title);
        QCOMPARE(titles(), u"Take 10, Take 9, Neon Rain, Low Water, Cellar, Anchor"_s);
        QHeaderView &header = *mTable->horizontalHeader();
        QCOMPARE(header.sortIndicatorSection(), static_cast<int>(SongColumn::Title));
        QCOMPARE(header.sortIndicatorOrder(), Qt::DescendingOrder);
        QCOMPARE(header.isSectionHidden(static_cast<int>(SongColumn::BPM)), true);
        QMenu columns;
        mTable->fillColumnsMenu(columns);
        for (QAction *action : columns.actions())
            if (action->text() == u"BPM"_s || action->text() == u"Year"_s)
                action->toggle();
        header.moveSection(header.visualIndex(static_cast<int>(SongColumn::Artist)), 0);
        mTable.reset();
        QCOMPARE(mEngine->prefs.settings().value(u"sortColumn"_s), u"title"_s);
        QCOMPARE(mEngine->prefs.settings().value(u"sortReverse"_s), true);
        mController = std::make_unique<MainController>(*mEngine);
        makeTable();
        load();
        QCOMPARE(titles().section(u", "_s, 0, 0), u"Take 10"_s);
        QVERIFY(!mTable->isColumnHidden(static_cast<int>(SongColumn::BPM)));
        QVERIFY(mTable->isColumnHidden(static_cast<int>(SongColumn::Year)));
        QCOMPARE(mTable->horizontalHeader()->logicalIndex(0), static_cast<int>(SongColumn::Artist));
    }

    void selectionFollowsItsSongs()
    {
        clickHeader(SongColumn::Title);
        mTable->selectSongs({song(u"Anchor"_s), song(u"Take 10"_s)});
        clickHeader(SongColumn::Title);
        QCOMPARE(selectedTitles(), u"Take 10, Anchor"_s);
        mController->shownSongs().setFilter(u"take"_s);
        QCOMPARE(selectedTitles(), u"Take 10"_s);
        mController->shownSongs().setFilter({});
        QCOMPARE(selectedTitles(), u"Take 10"_s);
        QCOMPARE(mController->selectedSongs(), SongList{song(u"Take 10"_s)});
    }

    void reloadWithACurrentSong()
    {
        const int rows = mTable->model()->rowCount();
        mTable->setCurrentIndex(mTable->model()->index(rows - 1, 1));
        load();
        QCOMPARE(mTable->model()->rowCount(), rows);
        QVERIFY(!mTable->currentIndex().isValid());
    }

    void typedValueIsWrittenAndUndone()
    {
        clickHeader(SongColumn::Title);
        edit(song(u"Cellar"_s), SongColumn::Album, u"Harbour & <b>Lights</b>"_s);
        QTRY_COMPARE(inFile(u"Cellar"_s).album, u"Harbour & <b>Lights</b>"_s);
        QTRY_VERIFY(!mController->history().undoName().isEmpty());
        QCOMPARE(mController->history().undoName(), u"Change of “Album”"_s);
        QCOMPARE(mTable->horizontalHeader()->sortIndicatorSection(), -1);
        QVERIFY(inFile(u"Anchor"_s).album.isNull());
        const int row = mController->shownSongs().rowOf(*song(u"Cellar"_s));
        QCOMPARE(cell(row, SongColumn::Album).data().toString(), u"Harbour & <b>Lights</b>"_s);
        mController->undo();
        QTRY_VERIFY(!mController->history().redoName().isEmpty());
        QVERIFY(inFile(u"Cellar"_s).album.isNull());
        mController->redo();
        QTRY_VERIFY(!mController->history().undoName().isEmpty());
        QCOMPARE(inFile(u"Cellar"_s).album, u"Harbour & <b>Lights</b>"_s);
    }

    void selectedSongsTakeTheValueOnceItIsConfirmed_data()
    {
        const Table<bool> row("confirmed");
        row("changed", true);
        row("cancelled", false);
    }

    void selectedSongsTakeTheValueOnceItIsConfirmed()
    {
        QFETCH(bool, confirmed);
        mTable->selectSongs({song(u"Cellar"_s), song(u"Anchor"_s), song(u"Take 9"_s)});
        edit(song(u"Cellar"_s), SongColumn::Artist, u"Various"_s);
        auto *sheet = mTable->findChild<QDialog *>();
        QVERIFY(sheet);
        const QAbstractItemModel *listed = sheet->findChild<QAbstractItemView *>()->model();
        QCOMPARE(listed->rowCount(), 3);
        QCOMPARE(listed->index(2, 0).data().toString(), u"Take 9 – The Lanterns"_s);
        QTest::keyClick(sheet, confirmed ? Qt::Key_Return : Qt::Key_Escape);
        if (confirmed)
            QTRY_VERIFY(!mController->history().undoName().isEmpty());
        QTest::qWait(20);
        const QString expected = confirmed ? u"Various"_s : u"The Lanterns"_s;
        for (const char *title : {"Cellar", "Anchor", "Take 9"})
            QCOMPARE(inFile(QLatin1String(title)).artist, expected);
        QCOMPARE(inFile(u"Low Water"_s).artist, u"The Lanterns"_s);
    }

    void editorLeftAsItWasChangesNothing()
    {
        mTable->selectAll();
        edit(song(u"Cellar"_s), SongColumn::Artist, u"The Lanterns"_s);
        QVERIFY(!mTable->findChild<QDialog *>());
        QVERIFY(!mController->editing().isBusy());
    }

    void songThatIsNotReadySaysWhy_data()
    {
        const Table<SongStatus, QString> row("status", "toolTip");
        row("locked", SongStatus::Locked, qtTrId("ErrorSongLocked"));
        row("problem", SongStatus::Problem, qtTrId("ErrorSongHasProblem"));
        row("pending", SongStatus::Pending, u"Waits to be gathered"_s);
        row("processing", SongStatus::Processing, u"Is being gathered"_s);
    }

    void songThatIsNotReadySaysWhy()
    {
        QFETCH(SongStatus, status);
        QFETCH(QString, toolTip);
        const auto held = song(u"Cellar"_s);
        held->setActivityStatus(status);
        mController->tellChanged({held});
        const QModelIndex index =
            cell(mController->shownSongs().rowOf(*held), SongColumn::Activity);
        QCOMPARE(index.data(Qt::ToolTipRole).toString(), toolTip);
        QCOMPARE(index.data(Qt::AccessibleTextRole).toString(), toolTip);
        QVERIFY(!index.data(Qt::DecorationRole).value<QIcon>().isNull());
        const QModelIndex title = index.siblingAtColumn(static_cast<int>(SongColumn::Title));
        QVERIFY(!(title.flags() & Qt::ItemIsEditable));
        QCOMPARE(title.data(Qt::ToolTipRole).toString(), held->path() + u'\n' + toolTip);
    }

    void returnEditsWhatCanBeEdited_data()
    {
        const Table<Qt::Key, SongColumn, SongColumn, SongStatus> row("key", "current", "edited",
                                                                     "status");
        row("where it stands", Qt::Key_Return, SongColumn::Album, SongColumn::Album,
            SongStatus::Ready);
        row("from the activity", Qt::Key_F2, SongColumn::Activity, SongColumn::Title,
            SongStatus::Ready);
        row("from the artwork", Qt::Key_Return, SongColumn::Artwork, SongColumn::Title,
            SongStatus::Ready);
        row("says why not", Qt::Key_Return, SongColumn::Activity, SongColumn::Activity,
            SongStatus::Locked);
    }

    void returnEditsWhatCanBeEdited()
    {
        QFETCH(Qt::Key, key);
        QFETCH(SongColumn, current);
        QFETCH(SongStatus, status);
        song(u"Cellar"_s)->setActivityStatus(status);
        const int row = mController->shownSongs().rowOf(*song(u"Cellar"_s));
        mTable->setCurrentIndex(cell(row, current));
        QTest::keyClick(mTable.get(), key);
        QTEST(SongColumn(mTable->currentIndex().column()), "edited");
        QCOMPARE(mTable->findChild<QLineEdit *>() != nullptr, status == SongStatus::Ready);
        QCOMPARE(QToolTip::text(),
                 status == SongStatus::Ready ? QString() : qtTrId("ErrorSongLocked"));
        QToolTip::hideText();
    }

    void menuSorts()
    {
        SortMenu menu(*mController);
        const auto choose = [&menu](const QString &text) {
            Q_EMIT menu.aboutToShow();
            for (QAction *action : menu.actions())
                if (action->text().remove(u'&') == text)
                    action->trigger();
            Q_EMIT menu.aboutToShow();
        };
        choose(u"Title"_s);
        QCOMPARE(titles(), u"Anchor, Cellar, Low Water, Neon Rain, Take 9, Take 10"_s);
        choose(u"Descending"_s);
        QCOMPARE(titles(), u"Take 10, Take 9, Neon Rain, Low Water, Cellar, Anchor"_s);
        QStringList chosen;
        for (const QAction *action : menu.actions())
            if (action->isChecked())
                chosen << action->text();
        QCOMPARE(chosen, (QStringList{u"Title"_s, u"&Descending"_s}));
    }

    void typingFinds()
    {
        clickHeader(SongColumn::Title);
        mTable->setCurrentIndex(cell(0, SongColumn::Title));
        QTest::keyClicks(mTable.get(), u"take 1"_s);
        QCOMPARE(mTable->currentIndex().data().toString(), u"Take 10"_s);
    }

private:
    void makeTable()
    {
        mTable = std::make_unique<SongTable>(*mController);
        mTable->resize(1200, 400);
        mTable->show();
    }

    void load()
    {
        QSignalSpy finished(&mController->songs(), &LoadedSongs::loadFinished);
        mController->songs().load(*folderSource(mFolder->path()), mEngine->prefs.readOptions());
        QVERIFY(finished.wait(30'000));
    }

    [[nodiscard]] std::shared_ptr<SongFile> song(const QString &title) const
    {
        return songWithPathInArray(mFolder->filePath(title + u".mp3"_s),
                                   mController->songs().allSongs());
    }

    /// As the file holds it.
    [[nodiscard]] CachedInfo inFile(const QString &title) const
    {
        const auto read = SongFile::songWithPath(song(title)->path(), song(title)->readOptions());
        return *CachedInfoTag::infoDictForTag(*read->infotag(), read->path(), {});
    }

    [[nodiscard]] QModelIndex cell(int row, SongColumn column) const
    {
        return mTable->model()->index(row, static_cast<int>(column));
    }

    void clickHeader(SongColumn column)
    {
        QHeaderView &header = *mTable->horizontalHeader();
        const int x = header.sectionViewportPosition(static_cast<int>(column)) + 20;
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, {x, header.height() / 2});
    }

    /// As with the keyboard: Return opens the editor and closes it.
    void edit(const std::shared_ptr<SongFile> &edited, SongColumn column, const QString &text)
    {
        const QModelIndex index = cell(mController->shownSongs().rowOf(*edited), column);
        mTable->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        QTest::keyClick(mTable.get(), Qt::Key_Return);
        auto *editor = mTable->findChild<QLineEdit *>();
        QVERIFY(editor && editor->selectedText() == editor->text());
        editor->setText(text);
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_VERIFY(!mTable->findChild<QLineEdit *>()); // what was entered is told later
    }

    [[nodiscard]] static QString titlesOf(const SongList &songs)
    {
        QStringList titles;
        for (const auto &each : songs)
            titles << each->infotag()->title().value_or(QString());
        return titles.join(u", "_s);
    }

    [[nodiscard]] QString titles() const { return titlesOf(mController->shownSongs().songs()); }
    [[nodiscard]] QString selectedTitles() const { return titlesOf(mController->selectedSongs()); }

    std::unique_ptr<QTemporaryDir> mFolder;
    std::unique_ptr<Engine> mEngine;
    std::unique_ptr<MainController> mController;
    std::unique_ptr<SongTable> mTable;
};

QTEST_MAIN(TestSongTable)
#include "tst_songtable.moc"
