#pragma once

#include "gathering/webdbinterface.h"

#include <functional>
#include <memory>
#include <vector>

/// The source classes that exist: name, what each can supply, and how one is made.
class SourceCatalog {
public:
    using Maker = std::function<std::unique_ptr<WebDBInterface>(SiteDefinition, HVHTTPQueue &)>;

    struct Entry {
        QString className;
        Assets resourcesPossiblyAvailable;
        Maker make;
    };

    SourceCatalog() = default;
    explicit SourceCatalog(std::vector<Entry> entries)
        : mEntries(std::move(entries))
    {
    }

    /// Null when no class has that name.
    [[nodiscard]] const Entry *find(const QString &className) const;

    /// What the listed classes can supply between them, with what songs of the same album lend.
    [[nodiscard]] Assets assetsPossibleFromSources(const QStringList &sourcelist) const;

private:
    std::vector<Entry> mEntries;
};
