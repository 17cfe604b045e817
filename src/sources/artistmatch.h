#pragma once

#include "gathering/albumlist.h"

#include <QString>

#include <optional>

// The tests of names that sources share. All names are simplified strings; an empty one matches
// nothing.

/// The artist that is searched, in both forms of the name.
struct SearchedArtist {
    SearchedArtist(const std::optional<QString> &artist, const std::optional<QString> &alternate);

    QString name; ///< simplified; empty without an artist
    QString alternateName; ///< the same of the alternate artist
};

/// The test of one name on a list, an artist's or an album's: one begins with the other, or
/// contains it where substrings are allowed.
[[nodiscard]] bool matchesListedName(const QString &searched, const QString &listed,
                                     Substrings substrings);

/// The same of an artist in both forms of the name.
[[nodiscard]] bool matchesListedArtist(const SearchedArtist &searched, const QString &listed,
                                       Substrings substrings);

/// The test of an album's own page: equal names, or one containing the other where substrings
/// are allowed. Without an alternate artist the artist stands for it.
[[nodiscard]] bool matchesAlbumArtist(const SearchedArtist &searched, const QString &ofAlbum,
                                      Substrings substrings);

/// The test of an album's title on a list: equal titles, or one containing the other where
/// substrings are allowed.
[[nodiscard]] bool matchesListedTitle(const QString &searched, const QString &listed,
                                      Substrings substrings);
