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

QByteArray library(const QByteArray &tracks)
{
    return "<plist><dict><key>Tracks</key><dict>" + tracks + "</dict></dict></plist>";
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
        QString kinds;
        const LibraryReading read = readLibraryFile(testData("corpus/libraryfile/example.xml"));
        const auto &lists = read.library->playlists();
        for (const LibraryPlaylist &list : lists)
            kinds += list.name
                + (list.isMaster      ? u"(M) "_s
                       : list.isSmart ? u"(S) "_s
                                      : u" "_s)
                + list.specialKind + u"; "_s;
        QCOMPARE(kinds,
                 u"Library(M) none; Music Music; Party Shuffle Party Shuffle; "
                 "Recently Added(S) none; Boat Trips folder; Road & Sea none; Empty none; "_s);
        QCOMPARE(lists[5].id, 905);
        QCOMPARE(lists[5].trackIDs, (std::vector<int>{20, 100, 20, 777}));
    }

    void otherTypesCountAsMissing()
    {
        const LibraryReading read = readLibraryFile(testData("broken/libraryfile/wrong-types.xml"));
        QCOMPARE(read.problem, u"8 values of unexpected types"_s);
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
        row("control character", QByteArray(whole).replace("\xC3\xA9", "\n\x01"), u"line 2: "_s);
        row("surrogates", QByteArray(whole).replace("\xC3\xA9", "&#55357;&#56832;"), u"line 1: "_s);
        row("another list", "<plist><array/></plist>", u"<array> instead of a dictionary"_s);
        row("too many playlists",
            "<plist><dict><key>Playlists</key><array>" + QByteArray("<dict/>").repeated(200'001),
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
        QCOMPARE(read.library ? read.library->trackWithID(7)->name : QString(),
                 problem.isEmpty() ? u"é"_s : QString());
    }

    void halfAFileIsNoLibrary()
    {
        const QByteArray whole = library("<key>7</key><dict><key>Name</key><real>1</real></dict>");
        QVERIFY(reading(whole).library);
        for (qsizetype length = 0; length < whole.size(); ++length)
            QVERIFY(reading(whole.first(length)).problem.startsWith(u"line 1: "));
        QCOMPARE(readLibraryFile(QDir::tempPath()).problem, u"not a file"_s);
    }
};

QTEST_GUILESS_MAIN(TestLibraryReader)
#include "tst_libraryreader.moc"
