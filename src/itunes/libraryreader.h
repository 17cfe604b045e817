#pragma once

#include "itunes/libraryfile.h"

#include <optional>

class QIODevice;

struct LibraryReading {
    std::optional<LibraryFile> library;
    QString problem; ///< one line, empty when all of it was read
};

/// Reads a property list, XML or binary, in memory that grows with what LibraryFile keeps only.
/// Values of another type than expected count as missing, and are told of; what is no property
/// list, or ends too early, gives nothing but the reason. May be called on any thread.
[[nodiscard]] LibraryReading readLibraryFile(const QString &path);
/// The same of an open device.
[[nodiscard]] LibraryReading readLibraryFile(QIODevice *device);
