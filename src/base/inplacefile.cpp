#include "base/inplacefile.h"

#include "base/descriptor.h"
#include "base/journalrecovery.h"
#include "base/overwrite.h"
#include "base/writejournal.h"

#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <fcntl.h>

namespace {
using Outcome = InPlaceFile::Outcome;

/// Long enough for another write of ours to the same song to end.
constexpr std::chrono::milliseconds patience(2000);

Outcome failed(const QString &reason)
{
    return {.kind = Outcome::Kind::Failed, .error = reason};
}

/// A file size limit shall be an error (EFBIG) like a full disk, not the end of the program.
void ignoreSizeLimitSignal()
{
    struct sigaction current = {};
    if (::sigaction(SIGXFSZ, nullptr, &current) == 0 && current.sa_handler == SIG_DFL) // NOLINT
        ::signal(SIGXFSZ, SIG_IGN); // NOLINT
}
} // namespace

class InPlaceFile::Private {
public:
    Private(Descriptor file, QString path, const FileAttributes &attributes)
        : mFile(std::move(file))
        , mPath(std::move(path))
        , mAttributes(attributes)
    {
    }

    [[nodiscard]] int file() const { return mFile.get(); }
    [[nodiscard]] const FileAttributes &attributes() const { return mAttributes; }

    Outcome replaceContents(const FileContents &contents, KeepTime keepTime, KeptJournal *kept)
    {
        JournalledWrite write = {
            .path = mPath, .before = mAttributes, .keepTime = keepTime, .plan = {}};
        if (const auto error = planWrite(file(), mAttributes.size, contents, write.plan))
            return failed(reasonOf(error));
        if (write.plan.isEmpty())
            return {};
        auto [journal, error] = WriteJournal::begin(write, file(), kept);
        if (!journal)
            return failed(qtTrId("ReasonNoJournal").arg(journalFolder(), reasonOf(error)));
        if (const QString change = changeSinceOpened(); !change.isEmpty()) {
            journal->drop();
            return failed(change);
        }
        return carryOut(write, *journal);
    }

private:
    /// The song is rolled back at once when it cannot be written; when not even that is possible,
    /// its journal stays for the next start.
    Outcome carryOut(const JournalledWrite &write, WriteJournal &journal)
    {
        const auto error = overwrite(file(), journal.savedBytes(), write.plan);
        const bool isWhole = !error || !rollBack(file(), journal.savedBytes(), write.plan);
        mAttributes.restoreMode(file());
        if (error || write.keepTime == KeepTime::Yes)
            mAttributes.restoreTimes(file());
        if (!isWhole)
            return failed(qtTrId("ReasonNotRolledBack").arg(reasonOf(error)));
        journal.drop();
        if (error)
            return failed(reasonOf(error));
        mAttributes = FileAttributes::of(file()).value_or(mAttributes);
        return {.kind = Outcome::Kind::Written, .error = {}};
    }

    /// What another program did to the song, if anything: it must not be overwritten then.
    [[nodiscard]] QString changeSinceOpened() const
    {
        const auto now = FileAttributes::of(file());
        if (!now || !now->isUnchangedSince(mAttributes))
            return qtTrId("ReasonFileChanged");
        const auto atPath = FileAttributes::at(mPath);
        if (!atPath || !atPath->isSameFile(mAttributes))
            return qtTrId("ReasonFileReplaced");
        return {};
    }

    Descriptor mFile;
    QString mPath;
    FileAttributes mAttributes;
};

InPlaceFile::InPlaceFile(std::unique_ptr<Private> d_)
    : d(std::move(d_))
{
}

InPlaceFile::~InPlaceFile() = default;

InPlaceFile::Opened InPlaceFile::open(const QString &path)
{
    Descriptor file(
        ::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file)
        return {.file = nullptr, .error = reasonOf(lastError())};
    const auto isRegular = [&] {
        const auto attributes = FileAttributes::of(file.get());
        return attributes && attributes->isRegular();
    };
    if (!isRegular())
        return {.file = nullptr, .error = qtTrId("ReasonNotRegular")};
    if (!lockFile(file.get(), patience))
        return {.file = nullptr, .error = qtTrId("ReasonFileBusy")};
    if (const QString error = recoverJournalsOf(file.get()); !error.isEmpty())
        return {.file = nullptr, .error = error};
    const auto attributes = FileAttributes::of(file.get());
    if (!attributes)
        return {.file = nullptr, .error = reasonOf(lastError())};
    auto d =
        std::make_unique<Private>(std::move(file), QFileInfo(path).absoluteFilePath(), *attributes);
    return {.file = std::unique_ptr<InPlaceFile>(new InPlaceFile(std::move(d))), .error = {}};
}

qint64 InPlaceFile::size() const
{
    return d->attributes().size;
}

std::optional<QByteArray> InPlaceFile::read(qint64 offset, qint64 length) const
{
    const qint64 available = std::max<qint64>(d->attributes().size - offset, 0);
    QByteArray bytes(std::min(length, available), Qt::Uninitialized);
    const qint64 count = readUpTo(d->file(), offset, bytes.data(), bytes.size());
    if (count < 0)
        return std::nullopt;
    bytes.truncate(count);
    return bytes;
}

InPlaceFile::Outcome InPlaceFile::replaceContents(const FileContents &contents, KeepTime keepTime,
                                                  KeptJournal *kept)
{
    ignoreSizeLimitSignal();
    return d->replaceContents(contents, keepTime, kept);
}

void recoverInterruptedWrites()
{
    recoverJournals();
}
