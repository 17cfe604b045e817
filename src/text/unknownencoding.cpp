#include "text/unknownencoding.h"

#include <QStringDecoder>

QString textOfUnknownEncoding(QByteArrayView bytes)
{
    const auto marked = QStringConverter::encodingForData(bytes);
    QStringDecoder decoder(marked.value_or(QStringConverter::Utf8));
    QString text = decoder(bytes);
    return decoder.hasError() && !marked ? QString::fromLatin1(bytes) : text;
}
