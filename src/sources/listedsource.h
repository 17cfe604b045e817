#pragma once

#include "gathering/sourcecatalog.h"

/// One name of the source list, and how far its definition goes.
struct ListedSource {
    QString className;
    bool isKnown = false; ///< there is a class of that name
    bool hasSite = false; ///< an address is filled in; else the source does nothing
    Assets supplies{}; ///< what the class can supply at all
    /// Keys that its definition lacks, such as "parseAlbumList/listEnd", and addresses that are
    /// empty. Those that every source may do without are left out.
    QStringList missingKeys{};
};

[[nodiscard]] ListedSource listedSource(const SourceCatalog &catalog,
                                        const SiteDefinitions &definitions,
                                        const QString &className);
