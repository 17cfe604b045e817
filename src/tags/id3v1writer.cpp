#include "tags/id3v1writer.h"

#include "tags/audioinfotag.h"
#include "tags/fieldframes.h"
#include "tags/framebodies.h"
#include "tags/genretable.h"
#include "text/integervalue.h"

#include <algorithm>
#include <array>

namespace {

using FrameBodies::isLatin1;

constexpr qsizetype textLength = 30;
constexpr qsizetype yearLength = 4;
constexpr qsizetype commentOffset = 97;
constexpr qsizetype commentLength = 28;
constexpr int noGenre = 255;

QString textOf(const FrameStore &frames, const FieldFrames &field)
{
    return frames.firstStringForFrameID(field.v24, field.v22).value_or(QString());
}

bool fits(const QString &text)
{
    return text.size() <= textLength && isLatin1(text);
}

int leadingNumber(const QString &text)
{
    const bool startsWithDigit = !text.isEmpty() && text[0] >= u'0' && text[0] <= u'9';
    return startsWithDigit ? integerValue(text) : 0;
}

bool hasComment(const FrameStore &frames)
{
    return frames.firstObjectForFrameID(u"COMM", u"COM") != nullptr;
}

/// Whether the frame is one of those that the tag has a place for, holding one text.
bool hasPlace(const FrameStore::Entry &entry)
{
    constexpr std::array held{Fields::title, Fields::artist, Fields::album,
                              Fields::year,  Fields::track,  Fields::genres};
    const auto isFrame = [&entry](const FieldFrames &field) { return entry.id == field.v24; };
    const auto *strings = std::get_if<QStringList>(&entry.content);
    return strings && strings->size() == 1 && std::any_of(held.begin(), held.end(), isFrame);
}

bool everythingHasPlace(const FrameStore &frames)
{
    const QString track = textOf(frames, Fields::track);
    const int number = leadingNumber(track);
    const bool trackFits =
        track.isEmpty() || (number >= 1 && number <= 255 && track == QString::number(number));
    return trackFits && isLatin1(textOf(frames, Fields::year))
        && std::all_of(frames.entries().begin(), frames.entries().end(), hasPlace);
}

/// 255 when the first of the genres is not in the table.
int genreNumber(const FrameStore &frames)
{
    const int index = GenreTable::indexOfGenre(textOf(frames, Fields::genres).section(u'/', 0, 0));
    return index < noGenre ? index : noGenre;
}

void put(QByteArray &tag, qsizetype offset, qsizetype length, const QString &text)
{
    const QByteArray bytes = text.toLatin1().left(length);
    tag.replace(offset, bytes.size(), bytes);
}

} // namespace

bool ID3Writer::canWriteID3v11WithoutLoss(const FrameStore &frames, const ID3Dialect &dialect)
{
    const bool fieldsFit = frames.numberOfImages() == 0 && fits(textOf(frames, Fields::title))
        && fits(textOf(frames, Fields::artist)) && fits(textOf(frames, Fields::album))
        && textOf(frames, Fields::year).size() <= yearLength && !hasComment(frames)
        && !textOf(frames, Fields::track).contains(u'/');
    if (!fieldsFit || (dialect.losesNothing && !everythingHasPlace(frames)))
        return false;
    const QString genres = textOf(frames, Fields::genres);
    return genres.isEmpty() || GenreTable::indexOfGenre(genres) != AudioInfoTag::notFound;
}

QByteArray ID3Writer::dataForID3v11(const FrameStore &frames, const ID3Dialect &dialect,
                                    const QByteArray &previous)
{
    QByteArray tag(128, '\0');
    const QString year = textOf(frames, Fields::year);
    put(tag, 0, 3, QStringLiteral("TAG"));
    put(tag, 3, textLength, textOf(frames, Fields::title));
    put(tag, 33, textLength, textOf(frames, Fields::artist));
    put(tag, 63, textLength, textOf(frames, Fields::album));
    put(tag, 93, yearLength, year);
    if (dialect.losesNothing && previous.size() == tag.size())
        tag.replace(commentOffset, commentLength, previous.mid(commentOffset, commentLength));
    // Asking for the year is kept: other programs' copies of such tags compare equal to ours.
    if (!year.isEmpty() || dialect.writesID3v1TrackAlways)
        tag[126] = static_cast<char>(leadingNumber(textOf(frames, Fields::track)) & 0xFF);
    tag[127] = static_cast<char>(genreNumber(frames));
    return tag;
}
