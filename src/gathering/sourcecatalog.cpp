#include "gathering/sourcecatalog.h"

#include <algorithm>

const SourceCatalog::Entry *SourceCatalog::find(const QString &className) const
{
    const auto found = std::find_if(mEntries.begin(), mEntries.end(), [&](const Entry &entry) {
        return entry.className == className;
    });
    return found == mEntries.end() ? nullptr : &*found;
}

Assets SourceCatalog::assetsPossibleFromSources(const QStringList &sourcelist) const
{
    Assets possible = AssetArtwork | AssetYear | AssetGenre; // songs of the same album lend these
    for (const QString &className : sourcelist) {
        if (const Entry *entry = find(className))
            possible |= entry->resourcesPossiblyAvailable;
    }
    return possible;
}
