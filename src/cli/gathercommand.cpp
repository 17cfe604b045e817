#include "cli/gathercommand.h"

#include "app/usersources.h"
#include "cli/chosenoptions.h"
#include "cli/gatherrun.h"
#include "cli/interrupt.h"
#include "cli/outcomereport.h"
#include "cli/songopening.h"
#include "cli/sourceloading.h"

#include <QFileInfo>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

/// The songs of the arguments. What is named and is no song is told of as a failed one.
class SongCollection {
public:
    SongCollection(const ReadOptions &options, const GatherRun::TellOutcome &tell, Report &report)
    {
        mAdd = [this, options, tell](const FoundPath &found) {
            OpenedSong opened = openSong(found, options);
            if (opened.song)
                songs.push_back(std::move(opened.song));
            else if (!opened.error.isEmpty())
                fail(found.path, opened.error, options, tell);
        };
        mProblem = [&report](const QString &path, const QString &reason) {
            report.error(path, reason);
        };
    }

    void collect(const QStringList &paths) { forEachPath(paths, mAdd, mProblem); }

    /// Songs that are there already are not taken twice.
    void add(const SongList &more)
    {
        QSet<QString> known;
        for (const auto &song : songs)
            known.insert(QFileInfo(song->path()).absoluteFilePath());
        for (const auto &song : more) {
            if (known.contains(song->path()))
                continue;
            known.insert(song->path());
            songs.push_back(song);
        }
    }

    SongList songs;
    int failed = 0;

private:
    void fail(const QString &path, const QString &error, const ReadOptions &options,
              const GatherRun::TellOutcome &tell)
    {
        ++failed;
        SongOutcome outcome;
        outcome.song = std::make_shared<SongFile>(path, options);
        outcome.failed = true;
        outcome.error = error;
        tell(outcome);
    }

    std::function<void(const FoundPath &)> mAdd;
    std::function<void(const QString &, const QString &)> mProblem;
};

std::vector<SongSource> sourcesOf(const Arguments &arguments, const PrefsController &prefs,
                                  Report &report)
{
    std::vector<SongSource> sources;
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

void tellOutcome(const SongOutcome &outcome, Report &report)
{
    if (report.format() == ReportFormat::JsonLines)
        report.object(outcomeAsJson(outcome));
    else
        report.text(outcomeAsText(outcome));
    report.flush();
    if (outcome.failed)
        report.error(outcome.song->path(), outcome.error.value_or(QString()));
}

void tellSummary(const GatherRun::Summary &summary, Report &report)
{
    if (report.format() == ReportFormat::JsonLines)
        report.object({{u"summary"_s,
                        QJsonObject{{u"processed"_s, summary.processed},
                                    {u"modified"_s, summary.modified},
                                    {u"failed"_s, summary.failed},
                                    {u"cancelled"_s, summary.cancelled}}}});
    else
        report.text(QStringLiteral("%1 songs processed, %2 modified, %3 failed%4")
                        .arg(summary.processed)
                        .arg(summary.modified)
                        .arg(summary.failed)
                        .arg(summary.cancelled ? QStringLiteral(", cancelled") : QString()));
    if (summary.cancelled)
        report.setFailed();
}

} // namespace

int runGather(const Arguments &arguments, Report &report)
{
    const Interrupt interrupt; // also while the songs are collected
    Engine engine;
    if (arguments.definitions) {
        auto loaded = SiteDefinitionStore::loadFile(*arguments.definitions);
        if (!loaded.error.isEmpty()) {
            report.error(*arguments.definitions, loaded.error);
            return ExitStatus::wrongArguments;
        }
        engine.definitions.useDefinitions(std::move(loaded.definitions));
    }
    engine.start(arguments.definitions ? Engine::Definitions::Fixed : Engine::Definitions::Live);

    const auto tell = [&report](const SongOutcome &outcome) { tellOutcome(outcome, report); };
    SongCollection collection(readOptionsOf(arguments, engine.prefs), tell, report);
    collection.collect(arguments.paths);
    SourceLoading loading(engine, interrupt, report);
    for (const SongSource &source : sourcesOf(arguments, engine.prefs, report))
        collection.add(loading.load(source, readOptionsOf(arguments, engine.prefs)));
    GatherRun::Summary summary{.cancelled = true};
    if (!loading.isCancelled())
        summary = GatherRun(engine, collection.songs, interrupt)
                      .run(gatheringOptionsOf(arguments, engine.prefs),
                           writeOptionsOf(arguments, engine.prefs),
                           arguments.dryRun ? WriteSongs::No : WriteSongs::Yes, tell);
    summary.processed += collection.failed;
    summary.failed += collection.failed;
    tellSummary(summary, report);
    return report.finish();
}
