#include "base/bytes.h"
#include "tags/id3v1reader.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArrayView tag(data, static_cast<qsizetype>(size));
    for (const ID3Dialect dialect : {ID3Dialect::classic(), ID3Dialect::standard()}) {
        try {
            ID3Contents contents;
            ID3v1Reader::getAttributesFromID3v1(tag, dialect, contents);
        } catch (const MalformedData &) {
        }
    }
    return 0;
}
