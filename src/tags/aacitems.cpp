#include "tags/aacitems.h"

#include "base/bytes.h"
#include "tags/atom.h"
#include "text/integervalue.h"

#include <limits>
#include <vector>

namespace {

/// Type 13 whatever the picture is: other programs look at the bytes, and files have held this
/// for long.
constexpr char picturePrefix[] = "\0\0\0\x0D\0\0\0\0";
constexpr quint32 integerType = 21;

QString pathOf(AtomName item)
{
    return QStringLiteral("ilst:") + textOfAtomName(item);
}

quint16 fitting(int number)
{
    return static_cast<quint16>(qBound(0, number, int{std::numeric_limits<quint16>::max()}));
}

/// All items of the name.
void remove(Atom &list, AtomName name)
{
    if (Atom *item = list.firstChild(name))
        item->removeFromContainer();
    if (const qint64 dropped = list.dropChildren(name, 0))
        list.resizeSiblingFreeBy(dropped);
}

/// Leaves `count` children of that name.
void cut(Atom &container, AtomName name, int count)
{
    if (const qint64 dropped = container.dropChildren(name, count))
        container.resizeSiblingFreeBy(dropped);
}

/// The item holds this value and no further one, and is the only one of its name.
void set(Atom &list, AtomName name, const QByteArray &body)
{
    Atom *data = list.childAtAtomPath(pathOf(name) + QStringLiteral(":data"), Atom::Create::Yes);
    if (!data || data->isContainer())
        throw MalformedData(QStringLiteral("no value in atom '%1'").arg(textOfAtomName(name)));
    if (data->size() != static_cast<quint64>(body.size()) || data->data() != body)
        data->setData(body);
    cut(*data->parent(), AACItem::data, 1);
    cut(list, name, 1);
}

void setText(Atom &list, AtomName name, const std::optional<QString> &text)
{
    if (!text)
        return remove(list, name);
    auto data = Atom::atomWithName(AACItem::data);
    data->setStringValue(*text);
    set(list, name, *data->data());
}

/// The number and the count of "N/M"; a "/" at either end separates nothing.
QByteArray trackBody(const QString &track)
{
    const qsizetype slash = track.indexOf(u'/');
    const bool isSplit = slash > 0 && slash < track.size() - 1;
    ByteWriter body;
    body.zeros(10);
    body.u16(fitting(integerValue(isSplit ? QStringView(track).first(slash) : track)));
    body.u16(isSplit ? fitting(integerValue(QStringView(track).sliced(slash + 1))) : 0);
    body.zeros(2);
    return body.data();
}

QByteArray integerPrefix()
{
    ByteWriter body;
    body.u32(integerType);
    body.zeros(4);
    return body.data();
}

void setTrack(Atom &list, const std::optional<QString> &track)
{
    if (track)
        set(list, AACItem::track, trackBody(*track));
    else
        remove(list, AACItem::track);
}

void setTempo(Atom &list, const std::optional<QString> &bpm)
{
    const quint16 tempo = fitting(integerValue(bpm.value_or(QString())));
    if (tempo == 0)
        return remove(list, AACItem::tempo);
    ByteWriter body;
    body.bytes(integerPrefix());
    body.u16(tempo);
    set(list, AACItem::tempo, body.data());
}

void setCompilation(Atom &list, bool isPartOfCompilation)
{
    if (isPartOfCompilation)
        set(list, AACItem::compilation, integerPrefix() + '\1');
    else
        remove(list, AACItem::compilation);
}

/// A number was always turned into text, by which alone any genre can be named.
void setGenre(Atom &list, AtomName name, const AACAttributes &attributes)
{
    const bool hadNumber = list.firstChild(AACItem::genreNumber) != nullptr;
    const std::optional<QString> &genre = attributes.text(TagText::Genres);
    remove(list, AACItem::genreNumber);
    if (attributes.isSet(TagText::Genres) || (hadNumber && genre))
        setText(list, name, genre);
}

QByteArray pictureBody(const QByteArray &picture)
{
    return QByteArray(picturePrefix, AACItem::valueStart) + picture;
}

std::vector<Atom *> picturesIn(const Atom &cover)
{
    std::vector<Atom *> pictures;
    for (const auto &child : cover.contents())
        if (child->name() == AACItem::data && !child->isContainer())
            pictures.push_back(child.get());
    return pictures;
}

/// The pictures of the item take the place of what it held; other atoms inside it stay. The room
/// of all old ones is there for the new ones.
void replacePictures(Atom &cover, const QList<ID3Image> &images)
{
    const std::vector<Atom *> old = picturesIn(cover);
    qint64 oldLength = 0;
    for (const Atom *picture : old)
        oldLength += AtomHeader::plainLength + static_cast<qint64>(picture->size());
    cover.resizeSiblingFreeBy(oldLength);
    const bool wasAutoSizing = cover.autoSizing();
    cover.setAutoSizing(false);
    for (qsizetype i = 0; i < images.size(); ++i) {
        Atom *picture = i < std::ssize(old) ? old[static_cast<size_t>(i)]
                                            : cover.addChild(Atom::atomWithName(AACItem::data));
        picture->setData(pictureBody(images[i].data));
        cover.resizeSiblingFreeBy(-AtomHeader::plainLength - static_cast<qint64>(picture->size()));
    }
    cover.dropChildren(AACItem::data, static_cast<int>(images.size()));
    cover.setAutoSizing(wasAutoSizing);
}

bool holds(const Atom &cover, const QList<ID3Image> &images)
{
    const std::vector<Atom *> pictures = picturesIn(cover);
    return std::equal(pictures.begin(), pictures.end(), images.begin(), images.end(),
                      [](const Atom *picture, const ID3Image &image) {
                          return picture->data() == pictureBody(image.data);
                      });
}

void setPictures(Atom &list, const QList<ID3Image> &images)
{
    if (images.isEmpty())
        return remove(list, AACItem::cover);
    Atom *cover = list.childAtAtomPath(pathOf(AACItem::cover), Atom::Create::Yes);
    cover->becomeContainer();
    if (!holds(*cover, images))
        replacePictures(*cover, images);
    cut(list, AACItem::cover, 1);
}

void markPictures(const Atom &list)
{
    const Atom *cover = list.firstChild(AACItem::cover);
    for (Atom *picture : cover ? picturesIn(*cover) : std::vector<Atom *>()) {
        const auto length = static_cast<qint64>(picture->size()) - AACItem::valueStart;
        const bool isReadable =
            length > 0 && length <= AACItem::largestValue && picture->extendedSizeLength() == 0;
        if (isReadable && picture->dataIn(0, AACItem::valueStart) != pictureBody({}))
            picture->setData(pictureBody(picture->dataIn(AACItem::valueStart, length)));
    }
}

} // namespace

void AACItems::apply(const AACAttributes &attributes, Atom &list)
{
    for (const AACTextItem &item : aacTextItems) {
        if (item.text == TagText::Genres)
            setGenre(list, item.name, attributes);
        else if (attributes.isSet(item.text))
            setText(list, item.name, attributes.text(item.text));
    }
    if (attributes.isSet(TagText::Track))
        setTrack(list, attributes.text(TagText::Track));
    if (attributes.isSet(TagText::BPM))
        setTempo(list, attributes.text(TagText::BPM));
    if (attributes.compilationSet)
        setCompilation(list, attributes.compilation);
    if (attributes.imagesSet)
        setPictures(list, attributes.images);
    else
        markPictures(list);
}
