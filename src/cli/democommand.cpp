#include "cli/democommand.h"

#include "cli/gatherrun.h"
#include "cli/interrupt.h"
#include "cli/songopening.h"
#include "demo/samplesites.h"
#include "demo/samplesongs.h"
#include "tags/tagfactory.h"

#include <QTemporaryDir>

namespace {

/// What the table shows of a song, in the order of its columns.
using Row = QStringList;

Row rowOf(SongFile &song)
{
    const AudioInfoTag *tag = song.infotag();
    Row row;
    for (const auto &text : {tag->title(), tag->artist(), tag->album(), tag->year(), tag->track(),
                             tag->genres(), tag->readVersion()})
        row << text.value_or(QStringLiteral("·"));
    row << QString::number(tag->numberOfImages());
    return row;
}

QString padded(const Row &row, const QList<qsizetype> &widths)
{
    QString line;
    for (qsizetype i = 0; i < row.size(); ++i)
        line += row[i].leftJustified(widths[i] + 2);
    return line.trimmed();
}

/// A table in which each song has two lines, before and after; a song that stayed as it was has
/// one.
QString table(const QList<Row> &before, const QList<Row> &after)
{
    const Row heads{QStringLiteral("Title"), QStringLiteral("Artist"),  QStringLiteral("Album"),
                    QStringLiteral("Year"),  QStringLiteral("Track"),   QStringLiteral("Genre"),
                    QStringLiteral("Tag"),   QStringLiteral("Pictures")};
    QList<qsizetype> widths;
    for (qsizetype i = 0; i < heads.size(); ++i) {
        qsizetype width = heads[i].size();
        for (const Row &row : before + after)
            width = std::max(width, row[i].size());
        widths << width;
    }
    QString text = QStringLiteral("         ") + padded(heads, widths);
    for (qsizetype i = 0; i < before.size(); ++i) {
        text += QStringLiteral("\nbefore   ") + padded(before[i], widths);
        text += before[i] == after[i] ? QStringLiteral("\nafter    (unchanged)")
                                      : QStringLiteral("\nafter    ") + padded(after[i], widths);
    }
    return text;
}

QList<Row> rowsOf(const SongList &songs)
{
    QList<Row> rows;
    for (const auto &song : songs) {
        song->uncacheInfotag();
        rows << rowOf(*song);
    }
    return rows;
}

SongList songsIn(const QString &folder, Report &report)
{
    const ReadOptions reading{.dialect = ID3Dialect::standard()};
    SongList songs;
    forEachPath(
        {folder}, [&](const FoundPath &found) { songs.push_back(openSong(found, reading).song); },
        [&report](const QString &path, const QString &reason) { report.error(path, reason); });
    return songs;
}

GatheringOptions demoOptions()
{
    GatheringOptions options;
    for (const AssetName &name : assetNames)
        options.gather |= name.asset;
    options.albumPickingMethod = AlbumPick::EarliestYear;
    options.parallelSearch = true;
    return options;
}

} // namespace

int runDemo(Report &report)
{
    const QTemporaryDir folder;
    QString error = folder.isValid() ? makeSampleSongs(folder.path()) : folder.errorString();
    SampleSites sites;
    if (error.isEmpty() && !sites.listen())
        error = QStringLiteral("no port of this machine can be listened on");
    if (!error.isEmpty()) {
        report.error(QStringLiteral("demo"), error);
        return report.finish();
    }
    // Pages of sites that live as long as this process are of no use to the next one.
    Engine engine(Engine::Pages::InMemory);
    engine.definitions.useDefinitions(sites.definitions(engine.definitions.liveResources()));
    engine.start(Engine::Definitions::Fixed);

    const SongList songs = songsIn(folder.path(), report);
    const QList<Row> before = rowsOf(songs);
    const Interrupt interrupt;
    const auto summary = GatherRun(engine, songs, interrupt)
                             .run(demoOptions(), {.dialect = ID3Dialect::standard()},
                                  WriteSongs::Yes, [](const SongOutcome &) {});
    report.text(table(before, rowsOf(songs)));
    report.text(QStringLiteral("\n%1 songs, %2 filled in from the sample sites; nothing of yours "
                               "was touched.")
                    .arg(summary.processed)
                    .arg(summary.modified));
    return report.finish();
}
