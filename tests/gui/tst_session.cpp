#include "gui/session.h"

#include "app/pixelslider.h"
#include "base/texts.h"
#include "demo/sampleground.h"
#include "demo/samplesongs.h"
#include "gui/preferencespanel.h"
#include "support/tempfiles.h"

#include <QDir>
#include <QLabel>
#include <QSignalSpy>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QByteArrayList bytesOfFilesIn(const QString &folder)
{
    QByteArrayList bytes;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files, QDir::Name))
        bytes << fileContents(file.filePath());
    return bytes;
}

} // namespace

class SessionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        installTexts();
        QVERIFY(mRuntime.isValid());
        qputenv("XDG_RUNTIME_DIR", mRuntime.path().toLocal8Bit());
    }

    void droppedSongsAreFilledIn()
    {
        SampleGround ground;
        const QString songs = QDir(ground.songs()).filePath(songsWithGaps);
        const QByteArrayList before = bytesOfFilesIn(songs);
        DropWindow window(ground.engine());
        QSignalSpy finished(&window.dropList(), &DropList::finished);
        QSignalSpy dismissed(&window, &DropWindow::dismissed);
        window.open({songs, songs});
        QVERIFY(window.isVisible());
        QVERIFY(finished.wait(60'000));
        const QByteArrayList after = bytesOfFilesIn(songs);
        QCOMPARE(after.size(), before.size());
        QVERIFY(after != before);
        QVERIFY(dismissed.wait(10'000));
        QVERIFY(!window.isVisible());
    }

    void windowStaysWhereNothingIsASong()
    {
        SampleGround ground;
        QVERIFY(QDir(ground.songs()).mkdir(u"empty"_s));
        DropWindow window(ground.engine());
        window.open({QDir(ground.songs()).filePath(u"empty"_s)});
        auto *achievement = window.findChild<QLabel *>(u"simpleAchievement"_s);
        QTRY_VERIFY(achievement->toolTip().contains(u"empty"_s));
        QVERIFY(window.isVisible());
    }

    void laterStartHandsItsPathsOver()
    {
        // Left behind by a program that was killed.
        QVERIFY(!SingleInstance::handOver({}));
        SingleInstance running;
        QVERIFY(running.listen());
        QSignalSpy started(&running, &SingleInstance::startedAgain);
        bool isTaken = false;
        const std::unique_ptr<QThread> later(
            QThread::create([&isTaken] { isTaken = SingleInstance::handOver({u"a song.mp3"_s}); }));
        later->start();
        QVERIFY(started.wait());
        QVERIFY(later->wait(5000));
        QVERIFY(isTaken);
        QCOMPARE(started.front().front().toStringList(),
                 QStringList{QDir::current().absoluteFilePath(u"a song.mp3"_s)});
    }

    void sliderStoresWhatItsEndMeans_data()
    {
        QTest::addColumn<QString>("slider");
        QTest::addColumn<int>("position");
        QTest::addColumn<double>("stored");
        QTest::addColumn<QString>("shown");
        QTest::newRow("no largest size") << u"maxSize"_s << 2000 << 32767.0 << u"No limit"_s;
        QTest::newRow("a largest size") << u"maxSize"_s << 640 << 640.0 << u"640 pixels"_s;
        QTest::newRow("any width is accepted") << u"minSize"_s << 0 << 0.0 << u"No limit"_s;
        QTest::newRow("all may be replaced") << u"overwriteSize"_s << 1000 << 32767.0 << u"All"_s;
    }
    void sliderStoresWhatItsEndMeans()
    {
        QFETCH(const QString, slider);
        QFETCH(const int, position);
        SampleGround ground;
        PreferencesPanel panel(ground.engine(), nullptr);
        panel.orderFrontPreferencesPanel();
        auto *control = panel.findChild<QSlider *>(slider + u"Slider"_s);
        control->setValue(control->minimum() + 10);
        control->setValue(position);
        const GatheringOptions options = ground.engine().prefs.gatheringOptions();
        const QMap<QString, double> values{{u"minSize"_s, options.minimumImageSize},
                                           {u"maxSize"_s, options.maximumImageSize},
                                           {u"overwriteSize"_s, options.overwriteImageThreshold}};
        QTEST(values[slider], "stored");
        QTEST(panel.findChild<QLabel *>(slider + u"Field"_s)->text(), "shown");
    }

    void returnKeyResetsNothing()
    {
        SampleGround ground;
        PreferencesPanel panel(ground.engine(), nullptr);
        panel.orderFrontPreferencesPanel();
        panel.findChild<QSlider *>(u"minSizeSlider"_s)->setValue(140);
        QTest::keyClick(&panel, Qt::Key_Return);
        QCOMPARE(ground.engine().prefs.gatheringOptions().minimumImageSize, 140.0);
    }

    void noteWarnsOfSmallerArtwork()
    {
        SampleGround ground;
        PreferencesPanel panel(ground.engine(), nullptr);
        panel.orderFrontPreferencesPanel();
        auto *note = panel.findChild<QLabel *>(u"noteField"_s);
        panel.findChild<QSlider *>(u"minSizeSlider"_s)->setValue(200);
        QVERIFY(note->text().isEmpty());
        panel.findChild<QSlider *>(u"overwriteSizeSlider"_s)->setValue(300);
        QVERIFY(!note->text().isEmpty());
        panel.findChild<QSlider *>(u"minSizeSlider"_s)->setValue(300);
        QVERIFY(note->text().isEmpty());
    }

private:
    QTemporaryDir mRuntime;
};

QTEST_MAIN(SessionTest)
#include "tst_session.moc"
