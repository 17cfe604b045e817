#pragma once

#include <QFlags>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

/// A kind of information about a song. The numbers are part of settings and definitions.
enum Asset : unsigned {
    AssetArtwork = 1,
    AssetAlbumName = 2,
    AssetArtist = 4,
    AssetYear = 8,
    AssetSongTitle = 16,
    AssetTrack = 32,
    AssetGenre = 64,
    AssetBPM = 128,
    AssetLyrics = 256,
};
Q_DECLARE_FLAGS(Assets, Asset)
Q_DECLARE_OPERATORS_FOR_FLAGS(Assets)

/// An asset and the key of its text. BPM has none: it is never listed.
struct AssetName {
    Asset asset;
    const char *key;
};

/// In the order in which assets are listed for the user.
inline constexpr std::array assetNames{
    AssetName{AssetArtist, "Artist"},       AssetName{AssetAlbumName, "AlbumName"},
    AssetName{AssetSongTitle, "SongTitle"}, AssetName{AssetLyrics, "Lyrics"},
    AssetName{AssetGenre, "Genre"},         AssetName{AssetYear, "Year"},
    AssetName{AssetTrack, "Track"},         AssetName{AssetArtwork, "Artwork"},
};

/// The keys of the assets, as reports and lists hold them.
[[nodiscard]] QStringList keysOfAssets(Assets assets);

/// The localized texts of the assets, joined by ", ".
QString summaryOfAssets(Assets assets);
