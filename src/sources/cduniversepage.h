#pragma once

#include "gathering/albuminfo.h"

#include <QByteArrayView>

#include <optional>

/// The album of a store page in the markup that the program knows by itself; its tracks are not
/// read. What the page lacks stays unset; nothing at all for no data. `charset`: as for
/// decodedPage().
[[nodiscard]] std::optional<AlbumInfo> albumWithCDUniverseHTMLData(QByteArrayView page,
                                                                   const QString &charset = {});
