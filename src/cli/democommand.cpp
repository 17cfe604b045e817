#include "cli/democommand.h"

#include "base/interrupt.h"
#include "cli/demoreport.h"
#include "cli/gatherrun.h"
#include "cli/songopening.h"
#include "demo/sampleground.h"
#include "demo/samplesongs.h"

#include <QDir>

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
    Demo(Engine &engine, const Interrupt &interrupt, Report &report)
        : mEngine(engine)
        , mInterrupt(interrupt)
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
    const Interrupt &mInterrupt;
    Report &mReport;
    std::vector<SongOutcome> mOutcomes;
};

} // namespace

int runDemo(Report &report)
{
    const Interrupt interrupt; // before there is a folder that has to go
    SampleGround ground;
    if (!ground.error().isEmpty()) {
        report.error(QStringLiteral("demo"), ground.error());
        return report.finish();
    }
    Demo demo(ground.engine(), interrupt, report);
    const QDir songs(ground.songs());
    demo.gather(songs.filePath(songsWithGaps), {});
    // Where titles may be overwritten, none is searched for: lyrics would not be found.
    demo.gather(songs.filePath(songsWithoutTitles), AssetSongTitle);
    demo.summarize();
    return report.finish();
}
