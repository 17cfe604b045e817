#include "gathering/fieldreasons.h"

using Kind = FieldReason::Kind;

namespace {

QStringList unansweredAbout(Asset asset, const QList<UnaskedSource> &unasked)
{
    QStringList classes;
    for (const UnaskedSource &source : unasked)
        if (source.missing.testFlag(asset))
            classes << source.className;
    return classes;
}

Kind ofUnasked(Asset asset, const AskedAssets &asked)
{
    if (asked.unanswered.testFlag(asset))
        return Kind::NoAnswer;
    return asked.tooLittleKnown.testFlag(asset) ? Kind::TooLittleKnown : Kind::NotAsked;
}

FieldReason ofSources(Asset asset, const FieldFacts &facts, const ChoiceRecord &choices)
{
    if (choices.reason == ChoiceReason::TakenByUser)
        return {.kind = Kind::NotOnAlbum, .album = choices};
    if (!facts.asked.answered.testFlag(asset))
        return {.kind = ofUnasked(asset, facts.asked)};
    if (!choices.told.testFlag(asset))
        return {.kind = Kind::NotFound};
    return {.kind = choices.isChosen() ? Kind::NotOnAlbum : Kind::NoAlbumChosen, .album = choices};
}

Kind ofPresent(Asset asset, const FieldFacts &facts)
{
    return asset == AssetSongTitle && facts.isNamedByFile ? Kind::NamedByFile : Kind::Kept;
}

Kind refusalOf(QSize size, const ArtworkLimits &limits)
{
    if (size.isEmpty() || isAcceptableSize(size, limits))
        return Kind::PictureUnreadable;
    return float(size.width()) < limits.minWidth ? Kind::PictureTooSmall : Kind::PictureNotSquare;
}

} // namespace

FieldReason pictureReason(const QByteArray &picture, const std::optional<AdjustedImage> &adjusted,
                          const ArtworkLimits &limits)
{
    const QSize size = imageSize(picture);
    if (!adjusted)
        return {.kind = refusalOf(size, limits), .picture = size};
    if (!adjusted->wasReencoded)
        return {.kind = Kind::Picture, .picture = size};
    return {.kind = Kind::Picture, .picture = imageSize(adjusted->data), .original = size};
}

void FieldReasons::noteSet(Assets changed, const FieldReason &reason)
{
    for (const AssetName &name : assetNames)
        if (changed.testFlag(name.asset) && !mSet.contains(name.asset))
            mSet.insert(name.asset, reason);
}

void FieldReasons::notePicture(const FieldReason &reason)
{
    if (!reason.isPictureRefused())
        mSet.insert(AssetArtwork, reason);
    else if (!mRefusedPicture || reason.picture.width() > mRefusedPicture->picture.width())
        mRefusedPicture = reason;
}

QMap<Asset, FieldReason> FieldReasons::of(const FieldFacts &facts, const AssetLedger &ledger,
                                          const ChoiceRecord &choices) const
{
    QMap<Asset, FieldReason> reasons;
    for (const auto &[asset, key] : assetNames) {
        if (facts.missing.testFlag(asset))
            reasons.insert(asset, ofMissing(asset, facts, choices));
        else if (ledger.changed.testFlag(asset))
            reasons.insert(asset, mSet.value(asset));
        else if (asset == AssetLyrics && ledger.isInstrumental)
            reasons.insert(asset, {.kind = Kind::Instrumental});
        else if (facts.gathered.testFlag(asset))
            reasons.insert(asset, {.kind = ofPresent(asset, facts)});
    }
    return reasons;
}

FieldReason FieldReasons::ofMissing(Asset asset, const FieldFacts &facts,
                                    const ChoiceRecord &choices) const
{
    FieldReason reason =
        asset == AssetArtwork ? ofMissingArtwork(facts, choices) : ofSources(asset, facts, choices);
    reason.unanswered = unansweredAbout(asset, facts.unasked);
    return reason;
}

FieldReason FieldReasons::ofMissingArtwork(const FieldFacts &facts,
                                           const ChoiceRecord &choices) const
{
    if (facts.awaitsAlbum)
        return {.kind = facts.hasPictures ? Kind::AlbumReplaced : Kind::AlbumUnknown};
    return mRefusedPicture.value_or(ofSources(AssetArtwork, facts, choices));
}
