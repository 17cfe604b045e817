#include "base/journalrecovery.h"

#include "base/folders.h"
#include "base/log.h"
#include "base/overwrite.h"

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
void restore(int song, WriteJournal &journal, const JournalledWrite &write)
{
    if (const auto error = rollBack(song, journal.savedBytes(), write.plan)) {
        leaveForLater(write.path, reasonOf(error));
        return;
    }
    write.before.restoreTimes(song);
    journal.drop();
    qCWarning(logBase).noquote() << "** interrupted write rolled back:" << write.path;
}

/// A song that holds the old bytes or the new ones needs at most its times. Another file in its
/// place keeps even these.
void finish(int song, WriteJournal &journal, const JournalledWrite &write, const SongState &state,
            bool isSameFile)
{
    if (const auto error = syncAll(song)) {
        leaveForLater(write.path, reasonOf(error));
        return;
    }
    if (isSameFile && (state.isOld || write.keepTime == KeepTime::Yes))
        write.before.restoreTimes(song);
    journal.drop();
    qCWarning(logBase).noquote() << (state.isOld ? "** interrupted write had not begun:"
                                                 : "** interrupted write was complete:")
                                 << write.path;
}

void settle(int song, WriteJournal &journal, const JournalledWrite &write, bool isSameFile)
{
    SongState state;
    if (const auto error = examine(song, journal.savedBytes(), write.plan, state))
        leaveForLater(write.path, reasonOf(error));
    else if (state.isForeign)
        putAside(journal, write.path, "it was changed since");
    else if (state.isOld || state.isNew)
        finish(song, journal, write, state, isSameFile);
    else if (!isSameFile && state.evidence < enoughEvidence)
        putAside(journal, write.path, "another file is in its place");
    else
        restore(song, journal, write);
}

void recoverSong(WriteJournal &journal, const JournalledWrite &write)
{
    const Descriptor song(::open(QFile::encodeName(write.path).constData(),
                                 O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!song) {
        leaveForLater(write.path, reasonOf(lastError()));
        return;
    }
    const auto attributes = FileAttributes::of(song.get());
    if (!attributes || !attributes->isRegular())
        putAside(journal, write.path, "it is no file any more");
    else if (!lockFile(song.get(), patience))
        leaveForLater(write.path, qtTrId("ReasonFileBusy"));
    else
        settle(song.get(), journal, write, attributes->isSameFile(write.before));
}

void recoverJournal(const QString &path)
{
    using State = WriteJournal::Found::State;
    WriteJournal::Found found = WriteJournal::find(path);
    switch (found.state) {
    case State::Busy:
        break;
    case State::Incomplete:
        found.journal->drop();
        qCWarning(logBase).noquote() << "** removed a journal that had not been used:" << path;
        break;
    case State::Damaged:
        putAside(*found.journal, path, "the journal is damaged");
        break;
    case State::Complete:
        recoverSong(*found.journal, found.write);
        break;
    }
}

template<typename Call>
void forEachJournal(Call call)
{
    const Descriptor folder = openFolder(journalFolder());
    if (!folder || !lockFile(folder.get(), patience))
        return;
    const QDir::Filters files = QDir::Files | QDir::Hidden | QDir::System | QDir::NoSymLinks;
    for (const QString &name :
         QDir(journalFolder()).entryList({QStringLiteral("*.journal")}, files))
        call(journalFolder() + QLatin1Char('/') + name);
}
} // namespace

void recoverJournals()
{
    forEachJournal(recoverJournal);
}

void recoverJournalsOf(const FileAttributes &song)
{
    forEachJournal([&](const QString &path) {
        WriteJournal::Found found = WriteJournal::find(path);
        if (found.state == WriteJournal::Found::State::Complete
            && found.write.before.isSameFile(song))
            recoverSong(*found.journal, found.write);
    });
}
