#pragma once

#include "songs/songfile.h"

#include <vector>

/// The artwork of some songs, as far as it was looked at.
struct ArtworkOfSongs {
    std::size_t songs = 0;
    std::size_t lookedAt = 0; ///< how many of them, from the first one on
    bool isMixed = false; ///< not all of those have the same pictures
    QList<ID3Image> pictures; ///< that all of those have; of mixed ones, those of the first songs
    QString reason; ///< why the pictures cannot be read, one line for the user
};

/// Whose artwork is to be read: of many songs only the first ones, since each is a file.
class ArtworkReading {
public:
    /// What is known of songs behind these is not asked for.
    static constexpr std::size_t mostSongs = 1000;

    ArtworkReading() = default;
    /// Belongs to the thread of the songs.
    explicit ArtworkReading(const SongList &songs);

    /// Reads the files; used on any thread.
    [[nodiscard]] ArtworkOfSongs read() const;

private:
    struct Entry {
        QString path;
        ReadOptions options;
    };

    std::vector<Entry> mEntries;
    ArtworkOfSongs mKnown; ///< without reading
};

/// Whether the pictures are the same, whatever is said about them.
[[nodiscard]] bool haveSameData(const QList<ID3Image> &images, const QList<ID3Image> &others);
