#include "app/lyricstext.h"

QString LyricsText::forEditor(QString lyrics)
{
    return lyrics.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

QString LyricsText::forSong(QString edited, const QString &before)
{
    if (before.contains(QStringLiteral("\r\n")))
        return edited.replace(u'\n', QStringLiteral("\r\n"));
    const bool endsWithReturn = before.contains(u'\r') && !before.contains(u'\n');
    return endsWithReturn ? edited.replace(u'\n', u'\r') : edited;
}
