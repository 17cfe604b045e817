#pragma once

#include "tags/framestore.h"
#include "tags/tagoptions.h"
#include "tags/tagpieces.h"

#include <optional>

/// A frame store as the bytes of a tag. Nothing here touches a file.
namespace ID3Writer {

/// "2.2.0", "2.3.0", "2.4.0" or "1.1": the version that a write will produce, by the version
/// that was read. No tag is moved up to v2.4, or away from it.
[[nodiscard]] QString writeVersion(const FrameStore &frames,
                                   const std::optional<QString> &readVersion,
                                   const ID3Dialect &dialect);

enum class Version { V23, V24 };

/// A whole tag, header included; no pieces where the dialect writes no tag without frames. Fails
/// when the tag reaches 256 MB, which its header cannot say.
[[nodiscard]] TagPieces::Made dataForID3V23orV24(const FrameStore &frames, Version version,
                                                 const WriteOptions &options);

/// The same as ID3v2.2. Fails also when a frame reaches 16 MB.
[[nodiscard]] TagPieces::Made dataForID3v22(const FrameStore &frames, const WriteOptions &options);

} // namespace ID3Writer
