#include "cli/retrysongs.h"

#include "cli/report.h"

#include <QDir>
#include <QFileInfo>

RetrySongs::RetrySongs(Assets wanted, WriteSongs write, Report &report)
    : mWanted(wanted)
    , mWrite(write)
    , mReport(report)
{
}

QStringList RetrySongs::paths()
{
    const RetryList::Songs listed = mList.songs();
    if (!listed.problem.isEmpty())
        mReport.note(mList.file(), listed.problem);
    QStringList songs;
    int away = 0;
    for (const QString &path : listed.paths) {
        const QFileInfo song(path);
        if (song.exists()) {
            songs << path;
        } else if (song.dir().exists()) {
            mList.forget(path);
            mReport.note(path, QStringLiteral("is gone, and not retried any more"));
        } else {
            ++away;
        }
    }
    if (away > 0)
        mReport.note(mList.file(),
                     QStringLiteral("%1 of its songs stand in folders that are not "
                                    "there now; they stay on the list")
                         .arg(away));
    if (songs.isEmpty() && mReport.format() == ReportFormat::Text)
        mReport.text(QStringLiteral("Nothing to retry"));
    return songs;
}

void RetrySongs::note(const SongOutcome &outcome)
{
    if (mWrite == WriteSongs::Yes)
        mList.note(outcome, mWanted);
    if (mList.isSaveDue())
        save();
}

void RetrySongs::save()
{
    if (mWrite == WriteSongs::No)
        return;
    const RetryList::Saved saved = mList.save();
    if (!saved.problem.isEmpty())
        mReport.note(mList.file(), saved.problem);
    if (!saved.failure.isEmpty())
        mReport.error(mList.file(), saved.failure);
}
