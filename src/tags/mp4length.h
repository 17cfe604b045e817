#pragma once

#include <chrono>
#include <optional>

class AtomSource;

/// How long the movie plays by its header. Nothing where it has none, or one that cannot be.
/// Throws MalformedData.
[[nodiscard]] std::optional<std::chrono::milliseconds> lengthOfMP4(const AtomSource &source);
