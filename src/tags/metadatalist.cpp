#include "tags/metadatalist.h"

#include "base/bytes.h"
#include "tags/aacreader.h"
#include "tags/atom.h"

#include <QCoreApplication>

#include <utility>

namespace {

constexpr AtomName handlerAtom = atomName("hdlr");
constexpr quint32 itemListHandler = atomName("mdir");
constexpr qint64 handlerTypeAt = 8; ///< behind version, flags and four zero bytes
constexpr quint64 roomToGrow = 1024;

std::unique_ptr<Atom> madeAtom(AtomName name)
{
    return Atom::atomWithName(name);
}

std::unique_ptr<Atom> madeContainer(AtomName name)
{
    auto atom = madeAtom(name);
    atom->becomeContainer();
    return atom;
}

std::unique_ptr<Atom> madeHandler()
{
    ByteWriter body;
    body.zeros(handlerTypeAt);
    body.u32(itemListHandler);
    body.u32(atomName("appl"));
    body.zeros(9);
    auto handler = madeAtom(handlerAtom);
    handler->setData(body.data());
    return handler;
}

/// Adds the atom as the last child, and has a 'free' atom behind make room for it.
Atom &added(Atom &container, std::unique_ptr<Atom> child)
{
    Atom *atom = container.addChild(std::move(child));
    atom->resizeSiblingFreeBy(-static_cast<qint64>(atom->flattenedLength()));
    return *atom;
}

std::unique_ptr<Atom> madeMeta()
{
    auto meta = madeContainer(atomName("meta"));
    meta->addChild(madeHandler());
    meta->addChild(madeContainer(atomName("ilst")));
    meta->addChild(madeAtom(atomName("free")))->setSize(roomToGrow);
    return meta;
}

/// Whether the handler says that items of another kind are listed here.
bool hasForeignHandler(const Atom &meta)
{
    const Atom *handler = meta.firstChild(handlerAtom);
    if (!handler)
        return false;
    const QByteArray body = handler->dataIn(handlerTypeAt, 4);
    ByteReader type(body);
    return type.remaining() < 4 || type.u32() != itemListHandler;
}

Atom &listInMeta(Atom &meta)
{
    const AtomName name = atomName("ilst");
    if (Atom *list = meta.firstChild(name))
        return *list;
    if (hasForeignHandler(meta))
        throw MalformedData(qtTrId("ErrorForeignMetadata"));
    if (!meta.firstChild(handlerAtom))
        added(meta, madeHandler());
    return added(meta, madeContainer(name));
}

} // namespace

Atom &MetadataList::findOrMake(Atom &file)
{
    if (Atom *list = AACReader::metadataListIn(file))
        return *list;
    Atom *movie = file.firstChild(atomName("moov"));
    if (!movie || !movie->isContainer())
        throw MalformedData(qtTrId("ErrorNoMovie"));
    if (!movie->firstChild(atomName("udta")))
        added(*movie, madeContainer(atomName("udta")));
    Atom &userData = *movie->firstChild(atomName("udta"));
    if (Atom *meta = userData.firstChild(atomName("meta")); meta && meta->isContainer())
        return listInMeta(*meta);
    return *added(userData, madeMeta()).firstChild(atomName("ilst"));
}
