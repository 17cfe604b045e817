#include "cli/tagsummary.h"

#include "cli/sha1.h"
#include "tags/mp3infotag.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

QJsonValue textOrNull(const std::optional<QString> &text)
{
    return text && !text->isEmpty() ? QJsonValue(*text) : QJsonValue();
}

QJsonObject imageAsJson(const ID3Image &image, const ID3Dialect &dialect)
{
    return {
        {u"mime"_s, textOrNull(image.mimeFormat(dialect))},
        {u"suffix"_s, textOrNull(image.filenameSuffix(dialect))},
        {u"description"_s, textOrNull(image.description)},
        {u"pictureType"_s, image.pictureType},
        {u"textEncoding"_s, image.textEncoding},
        {u"bytes"_s, image.data.size()},
        {u"sha1"_s, image.data.isEmpty() ? QJsonValue() : QJsonValue(sha1Hex(image.data))},
    };
}

/// A frame's content as the keys that its kind has.
struct ContentAsJson {
    const ID3Dialect &dialect;

    QJsonObject operator()(const QStringList &strings) const
    {
        return {{u"kind"_s, u"text"_s}, {u"strings"_s, QJsonArray::fromStringList(strings)}};
    }
    QJsonObject operator()(const TextBlock &lyrics) const
    {
        return {{u"kind"_s, u"lyrics"_s},
                {u"text"_s, textOrNull(lyrics.text)},
                {u"desc"_s, textOrNull(lyrics.desc)},
                {u"lang"_s, textOrNull(lyrics.lang)}};
    }
    QJsonObject operator()(const ID3Image &image) const
    {
        QJsonObject object = imageAsJson(image, dialect);
        object.insert(u"kind", u"image"_s);
        return object;
    }
    QJsonObject operator()(const QByteArray &raw) const
    {
        return {{u"kind"_s, u"raw"_s}, {u"hex"_s, QString::fromLatin1(raw.toHex())}};
    }
};

QJsonArray framesAsJson(const FrameStore &frames, const ID3Dialect &dialect)
{
    QJsonArray array;
    for (const FrameStore::Entry &entry : frames.entries()) {
        QJsonObject object = std::visit(ContentAsJson{dialect}, entry.content);
        object.insert(u"id", entry.id);
        array.append(object);
    }
    return array;
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

QJsonObject tagAsJson(const QString &path, const AudioInfoTag &tag, ListFrames frames,
                      const ID3Dialect &dialect)
{
    QJsonObject object{
        {u"path"_s, path},
        {u"type"_s, typeName(tag)},
        {u"compilation"_s, tag.isPartOfCompilation()},
        {u"trackNumber"_s, tag.trackNumber()},
        {u"numberOfTracks"_s, tag.numberOfTracksOnAlbum()},
        {u"problem"_s, tag.encounteredProblemDecoding()},
    };
    for (const NamedText &text : texts)
        object.insert(text.key, textOrNull((tag.*text.value)()));
    QJsonArray images;
    for (const ID3Image &image : tag.images())
        images.append(imageAsJson(image, dialect));
    object.insert(u"images", images);
    if (const MP3InfoTag *mp3 = tagWithFrames(tag, frames))
        object.insert(u"frames", framesAsJson(mp3->frames(), dialect));
    return object;
}

QJsonObject noTagAsJson(const QString &path, const QString &error)
{
    QJsonObject object{{u"path"_s, path},           {u"type"_s, QJsonValue()},
                       {u"compilation"_s, false},   {u"trackNumber"_s, 0},
                       {u"numberOfTracks"_s, 0},    {u"problem"_s, false},
                       {u"images"_s, QJsonArray()}, {u"error"_s, error}};
    for (const NamedText &text : texts)
        object.insert(text.key, QJsonValue());
    return object;
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
