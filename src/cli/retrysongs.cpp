#include "cli/retrysongs.h"

#include "cli/report.h"

RetrySongs::RetrySongs(Assets wanted, WriteSongs write, Report &report)
    : mWanted(wanted)
    , mWrite(write)
    , mReport(report)
{
}

QStringList RetrySongs::paths()
{
    const RetryList::Songs listed = mList.takeUp();
    if (!listed.problem.isEmpty())
        mReport.note(mList.file(), listed.problem);
    for (const QString &path : listed.gone)
        mReport.note(path, QStringLiteral("is gone, and not retried any more"));
    if (listed.away > 0)
        mReport.note(mList.file(),
                     QStringLiteral("%1 of its songs stand in folders that are not "
                                    "there now; they stay on the list")
                         .arg(listed.away));
    if (listed.there.isEmpty() && mReport.format() == ReportFormat::Text)
        mReport.text(QStringLiteral("Nothing to retry"));
    return listed.there;
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
