#include "demo/lyricspages.h"

#include "gathering/albuminfo.h"
#include "text/simplifier.h"

SamplePage lyricsPage(const QString &html)
{
    return {"text/html; charset=UTF-8", html.toUtf8()};
}

std::optional<SampleLyrics> songAskedFor(const SampleRequest &request, const QString &className)
{
    const std::vector<SampleLyrics> songs = sampleLyricsAt(className);
    const std::size_t number = fieldOf(request.query, QStringLiteral("id")).toUInt();
    return number < songs.size() ? std::optional(songs[number]) : std::nullopt;
}

QString htmlLines(const SampleLyrics &song, const QString &separator)
{
    QStringList lines;
    for (const QString &line : song.lines)
        lines << line.toHtmlEscaped();
    return lines.join(separator);
}

bool sampleNamesOverlap(const QString &one, const QString &other)
{
    return simplifiedNamesOverlap(HVUtility::simplifyString(one), HVUtility::simplifyString(other));
}
