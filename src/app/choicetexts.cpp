#include "app/choicetexts.h"

#include <QStringList>
#include <QtGlobal>

namespace {

QString pickedName(const ChoiceRecord &record)
{
    return record.pickedAlbum ? qtTrId("ChoiceAlbumName").arg(*record.pickedAlbum)
                              : qtTrId("ChoiceAlbumWithoutName");
}

QString withNameAndCount(const QString &text, const ChoiceRecord &record, int count)
{
    return text.arg(pickedName(record), QString::number(count));
}

QString textOfChoice(const ChoiceRecord &record)
{
    switch (record.reason) {
    case ChoiceReason::NotSearched:
        return {};
    case ChoiceReason::NothingFound:
        return qtTrId("ChoiceNothingFound");
    case ChoiceReason::NoMethod:
        return qtTrId("ChoiceNoMethod").arg(record.left);
    case ChoiceReason::NoUsableYear:
        return qtTrId("ChoiceNoUsableYear").arg(record.left);
    case ChoiceReason::SongNotOnAlbum:
        return qtTrId("ChoiceSongNotOnAlbum").arg(pickedName(record));
    case ChoiceReason::OnlyAlbum:
        return qtTrId("ChoiceOnlyAlbum").arg(pickedName(record));
    case ChoiceReason::LastLeft:
        return withNameAndCount(qtTrId("ChoiceLastLeft"), record, record.found);
    case ChoiceReason::EarliestYear:
        return withNameAndCount(qtTrId("ChoiceEarliestYear"), record, record.left);
    case ChoiceReason::MostAgreement:
        return withNameAndCount(qtTrId("ChoiceMostAgreement"), record, record.left);
    case ChoiceReason::HighestScore:
        return withNameAndCount(qtTrId("ChoiceHighestScore"), record, record.left);
    }
    return {};
}

QString unansweredSources(const ChoiceRecord &record)
{
    QStringList sources;
    for (const SourceAnswer &answer : record.answers)
        if (answer.kind == SourceAnswer::Kind::Unanswered)
            sources << answer.source;
    sources.removeDuplicates();
    return sources.join(QStringLiteral(", "));
}

} // namespace

std::optional<QString> textOfReason(const ChoiceRecord &record)
{
    if (record.reason == ChoiceReason::NotSearched)
        return {};
    const QString choice = textOfChoice(record);
    const QString unanswered = unansweredSources(record);
    if (unanswered.isEmpty())
        return choice;
    return qtTrId("ChoiceWithoutSources").arg(choice, unanswered);
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
    }
    return {};
}
