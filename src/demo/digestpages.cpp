#include "demo/digestpages.h"

#include "demo/coverpictures.h"
#include "sources/ckdigestinterface.h"
#include "sources/fredocoversinterface.h"
#include "text/digesttable.h"

using namespace Qt::StringLiterals;

namespace {

/// Pictures of the albums that the source's digest knows.
template<typename Source>
SampleSite digestPages(const QString &className, int pictureWidth, const QString &suffix)
{
    const auto digest = std::make_shared<CoverDigest>(QString::fromLatin1(Source::digest));
    const auto picturePath = [digest, suffix](const SampleAlbum &album) {
        return digest->pathOf(digestKey(album.artist, album.name)).value_or(QString()) + suffix;
    };
    return {.className = className,
            .addresses = {{u"prefix"_s, QString()}},
            .answer = [=](const SampleRequest &request) {
                return pictureAt(className, request.path, picturePath, pictureWidth);
            }};
}

} // namespace

SampleSite ckDigestPages()
{
    return digestPages<CKDigestInterface>(u"CKDigestInterface"_s, 500, {});
}

SampleSite fredoCoversPages()
{
    // The end of the addresses stands in the source's definition.
    return digestPages<FredoCoversInterface>(u"FredoCoversInterface"_s, 300, u"/front.jpg"_s);
}
