#include "tags/framestore.h"

#include <algorithm>
#include <utility>

namespace {

/// The first entry called `id` that is understood; failing that, the first one called so: where
/// nothing is dropped, a frame that could not be understood may stand before one that was.
const FrameContent *firstContent(const std::vector<FrameStore::Entry> &entries, QStringView id)
{
    const FrameContent *raw = nullptr;
    for (const FrameStore::Entry &entry : entries) {
        if (entry.id != id)
            continue;
        if (!std::holds_alternative<QByteArray>(entry.content))
            return &entry.content;
        if (!raw)
            raw = &entry.content;
    }
    return raw;
}

} // namespace

const FrameContent *FrameStore::firstObjectForFrameID(QStringView id, QStringView orID) const
{
    const FrameContent *content = firstContent(mEntries, id);
    return content ? content : firstContent(mEntries, orID);
}

std::optional<QString> FrameStore::firstStringForFrameID(QStringView id, QStringView orID) const
{
    const FrameContent *content = firstObjectForFrameID(id, orID);
    const auto *strings = content ? std::get_if<QStringList>(content) : nullptr;
    if (!strings || strings->isEmpty())
        return {};
    return strings->front();
}

QString FrameStore::textForLog(QStringView id, QStringView orID) const
{
    constexpr qsizetype longest = 500;
    return firstStringForFrameID(id, orID).value_or(QStringLiteral("(null)")).left(longest);
}

void FrameStore::setObject(FrameContent object, const QString &forFrameID)
{
    const auto called = [&](const Entry &entry) { return entry.id == forFrameID; };
    const auto found = std::find_if(mEntries.begin(), mEntries.end(), called);
    if (found == mEntries.end())
        addObject(std::move(object), forFrameID);
    else
        found->content = std::move(object);
}

void FrameStore::setString(const QString &string, const QString &forFrameID)
{
    setObject(QStringList{string}, forFrameID);
}

void FrameStore::addObject(FrameContent object, const QString &forFrameID)
{
    mEntries.push_back({forFrameID, std::move(object)});
}

void FrameStore::removeAllObjectsForFrameID(QStringView id)
{
    std::erase_if(mEntries, [id](const Entry &entry) { return entry.id == id; });
    mRemoved.append(id.toString());
}

QList<ID3Image> FrameStore::images() const
{
    QList<ID3Image> images;
    for (const Entry &entry : mEntries) {
        if (const auto *image = std::get_if<ID3Image>(&entry.content))
            images.append(*image);
    }
    return images;
}

int FrameStore::numberOfImages() const
{
    return static_cast<int>(std::count_if(mEntries.begin(), mEntries.end(), [](const Entry &entry) {
        return std::holds_alternative<ID3Image>(entry.content);
    }));
}

void FrameStore::removeImageAtIndex(int index)
{
    int at = -1;
    for (auto entry = mEntries.begin(); entry != mEntries.end(); ++entry) {
        if (std::holds_alternative<ID3Image>(entry->content) && ++at == index) {
            mEntries.erase(entry);
            return;
        }
    }
    Q_ASSERT_X(false, "removeImageAtIndex", "no image at this index");
}
