#pragma once

#include "base/fileattributes.h"
#include "base/writeplan.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// What a journal tells about a write besides the bytes that it saves.
struct JournalledWrite {
    QString path; ///< absolute
    FileAttributes before;
    KeepTime keepTime = KeepTime::No;
    WritePlan plan;
};

/// What stands at the front of a journal.
struct JournalHeader {
    /// Magic, three numbers, and the checksum of these.
    static constexpr qint64 size = 20 + 4 * 8;

    qint64 planLength = 0;
    quint64 planChecksum = 0;
    quint64 savedChecksum = 0; ///< of the saved bytes

    [[nodiscard]] QByteArray bytes() const;
    /// Nothing when these `size` bytes are no sound header.
    [[nodiscard]] static std::optional<JournalHeader> fromBytes(QByteArrayView bytes);
};

/// The plan of a journal: what it tells besides the bytes that it saves.
[[nodiscard]] QByteArray bytesOfWrite(const JournalledWrite &write);
/// Throws MalformedData when the bytes end too early.
[[nodiscard]] JournalledWrite writeFromBytes(QByteArrayView bytes);
