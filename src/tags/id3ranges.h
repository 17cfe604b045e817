#pragma once

#include "tags/byterange.h"

#include <QByteArray>
#include <QString>

#include <functional>

/// Where the tags of an MPEG audio file stand: what a reader reads, and a writer replaces.
struct ID3Ranges {
    ByteRange id3v2; ///< header included
    ByteRange id3v1;

    /// At most `length` bytes from `offset`; fewer at the end of the file or when reading fails.
    using Read = std::function<QByteArray(qint64 offset, qint64 length)>;

    /// Reads 32 bytes at the front and 128 at the end. Throws MalformedData, with a log line
    /// that names `path`, when the file is too small or the size of its ID3v2 tag is wrong.
    static ID3Ranges rangesIn(const QString &path, qint64 fileSize, const Read &read);
};
