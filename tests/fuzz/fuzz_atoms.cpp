#include "base/bytes.h"
#include "tags/atom.h"
#include "tags/atomlookup.h"
#include "tags/atomsource.h"

#include <cstdlib>

// Whatever can be read as a tree flattens to the very bytes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const AtomSource source = AtomSource::ofBytes(bytes);
    try {
        const auto tree = Atom::atomContainerFromFile(source);
        if (tree->flattenedData().sliced(AtomHeader::plainLength) != bytes)
            std::abort();
        static_cast<void>(tree->description());
    } catch (const MalformedData &) {
    }
    try {
        static_cast<void>(AtomLookup::atomDataIn(source, u"moov:trak:mdia", u"1:2:1"));
    } catch (const MalformedData &) {
    }
    return 0;
}
