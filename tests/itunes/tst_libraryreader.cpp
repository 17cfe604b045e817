#include "itunes/libraryreader.h"
#include "support/table.h"

#include <QBuffer>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

LibraryReading reading(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return readLibraryFile(&buffer);
}

QByteArray library(const QByteArray &tracks, const QByteArray &playlists = {})
{
    return "<plist><dict><key>Playlists</key><array>" + playlists
        + "</array><key>Tracks</key><dict>" + tracks + "</dict></dict></plist>";
}

QString testData(const char *name)
{
    return qEnvironmentVariable("TAGWRIGHT_TEST_DATA") + u'/' + QLatin1String(name);
}

QByteArray nested(int levels)
{
    return "<plist><dict><key>Unknown</key>" + QByteArray("<array>").repeated(levels)
        + QByteArray("</array>").repeated(levels) + "</dict></plist>";
}

} // namespace

class TestLibraryReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anExample_data()
    {
        const Table<QString> row("path");
        row("XML", testData("corpus/libraryfile/example.xml"));
        row("binary", testData("corpus/libraryfile/example.bplist"));
    }

    void anExample()
    {
        QFETCH(QString, path);
        const LibraryReading read = readLibraryFile(path);
        QCOMPARE(read.problem, QString());
        QList<int> ids;
        for (const LibraryTrack &track : read.library->tracks())
            ids << track.id;
        QCOMPARE(ids, QList<int>({100, 20, 31, 32})); // as texts
        QVERIFY(!read.library->trackWithID(777));
        QCOMPARE(read.library->trackWithID(32)->location, QString());
        const QVariantMap expected{
            {u"Kind"_s, u"MPEG audio file"_s},
            {u"Name"_s, u"Harbour Lights"_s},
            {u"Artist"_s, u"Nila Öster"_s},
            {u"Album"_s, u"Salt & Iron"_s},
            {u"Genre"_s, u"Folk"_s},
            {u"Year"_s, 2007},
            {u"Track Number"_s, 3},
            {u"Track Count"_s, 12},
            {u"Location"_s,
             u"file://localhost/Users/ana/Music/iTunes/iTunes%20Music/Nila%20O%CC%88ster/"
             "Salt%20&%20Iron/03%20Harbour%20Lights.mp3"_s}};
        QCOMPARE(read.library->trackWithID(100)->trackInfo(), expected);
    }

    void kindsOfPlaylists()
    {
        QStringList lists;
        const LibraryReading read = readLibraryFile(testData("corpus/libraryfile/example.xml"));
        for (const LibraryPlaylist &list : read.library->playlists())
            lists << u"%1 %2|%3|%4"_s.arg(list.id)
                         .arg(list.name, list.specialKind)
                         .arg(list.trackIDs.size())
                    + (list.isMaster ? u" master"_s : u""_s) + (list.isSmart ? u" smart"_s : u""_s);
        const QStringList expected{u"900 Library|none|4 master"_s,
                                   u"901 Music|Music|0"_s,
                                   u"902 Party Shuffle|Party Shuffle|0"_s,
                                   u"903 Recently Added|none|1 smart"_s,
                                   u"904 Boat Trips|folder|0"_s,
                                   u"905 Road & Sea|none|4"_s,
                                   u"906 Empty|none|0"_s};
        QCOMPARE(lists, expected);
        QCOMPARE(read.library->playlists()[5].trackIDs, (std::vector<int>{20, 100, 20, 777}));
    }

    void otherTypesCountAsMissing()
    {
        const LibraryReading read = readLibraryFile(testData("broken/libraryfile/wrong-types.xml"));
        QCOMPARE(read.problem, QString());
        const auto &tracks = read.library->tracks();
        QCOMPARE(tracks.size(), size_t(2));
        // Of two tracks with one key the last counts; a number that does not fit is the nearest.
        QCOMPARE(tracks[0].trackInfo(),
                 (QVariantMap{{u"Name"_s, u""_s}, {u"Track Number"_s, 2147483647}}));
        QCOMPARE(tracks[1].trackInfo(), (QVariantMap{{u"Year"_s, 1987}}));
        const auto &lists = read.library->playlists();
        QCOMPARE(lists.size(), size_t(2));
        QCOMPARE(lists[0].name, QString());
        QCOMPARE(lists[0].specialKind, u"none"_s);
        QCOMPARE(lists[0].trackIDs, (std::vector<int>{2, 0}));
        QVERIFY(lists[1].trackIDs.empty());
    }

    void forms_data()
    {
        const Table<QByteArray, QString> row("bytes", "problem"); // none: one track "é" is there
        const QByteArray track("<key>7</key><dict><key>Name</key><string>\xC3\xA9</string></dict>");
        const QByteArray whole = library(track);
        row("without a document type", whole, {});
        row("byte-order mark", "\xEF\xBB\xBF" + whole, {});
        row("Windows line ends", QByteArray(whole).replace("><", ">\r\n\t<"), {});
        row("references", QByteArray(whole).replace("\xC3\xA9", "&#233;"), {});
        row("an integer as a title of another", library(track + "<key>x</key><integer>1</integer>"),
            {});
        row("raw control character", QByteArray(whole).replace("\xC3\xA9", "\n\x01"),
            u"line 2: "_s);
        row("surrogates", QByteArray(whole).replace("\xC3\xA9", "&#55357;&#56832;"), u"line 1: "_s);
        row("another document", "<html></html>", u"<html> instead of <plist>"_s);
        row("another list", "<plist><array/></plist>", u"<array> instead of a dictionary"_s);
        row("no XML", "ID3\x03", u"line 1: "_s);
        row("empty", "", u"line 1: "_s);
        row("half a binary list", "bplist00", u"too short"_s);
        row("no key", library("<dict/>"), u"<dict> where a key should be"_s);
        row("entities", "<!DOCTYPE plist [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>" + whole,
            u"declarations"_s);
        row("nesting bomb", nested(1'000'000), u"deeper than 64"_s);
    }

    void forms()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, problem);
        const LibraryReading read = reading(bytes);
        QVERIFY2(read.problem.contains(problem), qPrintable(read.problem));
        QCOMPARE(read.problem.isEmpty(), problem.isEmpty());
        QCOMPARE(read.library.has_value(), problem.isEmpty());
        if (read.library)
            QCOMPARE(read.library->trackWithID(7)->name, u"é"_s);
    }

    void halfAFileIsNoLibrary()
    {
        const QByteArray whole =
            library("<key>7</key><dict><key>Name</key><string>x</string></dict>",
                    "<dict><key>Playlist Items</key><array/></dict>");
        QVERIFY(reading(whole).library);
        for (qsizetype length = 0; length < whole.size(); ++length)
            QVERIFY(reading(whole.first(length)).problem.startsWith(u"line 1: "));
        QVERIFY(!readLibraryFile(QDir::tempPath()).problem.isEmpty());
        QVERIFY(!readLibraryFile(u"/nowhere.xml"_s).problem.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestLibraryReader)
#include "tst_libraryreader.moc"
