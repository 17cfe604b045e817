#include "tags/id3unsynchronisation.h"

bool ID3Unsynchronisation::isPossible(QByteArrayView bytes)
{
    constexpr unsigned char lowestSecondByteOfSync = 0xE0;
    for (qsizetype at = bytes.indexOf('\xFF'); at >= 0; at = bytes.indexOf('\xFF', at + 1)) {
        if (at + 1 < bytes.size()
            && static_cast<unsigned char>(bytes[at + 1]) >= lowestSecondByteOfSync)
            return false;
    }
    return true;
}

QByteArray ID3Unsynchronisation::undone(QByteArrayView bytes, qsizetype from)
{
    QByteArray plain;
    plain.reserve(bytes.size());
    qsizetype copied = 0;
    for (qsizetype at = bytes.indexOf('\xFF', from); at >= 0; at = bytes.indexOf('\xFF', at + 1)) {
        if (at + 1 >= bytes.size() || bytes[at + 1] != '\0')
            continue;
        plain.append(bytes.sliced(copied, at + 1 - copied));
        copied = at + 2;
    }
    return plain.append(bytes.sliced(copied));
}
