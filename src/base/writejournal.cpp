#include "base/writejournal.h"

#include "base/bytes.h"
#include "base/filecopy.h"
#include "base/folders.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

namespace {
constexpr QByteArrayView magic("Tagwright journal 1\n");

struct Header {
    qint64 planOffset = 0;
    qint64 planLength = 0;
    quint32 planChecksum = 0;
};

/// Magic, three numbers, and the checksum of these.
constexpr qint64 headerSize = 20 + 8 + 8 + 4 + 4;

quint32 checksum(QByteArrayView bytes)
{
    return static_cast<quint32>(::crc32_z(0, reinterpret_cast<const Bytef *>(bytes.data()),
                                          static_cast<size_t>(bytes.size())));
}

QByteArray bytesOf(const Header &header)
{
    ByteWriter writer;
    writer.bytes(magic);
    writer.u64(static_cast<quint64>(header.planOffset));
    writer.u64(static_cast<quint64>(header.planLength));
    writer.u32(header.planChecksum);
    writer.u32(checksum(writer.data()));
    return std::move(writer).data();
}

std::optional<Header> headerFrom(QByteArrayView bytes)
{
    ByteReader reader(bytes);
    if (reader.bytes(magic.size()) != magic)
        return std::nullopt;
    Header header;
    header.planOffset = static_cast<qint64>(reader.u64());
    header.planLength = static_cast<qint64>(reader.u64());
    header.planChecksum = reader.u32();
    if (reader.u32() != checksum(bytes.first(headerSize - 4)))
        return std::nullopt;
    return header;
}

void writeNumber(ByteWriter &writer, qint64 number)
{
    writer.u64(static_cast<quint64>(number));
}

qint64 readNumber(ByteReader &reader)
{
    return static_cast<qint64>(reader.u64());
}

void writeBytes(ByteWriter &writer, QByteArrayView bytes)
{
    writeNumber(writer, bytes.size());
    writer.bytes(bytes);
}

QByteArray readBytes(ByteReader &reader)
{
    return reader.bytes(readNumber(reader)).toByteArray();
}

void writeTime(ByteWriter &writer, const timespec &time)
{
    writeNumber(writer, time.tv_sec);
    writeNumber(writer, time.tv_nsec);
}

timespec readTime(ByteReader &reader)
{
    const qint64 seconds = readNumber(reader);
    return {.tv_sec = seconds, .tv_nsec = readNumber(reader)};
}

void writePlan(ByteWriter &writer, const WritePlan &plan)
{
    writeNumber(writer, plan.oldSize);
    writeNumber(writer, plan.newSize);
    writeNumber(writer, static_cast<qint64>(plan.writes.size()));
    for (const PlannedWrite &write : plan.writes) {
        writeNumber(writer, write.range.offset);
        writeNumber(writer, write.range.length);
        writeNumber(writer, write.keptOffset);
        writeBytes(writer, write.bytes);
    }
}

WritePlan readPlan(ByteReader &reader)
{
    WritePlan plan;
    plan.oldSize = readNumber(reader);
    plan.newSize = readNumber(reader);
    for (qint64 left = readNumber(reader); left > 0; --left) {
        PlannedWrite write;
        write.range.offset = readNumber(reader);
        write.range.length = readNumber(reader);
        write.keptOffset = readNumber(reader);
        write.bytes = readBytes(reader);
        plan.writes.push_back(std::move(write));
    }
    return plan;
}

QByteArray bytesOf(const JournalledWrite &write)
{
    ByteWriter writer;
    writeBytes(writer, QFile::encodeName(write.path));
    writer.u64(write.before.device);
    writer.u64(write.before.inode);
    writer.u32(write.before.mode);
    writeTime(writer, write.before.accessed);
    writeTime(writer, write.before.modified);
    writer.u8(write.keepTime == KeepTime::Yes ? 1 : 0);
    writePlan(writer, write.plan);
    return std::move(writer).data();
}

JournalledWrite writeFrom(QByteArrayView bytes)
{
    ByteReader reader(bytes);
    JournalledWrite write;
    write.path = QFile::decodeName(readBytes(reader));
    write.before.device = reader.u64();
    write.before.inode = reader.u64();
    write.before.mode = reader.u32();
    write.before.accessed = readTime(reader);
    write.before.modified = readTime(reader);
    write.keepTime = reader.u8() ? KeepTime::Yes : KeepTime::No;
    write.plan = readPlan(reader);
    write.before.size = write.plan.oldSize;
    return write;
}

/// Fills in what the journal tells, and says whether it tells it. A failing disk is an error and
/// no incomplete journal: that one would be removed.
std::error_code read(int file, WriteJournal::Found &found)
{
    using State = WriteJournal::Found::State;
    const auto attributes = FileAttributes::of(file);
    if (!attributes)
        return lastError();
    found.state = State::Incomplete;
    if (attributes->size < headerSize)
        return {};
    QByteArray bytes(headerSize, Qt::Uninitialized);
    if (const auto error = readAt(file, 0, bytes.data(), bytes.size()))
        return error;
    const auto header = headerFrom(bytes);
    if (!header)
        return {};
    found.state = State::Damaged;
    const qint64 room = attributes->size - header->planOffset;
    if (header->planOffset < 0 || header->planLength < 0 || header->planLength > room)
        return {};
    bytes.resize(header->planLength);
    if (const auto error = readAt(file, header->planOffset, bytes.data(), bytes.size()))
        return error;
    if (checksum(bytes) != header->planChecksum)
        return {};
    found.write = writeFrom(bytes);
    found.state = State::Complete;
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

WriteJournal::Begun WriteJournal::begin(const JournalledWrite &write, int song)
{
    if (const auto error = makeJournalFolder())
        return {.journal = {}, .error = error};
    Descriptor file;
    QString path;
    if (const auto error = makeLockedFile(file, path))
        return {.journal = {}, .error = error};
    WriteJournal journal(path, std::move(file));
    if (const auto error = journal.fill(write, song)) {
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
    const QByteArray plan = bytesOf(write);
    const Header header = {.planOffset = savedBytesOffset + write.plan.oldSize,
                           .planLength = plan.size(),
                           .planChecksum = checksum(plan)};
    if (const auto error = writeAt(file, header.planOffset, plan))
        return error;
    // Two syncs, since a disk may write in any order: the header says that all the rest is there.
    // They are cheaper than a checksum of everything that is saved.
    if (const auto error = syncData(file))
        return error;
    if (const auto error = writeAt(file, 0, bytesOf(header)))
        return error;
    if (const auto error = syncData(file))
        return error;
    const Descriptor folder = openFolder(journalFolder());
    return folder ? syncAll(folder.get()) : lastError();
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
    try {
        if (read(file.get(), found))
            return {};
    } catch (const MalformedData &) {
        found.state = Found::State::Damaged;
    }
    if (isLocked)
        found.journal = WriteJournal(path, std::move(file));
    else
        found.state = Found::State::Busy;
    return found;
}

void WriteJournal::drop()
{
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
