#pragma once

#include "gathering/choicerecord.h"

// A record of a choice in words, for the report and the window.

/// Why the album was chosen, or why none; with the sources that could not be asked. Nothing when
/// no source was to be asked.
[[nodiscard]] std::optional<QString> textOfReason(const ChoiceRecord &record);

/// Why the album was not chosen; nothing for a chosen one.
[[nodiscard]] std::optional<QString> textOfFate(AlbumFate fate);

/// Why a field was set, or why not; with the sources that could not be asked about it.
[[nodiscard]] QString textOfField(const FieldReason &reason);
