#include "text/syncedlyrics.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

// Words that are sung at several times have one in front of the other; some files time each word
// with angle brackets, too.
const QLatin1String oneTime(R"(\[(\d{1,3}):(\d{2}(?:[.:]\d{1,3})?)\])");
const QLatin1String timeOfWord(R"(<\d{1,3}:\d{2}(?:[.:]\d{1,3})?>[ \t]?)");
const QLatin1String lineAboutSong(
    R"(^\[(?:#|al|ar|au|by|length|lr|offset|re|ti|tool|ve):[^\]\n]*\][ \t]*(?:\n|$))");

} // namespace

QString SyncedLyrics::withoutTimes(const QString &synced)
{
    static const QRegularExpression times(QLatin1String("^(?:") + oneTime
                                              + QLatin1String("[ \\t]*)+|") + timeOfWord,
                                          QRegularExpression::MultilineOption);
    static const QRegularExpression about(lineAboutSong, QRegularExpression::MultilineOption);
    QString words = synced;
    return words.remove(about).remove(times).trimmed();
}

double SyncedLyrics::lastTime(const QString &synced)
{
    static const QRegularExpression time(oneTime);
    double last = 0;
    auto found = time.globalMatch(synced);
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        const QString seconds = match.captured(2).replace(u':', u'.');
        last = std::max(last, match.captured(1).toDouble() * 60 + seconds.toDouble());
    }
    return last;
}
