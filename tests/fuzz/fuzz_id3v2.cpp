#include "base/bytes.h"
#include "tags/id3reader.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArrayView tag(data, static_cast<qsizetype>(size));
    for (const ID3Dialect dialect : {ID3Dialect::classic(), ID3Dialect::standard()}) {
        try {
            ID3Contents contents;
            ID3Reader::getAttributesFromID3v2(tag, {.dialect = dialect}, contents);
        } catch (const MalformedData &) {
        }
    }
    return 0;
}
