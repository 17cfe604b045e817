#include "tags/aacreader.h"

#include "base/bytes.h"
#include "tags/atom.h"
#include "tags/genretable.h"

#include <algorithm>

namespace {

qint64 valueStartIn(const Atom &data)
{
    return data.extendedSizeLength() + AACItem::valueStart;
}

/// At most the first bytes of a value; the first 'data' atom of an item holds it.
QByteArray startOfValue(const Atom &item)
{
    constexpr qint64 longestNumber = 8;
    const Atom *data = item.firstChild(AACItem::data);
    return data ? data->dataIn(valueStartIn(*data), longestNumber) : QByteArray();
}

/// A number of 16 bits, or of the one byte that some programs write.
int numberIn(QByteArrayView value)
{
    ByteReader reader(value);
    return reader.remaining() == 1 ? reader.u8() : reader.remaining() ? reader.u16() : 0;
}

std::optional<QString> textIn(const Atom &item)
{
    const Atom *data = item.firstChild(AACItem::data);
    if (!data || data->size() > AACItem::largestValue)
        return std::nullopt;
    return data->stringValue();
}

std::optional<QString> trackIn(const Atom &item)
{
    const QByteArray value = startOfValue(item);
    ByteReader reader(value);
    if (reader.remaining() < 4)
        return std::nullopt;
    reader.skip(2);
    const int track = reader.u16();
    const int total = reader.remaining() < 2 ? 0 : reader.u16();
    if (track == 0)
        return std::nullopt;
    return total == 0 ? QString::number(track) : QStringLiteral("%1/%2").arg(track).arg(total);
}

/// "(17)" for 18: the items count from one, the genre table from nought.
std::optional<QString> genreReferenceIn(const Atom &item)
{
    const int number = numberIn(startOfValue(item));
    return number == 0 ? std::nullopt : std::optional(QStringLiteral("(%1)").arg(number - 1));
}

std::optional<QString> tempoIn(const Atom &item)
{
    const int number = numberIn(startOfValue(item));
    return number == 0 ? std::nullopt : std::optional(QString::number(number));
}

bool isTrue(const Atom &item)
{
    const QByteArray value = startOfValue(item);
    return !value.isEmpty() && value.front() != '\0';
}

/// Other atoms beside the pictures, such as names of files, are none.
QList<ID3Image> imagesIn(const Atom &item)
{
    QList<ID3Image> images;
    for (const auto &child : item.contents()) {
        const qint64 start = valueStartIn(*child);
        const auto length = static_cast<qint64>(child->size()) - start;
        if (child->name() == AACItem::data && length > 0 && length <= AACItem::largestValue)
            images.append(ID3Image::imageWithData(child->dataIn(start, length), {}));
    }
    return images;
}

class ItemReading {
public:
    explicit ItemReading(const Atom &list)
        : mList(list)
    {
    }

    AACAttributes attributes()
    {
        for (const AACTextItem &item : aacTextItems)
            read(item.name, item.text, textIn);
        read(AACItem::genreNumber, TagText::Genres, genreReferenceIn);
        read(AACItem::track, TagText::Track, trackIn);
        read(AACItem::tempo, TagText::BPM, tempoIn);
        std::optional<QString> &genre = text(TagText::Genres);
        genre = GenreTable::expandedGenres(genre);
        if (const Atom *item = mList.firstChild(AACItem::compilation))
            mAttributes.compilation = isTrue(*item);
        if (const Atom *item = mList.firstChild(AACItem::cover))
            mAttributes.images = imagesIn(*item);
        mAttributes.hasTitleItem = mList.firstChild(aacTextItems.front().name) != nullptr;
        return mAttributes;
    }

private:
    std::optional<QString> &text(TagText which)
    {
        return mAttributes.texts.at(static_cast<size_t>(which));
    }

    /// What is there wins over what was read before.
    void read(AtomName name, TagText into, std::optional<QString> (*value)(const Atom &))
    {
        const Atom *item = mList.firstChild(name);
        if (!item)
            return;
        if (auto found = value(*item))
            text(into) = std::move(found);
        else
            mAttributes.hasUnreadItem = true;
    }

    const Atom &mList;
    AACAttributes mAttributes;
};

} // namespace

Atom *AACReader::metadataListIn(const Atom &file)
{
    const Atom *movie = file.firstChild(atomName("moov"));
    if (!movie)
        return nullptr;
    for (const auto &child : movie->contents()) {
        const bool isUserData = child->name() == atomName("udta");
        const Atom *meta = isUserData ? child->firstChild(atomName("meta")) : nullptr;
        if (Atom *list = meta ? meta->firstChild(atomName("ilst")) : nullptr)
            return list;
    }
    return nullptr;
}

AACAttributes AACReader::getAttributesFromAACFile(const Atom &file)
{
    const Atom *list = metadataListIn(file);
    return list ? ItemReading(*list).attributes() : AACAttributes();
}
