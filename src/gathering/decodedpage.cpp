#include "gathering/decodedpage.h"

#include <QStringDecoder>

QString decodedPage(QByteArrayView bytes, const QString &charset)
{
    QStringDecoder decoder(charset.toLatin1().constData());
    return decoder.isValid() ? decoder(bytes) : QString::fromLatin1(bytes);
}
