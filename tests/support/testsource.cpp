#include "support/testsource.h"

#include "gathering/webdbinterface.h"

using namespace Qt::StringLiterals;

namespace {

class TestInterface : public WebDBInterface {
public:
    using WebDBInterface::WebDBInterface;
    [[nodiscard]] QString className() const override { return u"TestInterface"_s; }

protected:
    void startSearch() override
    {
        if (resources().holds({u"hangs"_s}))
            return addPlaceholderSearch(QUrl(u"never:ends"_s));
        addSearchURL(QUrl(resources().textOrEmpty(u"query"_s) + songTitle().value_or(QString())),
                     [this](const FetchResult &result) { gotAlbums(result); });
    }

private:
    void gotAlbums(const FetchResult &result)
    {
        for (const QString &line : QString::fromUtf8(result.data).split(u'\n')) {
            const QStringList fields = line.split(u';');
            if (fields.size() < 2)
                continue;
            AlbumInfo album(artist(), fields[0]);
            album.setYear(fields[1]);
            if (fields.size() > 2)
                album.setArtURLString(fields[2]);
            addAlbum(album);
        }
    }
};

} // namespace

SourceCatalog testSources()
{
    return SourceCatalog({{u"TestInterface"_s, AssetAlbumName | AssetYear | AssetArtwork,
                           [](SiteDefinition definition, HVHTTPQueue &queue) {
                               return std::make_unique<TestInterface>(std::move(definition), queue);
                           }}});
}

SiteDefinitions testDefinitions(const QVariantMap &source)
{
    return SiteDefinitions(QVariantMap{{u"sourcelist"_s, QStringList{u"TestInterface"_s}},
                                       {u"res_TestInterface"_s, source}});
}
