#include "base/bytes.h"
#include "tags/aacitems.h"
#include "tags/aacreader.h"
#include "tags/aacrewrite.h"
#include "tags/atom.h"
#include "tags/atomsource.h"
#include "tags/chunkoffsets.h"
#include "tags/metadatalist.h"

#include <QDateTime>

#include <cstdlib>

namespace {

/// The tree with every text set, as far as its tables allow that.
QByteArray changed(Atom &tree, AACAttributes attributes)
{
    attributes.texts.fill(QStringLiteral("12/34"));
    attributes.textsSet.set();
    attributes.images.append(ID3Image::imageWithData("picture", {}));
    attributes.imagesSet = attributes.compilationSet = true;
    tree.setAutoSizing(true);
    AACItems::apply(attributes, MetadataList::findOrMake(tree));
    tree.setAutoSizing(false);
    AACRewrite::setModifiedTime(QDateTime::fromSecsSinceEpoch(0), tree);
    const bool isMoved = ChunkOffsets::adjustChunkOffsets(tree);
    return isMoved ? tree.flattenedData().sliced(AtomHeader::plainLength) : QByteArray();
}

} // namespace

// What is set in whatever file is there when the changed file is read again.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const AtomSource source = AtomSource::ofBytes(bytes);
    QByteArray written;
    try {
        const auto tree = Atom::atomContainerFromFile(source);
        written = changed(*tree, AACReader::getAttributesFromAACFile(*tree));
    } catch (const MalformedData &) {
    }
    if (written.isEmpty())
        return 0;
    const AtomSource again = AtomSource::ofBytes(written);
    const auto read = AACReader::getAttributesFromAACFile(*Atom::atomContainerFromFile(again));
    if (read.text(TagText::Title) != QStringLiteral("12/34") || read.images.isEmpty())
        std::abort();
    return 0;
}
