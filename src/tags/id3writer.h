#pragma once

#include "tags/framestore.h"
#include "tags/tagoptions.h"

#include <QByteArray>

#include <optional>

/// A frame store as the bytes of a tag. Nothing here touches a file.
namespace ID3Writer {

/// "2.2.0", "2.3.0", "2.4.0" or "1.1": the version that a write will produce, by the version
/// that was read. No tag is moved up to v2.4, or away from it.
QString writeVersion(const FrameStore &frames, const std::optional<QString> &readVersion);

/// Whether nothing of title, artist, album, year, track, genre, comment and pictures would be
/// lost in an ID3v1.1 tag. Lyrics, BPM and the compilation flag are not asked for (kept: small
/// tags stay small).
bool canWriteID3v11WithoutLoss(const FrameStore &frames);

/// 128 bytes.
QByteArray dataForID3v11(const FrameStore &frames, const ID3Dialect &dialect);

enum class Version { V23, V24 };

/// A whole tag, header included; empty where the dialect writes no tag without frames.
QByteArray dataForID3V23orV24(const FrameStore &frames, Version version,
                              const WriteOptions &options);
QByteArray dataForID3v22(const FrameStore &frames, const WriteOptions &options);

} // namespace ID3Writer
