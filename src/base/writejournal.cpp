#include "base/writejournal.h"

#include "base/bytes.h"
#include "base/checksum.h"
#include "base/folders.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
/// A longer journal is not kept: its room is wanted for songs.
constexpr qint64 mostKept = 64 << 20;

/// The bytes of the journal from `offset` on; nothing where it is too short for them.
std::error_code readPart(int file, qint64 size, qint64 offset, qint64 length,
                         std::optional<QByteArray> &part)
{
    part.reset();
    if (offset < 0 || length < 0 || offset > size || length > size - offset)
        return {};
    part = QByteArray(length, Qt::Uninitialized);
    return readAt(file, offset, part->data(), length);
}

/// Makes the folder for this user alone. Its name is on the disk when this returns without error:
/// a journal in a folder that a power failure takes away would be of no use.
std::error_code makeJournalFolder()
{
    if (!QDir().mkpath(stateFolder()))
        return errno ? lastError() : std::make_error_code(std::errc::permission_denied);
    if (::mkdir(QFile::encodeName(journalFolder()).constData(), 0700) != 0)
        return errno == EEXIST ? std::error_code() : lastError();
    const Descriptor parent = openFolder(stateFolder());
    return parent ? syncAll(parent.get()) : lastError();
}

/// The names in the folder are on the disk when this returns without error.
std::error_code syncJournalFolder()
{
    const Descriptor folder = openFolder(journalFolder());
    return folder ? syncAll(folder.get()) : lastError();
}

/// A new, locked file of the journal folder. Between its making and its locking another process
/// that cleans up may take it for a dead one and remove it; then the next one is made.
std::error_code makeLockedFile(Descriptor &file, QString &path)
{
    constexpr int attempts = 10;
    for (int i = 0; i < attempts; ++i) {
        QByteArray name = QFile::encodeName(journalFolder()) + "/XXXXXX.journal";
        file = Descriptor(::mkostemps(name.data(), 8, O_CLOEXEC));
        if (!file)
            return lastError();
        path = QFile::decodeName(name);
        lockFile(file.get(), std::chrono::milliseconds(500));
        const auto attributes = FileAttributes::of(file.get());
        if (attributes && attributes->links > 0)
            return {};
    }
    return std::make_error_code(std::errc::device_or_resource_busy);
}
} // namespace

QString journalFolder()
{
    return stateFolder() + QStringLiteral("/journal");
}

WriteJournal::WriteJournal(QString path, Descriptor file)
    : mPath(std::move(path))
    , mFile(std::move(file))
{
}

WriteJournal::Begun WriteJournal::begin(const JournalledWrite &write, int song, KeptJournal *kept)
{
    WriteJournal journal({}, {});
    if (kept && kept->isUsable()) {
        journal = WriteJournal(std::exchange(kept->mPath, {}), std::exchange(kept->mFile, {}));
        journal.mIsNamed = true;
    } else {
        if (const auto error = makeJournalFolder())
            return {.journal = {}, .error = error};
        if (const auto error = makeLockedFile(journal.mFile, journal.mPath))
            return {.journal = {}, .error = error};
    }
    if (const auto error = journal.fill(write, song)) {
        journal.drop();
        return {.journal = {}, .error = error};
    }
    journal.mKept = kept;
    return {.journal = std::move(journal), .error = {}};
}

/// With one sync: the checksums tell whether all is there. The file may hold an older journal, of
/// which nothing can be taken for this one.
std::error_code WriteJournal::fill(const JournalledWrite &write, int song)
{
    const QByteArray plan = bytesOfWrite(write);
    mSavedFrom = JournalHeader::size + plan.size();
    JournalHeader header = {.planLength = plan.size(), .planChecksum = Checksum::of(plan)};
    if (const auto error = saveBytes(song, write.plan, savedBytes(), header.savedChecksum))
        return error;
    if (const auto error = writeAt(mFile.get(), JournalHeader::size, plan))
        return error;
    if (const auto error = writeAt(mFile.get(), 0, header.bytes()))
        return error;
    if (const auto error = syncData(mFile.get()))
        return error;
    return mIsNamed ? std::error_code() : syncJournalFolder();
}

/// Fills in what the journal tells. A failing disk is an error and no incomplete journal: that one
/// would be removed.
std::error_code WriteJournal::read(Found &found)
{
    using State = WriteJournal::Found::State;
    const auto attributes = FileAttributes::of(mFile.get());
    if (!attributes)
        return lastError();
    found.state = State::Incomplete;
    std::optional<QByteArray> bytes;
    if (const auto error = readPart(mFile.get(), attributes->size, 0, JournalHeader::size, bytes))
        return error;
    const auto header = bytes ? JournalHeader::fromBytes(*bytes) : std::nullopt;
    if (!header)
        return {};
    if (const auto error =
            readPart(mFile.get(), attributes->size, JournalHeader::size, header->planLength, bytes))
        return error;
    if (!bytes || Checksum::of(*bytes) != header->planChecksum)
        return {};
    mSavedFrom = JournalHeader::size + header->planLength;
    mSavedChecksum = header->savedChecksum;
    found.state = State::Damaged;
    found.write = writeFromBytes(*bytes);
    found.state = State::Complete;
    return {};
}

std::error_code WriteJournal::checkSavedBytes(const WritePlan &plan, bool &isWhole) const
{
    quint64 checksum = 0;
    const auto error = checksumOf(savedBytes(), plan, checksum);
    isWhole = !error && checksum == mSavedChecksum;
    return error == fileBecameShorter() ? std::error_code() : error;
}

WriteJournal::Found WriteJournal::find(const QString &path)
{
    Descriptor file(
        ::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (!file)
        return {};
    const bool isLocked = lockFile(file.get(), std::chrono::milliseconds(0));
    const auto attributes = FileAttributes::of(file.get());
    if (!attributes || attributes->links == 0)
        return {};
    Found found;
    WriteJournal journal(path, std::move(file));
    try {
        if (journal.read(found))
            return {};
    } catch (const MalformedData &) {
        found.state = Found::State::Damaged;
    }
    if (isLocked)
        found.journal = std::move(journal);
    else
        found.state = Found::State::Busy;
    return found;
}

void WriteJournal::drop()
{
    if (giveBack())
        return;
    // A name that cannot be removed must not bring these bytes back later: without its header the
    // journal says nothing.
    if (::unlink(QFile::encodeName(mPath).constData()) != 0)
        std::ignore = setSize(mFile.get(), 0);
    mFile = Descriptor();
}

/// For a kept file it is enough that its header says nothing any more.
bool WriteJournal::giveBack()
{
    if (!mKept || mKept->mFile)
        return false;
    const auto attributes = FileAttributes::of(mFile.get());
    if (!attributes || attributes->size > mostKept
        || writeAt(mFile.get(), 0, QByteArray(JournalHeader::size, '\0')))
        return false;
    mKept->mPath = std::exchange(mPath, {});
    mKept->mFile = std::exchange(mFile, {});
    return true;
}

QString WriteJournal::putAside(const QString &folder) const
{
    const QString kept = folder + mPath.mid(mPath.lastIndexOf(QLatin1Char('/')));
    if (QDir().mkpath(folder) && QFile::rename(mPath, kept))
        return kept;
    return mPath;
}

KeptJournal::~KeptJournal()
{
    if (mFile)
        ::unlink(QFile::encodeName(mPath).constData());
}

/// The file may have been removed meanwhile, as by someone who cleans up.
bool KeptJournal::isUsable() const
{
    const auto attributes = mFile ? FileAttributes::of(mFile.get()) : std::nullopt;
    return attributes && attributes->links > 0;
}
