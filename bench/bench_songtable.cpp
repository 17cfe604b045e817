// Sorting and searching the songs table: a list of 100,000 songs and one of a million, with nothing
// prepared and with the keys at hand, and the same by comparing the tags themselves.
#include "app/songfilter.h"
#include "app/songsorting.h"
#include "songs/cachedinfotag.h"

#include <QRandomGenerator>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <malloc.h>
#include <numeric>

namespace {

constexpr int songsOfAlbum = 12;
constexpr int albumsOfArtist = 3;

QString randomName(QRandomGenerator &random, int words)
{
    static const QStringList vocabulary =
        QStringLiteral("harbour light neon rain paper moon the lantern glass river winter Été "
                       "Straße morning low water second floor window cellar anchor tide number 9 "
                       "part 10 live remastered 2004 blue machine of and for heart sound avenue")
            .split(u' ');
    QStringList name;
    for (int i = 0; i < words; ++i)
        name << vocabulary.at(random.bounded(vocabulary.size()));
    name[0][0] = name[0][0].toUpper();
    return name.join(u' ');
}

/// In the order of their folders, each album's songs sharing its texts.
SongList makeSongs(int count)
{
    QRandomGenerator random(1);
    SongList songs;
    CachedInfo info;
    for (int number = 0; number < count; ++number) {
        if (number % (songsOfAlbum * albumsOfArtist) == 0)
            info.artist = randomName(random, 3) + QString::number(number / 1000);
        if (number % songsOfAlbum == 0) {
            info.album = randomName(random, 4);
            info.year = QString::number(1960 + random.bounded(60));
            info.genre = randomName(random, 1);
        }
        info.title = randomName(random, 4);
        info.track = QStringLiteral("%1/12").arg(number % songsOfAlbum + 1);
        auto song = std::make_shared<SongFile>(
            QStringLiteral("/music/%1/%2.mp3").arg(info.artist).arg(number), ReadOptions());
        song->adoptInfotag(tagWithCachedInfo(std::make_shared<const CachedInfo>(info)));
        songs.push_back(std::move(song));
    }
    return songs;
}

const SongList &songsOf(const benchmark::State &state)
{
    static SongList songs;
    const auto count = static_cast<std::size_t>(state.range(0));
    if (songs.size() != count)
        songs = makeSongs(static_cast<int>(count));
    return songs;
}

QList<quint32> allPositions(const SongList &songs)
{
    QList<quint32> positions(static_cast<qsizetype>(songs.size()));
    std::iota(positions.begin(), positions.end(), 0U);
    return positions;
}

SortOutcome sortBy(SongColumn column, const SongKeys &keys, const QList<quint32> &positions)
{
    SortInput input{keysOfOrder(column), {}, positions, Qt::AscendingOrder};
    for (const SongKey key : std::as_const(input.keys))
        input.columns.append(keys.column(key));
    return sortedSongs(std::move(input));
}

QList<SongKeyColumn> filterColumns(const SongKeys &keys)
{
    QList<SongKeyColumn> columns;
    for (const SongKey key : keysOfFilter())
        columns.append(keys.column(key));
    return columns;
}

template<SongColumn column>
void sortFromNothing(benchmark::State &state)
{
    const SongList &songs = songsOf(state);
    const QList<quint32> positions = allPositions(songs);
    for (auto _ : state) {
        SongKeys keys;
        if (!keys.makeKeys(songs, keysOfOrder(column)))
            state.SkipWithError("no keys");
        benchmark::DoNotOptimize(sortBy(column, keys, positions));
    }
}

template<SongColumn column>
void sortWithKeysAtHand(benchmark::State &state)
{
    const SongList &songs = songsOf(state);
    const QList<quint32> positions = allPositions(songs);
    SongKeys keys;
    if (!keys.makeKeys(songs, keysOfOrder(column)))
        state.SkipWithError("no keys");
    const SortOutcome first = sortBy(column, keys, positions);
    const SongKeyList order = keysOfOrder(column);
    for (qsizetype i = 0; i < order.size(); ++i)
        keys.setRanks(order.at(i), first.ranks.at(i));
    for (auto _ : state)
        benchmark::DoNotOptimize(sortBy(column, keys, positions));
}

template<SongColumn column>
void sortByComparing(benchmark::State &state)
{
    const SongList &songs = songsOf(state);
    const auto comparison = infoOf(column).order;
    for (auto _ : state) {
        QList<quint32> positions = allPositions(songs);
        std::stable_sort(positions.begin(), positions.end(), [&](quint32 one, quint32 other) {
            return comparison(*songs[one], *songs[other]) < 0;
        });
        benchmark::DoNotOptimize(positions);
    }
}

/// What a keystroke costs: many songs match, few, none.
const QStringList &typedTexts()
{
    static const QStringList texts{QStringLiteral("r"), QStringLiteral("NEON"),
                                   QStringLiteral("straße 2004"), QStringLiteral("nothing at all")};
    return texts;
}

double bytesInUse()
{
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

void filterKeystroke(benchmark::State &state)
{
    const SongList &songs = songsOf(state);
    SongKeys keys;
    const double before = bytesInUse();
    if (!keys.makeKeys(songs, keysOfFilter()))
        state.SkipWithError("no keys");
    state.counters["bytesOfSong"] = (bytesInUse() - before) / static_cast<double>(songs.size());
    const QString &text = typedTexts().at(state.range(1));
    for (auto _ : state)
        benchmark::DoNotOptimize(songsThatMatch(text, filterColumns(keys)));
}

void filterByMatching(benchmark::State &state)
{
    const SongList &songs = songsOf(state);
    const QString &text = typedTexts().at(state.range(1));
    for (auto _ : state)
        for (const auto &song : songs)
            benchmark::DoNotOptimize(song->infotag()->matchString(text));
}

constexpr int many = 100'000;
constexpr int million = 1'000'000;

void sizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Unit(benchmark::kMillisecond)->Arg(many)->Arg(million);
}

void manySongs(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Unit(benchmark::kMillisecond)->Arg(many);
}

void keystrokes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Unit(benchmark::kMillisecond);
    for (const int count : {many, million})
        for (int text = 0; text < typedTexts().size(); ++text)
            benchmark->Args({count, text});
}

BENCHMARK(sortFromNothing<SongColumn::Title>)->Apply(sizes);
BENCHMARK(sortFromNothing<SongColumn::Artist>)->Apply(sizes);
BENCHMARK(sortWithKeysAtHand<SongColumn::Title>)->Apply(sizes);
BENCHMARK(sortWithKeysAtHand<SongColumn::Artist>)->Apply(sizes);
BENCHMARK(sortByComparing<SongColumn::Title>)->Apply(manySongs);
BENCHMARK(sortByComparing<SongColumn::Artist>)->Apply(manySongs);
BENCHMARK(filterKeystroke)->Apply(keystrokes);
BENCHMARK(filterByMatching)->Unit(benchmark::kMillisecond)->Args({many, 1});

} // namespace
