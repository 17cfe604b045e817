#include "sources/builtinsources.h"

#include "sources/asklyricsinterface.h"
#include "sources/bestcoversinterface.h"
#include "sources/cduniverseinterface.h"
#include "sources/ckdigestinterface.h"
#include "sources/coverartarchiveinterface.h"
#include "sources/coverkingdominterface.h"
#include "sources/deezerinterface.h"
#include "sources/fredocoversinterface.h"
#include "sources/freedbinterface.h"
#include "sources/googleimageinterface.h"
#include "sources/leoslyricsinterface.h"
#include "sources/lrclibinterface.h"
#include "sources/lyricsandsongsinterface.h"
#include "sources/musicbrainzinterface.h"
#include "sources/towerinterface.h"

namespace {

template<typename Source>
SourceCatalog::Entry entry(const QString &className)
{
    return {className, Source::resourcesPossiblyAvailable,
            [](SiteDefinition resources, HVHTTPQueue &queue) {
                return std::make_unique<Source>(std::move(resources), queue);
            }};
}

/// The source's digest is read once, when the first search asks it, and lives as long as the
/// catalog.
template<typename Source>
SourceCatalog::Entry digestEntry(const QString &className)
{
    const auto digest = std::make_shared<CoverDigest>(QString::fromLatin1(Source::digest));
    return {className, Source::resourcesPossiblyAvailable,
            [digest](SiteDefinition resources, HVHTTPQueue &queue) {
                return std::make_unique<Source>(std::move(resources), queue, digest);
            }};
}

/// What one search looked up serves the others of the run.
template<typename Source>
SourceCatalog::Entry shelvedEntry(const QString &className,
                                  const std::shared_ptr<ReleaseShelf> &shelf)
{
    return {className, Source::resourcesPossiblyAvailable,
            [shelf](SiteDefinition resources, HVHTTPQueue &queue) {
                return std::make_unique<Source>(std::move(resources), queue, shelf);
            }};
}

SourceCatalog::Entry coverArtArchiveEntry(const std::shared_ptr<ReleaseShelf> &shelf)
{
    const auto empty = std::make_shared<CoverArtArchiveInterface::EmptyListings>();
    return {QStringLiteral("CoverArtArchiveInterface"),
            CoverArtArchiveInterface::resourcesPossiblyAvailable,
            [shelf, empty](SiteDefinition resources, HVHTTPQueue &queue) {
                return std::make_unique<CoverArtArchiveInterface>(std::move(resources), queue,
                                                                  shelf, empty);
            }};
}

SourceCatalog::Entry lrclibEntry()
{
    const auto instrumentals = std::make_shared<LRCLIBInterface::Instrumentals>();
    return {QStringLiteral("LRCLIBInterface"), LRCLIBInterface::resourcesPossiblyAvailable,
            [instrumentals](SiteDefinition resources, HVHTTPQueue &queue) {
                return std::make_unique<LRCLIBInterface>(std::move(resources), queue,
                                                         instrumentals);
            }};
}

} // namespace

SourceCatalog builtInSources()
{
    const auto releases = std::make_shared<ReleaseShelf>();
    return SourceCatalog({
        shelvedEntry<MusicBrainzInterface>(QStringLiteral("MusicBrainzInterface"), releases),
        coverArtArchiveEntry(releases),
        lrclibEntry(),
        shelvedEntry<DeezerInterface>(QStringLiteral("DeezerInterface"),
                                      std::make_shared<ReleaseShelf>()),
        entry<FreeDBInterface>(QStringLiteral("FreeDBInterface")),
        entry<CDUniverseInterface>(QStringLiteral("CDUniverseInterface")),
        entry<TowerInterface>(QStringLiteral("TowerInterface")),
        digestEntry<CKDigestInterface>(QStringLiteral("CKDigestInterface")),
        digestEntry<FredoCoversInterface>(QStringLiteral("FredoCoversInterface")),
        entry<BestCoversInterface>(QStringLiteral("BestCoversInterface")),
        entry<CoverKingdomInterface>(QStringLiteral("CoverKingdomInterface")),
        entry<GoogleImageInterface>(QStringLiteral("GoogleImageInterface")),
        entry<LyricsAndSongsInterface>(QStringLiteral("LyricsAndSongsInterface")),
        entry<LeosLyricsInterface>(QStringLiteral("LeosLyricsInterface")),
        entry<AskLyricsInterface>(QStringLiteral("AskLyricsInterface")),
    });
}
