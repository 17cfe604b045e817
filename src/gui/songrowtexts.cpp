#include "gui/songrowtexts.h"

#include "gui/icons.h"

#include <QDir>

QIcon activityIcon(const SongFile &song)
{
    switch (song.activityStatus()) {
    case SongStatus::Problem:
        return icon(QStringLiteral("problem"));
    case SongStatus::Locked:
        return icon(QStringLiteral("locked"));
    case SongStatus::Processing:
        return icon(QStringLiteral("search"));
    case SongStatus::Pending:
        return icon(QStringLiteral("pending"));
    case SongStatus::Ready:
        break;
    }
    return {};
}

QIcon lyricsMark()
{
    return icon(QStringLiteral("lyrics"));
}

QString activityText(const SongFile &song)
{
    switch (song.activityStatus()) {
    case SongStatus::Processing:
        return qtTrId("ActivityProcessing");
    case SongStatus::Pending:
        return qtTrId("ActivityPending");
    default:
        break;
    }
    if (const auto reason = song.reasonNotToWrite())
        return *reason;
    return song.hasInfotagCached() ? QString() : song.reasonOfNoTag();
}

QString toolTipOf(SongColumn column, const SongFile &song)
{
    QStringList lines;
    if (column == SongColumn::Title)
        lines << QDir::toNativeSeparators(song.path());
    lines << activityText(song);
    lines.removeAll(QString());
    return lines.join(u'\n');
}

QString accessibleText(SongColumn column, SongFile &song)
{
    if (column == SongColumn::Activity)
        return activityText(song);
    if (column == SongColumn::Lyrics)
        return isMarkedInColumn(column, song) ? qtTrId("AccessibleHasLyrics") : QString();
    return textInColumn(column, song);
}
