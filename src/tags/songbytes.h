#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <memory>

/// A song file opened for reading: what the sniffer and the readers of a tag share, so that one
/// song costs one open descriptor and a handful of reads.
class SongBytes {
public:
    /// Nothing when the file cannot be opened or is no regular file.
    [[nodiscard]] static std::unique_ptr<SongBytes> open(const QString &path);

    SongBytes(const SongBytes &) = delete;
    SongBytes &operator=(const SongBytes &) = delete;
    ~SongBytes();

    [[nodiscard]] const QString &path() const { return mPath; }
    /// Bytes at the time of opening.
    [[nodiscard]] qint64 size() const { return mSize; }

    /// At most `length` bytes from `offset`, fewer at the end of the file (or when it cannot be
    /// read). The file up to their end is then kept, and asking again for it costs nothing.
    /// Valid until the next call of view() or read().
    [[nodiscard]] QByteArrayView view(qint64 offset, qint64 length) const;

    /// The same as a copy, and without keeping what lies before it.
    [[nodiscard]] QByteArray read(qint64 offset, qint64 length) const;

    /// Whether view() of these bytes costs no further reading.
    [[nodiscard]] bool isAtHand(qint64 offset, qint64 length) const
    {
        return offset + length <= mHead.size();
    }

private:
    class File;
    SongBytes(QString path, std::unique_ptr<File> file);
    void keepUpTo(qint64 end) const;

    QString mPath;
    std::unique_ptr<File> mFile;
    qint64 mSize;
    mutable QByteArray mHead;
};
