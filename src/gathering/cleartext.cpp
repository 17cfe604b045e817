#include "gathering/cleartext.h"

#include <QHostAddress>

bool isInTheClear(const QUrl &url)
{
    const QString host = url.host();
    const bool isHere = host == QLatin1String("localhost") || QHostAddress(host).isLoopback();
    return url.scheme() != QLatin1String("https") && !isHere;
}
