#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

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
    [[nodiscard]] qint64 size() const { return mSize; }

    /// At most `length` bytes from `offset`, fewer at the end of the file (or when it cannot be
    /// read). The first stretch of the file is kept, so that asking again for it costs nothing.
    [[nodiscard]] QByteArray read(qint64 offset, qint64 length) const;

private:
    SongBytes(QString path, int descriptor, qint64 size);

    QString mPath;
    int mDescriptor;
    qint64 mSize;
    mutable QByteArray mHead;
};

/// What kind of song a file is.
namespace FileType {

enum class SongDataType { Unknown = 0, MPEGAudio = 1, MP4 = 2 };

/// By the first half megabyte of its contents.
[[nodiscard]] SongDataType songDataType(const SongBytes &song);

// By the extension of its name alone, whatever the case.
[[nodiscard]] bool claimsToBeMP3(QStringView path);
[[nodiscard]] bool claimsToBeAAC(QStringView path);
[[nodiscard]] bool claimsToBeOGG(QStringView path);

/// The length of a stray ID3v2.4 tag in front of MP4 data; 0 when there is none. A tag that
/// would reach the file's end is logged and left alone.
[[nodiscard]] qint64 strayID3v2TagLength(const SongBytes &song);

} // namespace FileType
