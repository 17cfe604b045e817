#pragma once

#include <QString>

#include <optional>

/// What the names of a song's file and folders say of it. Each is a guess, to search with.
struct PathNames {
    std::optional<QString> artist{};
    std::optional<QString> title{};
    std::optional<QString> album{};
    bool isOfVarious = false; ///< the folder says that its songs are by several artists

    bool operator==(const PathNames &) const = default;
};

/// Reads names as they are mostly given: "Artist/Album/03 Title", "Artist - Album/03 - Title",
/// "Artist - Title" and the like. Folders down to `home` say nothing, nor do those called "Music".
[[nodiscard]] PathNames namesOfPath(const QString &path, const QString &home = {});

/// Whether a text is the name of nothing, such as "Unknown Artist" or "Track 03".
[[nodiscard]] bool isPlaceholder(const QString &text);
