#include "tags/atom.h"

#include "base/bytes.h"
#include "tags/atomsource.h"

#include <QStringDecoder>

#include <algorithm>
#include <numeric>
#include <utility>

namespace {
constexpr AtomName freeAtom = atomName("free");
constexpr AtomName metaAtom = atomName("meta");
constexpr qint64 textStart = 8; ///< behind the type and the locale of a 'data' atom
} // namespace

std::unique_ptr<Atom> Atom::atomWithName(AtomName name)
{
    return std::unique_ptr<Atom>(new Atom(name));
}

void Atom::setName(AtomName name)
{
    mName = name;
    markChanged();
}

const Atom &Atom::root() const
{
    const Atom *atom = this;
    while (atom->mParent)
        atom = atom->mParent;
    return *atom;
}

Atom &Atom::root()
{
    return const_cast<Atom &>(std::as_const(*this).root());
}

void Atom::markChanged()
{
    for (Atom *atom = this; atom && !atom->mIsChanged; atom = atom->mParent)
        atom->mIsChanged = true;
}

quint64 Atom::lengthOfOwnBytes() const
{
    return static_cast<quint64>(mFile ? mFileRange.length : mData.size());
}

QByteArray Atom::dataIn(qint64 from, qint64 length) const
{
    const auto own = static_cast<qint64>(lengthOfOwnBytes());
    length = qBound<qint64>(0, length, own + mZeros - from);
    const qint64 ownLength = qBound<qint64>(0, length, own - from);
    QByteArray bytes;
    if (ownLength > 0)
        bytes = mFile ? mFile->read(mFileRange.location + from, ownLength)
                      : mData.sliced(from, ownLength);
    return bytes.append(length - ownLength, '\0');
}

std::optional<QByteArray> Atom::data() const
{
    if (mIsContainer)
        return std::nullopt;
    return dataIn(0, static_cast<qint64>(size()));
}

quint64 Atom::size() const
{
    if (!mIsContainer)
        return lengthOfOwnBytes() + static_cast<quint64>(mZeros);
    return std::accumulate(mContents.begin(), mContents.end(), quint64{0},
                           [](quint64 sum, const auto &child) {
                               return sum + AtomHeader::plainLength + child->size();
                           });
}

qint64 Atom::extendedSizeLength() const
{
    const bool hasOne = !mIsContainer && mForm == AtomSizeForm::Extended;
    return hasOne ? AtomHeader::extendedLength - AtomHeader::plainLength : 0;
}

std::optional<QString> Atom::stringValue() const
{
    const qint64 start = textStart + extendedSizeLength();
    if (mIsContainer || size() <= static_cast<quint64>(start))
        return std::nullopt;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(dataIn(start, static_cast<qint64>(size())));
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

quint32 Atom::hash() const
{
    const QByteArray bytes = data().value_or(QByteArray());
    quint32 sum = 0;
    for (qsizetype i = 0; i < bytes.size(); ++i)
        sum += static_cast<quint32>(static_cast<unsigned char>(bytes[i])) * static_cast<quint32>(i);
    return sum;
}

qint64 Atom::indexInParent() const
{
    const Contents &siblings = mParent->mContents;
    return std::find_if(siblings.begin(), siblings.end(),
                        [this](const auto &atom) { return atom.get() == this; })
        - siblings.begin();
}

Atom *Atom::nextSibling() const
{
    if (!mParent)
        return nullptr;
    const auto next = static_cast<size_t>(indexInParent()) + 1;
    return next < mParent->mContents.size() ? mParent->mContents[next].get() : nullptr;
}

Atom *Atom::firstChild(AtomName name) const
{
    const auto found = std::find_if(mContents.begin(), mContents.end(),
                                    [name](const auto &child) { return child->mName == name; });
    return found == mContents.end() ? nullptr : found->get();
}

QString Atom::shortDescription() const
{
    const QString head =
        QStringLiteral("<Atom 0x%1 '%2': ")
            .arg(QString::number(reinterpret_cast<quintptr>(this), 16), nameString());
    if (!mIsContainer)
        return head + QStringLiteral("%1 bytes (%2 hash)>").arg(size()).arg(hash());
    return head
        + QStringLiteral("contains %1 %2>")
              .arg(QString::number(mContents.size()),
                   mContents.size() == 1 ? QStringLiteral("item") : QStringLiteral("items"));
}

QString Atom::description(int indentLevel) const
{
    constexpr qsizetype indent = 4;
    QString text = QString(indentLevel * indent, u' ') + shortDescription();
    for (const auto &child : mContents)
        text += u'\n' + child->description(indentLevel + 1);
    return text;
}

void Atom::dropBody()
{
    mContents.clear();
    mTail.clear();
    mData.clear();
    mFile = nullptr;
    mFileRange = {};
    mZeros = 0;
    mTruncatedSize = 0;
    mForm = AtomSizeForm::Plain;
}

void Atom::setData(const QByteArray &data)
{
    const auto oldSize = static_cast<qint64>(size());
    dropBody();
    mIsContainer = false;
    mData = data;
    markChanged();
    if (autoSizing() && data.size() != oldSize)
        resizeSiblingFreeBy(oldSize - data.size());
}

void Atom::setStringValue(const QString &text)
{
    setData(QByteArray("\0\0\0\1\0\0\0\0", textStart) + text.toUtf8());
}

bool Atom::setSize(quint64 size)
{
    if (mIsContainer)
        return false;
    const quint64 oldSize = this->size();
    const quint64 own = lengthOfOwnBytes();
    if (size >= own) {
        mZeros = static_cast<qint64>(size - own);
    } else {
        mZeros = 0;
        mFileRange.length = mFile ? static_cast<qint64>(size) : 0;
        mData.truncate(static_cast<qsizetype>(size));
    }
    mTruncatedSize = 0;
    mForm = AtomSizeForm::Plain;
    markChanged();
    if (autoSizing() && size != oldSize)
        resizeSiblingFreeBy(static_cast<qint64>(oldSize - size));
    return true;
}

void Atom::becomeContainer()
{
    if (mIsContainer)
        return;
    dropBody();
    mIsContainer = true;
    mHasVersion = mName == metaAtom;
    markChanged();
}

Atom *Atom::addChild(std::unique_ptr<Atom> atom)
{
    atom->mParent = this;
    markChanged();
    const auto end = std::find_if(mContents.begin(), mContents.end(), [](const auto &child) {
        return child->mForm == AtomSizeForm::Zero;
    });
    return mContents.insert(end, std::move(atom))->get();
}

Atom *Atom::addSibling(std::unique_ptr<Atom> atom)
{
    if (!mParent)
        return nullptr;
    Atom *added = mParent->addChild(std::move(atom));
    if (autoSizing())
        added->resizeSiblingFreeBy(-AtomHeader::plainLength - static_cast<qint64>(added->size()));
    return added;
}

bool Atom::removeFromContainer()
{
    if (!mParent)
        return false;
    if (autoSizing())
        resizeSiblingFreeBy(static_cast<qint64>(size()) + AtomHeader::plainLength);
    mParent->markChanged();
    mParent->mContents.erase(mParent->mContents.begin() + indexInParent());
    return true;
}

qint64 Atom::dropChildren(AtomName name, int keep)
{
    qint64 dropped = 0;
    const auto isSurplus = [&](const std::unique_ptr<Atom> &child) {
        if (child->mName != name || keep-- > 0)
            return false;
        dropped += AtomHeader::plainLength + static_cast<qint64>(child->size());
        return true;
    };
    Contents kept;
    for (auto &child : mContents)
        if (!isSurplus(child))
            kept.push_back(std::move(child));
    mContents = std::move(kept);
    if (dropped > 0)
        markChanged();
    return dropped;
}

Atom *Atom::siblingFreeFor(qint64 delta) const
{
    const auto canTakeUp = [delta](const std::unique_ptr<Atom> &atom) {
        return atom->mName == freeAtom && !atom->mIsContainer
            && (delta >= 0 || atom->size() > static_cast<quint64>(-delta));
    };
    const Contents &siblings = mParent->mContents;
    const auto found =
        std::find_if(siblings.begin() + indexInParent() + 1, siblings.end(), canTakeUp);
    return found == siblings.end() ? nullptr : found->get();
}

bool Atom::resizeSiblingFreeBy(qint64 delta)
{
    if (!mParent)
        return false;
    Atom *freeSpace = siblingFreeFor(delta);
    if (!freeSpace)
        return mParent->resizeSiblingFreeBy(delta);
    const bool wasAutoSizing = autoSizing();
    setAutoSizing(false);
    freeSpace->setSize(freeSpace->size() + static_cast<quint64>(delta));
    setAutoSizing(wasAutoSizing);
    return true;
}
