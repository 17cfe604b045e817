#pragma once

#include "tags/atomheader.h"
#include "tags/byterange.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class AtomSource;
class FileContents;

/// One box of an MP4 file: a container of further atoms, or a leaf that holds bytes. A tree of
/// them is read without the bytes of its leaves, changed in memory, and flattened again. What
/// was not changed flattens to the bytes that it was read from.
class Atom {
public:
    /// Deeper nesting is no song but an attack.
    static constexpr int maxNesting = 64;
    /// So are more atoms: each takes some 200 bytes of memory.
    static constexpr int maxAtoms = 200'000;

    using Contents = std::vector<std::unique_ptr<Atom>>;
    enum class Create { No, Yes };

    /// A new leaf without bytes.
    static std::unique_ptr<Atom> atomWithName(AtomName name);

    /// The tree of a whole file: a container named 'FILE'. The source must outlive it. Throws
    /// MalformedData ("bad size atom" and the like). Stands in atomreading.cpp.
    static std::unique_ptr<Atom> atomContainerFromFile(const AtomSource &source);
    /// The same for a part of it.
    static std::unique_ptr<Atom> atomContainerFromFile(const AtomSource &source,
                                                       const ByteRange &inRange, AtomName withName);

    Atom(const Atom &) = delete;
    Atom &operator=(const Atom &) = delete;
    ~Atom() = default;

    [[nodiscard]] AtomName name() const { return mName; }
    void setName(AtomName name);
    [[nodiscard]] QString nameString() const { return textOfAtomName(mName); }
    [[nodiscard]] bool isContainer() const { return mIsContainer; }
    [[nodiscard]] const Contents &contents() const { return mContents; }
    [[nodiscard]] Atom *parent() const { return mParent; }
    /// The bytes of the body of a leaf that are its 64-bit size: 8, or 0 for other atoms.
    [[nodiscard]] qint64 extendedSizeLength() const;
    /// Of the body in the file; (0, 0) when it is not there.
    [[nodiscard]] ByteRange fileDataRange() const { return mFileRange; }

    /// The body of a leaf, read if need be. Throws MalformedData when it cannot be read. Nothing
    /// for a container.
    [[nodiscard]] std::optional<QByteArray> data() const;
    /// At most `length` bytes of the body of a leaf, from `from` on.
    [[nodiscard]] QByteArray dataIn(qint64 from, qint64 length) const;

    /// Bytes of the body, headers of children included. Neither the four bytes of version and
    /// flags of a 'meta' child count, nor anything but children (kept: room in 'free' atoms has
    /// always been reckoned so).
    [[nodiscard]] quint64 size() const;

    /// The text behind the first eight bytes, which follow a 64-bit size if there is one; nothing
    /// when there is no more, and for text that is not UTF-8.
    [[nodiscard]] std::optional<QString> stringValue() const;

    /// The sum of each byte times its index.
    [[nodiscard]] quint32 hash() const;

    [[nodiscard]] Atom *nextSibling() const;
    /// The first child of that name; null without one.
    [[nodiscard]] Atom *firstChild(AtomName name) const;

    /// One line for the log.
    [[nodiscard]] QString shortDescription() const;
    /// The whole tree, a line each.
    [[nodiscard]] QString description(int indentLevel = 0) const;

    /// Whether edits keep the size of the whole tree by growing or shrinking a 'free' atom: a
    /// property of the tree, kept at its root.
    [[nodiscard]] bool autoSizing() const { return root().mAutoSizing; }
    void setAutoSizing(bool autoSizing) { root().mAutoSizing = autoSizing; }

    void setData(const QByteArray &data);
    /// As text of type 1 (UTF-8) without a locale.
    void setStringValue(const QString &text);
    /// Cuts the body, or lengthens it by zero bytes. False for a container.
    bool setSize(quint64 size);
    void becomeContainer();

    /// The atom as the last child, without regard to autoSizing. Zero atoms stay behind it, since
    /// other programs take them for the end.
    Atom *addChild(std::unique_ptr<Atom> atom);
    /// The atom as the last one beside this. Null without a parent.
    Atom *addSibling(std::unique_ptr<Atom> atom);
    /// Ends this atom. False without a parent.
    bool removeFromContainer();
    /// Drops the children of that name but for the first `keep` of them, without regard to
    /// autoSizing, and tells what they took: sizes with their headers.
    qint64 dropChildren(AtomName name, int keep);

    /// Has a 'free' atom behind this one, or behind what encloses it, take up `delta` bytes. Only
    /// a 'free' atom that keeps at least a byte can shrink. False when there is none.
    bool resizeSiblingFreeBy(qint64 delta);

    /// The atom at a path such as "moov:udta:meta:ilst", whose first name is this atom's or a
    /// following sibling's, the first of each name. Null without one. Atoms made on the way are
    /// added after the last sibling. Stands in atomwalk.cpp.
    Atom *childAtAtomPath(QStringView path, Create create = Create::No);
    /// The same with an index path such as "1:1:2:1" that counts those of one name from 1.
    Atom *childAtAtomPath(QStringView path, Create create, QStringView indexed);

    // Flattening stands in atomflattening.cpp.
    /// Bytes that the atom takes in a file, header included.
    [[nodiscard]] quint64 flattenedLength() const;
    [[nodiscard]] quint64 flattenedBodyLength() const;
    /// The atom with its header. Throws MalformedData when a leaf cannot be read.
    [[nodiscard]] QByteArray flattenedData() const;
    /// The children of this container, one after the other, as new bytes and ranges kept of the
    /// file that the tree was read from.
    [[nodiscard]] FileContents flattenedContents() const;

    /// Where the whole atom stood in the file that it was read from; nowhere for a new one.
    [[nodiscard]] ByteRange originalRange() const { return mOriginal; }
    /// Whether it differs from what was read, or is new.
    [[nodiscard]] bool isChanged() const { return mIsChanged; }

private:
    friend class AtomReading;
    friend class AtomFlattening;
    explicit Atom(AtomName name)
        : mName(name)
    {
    }

    [[nodiscard]] const Atom &root() const;
    [[nodiscard]] Atom &root();
    [[nodiscard]] qint64 indexInParent() const;
    [[nodiscard]] quint64 lengthOfOwnBytes() const;
    void dropBody();
    /// This atom and what encloses it no longer equal their bytes in the file.
    void markChanged();
    [[nodiscard]] Atom *siblingFreeFor(qint64 delta) const;

    AtomName mName;
    AtomSizeForm mForm = AtomSizeForm::Plain;
    bool mIsContainer = false;
    bool mIsChanged = true; ///< whether it differs from `mOriginal`
    bool mHasVersion = false; ///< a 'meta' with four bytes of version and flags
    bool mAutoSizing = false; ///< counts at the root
    quint32 mVersionAndFlags = 0;
    /// What the header of a leaf names that reaches beyond the file's end; 0 for others.
    quint32 mTruncatedSize = 0;
    Atom *mParent = nullptr;
    Contents mContents;
    QByteArray mTail; ///< of a container: less than eight bytes at its end that are no atom
    QByteArray mData; ///< the body of a leaf that is held in memory
    const AtomSource *mFile = nullptr; ///< of a leaf read on demand, instead of `mData`
    ByteRange mFileRange;
    qint64 mZeros = 0; ///< further zero bytes at the end of a leaf's body
    ByteRange mOriginal; ///< the whole atom in the file that it was read from
};
