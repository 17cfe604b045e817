#include "cli/outcomereport.h"

#include "app/choicetexts.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

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

QJsonValue asJson(const std::optional<QString> &text)
{
    return text ? QJsonValue(*text) : QJsonValue();
}

QJsonObject candidateAsJson(const AlbumCandidate &candidate)
{
    return {
        {u"source"_s, candidate.source},
        {u"album"_s, asJson(candidate.album)},
        {u"artist"_s, asJson(candidate.artist)},
        {u"year"_s, asJson(candidate.year)},
        {u"tracks"_s, candidate.tracks},
        {u"art"_s, candidate.hasArtwork},
        {u"score"_s, candidate.score ? QJsonValue(*candidate.score) : QJsonValue()},
        {u"lookedUp"_s, wasLookedUp(candidate.fate)},
        {u"dropped"_s, asJson(textOfFate(candidate.fate))},
    };
}

QJsonObject reasonsAsJson(const ChoiceRecord &choices)
{
    QJsonObject reasons;
    for (const AssetName &name : assetNames)
        if (const auto reason = choices.fields.constFind(name.asset);
            reason != choices.fields.cend())
            reasons.insert(QLatin1String(name.key), textOfField(*reason));
    return reasons;
}

QJsonArray candidatesAsJson(const ChoiceRecord &choices)
{
    QJsonArray candidates;
    for (const AlbumCandidate &candidate : choices.candidates)
        candidates.append(candidateAsJson(candidate));
    return candidates;
}

QString candidateAsText(const AlbumCandidate &candidate)
{
    QStringList facts;
    if (candidate.year)
        facts << *candidate.year;
    facts << QStringLiteral("%1 tracks").arg(candidate.tracks);
    if (candidate.hasArtwork)
        facts << QStringLiteral("artwork");
    if (candidate.score)
        facts << QStringLiteral("score %1").arg(*candidate.score);
    return QStringLiteral("\n    %1: %2 – %3 (%4): %5")
        .arg(candidate.source, candidate.artist.value_or(QStringLiteral("?")),
             candidate.album.value_or(QStringLiteral("?")), facts.join(QStringLiteral(", ")),
             textOfFate(candidate.fate).value_or(QStringLiteral("chosen")));
}

/// In the order in which assets are listed.
QString fieldsAsText(const SongOutcome &outcome)
{
    const QMap<Asset, FieldReason> &fields = outcome.choices.fields;
    QString text;
    for (const auto &[asset, key] : assetNames) {
        if (!fields.contains(asset))
            continue;
        const QString source =
            outcome.changed.testFlag(asset) ? outcome.sources.value(asset) : QString();
        text += QStringLiteral("\n    %1%2: %3")
                    .arg(summaryOfAssets(asset),
                         source.isEmpty() ? source : QStringLiteral(" (%1)").arg(source),
                         textOfField(fields.value(asset)));
    }
    return text;
}

QString choicesAsText(const SongOutcome &outcome)
{
    QString text = fieldsAsText(outcome);
    if (const auto reason = textOfReason(outcome.choices))
        text += QStringLiteral("\n  ") + *reason;
    for (const AlbumCandidate &candidate : outcome.choices.candidates)
        text += candidateAsText(candidate);
    return text;
}

/// Whether the reader would wonder: albums were there and none was taken, and nothing says why.
bool needsReason(const SongOutcome &outcome)
{
    return !outcome.choices.isChosen() && outcome.choices.reason != ChoiceReason::CoverAlone
        && !outcome.choices.candidates.isEmpty() && !outcome.error
        && outcome.undecidedCandidates <= 1;
}

QJsonArray unaskedClasses(const SongOutcome &outcome)
{
    QJsonArray classes;
    for (const UnaskedSource &source : outcome.unasked)
        classes.append(source.className);
    return classes;
}

} // namespace

QJsonObject outcomeAsJson(const SongOutcome &outcome)
{
    QJsonObject sources;
    for (const AssetName &name : assetNames)
        if (outcome.changed.testFlag(name.asset))
            sources.insert(QLatin1String(name.key), outcome.sources.value(name.asset));
    QJsonObject object{
        {u"path"_s, outcome.song->path()},
        {u"changed"_s, QJsonArray::fromStringList(keysOfAssets(outcome.changed))},
        {u"missing"_s, QJsonArray::fromStringList(keysOfAssets(outcome.missing))},
        {u"sources"_s, sources},
        {u"written"_s, outcome.written},
        {u"error"_s, asJson(outcome.error)},
        {u"candidates"_s, candidatesAsJson(outcome.choices)},
        {u"reason"_s, asJson(textOfReason(outcome.choices))},
        {u"reasons"_s, reasonsAsJson(outcome.choices)},
        {u"unasked"_s, unaskedClasses(outcome)},
    };
    if (outcome.isInstrumental)
        object[u"instrumental"_s] = true;
    return object;
}

QString outcomeAsText(const SongOutcome &outcome, Detail detail)
{
    QString text = outcome.song->path();
    if (outcome.failed)
        return text + QStringLiteral("\n  not changed: ") + outcome.error.value_or(QString());
    text += QStringLiteral("\n  ") + changesAsText(outcome);
    if (outcome.isInstrumental)
        text += QStringLiteral("\n  an instrumental: it has no lyrics");
    if (outcome.missing)
        text += QStringLiteral("\n  still missing: ") + summaryOfAssets(outcome.missing);
    if (outcome.error)
        text += QStringLiteral("\n  ") + *outcome.error;
    if (outcome.undecidedCandidates > 1)
        text += QStringLiteral("\n  %1 albums found; --pick chooses one of them")
                    .arg(outcome.undecidedCandidates);
    if (detail == Detail::Verbose)
        text += choicesAsText(outcome);
    else if (needsReason(outcome))
        text += QStringLiteral("\n  ") + textOfReason(outcome.choices).value_or(QString());
    return text;
}
