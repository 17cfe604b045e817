#include "cli/democommand.h"

#include "cli/demoreport.h"
#include "cli/gatherrun.h"
#include "cli/interrupt.h"
#include "cli/songopening.h"
#include "demo/samplesites.h"
#include "demo/samplesongs.h"

#include <QDir>
#include <QTemporaryDir>

namespace {

std::vector<SongView> viewsOf(const SongList &songs)
{
    std::vector<SongView> views;
    for (const auto &song : songs) {
        song->uncacheInfotag(); // what stands in the file counts
        const AudioInfoTag *tag = song->infotag();
        views.push_back(tag ? viewOf(*tag) : SongView());
    }
    return views;
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

/// One source after the other, so that the same source fills the same field every time.
GatheringOptions demoOptions(Assets overwrite)
{
    GatheringOptions options;
    for (const AssetName &name : assetNames)
        options.gather |= name.asset;
    options.overwrite = overwrite;
    options.albumPickingMethod = AlbumPick::EarliestYear;
    return options;
}

/// The demo's runs over its folders, and what they report.
class Demo {
public:
    Demo(Engine &engine, Report &report)
        : mEngine(engine)
        , mReport(report)
    {
    }

    void gather(const QString &folder, Assets overwrite)
    {
        const SongList songs = songsIn(folder, mReport);
        const std::vector<SongView> before = viewsOf(songs);
        std::vector<SongOutcome> outcomes;
        GatherRun(mEngine, songs, mInterrupt)
            .run(demoOptions(overwrite), {.dialect = ID3Dialect::standard()}, WriteSongs::Yes,
                 [&outcomes](const SongOutcome &outcome) { outcomes.push_back(outcome); });
        const std::vector<SongView> after = viewsOf(songs);
        for (std::size_t i = 0; i < outcomes.size(); ++i)
            mReport.text(changesAsText(before[i], after[i], outcomes[i]) + u'\n');
        mOutcomes.insert(mOutcomes.end(), outcomes.begin(), outcomes.end());
    }

    void summarize()
    {
        const auto filled = std::count_if(mOutcomes.begin(), mOutcomes.end(),
                                          [](const SongOutcome &each) { return each.written; });
        mReport.text(
            QStringLiteral("Fields filled by each source (library: another song of the album)\n")
            + sourcesAsTable(mOutcomes, mEngine.definitions.liveResources().sourcelist()));
        mReport.text(QStringLiteral("\n%1 songs, %2 filled in from the sample sites; nothing of "
                                    "yours was touched.")
                         .arg(mOutcomes.size())
                         .arg(filled));
    }

private:
    Engine &mEngine;
    Report &mReport;
    const Interrupt mInterrupt;
    std::vector<SongOutcome> mOutcomes;
};

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

    Demo demo(engine, report);
    demo.gather(folder.filePath(songsWithGaps), {});
    // Where titles may be overwritten, none is searched for: lyrics would not be found.
    demo.gather(folder.filePath(songsWithoutTitles), AssetSongTitle);
    demo.summarize();
    return report.finish();
}
