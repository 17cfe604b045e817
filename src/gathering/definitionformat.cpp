#include "gathering/definitionformat.h"

namespace {

constexpr QChar percent = u'%';

/// Calls `text` with each literal piece and `placeholder` with each placeholder, in order.
template<typename OnText, typename OnPlaceholder>
void walkFormat(const QString &format, OnText text, OnPlaceholder placeholder)
{
    qsizetype from = 0;
    for (qsizetype at = format.indexOf(percent); at >= 0; at = format.indexOf(percent, from)) {
        text(format.mid(from, at - from));
        const QString found = format.mid(at, 2);
        if (found == QLatin1String("%%"))
            text(QString(percent));
        else
            placeholder(found);
        from = at + found.size();
    }
    text(format.mid(from));
}

} // namespace

QStringList placeholdersOf(const QString &format)
{
    QStringList found;
    walkFormat(
        format, [](const QString &) {}, [&](const QString &placeholder) { found << placeholder; });
    return found;
}

QString filledFormat(const QString &format, const QStringList &values)
{
    QString filled;
    qsizetype next = 0;
    walkFormat(
        format, [&](const QString &text) { filled += text; },
        [&](const QString &) { filled += values.value(next++); });
    return filled;
}
