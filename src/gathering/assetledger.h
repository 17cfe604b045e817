#pragma once

#include "gathering/asset.h"

#include <QMap>
#include <QString>

class AudioInfoTag;

/// What is desired for a song: of what is to be gathered, what its tag lacks or what may be
/// overwritten. The artist never is.
[[nodiscard]] Assets desiredAssets(Assets gather, Assets overwrite, const AudioInfoTag &tag);

/// The kinds of information that the tag holds, by the same rules.
[[nodiscard]] Assets assetsPresent(const AudioInfoTag &tag);

/// What a task still looks for, what it may replace, and what it changed so far.
struct AssetLedger {
    Assets overwrite;
    Assets desired;
    Assets changed;
    QMap<Asset, QString> sources; ///< of each changed asset
    bool isInstrumental = false; ///< a source says that there are no lyrics to be found

    [[nodiscard]] bool isDesired(Asset asset) const { return desired.testFlag(asset); }

    void supplied(Asset asset, const QString &source)
    {
        changed |= asset;
        desired &= ~Assets(asset);
        sources[asset] = source;
    }
};
