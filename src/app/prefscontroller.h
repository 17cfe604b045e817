#pragma once

#include "base/folders.h"
#include "base/setting.h"
#include "gathering/albumlist.h"
#include "gathering/asset.h"
#include "itunes/tracklocation.h"
#include "tags/tagoptions.h"

#include <QSettings>

#include <optional>

namespace preferences {

/// The end of the overwrite slider, where it means "all": also what the threshold reads as when
/// it is unset.
inline constexpr double overwriteSliderMaximum = 1000.0;
/// What "no limit" is stored as.
inline constexpr double noLimit = 32767.0;

inline constexpr Setting<double> minimumImageSize{"minImageSize", 100.0}; // pixels
inline constexpr Setting<double> maximumImageSize{"maxImageSize", 450.0}; // pixels
inline constexpr Setting<double> overwriteImageThreshold{"overwriteImageThreshold",
                                                         overwriteSliderMaximum}; // pixels
inline constexpr Setting<bool> ignoreNonSquareArtwork{"ignoreNonSquareArt", false};
inline constexpr Setting<int> cacheSizeMB{"cacheSizeMB", 0};
inline constexpr Setting<bool> writeSpecCorrectID3v24{"id3v24Accurate", false};
inline constexpr Setting<bool> keepiTunesRefreshed{"keepiTunesRefreshed", false};
/// Do not warn of songs of compilations for which something is missing.
inline constexpr Setting<bool> dontWarnCompilation{"dontWarnCompilation", false};
inline constexpr Setting<bool> filterLyrics{"filterLyrics", false};
/// Lyrics with the times of their lines, from a source that has them.
inline constexpr Setting<bool> syncedLyrics{"syncedLyrics", false};
/// Whether the music shop is asked, too.
inline constexpr Setting<bool> useDeezer{"useDeezer", false};

} // namespace preferences

/// The kinds of information that the user may ask for.
inline constexpr Assets gatherableAssets = AssetSongTitle | AssetAlbumName | AssetArtwork
    | AssetGenre | AssetTrack | AssetYear | AssetLyrics;

/// What to gather and how, as the user left it.
struct GatheringOptions {
    Assets gather = gatherableAssets;
    Assets overwrite;
    AlbumPick albumPickingMethod = AlbumPick::None;
    Substrings allowSubstrings = Substrings::Refuse;
    bool parallelSearch = false;
    bool identify = false; ///< songs without names, by their sound
    bool review = false; ///< before anything is written
    double minimumImageSize = preferences::minimumImageSize.whenUnset; ///< pixels
    double maximumImageSize = preferences::maximumImageSize.whenUnset; ///< pixels
    /// Pixels: only narrower artwork is replaced.
    double overwriteImageThreshold = preferences::overwriteImageThreshold.whenUnset;
    bool ignoreNonSquareArtwork = false;
};

/// The source of the songs that the user chose last. The numbers stand in the settings.
enum class SourceKind { Folder = 0, Playlist = 1, Library = 2 };

/// The settings of the user, read when they are needed.
class PrefsController {
public:
    /// A user without any settings in the file gets those of a new user.
    explicit PrefsController(const QString &file = settingsFile());

    [[nodiscard]] QSettings &settings() { return mSettings; }

    /// The saved options; where they are of another version than ours ("prefsVersion"), what to
    /// gather and how to choose are the defaults.
    [[nodiscard]] GatheringOptions gatheringOptions() const;
    /// Saves what to gather and how to choose. The limits of artwork have settings of their own.
    void setGatheringOptions(const GatheringOptions &options);

    /// "id3Dialect": "standard", or anything else for classic.
    [[nodiscard]] ID3Dialect id3Dialect() const;
    [[nodiscard]] bool usesStandardDialect() const;
    void setUsesStandardDialect(bool usesStandard);
    [[nodiscard]] ReadOptions readOptions() const;
    [[nodiscard]] WriteOptions writeOptions() const;

    /// The key with which the user asks the AcoustID service: TAGWRIGHT_ACOUSTID_KEY of the
    /// environment, else "acoustIDKey". Empty without one.
    [[nodiscard]] QString acoustIDKey() const;
    void setAcoustIDKey(const QString &key);

    /// "movedFolders": pairs of "from" and "to", numbered from 1 on without a gap.
    [[nodiscard]] MovedFolders movedFolders() const;

    /// "_source"; nothing when it is unset or no such kind.
    [[nodiscard]] std::optional<SourceKind> librarySource() const;
    /// "_directory"; empty when it is unset.
    [[nodiscard]] QString libraryDirectory() const;
    /// "_playlist"; the library itself when it is unset.
    [[nodiscard]] QString libraryPlaylist() const;
    // Each remembers its kind of source, too.
    void setLibraryDirectory(const QString &path);
    void setLibraryPlaylist(const QString &name);
    void setiTunesLibrary();

    /// "drawerClosed", the other way round.
    [[nodiscard]] bool drawerIsOpen() const;
    void setDrawerOpen(bool isOpen);

    /// Forgets the seven settings of the preferences panel, so that their defaults apply again.
    void useDefaults();

private:
    void writeSettingsOfNewUser();

    QSettings mSettings;
};
