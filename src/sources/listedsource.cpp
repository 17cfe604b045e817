#include "sources/listedsource.h"

#include "gathering/definitionschema.h"

#include <algorithm>

namespace {

bool isAsked(DefinitionKind kind)
{
    return kind == DefinitionKind::Address || kind == DefinitionKind::AddressFormat
        || kind == DefinitionKind::ArtistTitleAddressFormat;
}

bool isAddress(DefinitionKind kind)
{
    return isAsked(kind) || kind == DefinitionKind::AddressPrefix;
}

/// Which addresses have to be filled in. What links are put behind may be empty where they are
/// whole, unless nothing else says where the site is.
using IsNeeded = bool (*)(DefinitionKind);

IsNeeded neededIn(std::span<const DefinitionKey> schema)
{
    const bool hasPages = std::any_of(schema.begin(), schema.end(),
                                      [](const DefinitionKey &each) { return isAsked(each.kind); });
    return hasPages ? isAsked : isAddress;
}

QStringList missingKeysIn(const QVariantMap &definition, std::span<const DefinitionKey> schema)
{
    const IsNeeded isNeeded = neededIn(schema);
    QStringList missing;
    for (const auto &[name, kind, mayBeMissing] : schema) {
        const QString key = QLatin1String(name);
        const bool isEmpty = definition.value(key).toString().isEmpty();
        const bool isLacking = !mayBeMissing && !definition.contains(key);
        if (isLacking || (isNeeded(kind) && isEmpty))
            missing << key;
        else if (kind == DefinitionKind::ParseRecipe)
            for (const QString &marker :
                 missingKeysIn(definition[key].toMap(), parseRecipeSchema()))
                missing << key + u'/' + marker;
    }
    return missing;
}

} // namespace

ListedSource listedSource(const SourceCatalog &catalog, const SiteDefinitions &definitions,
                          const QString &className)
{
    ListedSource listed{.className = className};
    const SourceCatalog::Entry *entry = catalog.find(className);
    if (!entry)
        return listed;
    listed.isKnown = true;
    listed.supplies = entry->resourcesPossiblyAvailable;
    const QVariantMap definition =
        definitions.definitionOf(className).value_or(SiteDefinition()).values();
    const auto schema = schemaOfSource(className);
    listed.hasSite = std::any_of(schema.begin(), schema.end(), [&](const DefinitionKey &each) {
        return isAddress(each.kind)
            && !definition.value(QLatin1String(each.key)).toString().isEmpty();
    });
    listed.missingKeys = missingKeysIn(definition, schema);
    const QString artWidth = QStringLiteral("maxPossibleArtWidth");
    if (listed.supplies.testFlag(AssetArtwork) && !definition.contains(artWidth))
        listed.missingKeys << artWidth;
    return listed;
}
