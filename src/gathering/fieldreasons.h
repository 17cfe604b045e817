#pragma once

#include "gathering/artworkcheck.h"
#include "gathering/assetledger.h"
#include "gathering/choicerecord.h"
#include "gathering/sourceoutages.h"

/// What became of a song, as far as its fields are explained by it.
struct FieldFacts {
    Assets gathered; ///< what the user wanted
    Assets missing;
    AskedAssets asked;
    QList<UnaskedSource> unasked;
    bool awaitsAlbum = false; ///< artwork was to be looked for once the album is known
    bool hasPictures = false;
    bool isNamedByFile = false; ///< the title, when the search began
};

/// Notes, while a song is gathered, why its fields are set or not.
class FieldReasons {
public:
    /// Those of `changed` that were not noted before were set for this reason.
    void noteSet(Assets changed, const FieldReason &reason);
    /// A picture was set, or refused. Of those refused the widest is told of.
    void notePicture(const FieldReason &reason);

    [[nodiscard]] QMap<Asset, FieldReason> of(const FieldFacts &facts, const AssetLedger &ledger,
                                              const ChoiceRecord &choices) const;

private:
    [[nodiscard]] FieldReason ofMissing(Asset asset, const FieldFacts &facts,
                                        const ChoiceRecord &choices) const;
    [[nodiscard]] FieldReason ofMissingArtwork(const FieldFacts &facts,
                                               const ChoiceRecord &choices) const;

    QMap<Asset, FieldReason> mSet;
    std::optional<FieldReason> mRefusedPicture;
};

/// Why the picture is taken or not: `adjusted` is what adjustedImage() made of it.
[[nodiscard]] FieldReason pictureReason(const QByteArray &picture,
                                        const std::optional<AdjustedImage> &adjusted,
                                        const ArtworkLimits &limits);
