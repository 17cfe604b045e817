#include "reader.h"

#include "tags/id3v1reader.h"

void read(const QByteArray &tag)
{
    refusingInEachDialect([&](const ID3Dialect &dialect) {
        ID3Contents contents;
        ID3v1Reader::getAttributesFromID3v1(tag, dialect, contents);
    });
}
