#pragma once

#include <chrono>
#include <optional>

class SongBytes;

/// How long the frames play, by the count that an encoder left in the first of them, else by their
/// bitrates and the size of the song. Nothing where there are no frames near the front.
[[nodiscard]] std::optional<std::chrono::milliseconds> lengthOfMPEGAudio(const SongBytes &song);
