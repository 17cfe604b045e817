#include "tags/id3v1writer.h"

#include "tags/audioinfotag.h"
#include "tags/fieldframes.h"
#include "tags/framebodies.h"
#include "tags/genretable.h"
#include "tags/id3v1layout.h"
#include "text/integervalue.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

using FrameBodies::isLatin1;
using namespace ID3v1Layout;

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

/// A tag being made on top of another.
class TagWriter {
public:
    TagWriter(const FrameStore &frames, const QByteArray &base)
        : mFrames(frames)
        , mKeeps(!base.isEmpty())
        , mTag(mKeeps ? base : QByteArray("TAG").leftJustified(tagLength, '\0'))
    {
    }

    /// What the frames say nothing of stays, unless it was removed from them.
    [[nodiscard]] bool stays(const FieldFrames &field) const
    {
        return mKeeps && textOf(mFrames, field).isEmpty() && !mFrames.wasRemoved(field.v24)
            && !mFrames.wasRemoved(field.v22);
    }

    void put(qsizetype offset, qsizetype length, const FieldFrames &field)
    {
        const QByteArray text = textOf(mFrames, field).toLatin1();
        if (!stays(field))
            mTag.replace(offset, length, text.leftJustified(length, '\0', true));
    }

    void putNumber(qsizetype offset, int number) { mTag[offset] = static_cast<char>(number); }

    [[nodiscard]] QByteArray take() && { return std::move(mTag); }

private:
    const FrameStore &mFrames;
    bool mKeeps;
    QByteArray mTag;
};

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
    const bool keeps = dialect.losesNothing && previous.size() == tagLength;
    TagWriter tag(frames, keeps ? previous : QByteArray());
    tag.put(titleAt, textLength, Fields::title);
    tag.put(artistAt, textLength, Fields::artist);
    tag.put(albumAt, textLength, Fields::album);
    tag.put(yearAt, yearLength, Fields::year);
    // Asking for the year is kept: other programs' copies of such tags compare equal to ours.
    const bool hasTrack = dialect.writesID3v1TrackAlways || !textOf(frames, Fields::year).isEmpty();
    if (hasTrack && !tag.stays(Fields::track)) {
        tag.putNumber(zeroBeforeTrackAt, 0);
        tag.putNumber(trackAt, leadingNumber(textOf(frames, Fields::track)) & 0xFF);
    }
    if (!tag.stays(Fields::genres))
        tag.putNumber(genreAt, genreNumber(frames));
    return std::move(tag).take();
}
