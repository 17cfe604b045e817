#include "base/propertylist.h"
#include "itunes/librarylocation.h"
#include "support/fakeclock.h"
#include "support/tempfiles.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int day = 86'400;
constexpr const char *inMusic = "Music/iTunes/iTunes Music Library.xml";
constexpr const char *inDocuments = "Documents/iTunes/iTunes Music Library.xml";

} // namespace

class TestLibraryLocation : public QObject {
    Q_OBJECT

    FakeClock mClock;
    std::unique_ptr<QTemporaryDir> mHome;

    [[nodiscard]] QString at(const QString &name) const { return mHome->filePath(name); }

    void makeLibrary(const char *name, int age, const QByteArray &tracks = {})
    {
        const QString path = at(QLatin1String(name));
        QDir().mkpath(QFileInfo(path).path());
        writeFile(path, "<plist><dict><key>Tracks</key><dict>" + tracks + "</dict></dict></plist>");
        const auto now = std::chrono::floor<std::chrono::milliseconds>(mClock.now());
        const auto today = QDateTime::fromMSecsSinceEpoch(now.time_since_epoch().count());
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(today.addSecs(-age), QFileDevice::FileModificationTime));
    }

private Q_SLOTS:
    void init()
    {
        mHome = std::make_unique<QTemporaryDir>();
        qputenv("HOME", QFile::encodeName(mHome->path()));
    }

    void preferencesThatNameNoFolder()
    {
        const QString path = at(u"Library/Preferences/com.apple.iTunes.plist"_s);
        QVERIFY(QDir(mHome->path()).mkpath(u"Library/Preferences"_s));
        QVERIFY(QDir(mHome->path()).mkpath(u"Documents/iTunes"_s));
        const QString unresolved =
            u"Could not get path from music folder alias in iTunes preferences"_s;
        const auto alias = [](const char *key) {
            return PropertyList::toBinary(QVariantMap{{QLatin1String(key), QByteArray("\xFF")}});
        };
        const std::pair<QByteArray, QString> logs[] = {
            {"x", u"Could not decode iTunes preferences (line 1: Premature end of document.)"_s},
            {alias("alis:1:iTunes Library Location"), unresolved},
            {alias("alis:11345:Music Folder Location"), unresolved}};
        for (const auto &[preferences, log] : logs) {
            writeFile(path, preferences);
            QTest::ignoreMessage(QtWarningMsg, qPrintable(log));
            QCOMPARE(LibraryLocation(mClock).musicLibraryPath(),
                     QFileInfo(at(u"Documents/iTunes"_s)).canonicalFilePath());
        }
    }

    void theFolderIsLookedForUntilItIsFound()
    {
        LibraryLocation location(mClock);
        QTest::ignoreMessage(QtWarningMsg, "Could not find iTunes preferences file");
        QTest::ignoreMessage(QtWarningMsg, "Could not find iTunes folder in Music or Documents.");
        QCOMPARE(location.musicLibraryPath(), std::nullopt);
        QVERIFY(QDir(mHome->path()).mkpath(u"disc/it"_s));
        QVERIFY(QDir(mHome->path()).mkpath(u"Music"_s));
        QVERIFY(QFile::link(u"../disc/it"_s, at(u"Music/iTunes"_s)));
        const QString found = QFileInfo(at(u"disc/it"_s)).canonicalFilePath();
        QTest::ignoreMessage(QtWarningMsg, "Could not find iTunes preferences file");
        QCOMPARE(location.musicLibraryPath(), found);
        QVERIFY(QDir(mHome->path()).rename(u"disc"_s, u"disc2"_s));
        QCOMPARE(location.musicLibraryPath(), found); // for the life of the process
    }

    void choosing()
    {
        using Chosen = const char *;
        const std::tuple<int, int, Chosen> rows[] = {
            // ages, -1: none
            {29 * day, -1, inMusic},
            {-1, 30 * day - 1, inDocuments},
            {30 * day, -1, nullptr},
            {2 * day, day, inDocuments},
            {day, day, inMusic}, // the first of equals
            {40 * day, day, inDocuments}, // an old one does not hide a new one
            {-1, -1, nullptr}};
        for (const auto &[ageInMusic, ageInDocuments, chosen] : rows) {
            init();
            if (ageInMusic >= 0)
                makeLibrary(inMusic, ageInMusic);
            if (ageInDocuments >= 0)
                makeLibrary(inDocuments, ageInDocuments);
            LibraryLocation location(mClock);
            QCOMPARE(location.canGetMusicLibraryDictionary(), chosen != nullptr);
            QCOMPARE(location.libraryFilePath().value_or(QString()),
                     chosen ? QFileInfo(at(QLatin1String(chosen))).canonicalFilePath() : QString());
            QCOMPARE(location.musicLibraryDictionary().has_value(), chosen != nullptr);
        }
    }

    void theLibraryIsReadAnewEachTime()
    {
        makeLibrary(inMusic, day);
        LibraryLocation location(mClock);
        QVERIFY(location.musicLibraryDictionary()->tracks().empty());
        makeLibrary(inMusic, day, "<key>7</key><dict/>"); // not even the date changed
        QCOMPARE(location.musicLibraryDictionary()->tracks().size(), size_t(1));
        makeLibrary(inMusic, day, "<dict>");
        const QRegularExpression log(u"^Could not read music library /.* \\(line 1: "_s);
        QTest::ignoreMessage(QtWarningMsg, log);
        QCOMPARE(location.musicLibraryDictionary(), std::nullopt);
    }
};

QTEST_GUILESS_MAIN(TestLibraryLocation)
#include "tst_librarylocation.moc"
