#pragma once

#include <QByteArray>

#include <optional>

class Atom;

/// Where the places in the file stand in the body of an atom that lists such: 'stco', 'co64',
/// 'saio', 'tfhd' or 'tfra'.
struct OffsetTable {
    qint64 start = 0; ///< of the first place, in the body
    quint32 count = 0;
    int width = 4; ///< bytes of a place: 4 or 8
    qint64 stride = 4; ///< from one place to the next

    /// Nothing, with a log line, when the atom does not hold what it says.
    [[nodiscard]] static std::optional<OffsetTable> shapeOf(const Atom &table);

    [[nodiscard]] quint64 entry(const QByteArray &body, quint32 index) const;
    /// False when the place does not fit.
    [[nodiscard]] bool setEntry(QByteArray &body, quint32 index, quint64 place) const;
};
