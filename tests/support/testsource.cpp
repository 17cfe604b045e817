#include "support/testsource.h"

#include "support/samplesource.h"

using namespace Qt::StringLiterals;

namespace {

void gotAlbums(SampleSource &source, const FetchResult &result)
{
    for (const QString &line : QString::fromUtf8(result.data).split(u'\n')) {
        const QStringList fields = line.split(u';');
        if (fields.size() < 2)
            continue;
        AlbumInfo album(source.artist(), fields[0]);
        album.setYear(fields[1]);
        if (fields.size() > 2)
            album.setArtURLString(fields[2]);
        source.addAlbum(album);
    }
}

void search(SampleSource &source)
{
    if (source.resources().holds({u"hangs"_s}))
        return source.addPlaceholderSearch(QUrl(u"never:ends"_s));
    const QString query = source.resources().textOrEmpty(u"query"_s);
    source.addSearchURL(QUrl(query + source.songTitle().value_or(QString())),
                        [&source](const FetchResult &result) { gotAlbums(source, result); });
}

} // namespace

SourceCatalog testSources()
{
    return SourceCatalog({SampleSource::entry(u"TestInterface"_s,
                                              AssetAlbumName | AssetYear | AssetArtwork, search)});
}

SiteDefinitions testDefinitions(const QVariantMap &source)
{
    return SiteDefinitions(QVariantMap{{u"sourcelist"_s, QStringList{u"TestInterface"_s}},
                                       {u"res_TestInterface"_s, source}});
}
