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

/// The values in the order of their keys.
QStringList linesOf(const std::vector<LibraryTrack> &tracks)
{
    QStringList lines;
    for (const LibraryTrack &track : tracks)
        lines << QString::number(track.id) + u' '
                + QVariant(track.trackInfo().values()).toStringList().join(u'|');
    return lines;
}

} // namespace

class TestLibraryReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anExample()
    {
        const QStringList expected{
            u"100 Salt & Iron|Nila Öster|Folk|MPEG audio file|file://localhost/Users/ana/Music/"
            "iTunes/iTunes%20Music/Nila%20O%CC%88ster/Salt%20&%20Iron/03%20Harbour%20Lights.mp3|"
            "Harbour Lights|12|3|2007"_s,
            u"20 Nila Öster|AAC-Audiodatei|file:///Users/ana/Music/100%25/"
            "Tidewater%20Road%20%232.m4a|Tidewater Road #2"_s,
            u"31 MPEG audio stream|http://radio.example/stream|Radio Saltmarsh"_s,
            u"32 Apple Music AAC audio file|Only in the Cloud"_s};
        for (const char *path :
             {"corpus/libraryfile/example.xml", "corpus/libraryfile/example.bplist"}) {
            const LibraryReading read = readLibraryFile(testData(path));
            QCOMPARE(read.problem, QString());
            QCOMPARE(linesOf(read.library->tracks()), expected);
            QCOMPARE(read.library->trackWithID(20), &read.library->tracks()[1]);
            QVERIFY(!read.library->trackWithID(777));
        }
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
        // Of two tracks with one key the last counts; a number that does not fit is the nearest.
        QCOMPARE(linesOf(read.library->tracks()), (QStringList{u"2 |2147483647"_s, u"0 1987"_s}));
        const auto &lists = read.library->playlists();
        QCOMPARE(lists.size(), size_t(2));
        QCOMPARE(lists[0].name + lists[0].specialKind, u"none"_s);
        QCOMPARE(lists[0].trackIDs, (std::vector<int>{2, 0}));
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
        row("too many playlists", library({}, QByteArray("<dict/>").repeated(200'001)),
            u"more than 200000 playlists"_s);
        row("nesting bomb", "<plist><dict><key>a</key>" + QByteArray("<array>").repeated(1'000'000),
            u"deeper than 64"_s);
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
