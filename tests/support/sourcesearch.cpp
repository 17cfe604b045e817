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

static QStringList shown(const QList<PassedOverAlbum> &albums)
{
    QStringList texts;
    for (const auto &[album, fate, tracks] : albums)
        texts << album.name().value_or(QString()) + u'|' + album.year().value_or(QString()) + u'|'
                + QString::number(tracks) + u'|' + QString::number(int(fate));
    return texts;
}

QStringList namesOf(const AlbumList &albums)
{
    QStringList names;
    for (const AlbumInfo &album : albums)
        names << album.name().value_or(QString());
    return names;
}

QVariantMap SampleSiteScene::definition(const QString &className,
                                        const QMap<QString, QString> &addresses,
                                        const QVariantMap &changes) const
{
    QVariantMap values = builtInDefinition(className);
    values[QStringLiteral("simulConns")] = 1;
    for (const auto &[key, below] : addresses.asKeyValueRange())
        values[key] = QString(server.url(QStringLiteral("/")).toString() + below);
    values.insert(changes);
    values.removeIf([](const auto &entry) { return !entry.value().isValid(); });
    return values;
}

QVariantMap SampleSiteScene::definitionAtHome(const QString &className,
                                              const QStringList &hosts) const
{
    QVariantMap values = definition(className, {});
    for (const char *pause : {"minInterval", "busyPause"})
        values[QLatin1String(pause)] = 0;
    for (QVariant &value : values)
        for (const QString &host : hosts)
            if (value.toString().startsWith(host))
                value = value.toString().replace(host, server.url({}).toString());
    return values;
}

void SampleSiteScene::serveJson(const QMap<QString, QString> &pages)
{
    for (const auto &[path, written] : pages.asKeyValueRange()) {
        QString body = written;
        body.replace(u'\'', u'"').replace(u'#', server.url(QStringLiteral("/")).toString());
        server.serve(path, {.type = "application/json", .body = body.toUtf8()});
    }
}

QStringList SampleSiteScene::shownHere(const AlbumList &albums) const
{
    return shown(albums).replaceInStrings(server.url(QStringLiteral("/")).toString(),
                                          QStringLiteral("#"));
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
    source->setTrack(song.track, song.tracks);
    source->setIdentifiers(song.identifiers);
    QSignalSpy complete(source.get(), &WebDBInterface::searchComplete);
    source->beginSearch();
    if (!complete.wait(20'000))
        return {AlbumInfo({}, QStringLiteral("the search did not complete"))};
    QTest::qWait(0); // a second completion would come on the next turn
    if (complete.size() != 1)
        return {AlbumInfo({}, QStringLiteral("the search completed twice"))};
    wasUnanswered = source->wasUnanswered();
    passedOver = shown(source->passedOver());
    return source->albums();
}
