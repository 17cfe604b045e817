#include "cli/outcomereport.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

QJsonArray assetKeys(Assets assets)
{
    QJsonArray keys;
    for (const AssetName &name : assetNames)
        if (assets.testFlag(name.asset))
            keys.append(QLatin1String(name.key));
    return keys;
}

/// The sources of what changed, each once, in the order of the assets.
QString sourcesAsText(const SongOutcome &outcome)
{
    QStringList sources;
    for (const AssetName &name : assetNames)
        if (outcome.changed.testFlag(name.asset))
            sources << outcome.sources.value(name.asset);
    sources.removeDuplicates();
    sources.removeAll(QString());
    return sources.join(QStringLiteral(", "));
}

QString changesAsText(const SongOutcome &outcome)
{
    if (!outcome.changed)
        return QStringLiteral("nothing found");
    const QString sources = sourcesAsText(outcome);
    return summaryOfAssets(outcome.changed)
        + (sources.isEmpty() ? QString() : QStringLiteral(" from ") + sources);
}

} // namespace

QJsonObject outcomeAsJson(const SongOutcome &outcome)
{
    QJsonObject sources;
    for (const AssetName &name : assetNames)
        if (outcome.changed.testFlag(name.asset))
            sources.insert(QLatin1String(name.key), outcome.sources.value(name.asset));
    return {
        {u"path"_s, outcome.song->path()},
        {u"changed"_s, assetKeys(outcome.changed)},
        {u"missing"_s, assetKeys(outcome.missing)},
        {u"sources"_s, sources},
        {u"written"_s, outcome.written},
        {u"error"_s, outcome.error ? QJsonValue(*outcome.error) : QJsonValue()},
    };
}

QString outcomeAsText(const SongOutcome &outcome)
{
    QString text = outcome.song->path();
    if (outcome.failed)
        return text + QStringLiteral("\n  not changed: ") + outcome.error.value_or(QString());
    text += QStringLiteral("\n  ") + changesAsText(outcome);
    if (outcome.missing)
        text += QStringLiteral("\n  still missing: ") + summaryOfAssets(outcome.missing);
    if (outcome.error)
        text += QStringLiteral("\n  ") + *outcome.error;
    if (outcome.undecidedCandidates > 1)
        text += QStringLiteral("\n  %1 albums found; --pick chooses one of them")
                    .arg(outcome.undecidedCandidates);
    return text;
}
