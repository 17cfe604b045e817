#include "reader.h"

#include "base/propertylist.h"

/// What can be read is written both ways and must be readable again.
void read(const QByteArray &bytes)
{
    const auto parsed = PropertyList::parse(bytes);
    if (parsed.value.isValid())
        verify(PropertyList::parse(PropertyList::toXml(parsed.value)).error.isEmpty()
               && PropertyList::parse(PropertyList::toBinary(parsed.value)).error.isEmpty());
}
