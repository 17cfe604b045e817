#pragma once

#include <QByteArrayView>
#include <QString>

/// The characters of a page in the encoding of that name; ISO Latin 1, which fits any bytes, when
/// the name is empty or unknown.
[[nodiscard]] QString decodedPage(QByteArrayView bytes, const QString &charset = {});
