#include "base/bytes.h"
#include "tags/id3strings.h"
#include "tags/textblock.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
try {
    const QByteArrayView tag(data, static_cast<qsizetype>(size));
    for (const ID3Dialect dialect : {ID3Dialect::classic(), ID3Dialect::standard()}) {
        const qsizetype length = tag.isEmpty() ? 0 : qMin<qsizetype>(tag.size(), tag[0] & 0x7F);
        static_cast<void>(TextBlock::textBlockIn(tag, tag.size() - length, length, dialect));
        static_cast<void>(ID3Strings::id3v23Strings(tag, tag.size() - length, length, dialect));
    }
    return 0;
} catch (const MalformedData &) {
    return 0;
}
