#include "sources/builtinsources.h"

#include "sources/freedbinterface.h"

namespace {

template<typename Source>
SourceCatalog::Entry entry(const QString &className)
{
    return {className, Source::resourcesPossiblyAvailable,
            [](SiteDefinition resources, HVHTTPQueue &queue) {
                return std::make_unique<Source>(std::move(resources), queue);
            }};
}

} // namespace

SourceCatalog builtInSources()
{
    return SourceCatalog({
        entry<FreeDBInterface>(QStringLiteral("FreeDBInterface")),
    });
}
