#pragma once

#include <cstddef>

/// The texts of a tag.
enum class TagText { Title, Artist, Album, Year, Track, Genres, Lyrics, BPM };
inline constexpr std::size_t tagTextCount = 8;
