#pragma once

#include "app/foldedtexts.h"

/// Whether runs of digits are compared by the number they stand for.
enum class Digits { AsNumbers, AsCharacters };

/// For each text its place in the order of compareCaseInsensitiveNumeric(), or in that of plain
/// characters, from 0 on; equal ones have the same. On any thread.
[[nodiscard]] QList<quint32> ranksOf(const FoldedTexts &texts, Digits digits);
