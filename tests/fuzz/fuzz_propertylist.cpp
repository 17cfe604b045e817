#include "base/propertylist.h"

/// What can be read is written both ways and must be readable again.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto parsed =
        PropertyList::parse({reinterpret_cast<const char *>(data), qsizetype(size)});
    if (!parsed.value.isValid())
        return 0;
    if (!PropertyList::parse(PropertyList::toXml(parsed.value)).error.isEmpty()
        || !PropertyList::parse(PropertyList::toBinary(parsed.value)).error.isEmpty())
        __builtin_trap();
    return 0;
}
