// The CPU time and memory of reading a library file of iTunes, which $TAGWRIGHT_LIBRARY names
// (bench/makelibrary.py makes one), and what a pass of Qt's XML reader over the same file takes.
#include "itunes/libraryreader.h"
#include "itunes/tracklocation.h"

#include <QFile>
#include <QXmlStreamReader>

#include <benchmark/benchmark.h>

#include <malloc.h>

namespace {

QString libraryPath()
{
    return qEnvironmentVariable("TAGWRIGHT_LIBRARY");
}

void bareXmlPass(benchmark::State &state)
{
    for (auto _ : state) {
        QFile file(libraryPath());
        if (!file.open(QIODevice::ReadOnly))
            state.SkipWithError("no library");
        QXmlStreamReader xml(&file);
        while (!xml.atEnd())
            xml.readNext();
        if (xml.hasError())
            state.SkipWithError("no XML");
    }
}
BENCHMARK(bareXmlPass)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(5);

double megabytesInUse()
{
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1e6;
}

void readLibrary(benchmark::State &state)
{
    for (auto _ : state) {
        const double before = megabytesInUse();
        const LibraryReading reading = readLibraryFile(libraryPath());
        if (!reading.library)
            return state.SkipWithError(qPrintable(reading.problem));
        state.counters["MB"] = megabytesInUse() - before;
        state.counters["tracks"] = static_cast<double>(reading.library->tracks().size());
    }
}
BENCHMARK(readLibrary)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(5);

void locateTracks(benchmark::State &state)
{
    const LibraryReading reading = readLibraryFile(libraryPath());
    MovedFolders moved;
    moved.add(QStringLiteral("file:///Users/ana/Music"), QStringLiteral("/home/ana/Music"));
    for (auto _ : state)
        for (const LibraryTrack &track : reading.library->tracks())
            benchmark::DoNotOptimize(pathOfLocation(track.location, moved));
}
BENCHMARK(locateTracks)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(5);

} // namespace
