#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <functional>

class InPlaceFile;
class SongBytes;

/// The bytes that atoms are read from: a buffer, or a file of which only what is asked for is
/// read. What it was made from must outlive it.
class AtomSource {
public:
    /// A file from `start` on, where its atoms begin.
    static AtomSource ofSong(const SongBytes &song, qint64 start);
    static AtomSource ofFile(const InPlaceFile &file, qint64 start, const QString &path);
    static AtomSource ofBytes(QByteArrayView bytes);

    [[nodiscard]] qint64 length() const { return mLength; }

    /// Throws MalformedData when the bytes are not there, or cannot be read.
    [[nodiscard]] QByteArray read(qint64 offset, qint64 length) const;

    /// At most 4096 bytes, as read() has them; what lies near is then at hand for the next call.
    /// Valid until that.
    [[nodiscard]] QByteArrayView view(qint64 offset, qint64 length) const;

    /// For the log.
    [[nodiscard]] const QString &description() const { return mDescription; }

private:
    using Read = std::function<QByteArray(qint64 offset, qint64 length)>;
    AtomSource(Read read, qint64 length, QString description);
    void requireInside(qint64 offset, qint64 length) const;
    [[nodiscard]] QByteArray bytesAt(qint64 offset, qint64 length) const;

    Read mRead;
    qint64 mLength;
    QString mDescription;
    mutable qint64 mWindowStart = 0;
    mutable QByteArray mWindow;
};
