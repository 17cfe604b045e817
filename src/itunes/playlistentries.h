#pragma once

#include <QByteArray>
#include <QStringList>

enum class PlaylistFormat { M3U, PLS, XSPF };

/// What a playlist names, as it is written and in the list's order: paths or URLs. Throws
/// MalformedData when the list is no XML, or names more songs than any list does.
[[nodiscard]] QStringList playlistEntries(const QByteArray &bytes, PlaylistFormat format);
