#pragma once

#include "app/tagedit.h"

#include <QList>

#include <array>

/// Tags that are copied from songs and pasted into others.
namespace TagClipboard {

inline const QString mimeType = QStringLiteral("application/x-tagwright-tags");

/// More songs, or pictures of more bytes in all, are not copied at once.
inline constexpr std::size_t mostSongs = 1000;
inline constexpr qint64 mostPictureBytes = qint64(128) * 1024 * 1024;

/// The tags of songs, in their order.
using Tags = QList<TagValues>;

struct Copied {
    Tags tags;
    QString reason; ///< why there are none, one line for the user
};

/// Reads the songs' files; used on any thread.
[[nodiscard]] Copied copiedFrom(const QStringList &paths, const ReadOptions &options);

/// CBOR: what decoded() reads. Pictures that songs have in common are in it once.
[[nodiscard]] QByteArray encoded(const Tags &tags);
/// Nothing for what is not of our making, as the bytes may come from any program.
[[nodiscard]] std::optional<Tags> decoded(const QByteArray &bytes);
/// For other programs: a line for each field.
[[nodiscard]] QString plainText(const Tags &tags);

/// What can be pasted by itself.
struct Field {
    const char *textID;
    std::optional<TagText> text{};
    enum class Kind { Text, Compilation, Artwork } kind = Kind::Text;

    /// Whether the tag has something in this field.
    [[nodiscard]] bool isIn(const TagValues &values) const;
    /// Whether it belongs to one song and not to its album.
    [[nodiscard]] bool isOfOneSong() const;
};
[[nodiscard]] const std::array<Field, 10> &fields();

/// The values of the chosen fields alone.
[[nodiscard]] TagValues chosen(const TagValues &values, const QList<Field> &fields);

/// One tag goes into all songs; several go into as many songs, in order.
[[nodiscard]] bool canPaste(const Tags &tags, const SongList &songs);
[[nodiscard]] TagChange pasting(const Tags &tags, const SongList &songs,
                                const QList<Field> &fields);

} // namespace TagClipboard
