#include "gathering/sitedefinition.h"

#include "gathering/definitionformat.h"

#include <QUrl>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

QStringList textsOf(const QVariant &list)
{
    QStringList texts;
    const QVariantList values = list.toList();
    for (const QVariant &value : values)
        texts << value.toString();
    return texts;
}

QMap<QString, QString> textTableOf(const QVariant &dictionary)
{
    QMap<QString, QString> table;
    const QVariantMap values = dictionary.toMap();
    for (auto entry = values.begin(); entry != values.end(); ++entry)
        table.insert(entry.key(), entry->toString());
    return table;
}

} // namespace

std::optional<QString> SiteDefinition::text(const QString &key) const
{
    const auto found = mValues.constFind(key);
    return found == mValues.constEnd() ? std::nullopt : std::optional(found->toString());
}

QString SiteDefinition::textOrEmpty(const QString &key) const
{
    return mValues.value(key).toString();
}

int SiteDefinition::integer(const QString &key) const
{
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp(number(key), double(Limits::min()), double(Limits::max())));
}

double SiteDefinition::number(const QString &key) const
{
    const double found = mValues.value(key).toDouble();
    return std::isfinite(found) ? found : 0; // texts such as "nan" are numbers too
}

std::optional<QVariantMap> SiteDefinition::dictionary(const QString &key) const
{
    const QVariant found = mValues.value(key);
    return found.typeId() == QMetaType::QVariantMap ? std::optional(found.toMap()) : std::nullopt;
}

bool SiteDefinition::holds(const QStringList &keys) const
{
    return std::all_of(keys.begin(), keys.end(),
                       [this](const QString &key) { return mValues.contains(key); });
}

std::optional<QString> SiteDefinition::formatted(const QString &key,
                                                 const QStringList &values) const
{
    const QString format = textOrEmpty(key);
    return format.isEmpty() ? std::nullopt : std::optional(filledFormat(format, values));
}

QStringList SiteDefinition::hosts() const
{
    QStringList hosts;
    for (const QVariant &value : mValues) {
        const QUrl url(value.toString());
        if (url.scheme().startsWith(QLatin1String("http")) && !url.host().isEmpty())
            hosts << url.host();
    }
    hosts.removeDuplicates();
    return hosts;
}

QStringList SiteDefinitions::sourcelist() const
{
    return textsOf(mValues.value(QStringLiteral("sourcelist")));
}

std::optional<SiteDefinition> SiteDefinitions::definitionOf(const QString &className) const
{
    const QVariant found = mValues.value(QStringLiteral("res_") + className);
    if (found.typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    return SiteDefinition(found.toMap());
}

QMap<QString, QString> SiteDefinitions::simplifiers() const
{
    return textTableOf(mValues.value(QStringLiteral("simplifiers")));
}

QStringList SiteDefinitions::genres() const
{
    return textsOf(mValues.value(QStringLiteral("genres")));
}

QMap<QString, QString> SiteDefinitions::lyricsSubstitutions() const
{
    return textTableOf(mValues.value(QStringLiteral("lyricsSubstitutions")));
}
