#include "support/id3bytes.h"

#include "base/bytes.h"
#include "tags/songbytes.h"
#include "tags/synchsafe.h"

namespace {

QByteArray safeSize(const QByteArray &bytes)
{
    return number(SynchSafe::synchSafe(static_cast<quint32>(bytes.size())));
}

QString shown(const FrameContent &content)
{
    if (const auto *strings = std::get_if<QStringList>(&content))
        return strings->join(u'+');
    if (const auto *block = std::get_if<TextBlock>(&content))
        return block->text.value_or(QString());
    if (const auto *image = std::get_if<ID3Image>(&content))
        return QStringLiteral("%1 bytes").arg(image->data.size());
    return u'#' + QString::fromLatin1(std::get<QByteArray>(content).left(12).toHex());
}

} // namespace

QByteArray number(quint32 value, int bytes)
{
    ByteWriter writer;
    writer.u32(value);
    return writer.data().last(bytes);
}

QByteArray id3Tag(int major, const QByteArray &frames, int flags)
{
    return "ID3" + QByteArray(1, char(major)) + '\0' + char(flags) + safeSize(frames) + frames;
}

QByteArray frame(const char *id, const QByteArray &body, int flags)
{
    return id + number(quint32(body.size())) + number(quint32(flags), 2) + body;
}

QByteArray safeFrame(const char *id, const QByteArray &body, int flags)
{
    return id + safeSize(body) + number(quint32(flags), 2) + body;
}

QByteArray frame22(const char *id, const QByteArray &body)
{
    return id + number(quint32(body.size()), 3) + body;
}

QString shown(const FrameStore &frames)
{
    QStringList lines;
    for (const auto &[id, content] : frames.entries())
        lines += QString(id).replace(QChar::Null, u'?') + u'=' + shown(content);
    return lines.join(u' ');
}

std::unique_ptr<MP3InfoTag> tagOfFile(const QString &path, const ReadOptions &options)
{
    const auto song = SongBytes::open(path);
    return song ? MP3InfoTag::tagWithBytes(*song, options) : nullptr;
}
