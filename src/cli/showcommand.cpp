#include "cli/showcommand.h"

#include "app/prefscontroller.h"
#include "base/namedpaths.h"
#include "cli/tagsummary.h"
#include "songs/songfile.h"
#include "sources/sitedefinitionstore.h"
#include "tags/filetype.h"
#include "tags/genretable.h"
#include "tags/tagfactory.h"

namespace {

bool claimsToBeSong(const QString &path)
{
    return FileType::claimsToBeMP3(path) || FileType::claimsToBeAAC(path);
}

/// Prints one song after the other. What stands in a folder and is no song is passed over.
class Show {
public:
    Show(const Arguments &arguments, const ReadOptions &options, Report &report)
        : mOptions(options)
        , mFrames(arguments.frames ? ListFrames::Yes : ListFrames::No)
        , mReport(report)
    {
    }

    void show(const FoundPath &found)
    {
        const auto song = openForTag(found.path);
        if (!song)
            return noTag(found, qtTrId("ErrorCannotOpenForRead"));
        if (song->size() <= SongFile::maxBytesOfNoSong)
            return noSong(found, qtTrId("ErrorNoSong"));
        const TagOrReason read = readTag(*song, mOptions);
        if (read.tag)
            print(found.path, *read.tag);
        else if (claimsToBeSong(found.path))
            noTag(found, read.reason);
        else
            noSong(found, read.reason);
    }

private:
    void print(const QString &path, const AudioInfoTag &tag)
    {
        if (mReport.format() == ReportFormat::JsonLines)
            mReport.object(
                [&](JsonWriter &json) { writeTag(json, path, tag, mFrames, mOptions.dialect); });
        else
            mReport.text(tagAsText(path, tag, mFrames, mOptions.dialect));
    }

    void noSong(const FoundPath &found, const QString &reason)
    {
        if (found.origin == FoundPath::Origin::Named)
            noTag(found, reason);
    }

    void noTag(const FoundPath &found, const QString &reason)
    {
        if (mReport.format() == ReportFormat::JsonLines)
            mReport.object([&](JsonWriter &json) { writeNoTag(json, found.path, reason); });
        mReport.error(found.path, reason);
    }

    ReadOptions mOptions;
    ListFrames mFrames;
    Report &mReport;
};

} // namespace

int runShow(const Arguments &arguments, Report &report)
{
    PrefsController prefs;
    GenreTable::installLater(
        [&prefs] { return SiteDefinitionStore(prefs.settings()).liveResources().genres(); });
    ReadOptions options = prefs.readOptions();
    if (arguments.id3)
        options.dialect = *arguments.id3;
    Show show(arguments, options, report);
    forEachPath(
        arguments.paths, [&show](const FoundPath &found) { show.show(found); },
        [&report](const QString &path, const QString &reason) { report.error(path, reason); });
    return report.finish();
}
