#pragma once

#include "tags/mp3infotag.h"

/// The last `bytes` bytes of a number, most significant first.
QByteArray number(quint32 value, int bytes = 4);

/// A whole ID3v2 tag around its frames.
QByteArray id3Tag(int major, const QByteArray &frames, int flags = 0);

/// A frame of v2.3, or of v2.4 with a plain size; with a sync-safe size; of v2.2.
QByteArray frame(const char *id, const QByteArray &body, int flags = 0);
QByteArray safeFrame(const char *id, const QByteArray &body, int flags = 0);
QByteArray frame22(const char *id, const QByteArray &body);

/// "ID=content" of each frame, with raw bytes as "#" and hexadecimal digits.
QString shown(const FrameStore &frames);

/// The tag of the MPEG audio file there; null when it cannot be read.
std::unique_ptr<MP3InfoTag> tagOfFile(const QString &path, const ReadOptions &options = {});
