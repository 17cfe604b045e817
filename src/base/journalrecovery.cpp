#include "base/journalrecovery.h"

#include "base/folders.h"
#include "base/log.h"
#include "base/overwrite.h"
#include "base/writejournal.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>

namespace {
using std::chrono::milliseconds;

/// Another process that starts at the same time recovers the same journals; one that writes the
/// song itself takes no longer than this.
constexpr milliseconds patience(2000);

/// A file under another inode number than before (some file systems number anew each time they
/// are mounted) is held for the same song when this many of its bytes say so.
constexpr qint64 enoughEvidence = 64;

void putAside(const WriteJournal &journal, const QString &path, const char *reason)
{
    const QString kept = journal.putAside(stateFolder() + QStringLiteral("/kept"));
    qCWarning(logBase).noquote() << "** interrupted write of" << path << "left as it is:" << reason
                                 << "- its former bytes are kept in" << kept;
}

void leaveForLater(const QString &path, const QString &reason)
{
    qCWarning(logBase).noquote() << "** interrupted write of" << path
                                 << "cannot be put right yet:" << reason;
}

/// Puts the old bytes back.
std::error_code restore(int song, WriteJournal &journal, const JournalledWrite &write)
{
    if (const auto error = rollBack(song, journal.savedBytes(), write.plan))
        return error;
    write.before.restoreTimes(song);
    journal.drop();
    qCWarning(logBase).noquote() << "** interrupted write rolled back:" << write.path;
    return {};
}

/// A song that holds the old bytes or the new ones needs at most its times. Another file in its
/// place keeps even these.
std::error_code finish(int song, WriteJournal &journal, const JournalledWrite &write,
                       const SongState &state, bool isSameFile)
{
    if (const auto error = syncAll(song))
        return error;
    if (isSameFile && (state.isOld || write.keepTime == KeepTime::Yes))
        write.before.restoreTimes(song);
    journal.drop();
    qCWarning(logBase).noquote() << (state.isOld ? "** interrupted write had not begun:"
                                                 : "** interrupted write was complete:")
                                 << write.path;
    return {};
}

/// With an error the song is as it was, and so is its journal.
std::error_code settle(int song, WriteJournal &journal, const JournalledWrite &write,
                       bool isSameFile)
{
    SongState state;
    if (const auto error = examine(song, journal.savedBytes(), write.plan, state))
        return error;
    if (!state.isForeign && (state.isOld || state.isNew))
        return finish(song, journal, write, state, isSameFile);
    if (state.isForeign)
        putAside(journal, write.path, "it was changed since");
    else if (!isSameFile && state.evidence < enoughEvidence)
        putAside(journal, write.path, "another file is in its place");
    else
        return restore(song, journal, write);
    return {};
}

std::error_code recoverSong(WriteJournal &journal, const JournalledWrite &write)
{
    const Descriptor song(::open(QFile::encodeName(write.path).constData(),
                                 O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!song)
        return lastError();
    const auto attributes = FileAttributes::of(song.get());
    if (!attributes || !attributes->isRegular())
        putAside(journal, write.path, "it is no file any more");
    else if (!lockFile(song.get(), patience))
        leaveForLater(write.path, qtTrId("ReasonFileBusy"));
    else
        return settle(song.get(), journal, write, attributes->isSameFile(write.before));
    return {};
}

/// A song whose bytes were not all saved was not touched yet.
void dropUnused(WriteJournal &journal)
{
    const QString path = journal.path();
    journal.drop();
    qCWarning(logBase).noquote() << "** removed a journal that had not been used:" << path;
}

/// Calls with what is found when all the bytes are there that the write was going to lose.
template<typename Settle>
std::error_code settleIfWhole(WriteJournal::Found &found, Settle settleWith)
{
    bool isWhole = false;
    if (const auto error = found.journal->checkSavedBytes(found.write.plan, isWhole))
        return error;
    if (isWhole)
        return settleWith(*found.journal, found.write);
    dropUnused(*found.journal);
    return {};
}

void recoverJournal(const QString &path)
{
    using State = WriteJournal::Found::State;
    WriteJournal::Found found = WriteJournal::find(path);
    switch (found.state) {
    case State::Busy:
        break;
    case State::Incomplete:
        dropUnused(*found.journal);
        break;
    case State::Damaged:
        putAside(*found.journal, path, "the journal is damaged");
        break;
    case State::Complete:
        if (const auto error = settleIfWhole(found, recoverSong))
            leaveForLater(found.write.path, reasonOf(error));
        break;
    }
}

QStringList journalPaths()
{
    const QDir::Filters files = QDir::Files | QDir::Hidden | QDir::System | QDir::NoSymLinks;
    // Not by a name filter, whose pattern takes longer to prepare than a program to start.
    QStringList paths;
    for (const QString &name : QDir(journalFolder()).entryList(files))
        if (name.endsWith(QLatin1String(".journal")))
            paths << journalFolder() + QLatin1Char('/') + name;
    return paths;
}
} // namespace

void recoverJournals()
{
    const Descriptor folder = openFolder(journalFolder());
    if (!folder || !lockFile(folder.get(), patience))
        return;
    for (const QString &path : journalPaths())
        recoverJournal(path);
}

QString recoverJournalsOf(int song)
{
    const auto attributes = FileAttributes::of(song);
    for (const QString &path : journalPaths()) {
        WriteJournal::Found found = WriteJournal::find(path);
        if (!attributes || !found.write.before.isSameFile(*attributes))
            continue;
        if (found.state == WriteJournal::Found::State::Busy)
            return qtTrId("ReasonFileBusy");
        const auto error =
            settleIfWhole(found, [song](WriteJournal &journal, const JournalledWrite &write) {
                return settle(song, journal, write, true);
            });
        if (error)
            return qtTrId("ReasonNotRolledBack").arg(reasonOf(error));
    }
    return {};
}
