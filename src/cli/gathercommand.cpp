#include "cli/gathercommand.h"

#include "app/songsources.h"
#include "app/usersources.h"
#include "base/interrupt.h"
#include "cli/chosendefinitions.h"
#include "cli/chosenoptions.h"
#include "cli/gathersummary.h"
#include "cli/retrysongs.h"
#include "cli/sourceloading.h"

#include <QFileInfo>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

std::vector<SongSource> sourcesOf(const Arguments &arguments, const PrefsController &prefs,
                                  RetrySongs &retries, Report &report)
{
    std::vector<SongSource> sources;
    if (arguments.retry)
        sources.push_back(pathsSource(retries.paths()));
    if (!arguments.paths.isEmpty())
        sources.push_back(pathsSource(arguments.paths));
    if (arguments.library) {
        if (auto library = usersLibrary(prefs))
            sources.push_back(*std::move(library));
        else
            report.error(u"--library"_s, qtTrId("ErrorNoLibrary"));
    }
    if (arguments.playlist)
        sources.push_back(usersPlaylist(prefs, *arguments.playlist));
    return sources;
}

/// The songs of all sources, each once, at its first place.
SongList loadedSongs(const std::vector<SongSource> &sources, const ReadOptions &options,
                     SourceLoading &loading)
{
    SongList songs;
    QSet<QString> paths;
    for (const SongSource &source : sources) {
        for (const auto &song : loading.load(source, options)) {
            const auto known = paths.size();
            paths.insert(QFileInfo(song->path()).absoluteFilePath());
            if (paths.size() > known)
                songs.push_back(song);
        }
    }
    return songs;
}

void tellOutcome(const SongOutcome &outcome, Detail detail, Report &report)
{
    if (report.format() == ReportFormat::JsonLines)
        report.object(outcomeAsJson(outcome));
    else
        report.text(outcomeAsText(outcome, detail));
    report.flush();
    if (outcome.failed)
        report.error(outcome.song->path(), outcome.error.value_or(QString()));
}

SongOutcome failedOutcome(const QString &path, const QString &reason, const ReadOptions &options)
{
    SongOutcome outcome;
    outcome.song = std::make_shared<SongFile>(path, options);
    outcome.failed = true;
    outcome.error = reason;
    return outcome;
}

void tellSummary(const GatherRun::Summary &summary, const SummaryManner &manner, Report &report)
{
    if (report.format() == ReportFormat::JsonLines)
        report.object({{u"summary"_s, summaryAsJson(summary)}});
    else
        report.text(summaryAsText(summary, manner));
    if (summary.cancelled)
        report.setFailed();
}

} // namespace

int runGather(const Arguments &arguments, Report &report)
{
    const Interrupt interrupt; // also while the songs are collected
    Engine engine;
    if (!useChosenDefinitions(arguments, engine, report))
        return ExitStatus::wrongArguments;
    engine.start(arguments.definitions ? Engine::Definitions::Fixed : Engine::Definitions::Live);

    if (arguments.identify && engine.prefs.acoustIDKey().isEmpty()) {
        report.error(u"--identify"_s, qtTrId("ErrorNoAcoustIDKey"));
        return ExitStatus::wrongArguments;
    }
    const WriteSongs write = arguments.dryRun ? WriteSongs::No : WriteSongs::Yes;
    const GatheringOptions options = gatheringOptionsOf(arguments, engine.prefs);
    const Detail detail = arguments.verbose ? Detail::Verbose : Detail::Calm;
    // Who is to be known by the sound is asked about the artist, too.
    const Assets wanted = options.gather | (options.identify ? AssetArtist : Assets());
    RetrySongs retries(wanted, write, report);
    const auto tell = [&report, &retries, detail](const SongOutcome &outcome) {
        tellOutcome(outcome, detail, report);
        retries.note(outcome);
    };
    const ReadOptions reading = readOptionsOf(arguments, engine.prefs);
    int refused = 0;
    SourceLoading loading(engine, interrupt, report,
                          [&](const QString &path, const QString &reason) {
                              ++refused;
                              tell(failedOutcome(path, reason, reading));
                          });
    const SongList songs =
        loadedSongs(sourcesOf(arguments, engine.prefs, retries, report), reading, loading);
    GatherRun::Summary summary{.cancelled = true};
    if (!loading.isCancelled())
        summary = GatherRun(engine, songs, interrupt)
                      .run(options, writeOptionsOf(arguments, engine.prefs), write, tell);
    summary.processed += refused;
    summary.failed += refused;
    tellSummary(summary, {write, detail}, report);
    retries.save();
    return report.finish();
}
