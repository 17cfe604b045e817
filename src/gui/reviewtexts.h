#pragma once

#include "app/reviewedsong.h"

// Words about a song under review.

/// "Artist – Title", or the file's name.
[[nodiscard]] QString nameOf(const ReviewedSong &song);
/// How far its review is.
[[nodiscard]] QString stateOf(const ReviewedSong &song);
/// What changes, or why nothing does.
[[nodiscard]] QString summaryOf(const ReviewedSong &song);
/// A source as users know it, by its class name.
[[nodiscard]] QString sourceTitle(const QString &className);
