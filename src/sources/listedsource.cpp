#include "sources/listedsource.h"

#include "gathering/definitionschema.h"

#include <algorithm>

namespace {

/// What a link is put behind may be empty where the links are whole.
bool isNeededAddress(DefinitionKind kind)
{
    return kind == DefinitionKind::Address || kind == DefinitionKind::AddressFormat
        || kind == DefinitionKind::ArtistTitleAddressFormat;
}

bool isAddress(DefinitionKind kind)
{
    return isNeededAddress(kind) || kind == DefinitionKind::AddressPrefix;
}

bool isThere(const QVariantMap &definition, const DefinitionKey &entry)
{
    const auto value = definition.constFind(QLatin1String(entry.key));
    return value != definition.constEnd()
        && !(isNeededAddress(entry.kind) && value->toString().isEmpty());
}

QStringList missingKeysIn(const QVariantMap &definition, std::span<const DefinitionKey> schema)
{
    QStringList missing;
    for (const DefinitionKey &entry : schema) {
        const QString key = QLatin1String(entry.key);
        if (!isThere(definition, entry))
            missing << key;
        else if (entry.kind == DefinitionKind::ParseRecipe)
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
