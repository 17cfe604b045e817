#include "reader.h"

#include "tags/id3reader.h"

void read(const QByteArray &tag)
{
    refusingInEachDialect([&](const ID3Dialect &dialect) {
        ID3Contents contents;
        ID3Reader::getAttributesFromID3v2(tag, {.dialect = dialect}, contents);
    });
}
