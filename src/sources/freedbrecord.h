#pragma once

#include "gathering/albuminfo.h"

#include <QByteArrayView>

#include <optional>

/// The album of a FreeDB disc record: lines of KEY=value. What the record lacks stays unset;
/// nothing at all for no data. `charset`: as for decodedPage().
[[nodiscard]] std::optional<AlbumInfo> albumWithFreeDBData(QByteArrayView record,
                                                           const QString &charset = {});
