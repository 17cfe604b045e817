#pragma once

#include "base/descriptor.h"
#include "base/journalformat.h"
#include "base/savedbytes.h"

#include <QString>

#include <optional>

class KeptJournal;

/// The file that holds the bytes of a song about to be lost, until the new ones are on the disk.
///
/// At the front stands a header, then the plan with the new bytes, which tells later whether each
/// byte of the song is an old or a new one, then the saved bytes. The header's checksums tell
/// whether all of it is there: if not, the song was not touched yet.
class WriteJournal {
public:
    struct Begun;

    /// Saves what `write` is going to overwrite in the open `song`; when this returns a journal,
    /// it is on the disk and locked. It takes the file of `kept`, if there is one.
    static Begun begin(const JournalledWrite &write, int song, KeptJournal *kept);

    struct Found;

    /// Opens a journal left by an earlier run.
    static Found find(const QString &path);

    [[nodiscard]] const QString &path() const { return mPath; }
    [[nodiscard]] SavedBytes savedBytes() const { return {mFile.get(), mSavedFrom}; }

    /// Whether all that `plan` loses is saved, for a journal that was found. If not, saving it was
    /// interrupted. Reads it all.
    std::error_code checkSavedBytes(const WritePlan &plan, bool &isWhole) const;

    /// The journal is no longer needed: the song is whole, on the disk.
    void drop();

    /// Puts the journal aside as `folder`/its name, where it is not found again, and says where.
    QString putAside(const QString &folder) const;

private:
    WriteJournal(QString path, Descriptor file);
    std::error_code fill(const JournalledWrite &write, int song);
    std::error_code read(Found &found);
    bool giveBack();

    QString mPath;
    Descriptor mFile;
    qint64 mSavedFrom = 0;
    quint64 mSavedChecksum = 0; ///< of a journal that was found
    KeptJournal *mKept = nullptr; ///< gets the file back
    bool mIsNamed = false; ///< whether its name was on the disk before
};

/// The file of a journal between one write and the next: making, naming and removing one for each
/// costs two more syncs. Lives as long as songs are written one after the other.
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
        Damaged, ///< complete, but unreadable
        Complete ///< but for the saved bytes, which are not looked at yet
    };
    State state = State::Busy;
    std::optional<WriteJournal> journal; ///< nothing when busy
    JournalledWrite write; ///< when complete; a busy one's too, where it can be told
};

/// Where journals are while a write is under way.
QString journalFolder();
