#include "sources/builtinsources.h"

#include "sources/asklyricsinterface.h"
#include "sources/freedbinterface.h"
#include "sources/googleimageinterface.h"
#include "sources/leoslyricsinterface.h"
#include "sources/lyricsandsongsinterface.h"

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
        entry<GoogleImageInterface>(QStringLiteral("GoogleImageInterface")),
        entry<LyricsAndSongsInterface>(QStringLiteral("LyricsAndSongsInterface")),
        entry<LeosLyricsInterface>(QStringLiteral("LeosLyricsInterface")),
        entry<AskLyricsInterface>(QStringLiteral("AskLyricsInterface")),
    });
}
