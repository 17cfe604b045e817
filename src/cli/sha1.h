#pragma once

#include <QByteArrayView>
#include <QString>

/// The SHA-1 of the bytes in lower-case hex.
QString sha1Hex(QByteArrayView bytes);
