#include "gui/unansweredsongs.h"

#include <QFileInfo>
#include <QHash>

UnansweredSongs::UnansweredSongs(MainController &controller, QObject *parent)
    : QObject(parent)
    , mController(controller)
{
    connect(&controller.workList(), &WorkList::songFinished, this, &UnansweredSongs::note);
    connect(&controller.workList(), &WorkList::runFinished, this, &UnansweredSongs::save);
}

void UnansweredSongs::askAgain()
{
    const SongList songs = listedSongs();
    if (songs.empty())
        return mController.engine().log.addLog(qtTrId("LogNothingUnanswered"), LogColor::Plain);
    mController.gather(songs);
}

/// Songs of the table are taken as they are.
SongList UnansweredSongs::listedSongs()
{
    QHash<QString, std::shared_ptr<SongFile>> loaded;
    for (const auto &song : mController.songs().allSongs())
        loaded.insert(QFileInfo(song->path()).absoluteFilePath(), song);
    const RetryList::Songs listed = mList.takeUp();
    tell(listed.problem);
    SongList songs;
    for (const QString &path : listed.there) {
        auto song = loaded.value(path);
        if (!song)
            song = SongFile::songWithPath(path, mController.prefs().readOptions());
        if (song)
            songs.push_back(song);
    }
    return songs;
}

void UnansweredSongs::note(const SongOutcome &outcome)
{
    mList.note(outcome, mController.prefs().gatheringOptions().gather);
    if (mList.isSaveDue())
        save();
}

void UnansweredSongs::save()
{
    const RetryList::Saved saved = mList.save();
    tell(saved.problem);
    tell(saved.failure);
}

void UnansweredSongs::tell(const QString &problem)
{
    if (!problem.isEmpty())
        mController.engine().log.addLog(QStringLiteral("%1: %2").arg(mList.file(), problem),
                                        LogColor::Error);
}
