#include "itunes/tracklocation.h"
#include "support/cases.h"

using namespace Qt::StringLiterals;

class TestTrackLocation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void locations_data()
    {
        const Table<QString, QString> row("location", "path");
        addCases(row, "tracklocations");
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
