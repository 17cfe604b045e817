#pragma once

#include "sources/picturesizes.h"
#include "sources/releasecandidate.h"
#include "sources/releaserecord.h"

#include <QJsonArray>

// What the answers of the music shop that speaks JSON say of albums.

/// The entries of an answer that is a list.
[[nodiscard]] QJsonArray shopList(const QJsonObject &answer);

/// The numbers of the albums of a list of albums, and of a list of tracks (those that hold a track
/// of that title), that fit the wish; the best first, each once.
[[nodiscard]] QList<qint64> shopAlbums(const QJsonArray &albums, const ReleaseWish &wish);
[[nodiscard]] QList<qint64> albumsOfShopTracks(const QJsonArray &tracks, const ReleaseWish &wish);

/// Whether the album is by the artist, or may be by anybody.
[[nodiscard]] bool isShopAlbumOf(const ReleaseWish &wish, const QJsonObject &album);

/// The album with all its tracks. A disc of which some are missing would give wrong numbers, and
/// is left out.
[[nodiscard]] ReleaseRecord shopRecord(const QJsonObject &album, const QJsonArray &tracks);

[[nodiscard]] PictureSizes shopCover(const QJsonObject &album);
