#include "sources/freedbrecord.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static_cast<void>(albumWithFreeDBData(QByteArrayView(data, static_cast<qsizetype>(size))));
    return 0;
}
