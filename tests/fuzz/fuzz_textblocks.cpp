#include "reader.h"

#include "tags/id3strings.h"
#include "tags/textblock.h"

void read(const QByteArray &tag)
{
    const qsizetype length = tag.isEmpty() ? 0 : qMin<qsizetype>(tag.size(), tag[0] & 0x7F);
    refusingInEachDialect([&](const ID3Dialect &dialect) {
        static_cast<void>(TextBlock::textBlockIn(tag, tag.size() - length, length, dialect));
        static_cast<void>(ID3Strings::id3v23Strings(tag, tag.size() - length, length, dialect));
    });
}
