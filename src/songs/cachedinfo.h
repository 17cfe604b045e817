#pragma once

#include "tags/id3dialect.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

class QImage;
struct FileAttributes;

/// The summary of one song's tag, and by what it is told whether it still holds. Absent texts
/// are null.
struct CachedInfo {
    /// By which a file is told from what it was: a program that keeps the modification date of a
    /// song that it writes cannot keep the other one.
    struct Stamp {
        qint64 modified = 0; ///< nanoseconds since 1970
        qint64 changed = 0; ///< nanoseconds since 1970

        bool operator==(const Stamp &) const = default;
    };
    [[nodiscard]] static Stamp stampOf(const FileAttributes &attributes);

    Stamp modDate; ///< of the file when the summary was made
    qint64 madeAt = 0; ///< milliseconds since 1970; of two summaries the later one counts
    bool isStandardDialect = false; ///< how the tag was read
    bool isCompilation = false;
    int numberOfArtworks = 0;
    QString title;
    QString artist;
    QString album;
    QString track;
    QString year;
    QString genre;
    QString bpm;
    QString readVersion; ///< of the tag, such as "2.3.0"
    QByteArray packedLyrics; ///< UTF-8, gzip where that is shorter; null without lyrics
    QByteArray icon; ///< see packedIcon(); null without pictures

    /// Whether it is of the file as it is now, read in that dialect.
    [[nodiscard]] bool holdsFor(const FileAttributes &attributes, const ID3Dialect &dialect) const;

    [[nodiscard]] std::optional<QString> lyrics() const;
    void setLyrics(const std::optional<QString> &lyrics);

    /// Takes from its neighbour the texts that both have, so that they are held once.
    void shareWith(const CachedInfo &neighbour);
};

using CachedInfoPointer = std::shared_ptr<const CachedInfo>;

/// Icons are small: width, height (a byte each) and the pixels of QImage's premultiplied ARGB.
[[nodiscard]] QByteArray packedIcon(const QImage &image);
/// Null where the bytes are no such icon.
[[nodiscard]] QImage unpackedIcon(const QByteArray &packed);
