#include "gathering/pathnames.h"

#include "support/table.h"

using namespace Qt::StringLiterals;

class TestPathNames : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void namesAreReadFromPaths_data()
    {
        // "artist|album|title", "-" for none; "+" in front: of various artists
        const Table<QString, QString> row("path", "names");
        const auto is = [&](const char *path, const char *names) {
            row(path, QString::fromUtf8(path), QString::fromUtf8(names));
        };
        is("Music/Nila Oster - Harbour Lights.mp3", "Nila Oster|-|Harbour Lights");
        is("Nila_Oster_-_Harbour_Lights.mp3", "Nila Oster|-|Harbour Lights");
        is("Pop/Hits/Nila Oster - Harbour Lights.mp3", "Nila Oster|-|Harbour Lights");
        is("Nila Oster/Salt & Iron/Nila Oster - Ebb.mp3", "Nila Oster|Salt & Iron|Ebb");
        is("Nila Oster/Salt & Iron/03 Ebb.mp3", "Nila Oster|Salt & Iron|Ebb");
        is("Nila Oster/Salt & Iron/Ebb.mp3", "Nila Oster|Salt & Iron|Ebb");
        is("Nila Oster - Salt & Iron/03 - Ebb.mp3", "Nila Oster|Salt & Iron|Ebb");
        is("Nila Oster - 2007 - Salt & Iron [FLAC]/3. Ebb.mp3", "Nila Oster|Salt & Iron|Ebb");
        is("Nila Oster/1999 - Salt & Iron (1999)/CD 2/2-03 Ebb.mp3", "Nila Oster|Salt & Iron|Ebb");
        is("Nila Oster/Low Tide (Live)/(12) Ebb.m4a", "Nila Oster|Low Tide (Live)|Ebb");
        is("x/03 - Nila Oster - Ebb.mp3", "Nila Oster|x|Ebb");
        is("Nila Oster - 03 - Ebb.mp3", "Nila Oster|-|Ebb");
        is("Nila Oster - Salt & Iron - 03 - Ebb.mp3", "Nila Oster|Salt & Iron|Ebb");
        is("Nila Oster/Salt/Salt - 03 - Ebb.mp3", "Nila Oster|Salt|Ebb");
        is("Nila Oster - Ebb - Live.mp3", "Nila Oster|-|Ebb - Live");
        is("Various Artists - Pier/03 Nila Oster - Ebb.mp3", "+Nila Oster|Pier|Ebb");
        is("Music/Nila Oster/Ebb.mp3", "Nila Oster|-|Ebb");
        is("Music/Salt & Iron/03 Ebb.mp3", "-|Salt & Iron|Ebb");
        is("Nila Oster/Salt/99 Red Kites.mp3", "Nila Oster|Salt|99 Red Kites");
        is("Nila Oster/Salt/7 Tides.mp3", "Nila Oster|Salt|7 Tides");
        is("Nila Oster - 1979.mp3", "Nila Oster|-|1979");
        is("Nila Oster/Salt/03.mp3", "Nila Oster|Salt|-");
        is("Unknown Artist/Unknown Album/Track 03.mp3", "-|-|-");
        is("/home/ann/Ebb.mp3", "-|-|Ebb");
        is("/home/ann/Nila Oster/Salt/Ebb.mp3", "Nila Oster|Salt|Ebb");
        is(" - .mp3", "-|-|-");
        is("/", "-|-|-");
    }
    void namesAreReadFromPaths()
    {
        QFETCH(QString, path);
        const PathNames names = namesOfPath(path, u"/home/ann"_s);
        const QString none = u"-"_s;
        const QStringList read{names.artist.value_or(none), names.album.value_or(none),
                               names.title.value_or(none)};
        QTEST((names.isOfVarious ? u"+"_s : QString()) + read.join(u'|'), "names");
    }
};

QTEST_GUILESS_MAIN(TestPathNames)
#include "tst_pathnames.moc"
