#include "gui/reviewtexts.h"

#include "app/choicetexts.h"

QString nameOf(const ReviewedSong &song)
{
    const auto &texts = song.change.after.texts;
    if (!texts.contains(AssetSongTitle))
        return song.song->filename();
    if (!texts.contains(AssetArtist))
        return texts.value(AssetSongTitle);
    return qtTrId("ReviewSongName").arg(texts.value(AssetArtist), texts.value(AssetSongTitle));
}

QString stateOf(const ReviewedSong &song)
{
    switch (song.state) {
    case ReviewState::Applying:
        return qtTrId("ReviewStateApplying");
    case ReviewState::Writing:
        return qtTrId("ReviewStateWriting");
    case ReviewState::Skipped:
        return qtTrId("ReviewStateSkipped");
    case ReviewState::Written:
        return song.hasToBeWritten() ? qtTrId("ReviewStateToBeWritten")
                                     : qtTrId("ReviewStateWritten");
    case ReviewState::Open:
        break;
    }
    return song.hasToBeWritten() ? qtTrId("ReviewStateToBeWritten") : QString();
}

QString summaryOf(const ReviewedSong &song)
{
    if (song.accepted)
        return summaryOfAssets(song.accepted);
    if (song.changes)
        return qtTrId("ReviewNothingAccepted");
    return textOfReason(song.choices).value_or(QString());
}

QString sourceTitle(const QString &className)
{
    if (className == QStringLiteral("library"))
        return qtTrId("SourceLibrary");
    return className.endsWith(QStringLiteral("Interface")) ? className.chopped(9) : className;
}
