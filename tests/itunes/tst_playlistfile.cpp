#include "itunes/playlistfile.h"
#include "support/cases.h"
#include "support/tempfiles.h"

using namespace Qt::StringLiterals;

class TestPlaylistFile : public QObject {
    Q_OBJECT

    QTemporaryDir mFolder;
    [[nodiscard]] QString at(const QString &name) const { return mFolder.filePath(name); }
    /// The paths without our folder.
    [[nodiscard]] QString namesOf(const QStringList &paths) const
    {
        return paths.join(u'|').remove(mFolder.path() + u'/');
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(QDir(mFolder.path()).mkpath(u"lists/Öster"_s));
        for (const QString &name :
             {u"a.mp3"_s, u"lists/b.mp3"_s, u"lists/Öster/c #1.mp3"_s, u"lists/100%20.mp3"_s})
            writeFile(at(name), "x");
    }

    void entries_data()
    {
        const Table<QString, QByteArray, QString, QString> row("ending", "bytes", "paths",
                                                               "missing");
        addCases(row, "playlistentries");
        row("not there", u"m3u"_s, QByteArray("gone.mp3\n.\nb.mp3\n/x\0y.mp3", 25),
            u"lists/b.mp3"_s, QString(u"lists/gone.mp3|lists|/x"_s + QChar(u'\0') + u"y.mp3"_s));
    }

    void entries()
    {
        QFETCH(QString, ending);
        QFETCH(QByteArray, bytes);
        MovedFolders moved;
        moved.add(u"C:\\Users\\Ana"_s, at(u"lists"_s));
        writeFile(at(u"lists/My list."_s + ending), bytes);
        const PlaylistReading read = readPlaylistFile(at(u"lists/My list."_s + ending), moved);
        QCOMPARE(read.problem, QString());
        QCOMPARE(read.playlist->name, u"My list"_s);
        QTEST(namesOf(read.playlist->paths), "paths");
        QTEST(namesOf(read.playlist->missing), "missing");
    }

    void refused()
    {
        const std::tuple<QString, QByteArray, QString> lists[] = {
            {u"x.m3u"_s, QByteArray("a\n").repeated(200'001), u"more than 200000 entries"_s},
            {u"x.pls"_s, QByteArray((32 << 20) + 1, '\n'), u"larger than 32 MB"_s},
            {u"x.xspf"_s, "#EXTM3U", u"line 1: Start tag expected."_s},
            {u"x.xspf"_s, "<playlist>" + QByteArray("<a>").repeated(99), u"line 1: nested"_s},
            {u"x.xspf"_s, "<html/>", u"line 1: <html> instead of <playlist>"_s},
            {u"x.xspf"_s, "<!DOCTYPE a [<!ENTITY a 'a'>]><playlist/>", u"line 1: a document"_s}};
        for (const auto &[name, bytes, problem] : lists) {
            writeFile(at(name), bytes);
            QCOMPARE(readPlaylistFile(at(name)).problem.left(problem.size()), problem);
        }
    }

    void playlistsOfAFolder()
    {
        QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkpath(u"Music/b/.hidden"_s));
        for (const QString &name : {u"z.m3u8"_s, u"b/a.XSPF"_s, u"b/y.pls"_s, u"b/.hidden/x.m3u"_s,
                                    u"m3u"_s, u"song.mp3"_s})
            writeFile(folder.filePath(u"Music/"_s + name), {});
        QVERIFY(QFile::link(folder.path(), folder.filePath(u"Music/b/back"_s)));
        const QString found = playlistFilesBelow(folder.filePath(u"Music"_s)).join(u'|');
        QCOMPARE(QString(found).remove(folder.path()),
                 u"/Music/b/a.XSPF|/Music/b/y.pls|/Music/z.m3u8"_s);
        QVERIFY(playlistFilesBelow(u"/nowhere"_s).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestPlaylistFile)
#include "tst_playlistfile.moc"
