#include "base/journalformat.h"

#include "base/bytes.h"
#include "base/checksum.h"

#include <QFile>

#include <utility>

namespace {

constexpr QByteArrayView magic("Tagwright journal 3\n");

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

} // namespace

QByteArray JournalHeader::bytes() const
{
    ByteWriter writer;
    writer.bytes(magic);
    writeNumber(writer, planLength);
    writer.u64(planChecksum);
    writer.u64(savedChecksum);
    writer.u64(Checksum::of(writer.data()));
    return std::move(writer).data();
}

std::optional<JournalHeader> JournalHeader::fromBytes(QByteArrayView bytes)
{
    ByteReader reader(bytes);
    if (reader.bytes(magic.size()) != magic)
        return std::nullopt;
    JournalHeader header;
    header.planLength = readNumber(reader);
    header.planChecksum = reader.u64();
    header.savedChecksum = reader.u64();
    if (reader.u64() != Checksum::of(bytes.first(size - 8)))
        return std::nullopt;
    return header;
}

QByteArray bytesOfWrite(const JournalledWrite &write)
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

JournalledWrite writeFromBytes(QByteArrayView bytes)
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
