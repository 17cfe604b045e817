// Loads a folder into the song list and tells how that went:
//
//     measure_songlist load FOLDER CACHE     wall time, longest turn of the event loop, memory
//     measure_songlist fill CACHE COUNT      makes a cache of so many summaries of no songs

#include "app/songlist.h"
#include "app/songsources.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdio>
#include <malloc.h>

namespace {

/// Of this thread, in nanoseconds: other programs that take the processor do not count.
qint64 processorTime()
{
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return qint64(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

/// Measures each event that it hands on.
class TimedApplication : public QCoreApplication {
public:
    using QCoreApplication::QCoreApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        QElapsedTimer time;
        time.start();
        const qint64 before = processorTime();
        const bool isHandled = QCoreApplication::notify(receiver, event);
        longest = std::max(longest, time.nsecsElapsed());
        busiest = std::max(busiest, processorTime() - before);
        return isHandled;
    }

    qint64 longest = 0; ///< nanoseconds
    qint64 busiest = 0; ///< nanoseconds of the processor
};

double residentMB()
{
    ::malloc_trim(0);
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toDouble() * 4096 / 1e6;
}

int load(TimedApplication &application, const QString &folder, const QString &cacheFolder)
{
    SongFileInfoCache cache(cacheFolder);
    UserLog log;
    LoadedSongs list(cache, log);
    const double before = residentMB();
    QObject::connect(&list, &LoadedSongs::loadFinished, &application, &QCoreApplication::quit);
    QElapsedTimer time;
    time.start();
    list.load(*folderSource(folder), {.dialect = ID3Dialect::standard()});
    QCoreApplication::exec();
    const double wall = static_cast<double>(time.nsecsElapsed()) / 1e6;
    const auto songs = static_cast<double>(list.allSongs().size());
    cache.detach();
    std::printf("%.0f songs, %.1f ms, longest turn %.2f ms, %.0f bytes a song, "
                "busiest turn %.2f ms of the processor\n",
                songs, wall, static_cast<double>(application.longest) / 1e6,
                (residentMB() - before) * 1e6 / std::max(songs, 1.0),
                static_cast<double>(application.busiest) / 1e6);
    return 0;
}

/// Twelve songs an album, the folders named like albums.
int fill(const QString &cacheFolder, int count)
{
    SongFileInfoCache cache(cacheFolder);
    for (int number = 0; number < count; ++number) {
        const int album = number / 12;
        const QString name = QString::number(quint64(album) * 2654435761 % 4294967291, 36);
        CachedInfo info;
        info.modDate = {number, number};
        info.title = QStringLiteral("Harbour Light %1").arg(number);
        info.artist = QStringLiteral("Artist %1").arg(album / 3);
        info.album = QStringLiteral("Album %1").arg(name);
        info.track = QStringLiteral("%1/12").arg(number % 12 + 1);
        info.year = QString::number(1960 + album % 60);
        info.genre = QStringLiteral("Rock");
        cache.storeInfo(info,
                        QStringLiteral("/music/%1/%2/%3.mp3").arg(info.artist, name).arg(number));
    }
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    TimedApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("load") && argc == 4)
        return load(application, arguments[2], arguments[3]);
    if (arguments.value(1) == QLatin1String("fill") && argc == 4)
        return fill(arguments[2], arguments[3].toInt());
    std::fputs("measure_songlist load FOLDER CACHE | fill CACHE COUNT\n", stderr);
    return 2;
}
