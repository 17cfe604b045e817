#include "app/tagclipboard.h"

#include "base/bytes.h"
#include "tags/songbytes.h"
#include "tags/tagfactory.h"

#include <QCborStreamReader>
#include <QCborStreamWriter>
#include <QHash>

#include <algorithm>
#include <map>

namespace {

using TagClipboard::Field;
using TagClipboard::Tags;

constexpr int formatVersion = 1;
constexpr qsizetype mostPictures = 10'000;
constexpr qsizetype mostPicturesOfASong = 100;
constexpr qsizetype longestText = 1'000'000; // bytes

constexpr std::array allFields{
    Field{QT_TRID_NOOP("SongTitle"), TagText::Title},
    Field{QT_TRID_NOOP("Artist"), TagText::Artist},
    Field{QT_TRID_NOOP("AlbumName"), TagText::Album},
    Field{QT_TRID_NOOP("Track"), TagText::Track},
    Field{QT_TRID_NOOP("Year"), TagText::Year},
    Field{QT_TRID_NOOP("Genre"), TagText::Genres},
    Field{QT_TRID_NOOP("BPM"), TagText::BPM},
    Field{QT_TRID_NOOP("Compilation"), {}, Field::Kind::Compilation},
    Field{QT_TRID_NOOP("Lyrics"), TagText::Lyrics},
    Field{QT_TRID_NOOP("Artwork"), {}, Field::Kind::Artwork},
};

TagValues everyField()
{
    TagValues all;
    for (const Field &field : allFields)
        if (field.text)
            all.texts.insert(*field.text, QString());
    all.isPartOfCompilation = false;
    all.images = QList<ID3Image>();
    return all;
}

/// Numbers the pictures of songs, equal ones once.
class PictureNumbers {
public:
    quint64 numberOf(const ID3Image &image)
    {
        const auto [place, isNew] = mNumbers.try_emplace(image.data, mImages.size());
        if (isNew) {
            mImages << image;
            mBytes += image.data.size();
        }
        return static_cast<quint64>(place->second);
    }
    /// The bytes of the equal picture that came first.
    QByteArray held(const ID3Image &image)
    {
        return mImages[static_cast<qsizetype>(numberOf(image))].data;
    }
    [[nodiscard]] const QList<ID3Image> &images() const { return mImages; }
    [[nodiscard]] qint64 bytes() const { return mBytes; }

private:
    std::map<QByteArray, qsizetype> mNumbers;
    QList<ID3Image> mImages;
    qint64 mBytes = 0;
};

void writePicture(QCborStreamWriter &writer, const ID3Image &image)
{
    writer.startArray(3);
    writer.append(image.data);
    writer.append(image.pictureType);
    writer.append(image.description.value_or(QString()));
    writer.endArray();
}

void writeSong(QCborStreamWriter &writer, const TagValues &song, PictureNumbers &pictures)
{
    const QList<ID3Image> images = song.images.value_or(QList<ID3Image>());
    writer.startArray(tagTextCount + 2);
    for (std::size_t which = 0; which < tagTextCount; ++which)
        writer.append(song.texts.value(static_cast<TagText>(which)));
    writer.append(song.isPartOfCompilation.value_or(false));
    writer.startArray(static_cast<quint64>(images.size()));
    for (const ID3Image &image : images)
        writer.append(pictures.numberOf(image));
    writer.endArray();
    writer.endArray();
}

/// Reads what encoded() wrote, and throws MalformedData at anything else.
class TagsReader {
public:
    explicit TagsReader(const QByteArray &bytes)
        : mReader(bytes)
        , mSize(bytes.size())
    {
    }

    Tags read()
    {
        enterArray(3, 3);
        expect(number() == formatVersion);
        for (auto left = enterArray(0, mostPictures); left > 0; --left)
            mImages << picture();
        leaveArray();
        Tags tags;
        for (auto left = enterArray(1, TagClipboard::mostSongs); left > 0; --left)
            tags << song();
        leaveArray();
        leaveArray();
        return tags;
    }

private:
    static void expect(bool isAsWritten)
    {
        if (!isAsWritten)
            throw MalformedData(QStringLiteral("copied tags"));
    }

    quint64 enterArray(quint64 fewest, quint64 most)
    {
        expect(mReader.isArray() && mReader.isLengthKnown());
        const quint64 length = mReader.length();
        expect(length >= fewest && length <= most && mReader.enterContainer());
        return length;
    }

    void leaveArray() { expect(mReader.leaveContainer()); }

    quint64 number()
    {
        expect(mReader.isUnsignedInteger());
        const quint64 value = mReader.toUnsignedInteger();
        expect(mReader.next());
        return value;
    }

    bool yesOrNo()
    {
        expect(mReader.isBool());
        const bool value = mReader.toBool();
        expect(mReader.next());
        return value;
    }

    /// A length that the bytes cannot hold must not be allocated.
    void expectLength(qsizetype most) const
    {
        expect(mReader.isLengthKnown() && mReader.length() <= static_cast<quint64>(mSize)
               && mReader.length() <= static_cast<quint64>(most));
    }

    QString text()
    {
        expect(mReader.isString());
        expectLength(longestText);
        const auto read = mReader.readString();
        expect(read.status == QCborStreamReader::Ok);
        const auto end = mReader.readString();
        expect(end.status == QCborStreamReader::EndOfString);
        return read.data;
    }

    QByteArray bytes()
    {
        expect(mReader.isByteArray());
        expectLength(TagClipboard::mostPictureBytes);
        const auto read = mReader.readByteArray();
        expect(read.status == QCborStreamReader::Ok);
        const auto end = mReader.readByteArray();
        expect(end.status == QCborStreamReader::EndOfString);
        return read.data;
    }

    ID3Image picture()
    {
        enterArray(3, 3);
        const QByteArray data = bytes();
        const auto mimeType = mimeTypeBySignature(data);
        expect(mimeType.has_value());
        ID3Image image = ID3Image::imageWithData(data, mimeType);
        image.pictureType = static_cast<int>(std::min(number(), quint64(255)));
        if (const QString description = text(); !description.isEmpty())
            image.description = description;
        leaveArray();
        return image;
    }

    TagValues song()
    {
        TagValues values;
        enterArray(tagTextCount + 2, tagTextCount + 2);
        for (std::size_t which = 0; which < tagTextCount; ++which)
            values.texts.insert(static_cast<TagText>(which), text());
        values.isPartOfCompilation = yesOrNo();
        values.images = QList<ID3Image>();
        for (auto left = enterArray(0, mostPicturesOfASong); left > 0; --left) {
            const quint64 index = number();
            expect(index < static_cast<quint64>(mImages.size()));
            *values.images << mImages[static_cast<qsizetype>(index)];
        }
        leaveArray();
        leaveArray();
        return values;
    }

    QCborStreamReader mReader;
    qsizetype mSize;
    QList<ID3Image> mImages;
};

} // namespace

TagClipboard::Copied TagClipboard::copiedFrom(const QStringList &paths, const ReadOptions &options)
{
    Copied copied;
    PictureNumbers pictures;
    for (const QString &path : paths) {
        const auto bytes = openForTag(path);
        const TagOrReason read = bytes ? readTag(*bytes, options)
                                       : TagOrReason{nullptr, qtTrId("ErrorCannotOpenForRead")};
        if (!read.tag)
            return {{}, QStringLiteral("%1: %2").arg(path, read.reason)};
        copied.tags << valuesOf(*read.tag, everyField());
        for (ID3Image &image : *copied.tags.last().images)
            image.data = pictures.held(image); // once for all songs of an album
        if (pictures.bytes() > mostPictureBytes)
            return {{}, qtTrId("ErrorTooMuchToCopy")};
    }
    return copied;
}

QByteArray TagClipboard::encoded(const Tags &tags)
{
    PictureNumbers pictures;
    for (const TagValues &tag : tags)
        for (const ID3Image &image : tag.images.value_or(QList<ID3Image>()))
            pictures.numberOf(image);
    QByteArray bytes;
    QCborStreamWriter writer(&bytes);
    writer.startArray(3);
    writer.append(formatVersion);
    writer.startArray(static_cast<quint64>(pictures.images().size()));
    for (const ID3Image &image : pictures.images())
        writePicture(writer, image);
    writer.endArray();
    writer.startArray(static_cast<quint64>(tags.size()));
    for (const TagValues &tag : tags)
        writeSong(writer, tag, pictures);
    writer.endArray();
    writer.endArray();
    return bytes;
}

std::optional<Tags> TagClipboard::decoded(const QByteArray &bytes)
{
    try {
        return TagsReader(bytes).read();
    } catch (const MalformedData &) {
        return std::nullopt;
    }
}

QString TagClipboard::plainText(const Tags &tags)
{
    QStringList songs;
    for (const TagValues &tag : tags) {
        QStringList lines;
        for (const Field &field : allFields)
            if (field.text && field.isIn(tag))
                lines << qtTrId("FieldAndValue")
                             .arg(qtTrId(field.textID), tag.texts.value(*field.text));
        songs << lines.join(u'\n');
    }
    return songs.join(QStringLiteral("\n\n"));
}

bool Field::isIn(const TagValues &values) const
{
    switch (kind) {
    case Kind::Text:
        return !values.texts.value(*text).isEmpty();
    case Kind::Compilation:
        return values.isPartOfCompilation.value_or(false);
    case Kind::Artwork:
        return values.images && !values.images->isEmpty();
    }
    return false;
}

bool Field::isOfOneSong() const
{
    return text == TagText::Title || text == TagText::Track || text == TagText::Lyrics
        || text == TagText::BPM;
}

const std::array<Field, 10> &TagClipboard::fields()
{
    return allFields;
}

TagValues TagClipboard::chosen(const TagValues &values, const QList<Field> &fields)
{
    TagValues some;
    for (const Field &field : fields)
        if (field.text)
            some.texts.insert(*field.text, values.texts.value(*field.text));
        else if (field.kind == Field::Kind::Compilation)
            some.isPartOfCompilation = values.isPartOfCompilation;
        else
            some.images = values.images;
    return some;
}

bool TagClipboard::canPaste(const Tags &tags, const SongList &songs)
{
    return !songs.empty()
        && (tags.size() == 1 || static_cast<std::size_t>(tags.size()) == songs.size());
}

TagChange TagClipboard::pasting(const Tags &tags, const SongList &songs, const QList<Field> &fields)
{
    QHash<const SongFile *, TagValues> values;
    for (std::size_t i = 0; i < songs.size(); ++i) {
        const qsizetype which = tags.size() == 1 ? 0 : static_cast<qsizetype>(i);
        values.insert(songs[i].get(), chosen(tags[which], fields));
    }
    return {qtTrId("ChangeOfPastedTags"), songs,
            [values](SongFile &song, const AudioInfoTag &) { return values.value(&song); }};
}
