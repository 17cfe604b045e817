#pragma once

#include "gathering/songidentity.h"

#include <QByteArray>

/// What the AcoustID service said of one fingerprint.
struct AcoustIDAnswer {
    std::optional<SongIdentity> song{}; ///< nothing when it knows no such song, or says so poorly
    QString problem{}; ///< why there is no answer, for the user; empty otherwise
    bool isKeyRefused = false; ///< so that asking for other songs is of no use
    bool isStrange = false; ///< it is none of the service
};

/// Reads an answer in JSON. Results below `minScore` (0 to 1) do not count, nor do recordings of
/// another artist or title than the song is known to have.
[[nodiscard]] AcoustIDAnswer readAcoustIDAnswer(const QByteArray &json, double minScore,
                                                const KnownOfSong &known);
