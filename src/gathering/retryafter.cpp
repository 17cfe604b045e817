#include "gathering/retryafter.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>

using std::chrono::milliseconds;

namespace {
/// The forms of dates in HTTP: the usual one, and two that old servers send.
constexpr std::array dateFormats{
    "ddd, dd MMM yyyy HH:mm:ss 'GMT'",
    "dddd, dd-MMM-yy HH:mm:ss 'GMT'",
    "ddd MMM d HH:mm:ss yyyy",
};

/// More than anyone waits; keeps the arithmetic within its numbers.
constexpr qint64 mostSeconds = 86'400;

QDateTime dateOf(const QString &text)
{
    for (const char *format : dateFormats) {
        QDateTime date = QLocale::c().toDateTime(text, QLatin1String(format));
        if (date.isValid()) {
            date.setTimeSpec(Qt::UTC);
            // Two digits of a year are read as the last century.
            return date.date().year() < 1970 ? date.addYears(100) : date;
        }
    }
    return {};
}
} // namespace

std::optional<milliseconds> retryAfter(const QByteArray &header, Clock::Time now)
{
    const QString text = QString::fromLatin1(header).simplified();
    bool isNumber = false;
    const qint64 seconds = text.toLongLong(&isNumber);
    if (isNumber)
        return std::chrono::seconds(std::clamp(seconds, qint64(0), mostSeconds));
    const QDateTime date = dateOf(text);
    if (!date.isValid())
        return std::nullopt;
    const auto left = Clock::Time(milliseconds(date.toMSecsSinceEpoch())) - now;
    return std::clamp(std::chrono::ceil<milliseconds>(left), milliseconds::zero(),
                      milliseconds(std::chrono::seconds(mostSeconds)));
}
