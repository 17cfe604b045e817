#include "tags/id3v2header.h"

#include "tags/synchsafe.h"

#include <algorithm>

std::optional<ID3v2Header> ID3v2Header::headerIn(QByteArrayView bytes)
{
    constexpr qsizetype sizeAt = 6;
    if (bytes.size() < length || !bytes.startsWith("ID3") || bytes[3] == '\xFF'
        || bytes[4] == '\xFF')
        return {};
    const QByteArrayView size = bytes.sliced(sizeAt, 4);
    if (std::any_of(size.begin(), size.end(), [](char byte) { return (byte & 0x80) != 0; }))
        return {};
    ID3v2Header header;
    header.major = static_cast<unsigned char>(bytes[3]);
    const int revision = static_cast<unsigned char>(bytes[4]);
    header.revision = revision < 0x80 ? revision : revision - 0x100;
    header.flags = static_cast<unsigned char>(bytes[5]);
    header.size = SynchSafe::getSynchSafeIntIn(bytes, sizeAt);
    return header;
}
