#include "gathering/definitionschema.h"

#include <algorithm>
#include <array>

namespace {

using enum DefinitionKind;

constexpr std::array topLevel{
    DefinitionKey{"sourcelist", TextList},
    DefinitionKey{"simplifiers", TextTable},
    DefinitionKey{"genres", TextList},
    DefinitionKey{"lyricsSubstitutions", TextTable},
    DefinitionKey{"clearCacheAtLaunch", Integer},
    DefinitionKey{"latestReleaseNumber", Integer},
    DefinitionKey{"latestVersion", Text},
    DefinitionKey{"latestDLLocation", Address},
    DefinitionKey{"latestReleaseNotes", Text},
    DefinitionKey{"checkArtist", Text},
    DefinitionKey{"checkAlbum", Text},
    DefinitionKey{"checkSong", Text},
};

constexpr std::array common{
    DefinitionKey{"simulConns", Integer}, DefinitionKey{"maxPossibleArtWidth", Integer},
    DefinitionKey{"charset", Charset},    DefinitionKey{"minInterval", Number},
    DefinitionKey{"patience", Number},    DefinitionKey{"busyPause", Number},
    DefinitionKey{"userAgent", Agent},    DefinitionKey{"namesFromPath", Switch},
    DefinitionKey{"checkArtist", Text},   DefinitionKey{"checkAlbum", Text},
    DefinitionKey{"checkSong", Text},
};

constexpr std::array parseRecipe{
    DefinitionKey{"listBegin", Text},  DefinitionKey{"listEnd", Text},
    DefinitionKey{"entryBegin", Text}, DefinitionKey{"textBegin", Text},
    DefinitionKey{"textEnd", Text},
};

constexpr std::array musicBrainz{
    DefinitionKey{"queryRecording", AddressFormat}, DefinitionKey{"queryRelease", AddressFormat},
    DefinitionKey{"releaseLookup", AddressFormat},  DefinitionKey{"minScore", Number},
    DefinitionKey{"maxLookUps", Integer},
};

constexpr std::array coverArtArchive{
    DefinitionKey{"queryRecording", AddressFormat},
    DefinitionKey{"queryRelease", AddressFormat},
    DefinitionKey{"minScore", Number},
    DefinitionKey{"releaseListing", AddressFormat},
    DefinitionKey{"groupListing", AddressFormat},
};

constexpr std::array freeDB{
    DefinitionKey{"queryPOST", Address},         DefinitionKey{"parseAlbumList", ParseRecipe},
    DefinitionKey{"firstResultsFragment", Text}, DefinitionKey{"moreResultsFragment", Text},
    DefinitionKey{"discInfoURL", AddressFormat}, DefinitionKey{"albumResultDelimiter", Text},
};

constexpr std::array cdUniverse{
    DefinitionKey{"queryAlbumTitle", AddressFormat},
    DefinitionKey{"queryArtistName", AddressFormat},
    DefinitionKey{"multiMatch", Text},
    DefinitionKey{"multiURLPrefix", AddressPrefix},
    DefinitionKey{"multiMatchParse", ParseRecipe},
    DefinitionKey{"artistBegin", Text},
    DefinitionKey{"albumBegin", Text},
    DefinitionKey{"albumEnd", Text},
    DefinitionKey{"rootURLPrefix", AddressPrefix},
    DefinitionKey{"albumListParse", ParseRecipe},
    DefinitionKey{"parseAlbumArtist", Text},
    DefinitionKey{"parseAlbumTitle", Text},
    DefinitionKey{"parseAlbumArtURLBegin", Text},
    DefinitionKey{"parseAlbumArtURLEnd", Text},
    DefinitionKey{"parseAlbumGenre1", Text},
    DefinitionKey{"parseAlbumGenre2", Text},
    DefinitionKey{"parseAlbumTrack", TrackFormat},
    DefinitionKey{"parseAlbumYear1", Text},
    DefinitionKey{"parseAlbumYear2", Text},
    DefinitionKey{"characterReferences", Switch, true},
    DefinitionKey{"ownMarkers", Switch, true},
};

constexpr std::array tower{
    DefinitionKey{"queryAlbumName", AddressFormat},
    DefinitionKey{"querySongName", AddressFormat},
    DefinitionKey{"baseURLPrefix", Address},
    DefinitionKey{"albumLinkPrefix", Text},
    DefinitionKey{"albumTitleAfter", Text},
    DefinitionKey{"albumArtistAfter", Text},
    DefinitionKey{"albumPageListIndicator", Text},
    DefinitionKey{"parseAlbumPageList", ParseRecipe},
    DefinitionKey{"parseAlbumList", ParseRecipe},
    DefinitionKey{"parseAlbumArtist", Text},
    DefinitionKey{"parseAlbumTitle", Text},
    DefinitionKey{"parseAlbumArtURL", Text},
    DefinitionKey{"parseAlbumGenre1", Text},
    DefinitionKey{"parseAlbumGenre2", Text},
    DefinitionKey{"parseAlbumTrack", TrackFormat},
    DefinitionKey{"parseAlbumYear1", Text},
    DefinitionKey{"parseAlbumYear2", Text},
    DefinitionKey{"characterReferences", Switch, true},
};

constexpr std::array googleImage{
    DefinitionKey{"queryArtistAndAlbum", AddressFormat},
    DefinitionKey{"similarThreshold", Integer},
    DefinitionKey{"scriptTrim", Text},
    DefinitionKey{"scriptParse", ParseRecipe},
    DefinitionKey{"scriptChunkOrder", Text},
    DefinitionKey{"htmlPrefix", AddressPrefix},
    DefinitionKey{"htmlDelimiters", Text},
    DefinitionKey{"htmlParse", ParseRecipe},
};

constexpr std::array bestCovers{
    DefinitionKey{"baseURL", Address}, DefinitionKey{"query", TextFormat},
    DefinitionKey{"linkBegin", Text},  DefinitionKey{"listBegin", Text},
    DefinitionKey{"listEnd", Text},    DefinitionKey{"entryBegin", Text},
    DefinitionKey{"textBegin", Text},  DefinitionKey{"textEnd", Text},
};

constexpr std::array coverKingdom{
    DefinitionKey{"baseURL", Address},
    DefinitionKey{"query", TextFormat},
    DefinitionKey{"coverAudioPrefix", Address},
    DefinitionKey{"mainListParse", ParseRecipe},
    DefinitionKey{"resourceListParse", ParseRecipe},
};

constexpr std::array ckDigest{
    DefinitionKey{"prefix", AddressPrefix},
};

constexpr std::array fredoCovers{
    DefinitionKey{"prefix", AddressPrefix},
    DefinitionKey{"suffix", Text},
};

constexpr std::array lyricsAndSongs{
    DefinitionKey{"queryArtistTitle", ArtistTitleAddressFormat},
    DefinitionKey{"parseSearchResults", ParseRecipe},
    DefinitionKey{"linkPrefix", Text},
    DefinitionKey{"lyricHead", Text},
    DefinitionKey{"lyricFoot", Text},
    DefinitionKey{"adBegin", Text},
    DefinitionKey{"adEnd", Text},
};

constexpr std::array leosLyrics{
    DefinitionKey{"queryArtistTitle", ArtistTitleAddressFormat},
    DefinitionKey{"parseSearchResults", ParseRecipe},
    DefinitionKey{"baseURL", AddressPrefix},
    DefinitionKey{"keepLooking", Switch},
    DefinitionKey{"nextResultsPage", Text},
    DefinitionKey{"lyricHead", Text},
    DefinitionKey{"lyricFoot", Text},
    DefinitionKey{"lineBreak", Text},
};

constexpr std::array askLyrics{
    DefinitionKey{"queryArtist", AddressFormat},
    DefinitionKey{"artistListParse", ParseRecipe},
    DefinitionKey{"songListParse", ParseRecipe},
    DefinitionKey{"linkPrefix", Text},
};

constexpr std::array acoustID{
    DefinitionKey{"queryPOST", Address},
    DefinitionKey{"minScore", Number},
};

constexpr std::array lrclib{
    DefinitionKey{"recordURL", Address},
    DefinitionKey{"searchURL", Address},
    DefinitionKey{"durationTolerance", Number},
    DefinitionKey{"syncedLyrics", Switch},
};

constexpr std::array deezer{
    DefinitionKey{"queryAlbum", AddressFormat},  DefinitionKey{"queryTrack", AddressFormat},
    DefinitionKey{"albumLookup", AddressFormat}, DefinitionKey{"trackList", AddressFormat},
    DefinitionKey{"maxLookUps", Integer},
};

constexpr std::array sources{
    SourceSchema{"MusicBrainzInterface", musicBrainz},
    SourceSchema{"CoverArtArchiveInterface", coverArtArchive},
    SourceSchema{"LRCLIBInterface", lrclib},
    SourceSchema{"DeezerInterface", deezer},
    SourceSchema{"FreeDBInterface", freeDB},
    SourceSchema{"CDUniverseInterface", cdUniverse},
    SourceSchema{"TowerInterface", tower},
    SourceSchema{"GoogleImageInterface", googleImage},
    SourceSchema{"BestCoversInterface", bestCovers},
    SourceSchema{"CoverKingdomInterface", coverKingdom},
    SourceSchema{"CKDigestInterface", ckDigest},
    SourceSchema{"FredoCoversInterface", fredoCovers},
    SourceSchema{"LyricsAndSongsInterface", lyricsAndSongs},
    SourceSchema{"LeosLyricsInterface", leosLyrics},
    SourceSchema{"AskLyricsInterface", askLyrics},
    SourceSchema{"AcoustIDLookup", acoustID},
};

} // namespace

std::span<const DefinitionKey> topLevelSchema()
{
    return topLevel;
}

std::span<const DefinitionKey> commonSchema()
{
    return common;
}

std::span<const SourceSchema> sourceSchemas()
{
    return sources;
}

std::span<const DefinitionKey> schemaOfSource(const QString &className)
{
    const auto found = std::find_if(sources.begin(), sources.end(), [&](const auto &schema) {
        return className == QLatin1String(schema.className);
    });
    return found == sources.end() ? std::span<const DefinitionKey>() : found->keys;
}

std::span<const DefinitionKey> parseRecipeSchema()
{
    return parseRecipe;
}
