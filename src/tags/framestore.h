#pragma once

#include "tags/id3image.h"
#include "tags/textblock.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <variant>
#include <vector>

/// What a frame holds: the strings of a recognised text frame, lyrics, a picture, or else raw
/// bytes (for v2.3 and v2.4 the two flag bytes and the body, for v2.2 the body).
using FrameContent = std::variant<QStringList, TextBlock, ID3Image, QByteArray>;

/// The ID under which pictures are stored, whatever frame they came from.
inline const QString audioImageFrame = QStringLiteral("[image]");

/// The frames of a tag, in the order of the file. One ID may occur several times.
class FrameStore {
public:
    struct Entry {
        QString id;
        FrameContent content;

        bool operator==(const Entry &) const = default;
    };

    [[nodiscard]] const std::vector<Entry> &entries() const { return mEntries; }
    [[nodiscard]] bool isEmpty() const { return mEntries.empty(); }
    bool operator==(const FrameStore &) const = default;

    /// The content of the first entry called `id`; failing that, of the first called `orID`.
    [[nodiscard]] const FrameContent *firstObjectForFrameID(QStringView id, QStringView orID) const;

    /// The first string of that content when it is a list of strings that is not empty.
    [[nodiscard]] std::optional<QString> firstStringForFrameID(QStringView id,
                                                               QStringView orID) const;

    /// The same for a line of the log: "(null)" when there is none, and cut, since a damaged tag
    /// may ask for many lines with a title of megabytes.
    [[nodiscard]] QString textForLog(QStringView id, QStringView orID) const;

    /// Replaces the content of the first entry called `id`, or appends one.
    void setObject(FrameContent object, const QString &forFrameID);
    void setString(const QString &string, const QString &forFrameID);
    void addObject(FrameContent object, const QString &forFrameID);
    void removeAllObjectsForFrameID(QStringView id);

    /// Whether a field was emptied since the tag was read: it is then absent on purpose.
    [[nodiscard]] bool wasRemoved(QStringView id) const { return mRemoved.contains(id); }

    [[nodiscard]] QList<ID3Image> images() const;
    [[nodiscard]] int numberOfImages() const;

    /// Removes the picture at that position of `images()`, which must be there.
    void removeImageAtIndex(int index);

private:
    std::vector<Entry> mEntries;
    QStringList mRemoved; ///< IDs
};
