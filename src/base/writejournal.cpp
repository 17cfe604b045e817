#include "base/writejournal.h"

#include "base/bytes.h"
#include "base/filecopy.h"
#include "base/folders.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <numeric>
#include <sys/stat.h>
#include <unistd.h>

namespace {
/// Up to so many old and new bytes, a checksum of them all costs less than a second sync.
constexpr qint64 mostPackedBytes = 256 << 10;

qint64 lengthOf(const std::vector<FileRange> &ranges)
{
    return std::accumulate(ranges.begin(), ranges.end(), qint64{0},
                           [](qint64 sum, const FileRange &range) { return sum + range.length; });
}

qint64 newBytesOf(const WritePlan &plan)
{
    return std::accumulate(
        plan.writes.begin(), plan.writes.end(), qint64{0},
        [](qint64 sum, const PlannedWrite &write) { return sum + write.bytes.size(); });
}

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

/// Whether the packed bytes are those that were saved. If not, writing them was interrupted.
std::error_code readPacked(int file, qint64 size, const JournalHeader &header,
                           const WritePlan &plan, bool &isWhole)
{
    std::optional<QByteArray> saved;
    const qint64 length = lengthOf(plan.lostRanges());
    const auto error = readPart(file, size, header.packedFrom, length, saved);
    isWhole = saved && journalChecksum(*saved) == header.packedChecksum;
    return error;
}

/// Fills in what the journal tells, and says whether it tells it. A failing disk is an error and
/// no incomplete journal: that one would be removed.
std::error_code read(int file, WriteJournal::Found &found, qint64 &packedFrom)
{
    using State = WriteJournal::Found::State;
    const auto attributes = FileAttributes::of(file);
    if (!attributes)
        return lastError();
    found.state = State::Incomplete;
    std::optional<QByteArray> bytes;
    if (const auto error = readPart(file, attributes->size, 0, JournalHeader::size, bytes))
        return error;
    const auto header = bytes ? JournalHeader::fromBytes(*bytes) : std::nullopt;
    if (!header)
        return {};
    // The header of a large write comes last: what does not fit it was whole once. That of a small
    // one comes with the rest, and what does not fit never was.
    const State unfitting = header->packedFrom ? State::Incomplete : State::Damaged;
    found.state = unfitting;
    if (const auto error =
            readPart(file, attributes->size, header->planOffset, header->planLength, bytes))
        return error;
    if (!bytes || journalChecksum(*bytes) != header->planChecksum)
        return {};
    found.state = State::Damaged;
    found.write = writeFromBytes(*bytes);
    bool isWhole = true;
    packedFrom = header->packedFrom;
    if (packedFrom)
        if (const auto error =
                readPacked(file, attributes->size, *header, found.write.plan, isWhole))
            return error;
    found.state = isWhole ? State::Complete : unfitting;
    if (!isWhole)
        found.write = {};
    return {};
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
    const bool isSmall =
        kept && lengthOf(write.plan.lostRanges()) + newBytesOf(write.plan) <= mostPackedBytes;
    WriteJournal journal({}, {});
    if (isSmall && kept->isUsable()) {
        journal = WriteJournal(std::exchange(kept->mPath, {}), std::exchange(kept->mFile, {}));
        journal.mIsNamed = true;
    } else {
        if (const auto error = makeJournalFolder())
            return {.journal = {}, .error = error};
        if (const auto error = makeLockedFile(journal.mFile, journal.mPath))
            return {.journal = {}, .error = error};
    }
    journal.mKept = isSmall ? kept : nullptr;
    if (const auto error = isSmall ? journal.fillPacked(write, song) : journal.fill(write, song)) {
        journal.drop();
        return {.journal = {}, .error = error};
    }
    return {.journal = std::move(journal), .error = {}};
}

std::error_code WriteJournal::fill(const JournalledWrite &write, int song) const
{
    const int file = mFile.get();
    for (const FileRange &lost : write.plan.lostRanges())
        if (const auto error =
                copyRange(song, lost.offset, file, savedBytesOffset + lost.offset, lost.length))
            return error;
    const QByteArray plan = bytesOfWrite(write);
    const JournalHeader header = {.planOffset = savedBytesOffset + write.plan.oldSize,
                                  .planLength = plan.size(),
                                  .planChecksum = journalChecksum(plan)};
    if (const auto error = writeAt(file, header.planOffset, plan))
        return error;
    // Two syncs, since a disk may write in any order: the header says that all the rest is there.
    // They are cheaper than a checksum of everything that is saved.
    if (const auto error = syncData(file))
        return error;
    if (const auto error = writeAt(file, 0, header.bytes()))
        return error;
    if (const auto error = syncData(file))
        return error;
    return syncJournalFolder();
}

/// In one piece, and one sync: the checksums tell whether it is whole. The file may hold an older
/// journal, of which nothing can be taken for this one.
std::error_code WriteJournal::fillPacked(const JournalledWrite &write, int song)
{
    const QByteArray plan = bytesOfWrite(write);
    const std::vector<FileRange> lost = write.plan.lostRanges();
    QByteArray saved(lengthOf(lost), Qt::Uninitialized);
    qint64 done = 0;
    for (const FileRange &range : lost) {
        if (const auto error = readAt(song, range.offset, saved.data() + done, range.length))
            return error;
        done += range.length;
    }
    mPackedFrom = JournalHeader::size + plan.size();
    const JournalHeader header = {.planOffset = JournalHeader::size,
                                  .planLength = plan.size(),
                                  .planChecksum = journalChecksum(plan),
                                  .packedFrom = mPackedFrom,
                                  .packedChecksum = journalChecksum(saved)};
    if (const auto error = writeAt(mFile.get(), 0, header.bytes() + plan + saved))
        return error;
    if (const auto error = syncData(mFile.get()))
        return error;
    const auto error = mIsNamed ? std::error_code() : syncJournalFolder();
    mIsNamed = !error;
    return error;
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
    qint64 packedFrom = 0;
    try {
        if (read(file.get(), found, packedFrom))
            return {};
    } catch (const MalformedData &) {
        found.state = Found::State::Damaged;
    }
    if (!isLocked) {
        found.state = Found::State::Busy;
        return found;
    }
    found.journal = WriteJournal(path, std::move(file));
    found.journal->mPackedFrom = packedFrom;
    return found;
}

void WriteJournal::drop()
{
    // For a kept file it is enough that its header says nothing any more.
    if (mKept && mIsNamed && !mKept->mFile
        && !writeAt(mFile.get(), 0, QByteArray(JournalHeader::size, '\0'))) {
        mKept->mPath = std::exchange(mPath, {});
        mKept->mFile = std::exchange(mFile, {});
        return;
    }
    // A name that cannot be removed must not bring these bytes back later: without its header the
    // journal says nothing.
    if (::unlink(QFile::encodeName(mPath).constData()) != 0)
        std::ignore = setSize(mFile.get(), 0);
    mFile = Descriptor();
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
