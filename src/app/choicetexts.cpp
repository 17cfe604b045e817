#include "app/choicetexts.h"

#include <QStringList>
#include <QtGlobal>

#include <algorithm>

namespace {

QString pickedName(const AlbumVerdict &verdict)
{
    return verdict.pickedAlbum ? qtTrId("ChoiceAlbumName").arg(*verdict.pickedAlbum)
                               : qtTrId("ChoiceAlbumWithoutName");
}

QString withNameAndCount(const QString &text, const AlbumVerdict &verdict, int count)
{
    return text.arg(pickedName(verdict), QString::number(count));
}

QString textOfChoice(const AlbumVerdict &verdict)
{
    switch (verdict.reason) {
    case ChoiceReason::NotSearched:
        return {};
    case ChoiceReason::NothingFound:
        return qtTrId("ChoiceNothingFound");
    case ChoiceReason::NoneFits:
        return qtTrId("ChoiceNoneFits");
    case ChoiceReason::CoverAlone:
        return qtTrId("ChoiceCoverAlone").arg(pickedName(verdict));
    case ChoiceReason::NoMethod:
        return qtTrId("ChoiceNoMethod").arg(verdict.left);
    case ChoiceReason::NoUsableYear:
        return qtTrId("ChoiceNoUsableYear").arg(verdict.left);
    case ChoiceReason::SongNotOnAlbum:
        return qtTrId("ChoiceSongNotOnAlbum").arg(pickedName(verdict));
    case ChoiceReason::OnlyAlbum:
        return qtTrId("ChoiceOnlyAlbum").arg(pickedName(verdict));
    case ChoiceReason::LastLeft:
        return withNameAndCount(qtTrId("ChoiceLastLeft"), verdict, verdict.found);
    case ChoiceReason::TakenByUser:
        return qtTrId("ChoiceTakenByUser").arg(pickedName(verdict));
    case ChoiceReason::EarliestYear:
        return withNameAndCount(qtTrId("ChoiceEarliestYear"), verdict, verdict.left);
    case ChoiceReason::MostAgreement:
        return withNameAndCount(qtTrId("ChoiceMostAgreement"), verdict, verdict.left);
    case ChoiceReason::HighestScore:
        return withNameAndCount(qtTrId("ChoiceHighestScore"), verdict, verdict.left);
    }
    return {};
}

QString withoutSources(const QString &text, const QStringList &unanswered)
{
    return unanswered.isEmpty()
        ? text
        : qtTrId("ChoiceWithoutSources").arg(text, unanswered.join(QStringLiteral(", ")));
}

QString sidesOf(QSize picture)
{
    return qtTrId("FieldPictureSize")
        .arg(QString::number(picture.width()), QString::number(picture.height()));
}

QString textOfPicture(const FieldReason &reason)
{
    const QString sides = sidesOf(reason.picture);
    return reason.original.isEmpty()
        ? qtTrId("FieldPicture").arg(sides)
        : qtTrId("FieldPictureScaled").arg(sides, sidesOf(reason.original));
}

QString textOfLent(const FieldReason &reason)
{
    return reason.picture.isEmpty() ? qtTrId("FieldLent")
                                    : qtTrId("FieldLentPicture").arg(sidesOf(reason.picture));
}

QString textOfFieldAlone(const FieldReason &reason)
{
    using Kind = FieldReason::Kind;
    switch (reason.kind) {
    case Kind::ChosenAlbum:
    case Kind::NoAlbumChosen:
        return textOfChoice(reason.album);
    case Kind::Lyrics:
        return qtTrId("FieldLyrics");
    case Kind::Lent:
        return textOfLent(reason);
    case Kind::Sound:
        return qtTrId("FieldSound");
    case Kind::Path:
        return qtTrId("FieldPath");
    case Kind::Picture:
        return textOfPicture(reason);
    case Kind::Kept:
        return qtTrId("FieldKept");
    case Kind::Instrumental:
        return qtTrId("FieldInstrumental");
    case Kind::NamedByFile:
        return qtTrId("FieldNamedByFile");
    case Kind::NotAsked:
        return qtTrId("FieldNotAsked");
    case Kind::NoAnswer:
        return qtTrId("FieldNoAnswer");
    case Kind::TooLittleKnown:
        return qtTrId("FieldTooLittleKnown");
    case Kind::NotFound:
        return qtTrId("FieldNotFound");
    case Kind::NotOnAlbum:
        return qtTrId("FieldNotOnAlbum").arg(pickedName(reason.album));
    case Kind::AlbumUnknown:
        return qtTrId("FieldAlbumUnknown");
    case Kind::AlbumReplaced:
        return qtTrId("FieldAlbumReplaced");
    case Kind::PictureNotFetched:
        return qtTrId("FieldPictureNotFetched");
    case Kind::PictureUnreadable:
        return qtTrId("FieldPictureUnreadable");
    case Kind::PictureTooSmall:
        return qtTrId("FieldPictureTooSmall").arg(sidesOf(reason.picture));
    case Kind::PictureNotSquare:
        return qtTrId("FieldPictureNotSquare").arg(sidesOf(reason.picture));
    }
    return {};
}

QString whyNotLookedUp(AlbumFate fate)
{
    switch (fate) {
    case AlbumFate::ByOtherArtist:
        return qtTrId("UnseenOtherArtist");
    case AlbumFate::OfOtherTitle:
        return qtTrId("UnseenOtherTitle");
    case AlbumFate::OfOtherName:
        return qtTrId("UnseenOtherName");
    case AlbumFate::LittleAlike:
        return qtTrId("UnseenLittleAlike");
    case AlbumFate::OfOtherLength:
        return qtTrId("UnseenOtherLength");
    case AlbumFate::Unofficial:
        return qtTrId("UnseenUnofficial");
    case AlbumFate::OfOtherKind:
        return qtTrId("UnseenOtherKind");
    case AlbumFate::OtherEdition:
        return qtTrId("UnseenOtherEdition");
    case AlbumFate::LaterWork:
        return qtTrId("UnseenLaterWork");
    default:
        return qtTrId("UnseenBehindOthers");
    }
}

QStringList unansweredSources(const ChoiceRecord &record)
{
    QStringList sources;
    for (const SourceAnswer &answer : record.answers)
        if (answer.kind == SourceAnswer::Kind::Unanswered)
            sources << answer.source;
    sources.removeDuplicates();
    return sources;
}

/// Why no source was asked; nothing where there was nothing to ask.
std::optional<QString> textOfSilence(const ChoiceRecord &record)
{
    if (const QStringList unanswered = unansweredSources(record); !unanswered.isEmpty())
        return withoutSources(qtTrId("ChoiceNoAnswer"), unanswered);
    const bool isTooLittleKnown =
        std::any_of(record.answers.begin(), record.answers.end(), [](const SourceAnswer &answer) {
            return answer.kind == SourceAnswer::Kind::TooLittleKnown;
        });
    return isTooLittleKnown ? std::optional(qtTrId("ChoiceTooLittleKnown")) : std::nullopt;
}

} // namespace

std::optional<QString> textOfReason(const ChoiceRecord &record)
{
    if (record.reason == ChoiceReason::NotSearched)
        return textOfSilence(record);
    return withoutSources(textOfChoice(record), unansweredSources(record));
}

QString textOfField(const FieldReason &reason)
{
    return withoutSources(textOfFieldAlone(reason), reason.unanswered);
}

std::optional<QString> textOfFate(AlbumFate fate)
{
    switch (fate) {
    case AlbumFate::Chosen:
        return {};
    case AlbumFate::Undecided:
        return qtTrId("DroppedUndecided");
    case AlbumFate::NotPicked:
        return qtTrId("DroppedNotPicked");
    case AlbumFate::OtherNumberOfTracks:
        return qtTrId("DroppedOtherNumberOfTracks");
    case AlbumFate::TitleNotOnAlbum:
        return qtTrId("DroppedTitleNotOnAlbum");
    case AlbumFate::Merged:
        return qtTrId("DroppedMerged");
    case AlbumFate::OtherName:
        return qtTrId("DroppedOtherName");
    case AlbumFate::SongNotOnAlbum:
        return qtTrId("DroppedSongNotOnAlbum");
    case AlbumFate::CoverAlone:
        return qtTrId("DroppedCoverAlone");
    default:
        return qtTrId("DroppedUnseen").arg(whyNotLookedUp(fate));
    }
}
