#include "cli/tagsummary.h"

#include "cli/sha1.h"
#include "tags/mp3infotag.h"

using namespace Qt::StringLiterals;

namespace {

void writeImageKeys(JsonWriter &json, const ID3Image &image, const ID3Dialect &dialect)
{
    json.key("mime"_L1);
    json.textOrNull(image.mimeFormat(dialect));
    json.key("suffix"_L1);
    json.textOrNull(image.filenameSuffix(dialect));
    json.key("description"_L1);
    json.textOrNull(image.description);
    json.key("pictureType"_L1);
    json.number(image.pictureType);
    json.key("textEncoding"_L1);
    json.number(image.textEncoding);
    json.key("bytes"_L1);
    json.number(image.data.size());
    json.key("sha1"_L1);
    json.textOrNull(image.data.isEmpty() ? QString() : sha1Hex(image.data));
}

/// Writes the keys that a frame's kind of content has.
struct ContentAsJson {
    JsonWriter &json;
    const ID3Dialect &dialect;

    void operator()(const QStringList &strings) const
    {
        writeKind(u"text");
        json.key("strings"_L1);
        json.beginArray();
        for (const QString &string : strings)
            json.text(string);
        json.endArray();
    }
    void operator()(const TextBlock &lyrics) const
    {
        writeKind(u"lyrics");
        json.key("text"_L1);
        json.textOrNull(lyrics.text);
        json.key("desc"_L1);
        json.textOrNull(lyrics.desc);
        json.key("lang"_L1);
        json.textOrNull(lyrics.lang);
    }
    void operator()(const ID3Image &image) const
    {
        writeKind(u"image");
        writeImageKeys(json, image, dialect);
    }
    void operator()(const QByteArray &raw) const
    {
        writeKind(u"raw");
        json.key("hex"_L1);
        json.text(QString::fromLatin1(raw.toHex()));
    }

private:
    void writeKind(QStringView kind) const
    {
        json.key("kind"_L1);
        json.text(kind);
    }
};

void writeFrames(JsonWriter &json, const FrameStore &frames, const ID3Dialect &dialect)
{
    json.key("frames"_L1);
    json.beginArray();
    for (const FrameStore::Entry &entry : frames.entries()) {
        json.beginObject();
        json.key("id"_L1);
        json.text(entry.id);
        std::visit(ContentAsJson{json, dialect}, entry.content);
        json.endObject();
    }
    json.endArray();
}

void writeImages(JsonWriter &json, const QList<ID3Image> &images, const ID3Dialect &dialect)
{
    json.key("images"_L1);
    json.beginArray();
    for (const ID3Image &image : images) {
        json.beginObject();
        writeImageKeys(json, image, dialect);
        json.endObject();
    }
    json.endArray();
}

QString typeName(const AudioInfoTag &tag)
{
    return tag.type() == TagType::AAC ? QStringLiteral("aac") : QStringLiteral("mp3");
}

struct NamedText {
    QLatin1String key;
    std::optional<QString> (AudioInfoTag::*value)() const;
};

/// The texts of a tag, in the order in which they are listed.
constexpr std::array texts{
    NamedText{QLatin1String("readVersion"), &AudioInfoTag::readVersion},
    NamedText{QLatin1String("writeVersion"), &AudioInfoTag::writeVersion},
    NamedText{QLatin1String("title"), &AudioInfoTag::title},
    NamedText{QLatin1String("artist"), &AudioInfoTag::artist},
    NamedText{QLatin1String("album"), &AudioInfoTag::album},
    NamedText{QLatin1String("year"), &AudioInfoTag::year},
    NamedText{QLatin1String("track"), &AudioInfoTag::track},
    NamedText{QLatin1String("genres"), &AudioInfoTag::genres},
    NamedText{QLatin1String("lyrics"), &AudioInfoTag::lyrics},
    NamedText{QLatin1String("bpm"), &AudioInfoTag::bpm},
};

/// One line of the layout for reading; text of several lines is indented below its key.
QString textLine(QLatin1String key, QString value)
{
    value.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    value.replace(u'\r', u'\n').replace(QStringLiteral("\n"), QStringLiteral("\n%1").arg(u' ', 16));
    return QStringLiteral("  %1%2\n").arg(key, -14).arg(value);
}

QString imageLine(const ID3Image &image, const ID3Dialect &dialect)
{
    const QString description = image.description.value_or(QString());
    return QStringLiteral("%1, type %2, %3 bytes%4")
        .arg(image.mimeFormat(dialect).value_or(QStringLiteral("unknown format")))
        .arg(image.pictureType)
        .arg(image.data.size())
        .arg(description.isEmpty() ? QString() : QStringLiteral(", “%1”").arg(description));
}

/// What a frame's line says after its ID.
struct ContentAsText {
    const ID3Dialect &dialect;

    QString operator()(const QStringList &strings) const
    {
        return strings.join(QStringLiteral(" | "));
    }
    QString operator()(const TextBlock &lyrics) const
    {
        return QStringLiteral("lyrics, %1 characters").arg(lyrics.text.value_or(QString()).size());
    }
    QString operator()(const ID3Image &image) const { return imageLine(image, dialect); }
    QString operator()(const QByteArray &raw) const
    {
        return QStringLiteral("%1 bytes").arg(raw.size());
    }
};

QString framesAsText(const FrameStore &frames, const ID3Dialect &dialect)
{
    QString lines;
    for (const FrameStore::Entry &entry : frames.entries())
        lines += textLine(QLatin1String("frame"),
                          entry.id + u' ' + std::visit(ContentAsText{dialect}, entry.content));
    return lines;
}

const MP3InfoTag *tagWithFrames(const AudioInfoTag &tag, ListFrames frames)
{
    return frames == ListFrames::Yes ? dynamic_cast<const MP3InfoTag *>(&tag) : nullptr;
}

} // namespace

void writeTag(JsonWriter &json, const QString &path, const AudioInfoTag &tag, ListFrames frames,
              const ID3Dialect &dialect)
{
    json.beginObject();
    json.key("path"_L1);
    json.text(path);
    json.key("type"_L1);
    json.text(typeName(tag));
    for (const NamedText &text : texts) {
        json.key(text.key);
        json.textOrNull((tag.*text.value)());
    }
    json.key("compilation"_L1);
    json.boolean(tag.isPartOfCompilation());
    json.key("trackNumber"_L1);
    json.number(tag.trackNumber());
    json.key("numberOfTracks"_L1);
    json.number(tag.numberOfTracksOnAlbum());
    json.key("problem"_L1);
    json.boolean(tag.encounteredProblemDecoding());
    writeImages(json, tag.images(), dialect);
    if (const MP3InfoTag *mp3 = tagWithFrames(tag, frames))
        writeFrames(json, mp3->frames(), dialect);
    json.endObject();
}

void writeNoTag(JsonWriter &json, const QString &path, const QString &error)
{
    json.beginObject();
    json.key("path"_L1);
    json.text(path);
    json.key("type"_L1);
    json.null();
    for (const NamedText &text : texts) {
        json.key(text.key);
        json.null();
    }
    for (const auto flag : {"compilation"_L1, "problem"_L1}) {
        json.key(flag);
        json.boolean(false);
    }
    for (const auto count : {"trackNumber"_L1, "numberOfTracks"_L1}) {
        json.key(count);
        json.number(0);
    }
    writeImages(json, {}, {});
    json.key("error"_L1);
    json.text(error);
    json.endObject();
}

QString tagAsText(const QString &path, const AudioInfoTag &tag, ListFrames frames,
                  const ID3Dialect &dialect)
{
    QString lines = path + u'\n';
    lines += textLine(QLatin1String("type"), typeName(tag));
    for (const NamedText &text : texts)
        if (const auto value = (tag.*text.value)(); value && !value->isEmpty())
            lines += textLine(text.key, *value);
    if (tag.isPartOfCompilation())
        lines += textLine(QLatin1String("compilation"), QStringLiteral("yes"));
    for (const ID3Image &image : tag.images())
        lines += textLine(QLatin1String("image"), imageLine(image, dialect));
    if (tag.encounteredProblemDecoding())
        lines += textLine(QLatin1String("problem"), QStringLiteral("the tag holds malformed data"));
    if (const MP3InfoTag *mp3 = tagWithFrames(tag, frames))
        lines += framesAsText(mp3->frames(), dialect);
    return lines;
}
