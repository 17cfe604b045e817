#include "itunes/tracklocation.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

class TestTrackLocation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void locations_data()
    {
        const Table<QString, QString> row("location", "path");
        row("old Mac", u"file://localhost/Users/ana/A%20B.mp3"_s, u"/Users/ana/A B.mp3"_s);
        row("Mac", u"file:///Users/ana/A.mp3"_s, u"/Users/ana/A.mp3"_s);
        row("Windows", u"file://localhost/C:/Users/Ana/A.mp3"_s, u"/C:/Users/Ana/A.mp3"_s);
        row("drive as the host", u"file://C:/A.mp3"_s, u"/C:/A.mp3"_s);
        row("share", u"file://localhost//SERVER/share/A.mp3"_s, u"/SERVER/share/A.mp3"_s);
        row("slash after the name", u"file://localhost/m/Hive.mp3/"_s, u"/m/Hive.mp3"_s);
        row("no host", u"file:/m/a.mp3"_s, u"/m/a.mp3"_s);
        row("decomposed stays", u"file:///m/u%CC%88.mp3"_s, u"/m/u\u0308.mp3"_s);
        row("Latin-1", u"file:///m/%DC%20x.mp3"_s, u"/m/Ü x.mp3"_s);
        row("not escaped", u"file:///m/é&a+b;#c?d.mp3"_s, u"/m/é&a+b;#c?d.mp3"_s);
        row("escaped", u"file:///m/%23%25%2b%2F%3f.mp3"_s, u"/m/#%+/?.mp3"_s);
        row("no escapes", u"file:///m/100%/%zz%4"_s, u"/m/100%/%zz%4"_s);
        row("no way up", u"file:///m/%2e%2e/../../etc/./x"_s, u"/etc/x"_s);
        row("zero character", u"file:///m/a%00.mp3"_s, {});
        row("relative", u"file:m/a.mp3"_s, {});
        row("stream", u"http://radio.example/a.mp3"_s, {});
        row("held by a moved folder", u"file://localhost/Users/ana/Music/a/b.mp3"_s,
            u"/home/ana/m/a/b.mp3"_s);
        row("the longest one counts", u"file:///Users/ana/Music/Old/b.mp3"_s, u"/mnt/old/b.mp3"_s);
        row("whole names", u"file:///Users/ana/Music2/b.mp3"_s, u"/Users/ana/Music2/b.mp3"_s);
        row("another case", u"file:///users/Ana/MUSIC/B.mp3"_s, u"/home/ana/m/B.mp3"_s);
        row("drive that moved", u"file://localhost/c:/Users/Ana/Music/b.mp3"_s, u"/mnt/c/b.mp3"_s);
        row("share that moved", u"file://localhost//SERVER/Music/b.mp3"_s, u"/mnt/share/b.mp3"_s);
        row("decomposed, added composed", u"file:///Bu%CC%88cher/u%CC%88.mp3"_s,
            u"/mnt/b/u\u0308.mp3"_s);
        row("no way out", u"file:///Users/ana/Music/../../b.mp3"_s, u"/Users/b.mp3"_s);
        row("to a relative folder: not moved", u"file:///relative/b.mp3"_s, u"/relative/b.mp3"_s);
    }

    void locations()
    {
        MovedFolders moved;
        moved.add(u"file:///Users/ana/Music"_s, u"/home/ana/m/"_s);
        moved.add(u"file://localhost/Users/ana/Music/Old/"_s, u"/mnt/old"_s);
        moved.add(u"C:\\Users\\Ana\\Music"_s, u"/mnt/c"_s);
        moved.add(u"\\\\server\\music"_s, u"/mnt/share"_s);
        moved.add(u"/Bücher"_s, u"/mnt/b"_s);
        moved.add(u"/relative"_s, u"music"_s);
        QFETCH(QString, location);
        QTEST(pathOfLocation(location, moved).value_or(QString()), "path");
    }
};

QTEST_GUILESS_MAIN(TestTrackLocation)
#include "tst_tracklocation.moc"
