#include "app/review.h"
#include "base/texts.h"
#include "demo/sampleground.h"
#include "demo/samplesongs.h"
#include "gui/gatheringstatus.h"
#include "gui/logview.h"
#include "gui/maincontroller.h"
#include "gui/optionsdrawer.h"
#include "gui/reviewpanel.h"
#include "gui/runalerts.h"
#include "support/tempfiles.h"

#include <QCheckBox>
#include <QClipboard>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

/// The window's parts of a run, with the sample songs and their sites.
class TestGatheringParts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        installTexts(TextLanguage::English);
        QCOMPARE(mGround.error(), QString());
        mEngine = &mGround.engine();
        mController = std::make_unique<MainController>(*mEngine);
        const QSignalSpy loaded(&mController->songs(), &LoadedSongs::loadFinished);
        mController->setSongLibraryFolder(QDir(mGround.songs()).filePath(songsWithGaps));
        QTRY_COMPARE(loaded.size(), 1);
    }

    void optionsAreSavedAtOnce()
    {
        OptionsDrawer drawer(mEngine->prefs, mController->workList());
        const auto box = [&](const QString &name) { return drawer.findChild<QCheckBox *>(name); };
        box(u"checkLyrics"_s)->click();
        box(u"overwriteYear"_s)->click();
        box(u"allowSubstrings"_s)->click();
        for (QRadioButton *button : drawer.findChildren<QRadioButton *>())
            if (button->text() == qtTrId("OptionsPickEarliest"))
                button->click();
        const GatheringOptions options = mEngine->prefs.gatheringOptions();
        QVERIFY(!options.gather.testFlag(AssetLyrics) && options.gather.testFlag(AssetYear));
        QCOMPARE(options.overwrite, Assets(AssetYear));
        QCOMPARE(options.albumPickingMethod, AlbumPick::EarliestYear);
        QCOMPARE(options.allowSubstrings, Substrings::Allow);
        QVERIFY(!box(u"identifyButton"_s)->isEnabled()); // without a key
        box(u"overwriteYear"_s)->click();
    }

    void logFollowsItsEndUnlessTheUserScrolledUp()
    {
        UserLog log;
        LogView view(log);
        view.resize(300, 200);
        view.show();
        const auto add = [&](int lines) {
            for (int i = 0; i < lines; ++i)
                log.addLog(QString::number(i), LogColor::Change);
            const int awaited = view.model()->rowCount() + lines;
            QTRY_COMPARE(view.model()->rowCount(), awaited);
        };
        QScrollBar &bar = *view.verticalScrollBar();
        add(300);
        QCOMPARE(bar.value(), bar.maximum());
        bar.setValue(7);
        add(300);
        QCOMPARE(bar.value(), 7);
        view.selectRow(2);
        view.copyLines();
        QCOMPARE(QGuiApplication::clipboard()->text(), u"2\n"_s);
        view.clear();
        log.addLog(u"one of very many"_s, LogColor::Plain);
        for (int i = 0; i < 2 * LogModel::mostLines; ++i)
            log.addLog({}, LogColor::Plain);
        QTRY_VERIFY(view.model()->index(0, 0).data().toString().isEmpty());
        QVERIFY(view.model()->rowCount() < 1.2 * LogModel::mostLines);
    }

    void overwritingTitlesIsAskedFor()
    {
        QWidget window;
        GatheringOptions options;
        int proceeded = 0;
        const auto ask = [&] {
            askAboutOverwritingTitles(options, &window, [&] { ++proceeded; });
            return window.findChild<QDialog *>(u"overwriteTitleAlert"_s);
        };
        QVERIFY(!ask() && proceeded == 1);
        options.overwrite = AssetSongTitle;
        for (const char *answer : {"OverwriteTitleCancel", "OverwriteTitleProceed"}) {
            QDialog *alert = ask();
            for (QPushButton *button : alert->findChildren<QPushButton *>())
                if (button->text() == qtTrId(answer))
                    button->click();
            QTRY_VERIFY(!window.findChild<QDialog *>(u"overwriteTitleAlert"_s));
        }
        QCOMPARE(proceeded, 2);
    }

    void compilationWarningIsSilencedForGood()
    {
        QWidget window;
        CompilationWarning warning(mEngine->prefs, &window);
        warning.warnAboutCompilationForTrack(u"Neon Rain"_s, u"Various"_s);
        QVERIFY(warning.isVisible());
        warning.findChild<QCheckBox *>(u"dontWarnCompilation"_s)->click();
        warning.close();
        warning.warnAboutCompilationForTrack(u"Neon Rain"_s, u"Various"_s);
        QVERIFY(!warning.isVisible());
    }

    void reviewedSongsAreWrittenByTheButtons()
    {
        OptionsDrawer drawer(mEngine->prefs, mController->workList());
        GatheringStatus status(mController->workList());
        ReviewPanel panel(mController->review(), mEngine->queue, mEngine->prefs);
        panel.show();
        drawer.findChild<QCheckBox *>(u"reviewButton"_s)->click();
        std::vector<QByteArray> before;
        for (const auto &song : mController->songs().allSongs())
            before.push_back(fileContents(song->path()));
        int furthest = 0;
        const auto *bar = status.findChild<QProgressBar *>(u"overallProgress"_s);
        connect(bar, &QProgressBar::valueChanged, this,
                [&](int value) { furthest = std::max(furthest, value); });
        mController->setSelectedSongs(mController->songs().allSongs());
        mController->beginGathering();
        QVERIFY(!drawer.findChild<QWidget *>(u"advancedBox"_s)->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(!mController->workList().isRunning(), 120000);
        QVERIFY(drawer.findChild<QWidget *>(u"advancedBox"_s)->isEnabled());
        QCOMPARE(furthest, bar->maximum());
        QCOMPARE(bar->value(), 0);
        for (std::size_t i = 0; i < before.size(); ++i)
            QVERIFY(fileContents(mController->songs().allSongs()[i]->path()) == before[i]);

        Review &review = mController->review();
        QVERIFY(review.countToWrite() > 3);
        const auto song = review.at(0).song;
        const Assets changes = review.at(0).changes;
        QAbstractItemModel &fields =
            *panel.findChild<QAbstractItemView *>(u"reviewFields"_s)->model();
        int refused = -1;
        for (int row = 0; refused < 0 && row < fields.rowCount(); ++row)
            if (fields.setData(fields.index(row, 0), Qt::Unchecked, Qt::CheckStateRole))
                refused = row;
        const Assets accepted = review.at(0).accepted;
        QVERIFY(accepted != changes);
        panel.findChild<QPushButton *>(u"ReviewWrite"_s)->click();
        QTRY_VERIFY_WITH_TIMEOUT(!review.at(0).isBusy(), 60000);
        song->uncacheInfotag();
        QCOMPARE(differences(valuesOf(*song->infotag()), review.at(0).change.before), accepted);
        panel.findChild<QPushButton *>(u"ReviewWriteAll"_s)->click();
        QTRY_COMPARE_WITH_TIMEOUT(review.countToWrite(), 0, 60000);
        QTRY_VERIFY(!panel.findChild<QPushButton *>(u"ReviewWriteAll"_s)->isEnabled());
    }

private:
    SampleGround mGround;
    Engine *mEngine = nullptr;
    std::unique_ptr<MainController> mController;
};

QTEST_MAIN(TestGatheringParts)
#include "tst_gatheringparts.moc"
