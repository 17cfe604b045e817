#include "app/prefscontroller.h"

#include <array>

namespace {
constexpr int currentPrefsVersion = 3;
/// Enough for the pages of an evening's gathering; without a disk cache every song of an album
/// would load the album's pages again.
constexpr int cacheSizeMBOfNewUser = 50;

constexpr Setting<int> prefsVersion{"prefsVersion", 0};
constexpr Setting<int> albumPickingMethod{"albumPickingMethod", 0};
constexpr Setting<int> allowSubstrings{"allowSubstrings", 0};
constexpr Setting<int> parallelSearch{"parallelSearch", 0};
constexpr Setting<bool> identifyBySound{"identifyBySound", false};
constexpr Setting<bool> reviewBeforeWriting{"reviewBeforeWriting", false};

/// An asset and the settings of its two check boxes.
struct AssetSettings {
    Asset asset;
    Setting<bool> check;
    Setting<bool> overwrite;
};

constexpr std::array assetSettings{
    AssetSettings{AssetSongTitle, {"checkTitle", false}, {"overwriteTitle", false}},
    AssetSettings{AssetAlbumName, {"checkAlbum", false}, {"overwriteAlbum", false}},
    AssetSettings{AssetArtwork, {"checkArtwork", false}, {"overwriteArtwork", false}},
    AssetSettings{AssetGenre, {"checkGenre", false}, {"overwriteGenre", false}},
    AssetSettings{AssetTrack, {"checkTrack", false}, {"overwriteTrack", false}},
    AssetSettings{AssetYear, {"checkYear", false}, {"overwriteYear", false}},
    AssetSettings{AssetLyrics, {"checkLyrics", false}, {"overwriteLyrics", false}},
};

constexpr Setting<int> source{"_source", -1};
constexpr QLatin1String directoryKey("_directory");
constexpr QLatin1String playlistKey("_playlist");
constexpr Setting<bool> drawerClosed{"drawerClosed", false};

constexpr QLatin1String dialectKey("id3Dialect");
constexpr QLatin1String standardDialect("standard");
constexpr QLatin1String classicDialect("classic");
constexpr QLatin1String acoustIDKeyKey("acoustIDKey");

AlbumPick albumPickOf(int stored)
{
    const bool isKnown =
        stored >= static_cast<int>(AlbumPick::None) && stored <= static_cast<int>(AlbumPick::Best);
    return isKnown ? static_cast<AlbumPick>(stored) : AlbumPick::None;
}

void readChoices(GatheringOptions &options, const QSettings &settings)
{
    options.gather = {};
    for (const AssetSettings &asset : assetSettings) {
        options.gather.setFlag(asset.asset, asset.check.value(settings));
        options.overwrite.setFlag(asset.asset, asset.overwrite.value(settings));
    }
    options.albumPickingMethod = albumPickOf(albumPickingMethod.value(settings));
    options.allowSubstrings =
        allowSubstrings.value(settings) ? Substrings::Allow : Substrings::Refuse;
    options.parallelSearch = parallelSearch.value(settings) != 0;
    options.identify = identifyBySound.value(settings);
    options.review = reviewBeforeWriting.value(settings);
}

/// A side of pictures that is not above 0 would leave nothing of them.
double positive(const Setting<double> &setting, const QSettings &settings)
{
    const double pixels = setting.value(settings);
    return pixels > 0 ? pixels : setting.whenUnset;
}
} // namespace

PrefsController::PrefsController(const QString &file)
    : mSettings(file, QSettings::IniFormat)
{
    // A file that cannot be read holds settings all the same.
    if (mSettings.status() == QSettings::NoError && mSettings.allKeys().isEmpty())
        writeSettingsOfNewUser();
}

void PrefsController::writeSettingsOfNewUser()
{
    GatheringOptions options;
    options.albumPickingMethod = AlbumPick::Best;
    options.parallelSearch = true;
    setGatheringOptions(options);
    preferences::overwriteImageThreshold.set(mSettings, preferences::noLimit);
    preferences::cacheSizeMB.set(mSettings, cacheSizeMBOfNewUser);
    preferences::writeSpecCorrectID3v24.set(mSettings, true);
    mSettings.setValue(dialectKey, standardDialect);
    mSettings.sync();
}

GatheringOptions PrefsController::gatheringOptions() const
{
    GatheringOptions options;
    if (prefsVersion.value(mSettings) == currentPrefsVersion)
        readChoices(options, mSettings);
    options.minimumImageSize = preferences::minimumImageSize.value(mSettings);
    options.maximumImageSize = positive(preferences::maximumImageSize, mSettings);
    options.overwriteImageThreshold = preferences::overwriteImageThreshold.value(mSettings);
    options.ignoreNonSquareArtwork = preferences::ignoreNonSquareArtwork.value(mSettings);
    return options;
}

void PrefsController::setGatheringOptions(const GatheringOptions &options)
{
    prefsVersion.set(mSettings, currentPrefsVersion);
    for (const AssetSettings &asset : assetSettings) {
        asset.check.set(mSettings, options.gather.testFlag(asset.asset));
        asset.overwrite.set(mSettings, options.overwrite.testFlag(asset.asset));
    }
    albumPickingMethod.set(mSettings, static_cast<int>(options.albumPickingMethod));
    allowSubstrings.set(mSettings, options.allowSubstrings == Substrings::Allow ? 1 : 0);
    parallelSearch.set(mSettings, options.parallelSearch ? 1 : 0);
    identifyBySound.set(mSettings, options.identify);
    reviewBeforeWriting.set(mSettings, options.review);
}

ID3Dialect PrefsController::id3Dialect() const
{
    return usesStandardDialect() ? ID3Dialect::standard() : ID3Dialect::classic();
}

bool PrefsController::usesStandardDialect() const
{
    return mSettings.value(dialectKey).toString() == standardDialect;
}

void PrefsController::setUsesStandardDialect(bool usesStandard)
{
    mSettings.setValue(dialectKey, usesStandard ? standardDialect : classicDialect);
}

ReadOptions PrefsController::readOptions() const
{
    ReadOptions options;
    options.dialect = id3Dialect();
    return options;
}

WriteOptions PrefsController::writeOptions() const
{
    const bool isAccurate = preferences::writeSpecCorrectID3v24.value(mSettings);
    WriteOptions options;
    options.dialect = id3Dialect();
    options.v24Sizes = isAccurate ? FrameSizes::Accurate : FrameSizes::Plain;
    options.refreshLibrary = preferences::keepiTunesRefreshed.value(mSettings);
    return options;
}

QString PrefsController::acoustIDKey() const
{
    return qEnvironmentVariable("TAGWRIGHT_ACOUSTID_KEY",
                                mSettings.value(acoustIDKeyKey).toString())
        .trimmed();
}

void PrefsController::setAcoustIDKey(const QString &key)
{
    mSettings.setValue(acoustIDKeyKey, key.trimmed());
}

MovedFolders PrefsController::movedFolders() const
{
    MovedFolders moved;
    for (int i = 1;; ++i) {
        const QString pair = QStringLiteral("movedFolders/%1/").arg(i);
        const QVariant from = mSettings.value(pair + QStringLiteral("from"));
        if (!from.isValid())
            return moved;
        moved.add(from.toString(), mSettings.value(pair + QStringLiteral("to")).toString());
    }
}

std::optional<SourceKind> PrefsController::librarySource() const
{
    const int stored = source.value(mSettings);
    const bool isKnown = stored >= static_cast<int>(SourceKind::Folder)
        && stored <= static_cast<int>(SourceKind::Library);
    return isKnown ? std::optional(static_cast<SourceKind>(stored)) : std::nullopt;
}

QString PrefsController::libraryDirectory() const
{
    return mSettings.value(directoryKey).toString();
}

QString PrefsController::libraryPlaylist() const
{
    return mSettings.value(playlistKey, QStringLiteral("Library")).toString();
}

void PrefsController::setLibraryDirectory(const QString &path)
{
    mSettings.setValue(directoryKey, path);
    source.set(mSettings, static_cast<int>(SourceKind::Folder));
}

void PrefsController::setLibraryPlaylist(const QString &name)
{
    mSettings.setValue(playlistKey, name);
    source.set(mSettings, static_cast<int>(SourceKind::Playlist));
}

void PrefsController::setiTunesLibrary()
{
    source.set(mSettings, static_cast<int>(SourceKind::Library));
}

bool PrefsController::drawerIsOpen() const
{
    return !drawerClosed.value(mSettings);
}

void PrefsController::setDrawerOpen(bool isOpen)
{
    drawerClosed.set(mSettings, !isOpen);
}

void PrefsController::useDefaults()
{
    preferences::minimumImageSize.unset(mSettings);
    preferences::maximumImageSize.unset(mSettings);
    preferences::overwriteImageThreshold.unset(mSettings);
    preferences::ignoreNonSquareArtwork.unset(mSettings);
    preferences::cacheSizeMB.unset(mSettings);
    preferences::writeSpecCorrectID3v24.unset(mSettings);
    preferences::keepiTunesRefreshed.unset(mSettings);
}
