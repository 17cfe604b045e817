#pragma once

#include "base/descriptor.h"
#include "base/journalformat.h"

#include <QString>

#include <optional>

/// Where the bytes that a write is going to lose are kept.
struct SavedBytes {
    int file = -1;
    /// Where they stand, one range of the plan after the other; 0 when each stands as far from the
    /// others as in the song, WriteJournal::savedBytesOffset further on.
    qint64 packedFrom = 0;
};

class KeptJournal;

/// The file that holds the bytes of a song about to be lost, until the new ones are on the disk.
///
/// At the front stands a header: a journal without a sound one belongs to a song that was not
/// touched yet. After it, or after the saved bytes, comes the plan with the new bytes, which tells
/// later whether each byte of the song is an old or a new one.
///
/// Of a large write the header is written and synced only when everything else is. The saved
/// bytes stand where they stand in the song, `savedBytesOffset` further on, so that they can share
/// blocks with it; the rest of that part is a hole. A small write is saved in one piece, header,
/// plan and bytes, whose checksums tell whether all of it is there.
class WriteJournal {
public:
    static constexpr qint64 savedBytesOffset = 65536;

    struct Begun;

    /// Saves what `write` is going to overwrite in the open `song`; when this returns a journal,
    /// it is on the disk and locked. Small writes take the file of `kept`, if there is one.
    static Begun begin(const JournalledWrite &write, int song, KeptJournal *kept);

    struct Found;

    /// Opens a journal left by an earlier run.
    static Found find(const QString &path);

    [[nodiscard]] const QString &path() const { return mPath; }
    [[nodiscard]] SavedBytes savedBytes() const { return {mFile.get(), mPackedFrom}; }

    /// The journal is no longer needed: the song is whole, on the disk.
    void drop();

    /// Puts the journal aside as `folder`/its name, where it is not found again, and says where.
    QString putAside(const QString &folder) const;

private:
    WriteJournal(QString path, Descriptor file);
    std::error_code fill(const JournalledWrite &write, int song) const;
    std::error_code fillPacked(const JournalledWrite &write, int song);

    QString mPath;
    Descriptor mFile;
    qint64 mPackedFrom = 0;
    KeptJournal *mKept = nullptr; ///< gets the file back
    bool mIsNamed = false; ///< whether its name is known to be on the disk
};

/// The file of a small journal between one write and the next: making, naming and removing one for
/// each costs more than the write. Lives as long as songs are written one after the other.
class KeptJournal {
public:
    KeptJournal() = default;
    KeptJournal(const KeptJournal &) = delete;
    KeptJournal &operator=(const KeptJournal &) = delete;
    /// Removes the file.
    ~KeptJournal();

private:
    friend class WriteJournal;
    [[nodiscard]] bool isUsable() const;

    QString mPath;
    Descriptor mFile; ///< none while a journal has it, and before the first
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
