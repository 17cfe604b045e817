#include "app/tagvalues.h"

#include <algorithm>
#include <array>

namespace {

struct TextField {
    TagText which;
    std::optional<QString> (AudioInfoTag::*value)() const;
    void (AudioInfoTag::*set)(const QString &);
};

constexpr std::array textFields{
    TextField{TagText::Title, &AudioInfoTag::title, &AudioInfoTag::setTitle},
    TextField{TagText::Artist, &AudioInfoTag::artist, &AudioInfoTag::setArtist},
    TextField{TagText::Album, &AudioInfoTag::album, &AudioInfoTag::setAlbum},
    TextField{TagText::Year, &AudioInfoTag::year, &AudioInfoTag::setYear},
    TextField{TagText::Track, &AudioInfoTag::track, &AudioInfoTag::setTrack},
    TextField{TagText::Genres, &AudioInfoTag::genres, &AudioInfoTag::setGenres},
    TextField{TagText::Lyrics, &AudioInfoTag::lyrics, &AudioInfoTag::setLyrics},
    TextField{TagText::BPM, &AudioInfoTag::bpm, &AudioInfoTag::setBPM},
};
static_assert(textFields.size() == tagTextCount);

const TextField &fieldOf(TagText which)
{
    return *std::find_if(textFields.begin(), textFields.end(),
                         [which](const TextField &field) { return field.which == which; });
}

QString textInFile(const AudioInfoTag &tag, TagText which)
{
    const bool isFileName = which == TagText::Title && tag.hasTitleOfPathname();
    return isFileName ? QString() : textOf(tag, which).value_or(QString());
}

bool haveSameData(const QList<ID3Image> &images, const QList<ID3Image> &others)
{
    return std::equal(
        images.begin(), images.end(), others.begin(), others.end(),
        [](const ID3Image &image, const ID3Image &other) { return image.data == other.data; });
}

void setText(AudioInfoTag &tag, TagText which, const QString &text)
{
    const bool mayBeHidden = text.isEmpty() && tag.hasHiddenValues();
    if (textInFile(tag, which) != text || mayBeHidden)
        (tag.*fieldOf(which).set)(text);
}

void setImages(AudioInfoTag &tag, const QList<ID3Image> &images)
{
    if (haveSameData(tag.images(), images))
        return;
    tag.removeAllImages();
    for (const ID3Image &image : images)
        tag.addImage(image);
}

} // namespace

bool TagValues::isSame(const TagValues &as) const
{
    const bool areImagesSame = images && as.images ? haveSameData(*images, *as.images)
                                                   : images.has_value() == as.images.has_value();
    return texts == as.texts && isPartOfCompilation == as.isPartOfCompilation && areImagesSame;
}

std::optional<QString> textOf(const AudioInfoTag &tag, TagText which)
{
    return (tag.*fieldOf(which).value)();
}

TagValues valuesOf(const AudioInfoTag &tag, const TagValues &fields)
{
    TagValues values;
    for (auto field = fields.texts.keyBegin(); field != fields.texts.keyEnd(); ++field)
        values.texts.insert(*field, textInFile(tag, *field));
    if (fields.isPartOfCompilation)
        values.isPartOfCompilation = tag.isPartOfCompilation();
    if (fields.images)
        values.images = tag.images();
    return values;
}

void setValues(AudioInfoTag &tag, const TagValues &values)
{
    for (auto field = values.texts.cbegin(); field != values.texts.cend(); ++field)
        setText(tag, field.key(), field.value());
    if (values.isPartOfCompilation && tag.isPartOfCompilation() != *values.isPartOfCompilation)
        tag.setIsPartOfCompilation(*values.isPartOfCompilation);
    if (values.images)
        setImages(tag, *values.images);
}
