#pragma once

#include <QByteArrayView>
#include <QString>

/// What bytes say that come without the name of their encoding: as their byte-order mark tells,
/// else UTF-8 if they can be, else Latin-1.
[[nodiscard]] QString textOfUnknownEncoding(QByteArrayView bytes);
