#include "sources/digestsource.h"

#include "text/digesttable.h"

DigestSource::DigestSource(SiteDefinition resources, HVHTTPQueue &queue,
                           std::shared_ptr<CoverDigest> digest)
    : CoverSource(std::move(resources), queue)
    , mDigest(std::move(digest))
{
}

void DigestSource::startSearch()
{
    const QString prefix = resources().textOrEmpty(QStringLiteral("prefix"));
    if (prefix.isEmpty() || !artist() || !albumTitle())
        return;
    const QString filedUnder = isCompilation() ? QString() : *artist();
    if (const auto path = mDigest->pathOf(digestKey(filedUnder, *albumTitle())))
        addAlbumWithPicture(prefix, *path + pathEnd());
}
