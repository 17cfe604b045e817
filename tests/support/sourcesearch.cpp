#include "support/sourcesearch.h"

#include "base/propertylist.h"
#include "base/resources.h"

#include <QSignalSpy>
#include <QTest>

QVariantMap builtInDefinition(const QString &className)
{
    const QByteArray builtIn = resourceData(QStringLiteral("defaultres.xml")).value();
    return PropertyList::parse(builtIn)
        .value.toMap()
        .value(QStringLiteral("res_") + className)
        .toMap();
}

QString shown(const AlbumInfo &album)
{
    const QString none = QStringLiteral("-");
    const auto tracks = album.trackNames();
    return QStringList{album.artist().value_or(none),      album.name().value_or(none),
                       album.year().value_or(none),        album.genre().value_or(none),
                       tracks ? tracks->join(u',') : none, album.artURLString().value_or(none)}
        .join(u'|');
}

QStringList shown(const AlbumList &albums)
{
    QStringList texts;
    for (const AlbumInfo &album : albums)
        texts << shown(album);
    return texts;
}

QVariantMap SampleSiteScene::definition(const QString &className,
                                        const QMap<QString, QString> &addresses) const
{
    QVariantMap values = builtInDefinition(className);
    values[QStringLiteral("simulConns")] = 1;
    for (const auto &[key, below] : addresses.asKeyValueRange())
        values[key] = QString(server.url(QStringLiteral("/")).toString() + below);
    return values;
}

AlbumList SampleSiteScene::run(std::unique_ptr<WebDBInterface> source, const SearchedSong &song)
{
    source->setArtist(song.artist);
    source->setAlternateArtist(song.alternateArtist);
    source->setAlbumTitle(song.album);
    source->setSongTitle(song.title);
    source->setAllowSubstringTrackMatches(song.substrings);
    source->setIsCompilation(song.isCompilation);
    source->setMinimumAcceptableImageSize(song.minImageWidth);
    source->setMaximumImageWidth(song.maxImageWidth);
    source->setSongDuration(song.duration);
    source->setIdentifiers(song.identifiers);
    QSignalSpy complete(source.get(), &WebDBInterface::searchComplete);
    source->beginSearch();
    if (!complete.wait(20'000))
        return {AlbumInfo({}, QStringLiteral("the search did not complete"))};
    QTest::qWait(0); // a second completion would come on the next turn
    if (complete.size() != 1)
        return {AlbumInfo({}, QStringLiteral("the search completed twice"))};
    return source->albums();
}
