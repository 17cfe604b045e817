#include "reader.h"

#include "tags/aacitems.h"
#include "tags/aacreader.h"
#include "tags/aacrewrite.h"
#include "tags/atom.h"
#include "tags/atomsource.h"
#include "tags/chunkoffsets.h"
#include "tags/metadatalist.h"

#include <QDateTime>

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
void read(const QByteArray &bytes)
{
    const AtomSource source = AtomSource::ofBytes(bytes);
    QByteArray written;
    refusing([&] {
        const auto tree = Atom::atomContainerFromFile(source);
        written = changed(*tree, AACReader::getAttributesFromAACFile(*tree));
    });
    if (written.isEmpty())
        return;
    const AtomSource again = AtomSource::ofBytes(written);
    const auto tag = AACReader::getAttributesFromAACFile(*Atom::atomContainerFromFile(again));
    verify(tag.text(TagText::Title) == QStringLiteral("12/34") && !tag.images.isEmpty());
}
