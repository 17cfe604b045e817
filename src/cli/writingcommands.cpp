#include "cli/writingcommands.h"

#include "app/prefscontroller.h"
#include "app/regeneration.h"
#include "base/writejournal.h"
#include "cli/chosenoptions.h"
#include "cli/fieldedit.h"
#include "cli/songopening.h"
#include "itunes/itunesinterface.h"
#include "itunes/systemrunner.h"
#include "sources/sitedefinitionstore.h"
#include "tags/genretable.h"

using namespace Qt::StringLiterals;

namespace {

using Outcome = InPlaceFile::Outcome;

/// Says what became of one file.
void reportWrite(const QString &path, const Outcome &outcome,
                 const std::optional<QString> &writeVersion, Report &report)
{
    const bool isFailed = outcome.kind == Outcome::Kind::Failed;
    const bool isWritten = outcome.kind == Outcome::Kind::Written;
    if (report.format() == ReportFormat::JsonLines)
        report.object({{u"path"_s, path},
                       {u"written"_s, isWritten},
                       {u"writeVersion"_s, writeVersion ? QJsonValue(*writeVersion) : QJsonValue()},
                       {u"error"_s, isFailed ? QJsonValue(outcome.error) : QJsonValue()}});
    else if (!isFailed)
        report.text(isWritten ? QStringLiteral("%1: written").arg(path)
                              : QStringLiteral("%1: unchanged").arg(path));
    if (isFailed)
        report.error(path, outcome.error);
}

Outcome failure(const QString &error)
{
    return {Outcome::Kind::Failed, error};
}

/// Runs `write` over every song of the arguments and reports each.
class WritingRun {
public:
    using Write = std::function<Outcome(SongFile &)>;

    WritingRun(const Arguments &arguments, const ReadOptions &options, Report &report)
        : mArguments(arguments)
        , mOptions(options)
        , mReport(report)
    {
    }

    int run(const Write &write)
    {
        forEachPath(
            mArguments.paths, [&](const FoundPath &found) { visit(found, write); },
            [this](const QString &path, const QString &reason) { mReport.error(path, reason); });
        return mReport.finish();
    }

private:
    void visit(const FoundPath &found, const Write &write)
    {
        const OpenedSong opened = openSong(found, mOptions);
        if (!opened.song) {
            if (!opened.error.isEmpty())
                reportWrite(found.path, failure(opened.error), {}, mReport);
            return;
        }
        SongFile &song = *opened.song;
        if (!song.infotag())
            return reportWrite(found.path, failure(song.reasonOfNoTag()), {}, mReport);
        const Outcome outcome = write(song);
        reportWrite(found.path, outcome, song.infotag()->writeVersion(), mReport);
    }

    const Arguments &mArguments;
    ReadOptions mOptions;
    Report &mReport;
};

/// The genres of the live definitions, loaded when a tag first asks for them.
void offerGenres(PrefsController &prefs)
{
    GenreTable::installLater(
        [&prefs] { return SiteDefinitionStore(prefs.settings()).liveResources().genres(); });
}

/// Without `itunes` nothing is written.
Outcome setFields(SongFile &song, const FieldEdit &edit, const WriteOptions &options,
                  iTunesInterface *itunes)
{
    if (song.activityStatus() == SongStatus::Problem)
        return failure(qtTrId("ErrorSongHasProblem"));
    AudioInfoTag &tag = *song.infotag();
    song.rememberOriginalValuesForLaterRefresh();
    edit.applyTo(tag, song.path());
    if (!tag.tagHasBeenModified() || !itunes)
        return {Outcome::Kind::Unchanged, {}};
    return song.writeToOriginalPath(options, itunes);
}

} // namespace

int runSet(const Arguments &arguments, Report &report)
{
    const FieldEdit::Checked checked = FieldEdit::check(arguments.fields);
    if (!checked.error.isEmpty()) {
        report.error(QStringLiteral("set"), checked.error);
        return ExitStatus::wrongArguments;
    }
    PrefsController prefs;
    offerGenres(prefs);
    KeptJournal journal;
    WriteOptions options = writeOptionsOf(arguments, prefs);
    options.keptJournal = &journal;
    const auto runner = systemScriptRunner(usualMusicPlaces(prefs.movedFolders()));
    iTunesInterface itunes(*runner);
    return WritingRun(arguments, readOptionsOf(arguments, prefs), report).run([&](SongFile &song) {
        return setFields(song, checked.edit, options, arguments.dryRun ? nullptr : &itunes);
    });
}

int runRegenerate(const Arguments &arguments, Report &report)
{
    PrefsController prefs;
    offerGenres(prefs);
    const ReadOptions readOptions = Regeneration::readOptions(prefs.readOptions());
    KeptJournal journal;
    WriteOptions options = writeOptionsOf(arguments, prefs);
    options.keptJournal = &journal;
    const auto runner = systemScriptRunner(usualMusicPlaces(prefs.movedFolders()));
    iTunesInterface itunes(*runner);
    return WritingRun(arguments, readOptions, report).run([&](SongFile &song) {
        return Regeneration::regenerate(song, options, itunes);
    });
}
