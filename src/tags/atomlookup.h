#pragma once

#include "tags/atomname.h"

#include <QByteArray>
#include <QStringView>

#include <limits>
#include <optional>

class AtomSource;

/// Finds single atoms where they stand, without making a tree.
namespace AtomLookup {

constexpr quint64 notFound = std::numeric_limits<quint64>::max();

/// Bytes of the whole atom whose header is at `offset`, and its name. Throws MalformedData.
[[nodiscard]] quint64 sizeOfAtomIn(const AtomSource &source, qint64 atOffset,
                                   AtomName *name = nullptr);

/// Where the header of the atom at a path such as "moov:trak" stands; `indexed` counts the atoms
/// of each name from 1, such as "1:2". `notFound` when there is none. Each name is looked for 8
/// bytes into the atom before it, so that nothing is found inside a 'meta' that has version and
/// flags. Throws MalformedData.
[[nodiscard]] quint64 offsetToAtomIn(const AtomSource &source, QStringView atNamePath,
                                     QStringView indexed);

/// The body of that atom, without indices of the first ones. Throws MalformedData.
[[nodiscard]] std::optional<QByteArray> atomDataIn(const AtomSource &source, QStringView atNamePath,
                                                   QStringView indexed = {});

} // namespace AtomLookup
