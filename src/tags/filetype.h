#pragma once

#include "base/inplacefile.h"
#include "tags/songbytes.h"

#include <QString>

/// What kind of song a file is.
namespace FileType {

enum class SongDataType { Unknown = 0, MPEGAudio = 1, MP4 = 2 };

/// By the first half megabyte of its contents.
[[nodiscard]] SongDataType songDataType(const SongBytes &song);

// By the extension of its name alone, whatever the case.
[[nodiscard]] bool claimsToBeMP3(QStringView path);
[[nodiscard]] bool claimsToBeAAC(QStringView path);
[[nodiscard]] bool claimsToBeOGG(QStringView path);

/// The length of a stray ID3v2.4 tag in front of MP4 data; 0 when there is none. Tags of other
/// versions are left where they are; so is, with a log line, one that would reach the file's end.
[[nodiscard]] qint64 strayID3v2TagLength(const SongBytes &song);
/// The same of a file of `size` bytes that begins with `head`, which is that much of it.
constexpr qint64 strayID3v2HeaderLength = 10;
[[nodiscard]] qint64 strayID3v2TagLength(const QString &path, qint64 size, QByteArrayView head);

/// Takes a stray ID3v2.4 tag off the front of the file, in place, with a log line. False when
/// there is none, or when the file cannot be written.
bool removeID3v2TagFromFileAtPath(const QString &path, KeepTime keepTime);

} // namespace FileType
