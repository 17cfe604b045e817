#include "cli/gathersummary.h"

#include "gathering/acoustidlookup.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

/// Of each source, unless every one is asked for: an outage may concern all songs of a library.
constexpr qsizetype mostSongsNamed = 20;

QString countOfSongs(qsizetype count)
{
    return count == 1 ? QStringLiteral("1 song") : QStringLiteral("%1 songs").arg(count);
}

QString retryHint(const QString &source)
{
    const QString option = source == AcoustIDLookup::name ? u" --identify"_s : QString();
    return QStringLiteral("; tagwright gather --retry%1 takes them up again").arg(option);
}

QString namesOf(const QStringList &songs, Detail detail)
{
    const bool isLong = detail == Detail::Calm && songs.size() > mostSongsNamed;
    QString text;
    for (const QString &song : isLong ? songs.first(mostSongsNamed) : songs)
        text += QStringLiteral("\n    ") + song;
    if (isLong)
        text += QStringLiteral("\n    and %1 more (--verbose names all)")
                    .arg(songs.size() - mostSongsNamed);
    return text;
}

QString unaskedAsText(const QString &source, const QStringList &songs, const SummaryManner &manner)
{
    return QStringLiteral("\n%1 could not be asked about %2%3%4")
        .arg(source, countOfSongs(songs.size()),
             manner.write == WriteSongs::Yes ? retryHint(source) : QString(),
             namesOf(songs, manner.detail));
}

} // namespace

QJsonObject summaryAsJson(const GatherRun::Summary &summary)
{
    QJsonObject json{{u"processed"_s, summary.processed},
                     {u"modified"_s, summary.modified},
                     {u"failed"_s, summary.failed},
                     {u"cancelled"_s, summary.cancelled}};
    QJsonObject unasked;
    for (auto source = summary.unasked.begin(); source != summary.unasked.end(); ++source)
        unasked.insert(source.key(), QJsonArray::fromStringList(source.value()));
    if (!unasked.isEmpty())
        json.insert(u"unasked"_s, unasked);
    if (!summary.leftAlone.isEmpty())
        json.insert(u"leftAlone"_s, QJsonArray::fromStringList(summary.leftAlone));
    return json;
}

QString summaryAsText(const GatherRun::Summary &summary, const SummaryManner &manner)
{
    QString text = QStringLiteral("%1 songs processed, %2 modified, %3 failed%4")
                       .arg(summary.processed)
                       .arg(summary.modified)
                       .arg(summary.failed)
                       .arg(summary.cancelled ? QStringLiteral(", cancelled") : QString());
    for (const QString &source : summary.leftAlone)
        text += QStringLiteral("\n%1 gave no answer and was left alone, but for a try now and then")
                    .arg(source);
    for (auto source = summary.unasked.begin(); source != summary.unasked.end(); ++source)
        text += unaskedAsText(source.key(), source.value(), manner);
    return text;
}
