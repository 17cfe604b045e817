#pragma once

#include <QByteArrayView>

#include <cstdint>

/// Sync-safe numbers: four bytes of which the low 7 bits count, most significant first, so that
/// no size looks like the start of an MPEG frame.
namespace SynchSafe {

/// The greatest number that fits.
constexpr qint64 max = (qint64(1) << 28) - 1;

/// The number at `atOffset`, where four bytes must stand; their top bits are ignored.
[[nodiscard]] std::uint32_t getSynchSafeIntIn(QByteArrayView bytes, qsizetype atOffset);

/// `value`, at most `max`, as the 32 bits that are written most significant byte first.
[[nodiscard]] std::uint32_t synchSafe(std::uint32_t value);

} // namespace SynchSafe
