#pragma once

#include "base/fileattributes.h"
#include "base/filecontents.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

class KeptJournal;

/// A file whose contents are changed in place (same inode, hard links, owner, birth time) so
/// that kill, crash, full disk or power failure leave either the old bytes or the new ones.
///
/// The bytes about to be lost are stored in a journal in the state folder and synced, the file
/// is overwritten and synced, the journal is dropped. A journal found later is rolled back or
/// finished by recoverInterruptedWrites().
class InPlaceFile {
public:
    struct Opened;

    /// Opens for reading and writing; links are followed, and only regular files are opened. Other
    /// writers of ours wait for it meanwhile, and are refused after a while. A file that another
    /// one left half written is put right first.
    [[nodiscard]] static Opened open(const QString &path);

    InPlaceFile(const InPlaceFile &) = delete;
    InPlaceFile &operator=(const InPlaceFile &) = delete;
    ~InPlaceFile();

    /// Bytes at the time of opening.
    [[nodiscard]] qint64 size() const;

    /// The bytes of the open file at `offset`, at most `length` of them; fewer only at its end.
    /// Nothing when reading fails.
    [[nodiscard]] std::optional<QByteArray> read(qint64 offset, qint64 length) const;

    struct Outcome {
        enum class Kind { Unchanged, Written, Failed };
        Kind kind = Kind::Unchanged;
        QString error; ///< why it failed, one line for the user: the file is as it was
    };

    /// Makes the file hold `contents`. Nothing is touched when it holds them already. The file is
    /// refused when it was written or replaced since it was opened. Whoever writes many files
    /// hands in a journal that is kept from one to the next.
    [[nodiscard]] Outcome replaceContents(const FileContents &contents, KeepTime keepTime,
                                          KeptJournal *kept = nullptr);

private:
    class Private;
    explicit InPlaceFile(std::unique_ptr<Private> d);
    std::unique_ptr<Private> d;
};

struct InPlaceFile::Opened {
    std::unique_ptr<InPlaceFile> file; ///< null when it could not be opened
    QString error;
};

/// Puts right every file that an earlier run left half written, and logs each. Journals of
/// writes that another living process is busy with are left to it. Call once at start, before
/// songs are read.
void recoverInterruptedWrites();
