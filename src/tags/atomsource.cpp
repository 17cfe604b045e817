#include "tags/atomsource.h"

#include "base/bytes.h"
#include "base/inplacefile.h"
#include "tags/songbytes.h"

#include <QCoreApplication>

#include <utility>

namespace {
constexpr qint64 windowLength = 4096;
}

AtomSource::AtomSource(Read read, qint64 length, QString description)
    : mRead(std::move(read))
    , mLength(length)
    , mDescription(std::move(description))
{
}

AtomSource AtomSource::ofSong(const SongBytes &song, qint64 start)
{
    return AtomSource(
        [&song, start](qint64 offset, qint64 length) { return song.read(start + offset, length); },
        song.size() - start, song.path());
}

AtomSource AtomSource::ofFile(const InPlaceFile &file, qint64 start, const QString &path)
{
    return AtomSource(
        [&file, start](qint64 offset, qint64 length) {
            return file.read(start + offset, length).value_or(QByteArray());
        },
        file.size() - start, path);
}

AtomSource AtomSource::ofBytes(QByteArrayView bytes)
{
    return AtomSource([bytes](qint64 offset,
                              qint64 length) { return bytes.sliced(offset, length).toByteArray(); },
                      bytes.size(), QStringLiteral("%1 bytes").arg(bytes.size()));
}

void AtomSource::requireInside(qint64 offset, qint64 length) const
{
    if (offset < 0 || length < 0 || offset > mLength - length)
        throw MalformedData(QStringLiteral("bad size atom"));
}

QByteArray AtomSource::read(qint64 offset, qint64 length) const
{
    requireInside(offset, length);
    if (length == 0)
        return {};
    return length < windowLength ? view(offset, length).toByteArray() : bytesAt(offset, length);
}

QByteArrayView AtomSource::view(qint64 offset, qint64 length) const
{
    requireInside(offset, length);
    if (offset < mWindowStart || offset + length > mWindowStart + mWindow.size()) {
        mWindow = bytesAt(offset, qMax(length, qMin(windowLength, mLength - offset)));
        mWindowStart = offset;
    }
    return QByteArrayView(mWindow).sliced(offset - mWindowStart, length);
}

QByteArray AtomSource::bytesAt(qint64 offset, qint64 length) const
{
    QByteArray bytes = mRead(offset, length);
    if (bytes.size() < length)
        throw MalformedData(qtTrId("ErrorCannotReadFile"));
    return bytes;
}
