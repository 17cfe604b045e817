#include "reader.h"

#include "tags/atom.h"
#include "tags/atomlookup.h"
#include "tags/atomsource.h"

// Whatever can be read as a tree flattens to the very bytes.
void read(const QByteArray &bytes)
{
    const AtomSource source = AtomSource::ofBytes(bytes);
    refusing([&] {
        const auto tree = Atom::atomContainerFromFile(source);
        verify(tree->flattenedData().sliced(AtomHeader::plainLength) == bytes);
        static_cast<void>(tree->description());
    });
    refusing(
        [&] { static_cast<void>(AtomLookup::atomDataIn(source, u"moov:trak:mdia", u"1:2:1")); });
}
