#pragma once

#include "gathering/albumscore.h"
#include "gathering/assetledger.h"
#include "gathering/sourcesearches.h"

// What albums of a song are compared with: what its tag says, less what is itself looked for.

[[nodiscard]] SongFacts songFacts(const AudioInfoTag &tag, const AssetLedger &ledger);
[[nodiscard]] ScoredSong scoredSong(const SearchRequest &request, const AudioInfoTag &tag,
                                    const AssetLedger &ledger);
