#pragma once

#include "base/descriptor.h"
#include "base/fileattributes.h"
#include "base/writeplan.h"

#include <QString>

#include <optional>

/// What a journal tells about a write besides the bytes that it saves.
struct JournalledWrite {
    QString path; ///< absolute
    FileAttributes before;
    KeepTime keepTime = KeepTime::No;
    WritePlan plan;
};

/// The file that holds the bytes of a song about to be lost, until the new ones are on the disk.
///
/// At the front stands a header that is written and synced only when everything else is: a
/// journal without a sound header belongs to a song that was not touched yet. The saved bytes
/// stand where they stand in the song, `savedBytesOffset` further on, so that they can share
/// blocks with it; the rest of that part is a hole. After it comes the plan with the new bytes.
/// The plan tells later whether each byte of the song is an old or a new one.
class WriteJournal {
public:
    static constexpr qint64 savedBytesOffset = 65536;

    struct Begun;

    /// Saves what `write` is going to overwrite in the open `song`; when this returns a journal,
    /// it is on the disk and locked.
    static Begun begin(const JournalledWrite &write, int song);

    struct Found;

    /// Opens a journal left by an earlier run.
    static Found find(const QString &path);

    [[nodiscard]] const QString &path() const { return mPath; }
    [[nodiscard]] int savedBytes() const { return mFile.get(); }

    /// The journal is no longer needed: the song is whole, on the disk.
    void drop();

    /// Puts the journal aside as `folder`/its name, where it is not found again, and says where.
    QString putAside(const QString &folder) const;

private:
    WriteJournal(QString path, Descriptor file);
    std::error_code fill(const JournalledWrite &write, int song) const;

    QString mPath;
    Descriptor mFile;
};

struct WriteJournal::Begun {
    std::optional<WriteJournal> journal; ///< nothing: could not be made, see `error`
    std::error_code error;
};

struct WriteJournal::Found {
    enum class State {
        Busy, ///< a living process writes with it, or it is gone or unreadable for now
        Incomplete, ///< the song was not touched
        Damaged, ///< complete once, but unreadable
        Complete
    };
    State state = State::Busy;
    std::optional<WriteJournal> journal; ///< nothing when busy
    JournalledWrite write; ///< when complete; a busy one's too, where it can be told
};

/// Where journals are while a write is under way.
QString journalFolder();
