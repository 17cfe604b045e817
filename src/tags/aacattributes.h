#pragma once

#include "tags/atomname.h"
#include "tags/id3image.h"
#include "tags/tagtext.h"

#include <QList>
#include <QString>

#include <algorithm>
#include <array>
#include <bitset>
#include <optional>

/// The items of a metadata list that hold plain text, in the order in which they are written.
struct AACTextItem {
    TagText text;
    AtomName name;
};
inline constexpr std::array aacTextItems = {
    AACTextItem{TagText::Title, atomName("\251nam")},
    AACTextItem{TagText::Artist, atomName("\251ART")},
    AACTextItem{TagText::Album, atomName("\251alb")},
    AACTextItem{TagText::Year, atomName("\251day")},
    AACTextItem{TagText::Genres, atomName("\251gen")},
    AACTextItem{TagText::Lyrics, atomName("\251lyr")},
};

/// The items that hold other values, each in a 'data' atom of four bytes type and flags, four
/// bytes locale, and the value.
namespace AACItem {
constexpr AtomName data = atomName("data");
constexpr AtomName genreNumber = atomName("gnre");
constexpr AtomName track = atomName("trkn");
constexpr AtomName tempo = atomName("tmpo");
constexpr AtomName compilation = atomName("cpil");
constexpr AtomName cover = atomName("covr");

constexpr qint64 valueStart = 8;
/// Values larger than this are neither read nor changed.
constexpr qint64 largestValue = 64 << 20;
} // namespace AACItem

/// What an AAC tag holds, and which of it was set since it was read.
struct AACAttributes {
    std::array<std::optional<QString>, tagTextCount> texts; ///< by TagText
    bool compilation = false;
    QList<ID3Image> images;
    /// Whether there is a title item, be it one that holds no text that we can read.
    bool hasTitleItem = false;
    /// Whether some item holds no value that we can read.
    bool hasUnreadItem = false;

    std::bitset<tagTextCount> textsSet;
    bool compilationSet = false;
    bool imagesSet = false;

    [[nodiscard]] const std::optional<QString> &text(TagText which) const
    {
        return texts.at(static_cast<size_t>(which));
    }
    /// Whether nothing is held that a file would have to have an item for.
    [[nodiscard]] bool isEmpty() const
    {
        return !compilation && images.isEmpty()
            && std::none_of(texts.begin(), texts.end(),
                            [](const auto &held) { return bool(held); });
    }
    [[nodiscard]] bool isSet(TagText which) const { return textsSet[static_cast<size_t>(which)]; }
};
