#pragma once

#include "app/songkeys.h"

/// What the search field looks at.
[[nodiscard]] SongKeyList keysOfFilter();

/// For each song whether AudioInfoTag::matchString() holds for `text`, which is not empty.
/// `columns` are those of keysOfFilter(). On any thread.
[[nodiscard]] std::vector<bool> songsThatMatch(const QString &text,
                                               const QList<SongKeyColumn> &columns);
