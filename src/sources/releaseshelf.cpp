#include "sources/releaseshelf.h"

#include "sources/releaserecord.h"
#include "text/simplifier.h"

#include <algorithm>

using HVUtility::simplifyString;

namespace {

/// More than a library's songs are gathered of at a time, and small in memory.
constexpr std::size_t mostEntries = 1000;

} // namespace

void ReleaseShelf::put(const ReleaseRecord &record, const QUrl &address)
{
    if (mAddresses.contains(address))
        return;
    Entry entry{address,
                simplifyString(record.artist),
                simplifyString(record.title),
                record.isPlainAlbum,
                {}};
    for (const ReleaseRecord::Medium &medium : record.media)
        for (const QString &title : medium.titles)
            entry.titles << simplifyString(title);
    const auto kept = std::make_shared<const Entry>(std::move(entry));
    mAddresses << address;
    mEntries.push_back(kept);
    for (const QString &title : kept->titles)
        mByTitle.insert(title, kept);
    if (mEntries.size() > mostEntries)
        dropOldest();
}

void ReleaseShelf::dropOldest()
{
    const auto oldest = mEntries.front();
    mEntries.pop_front();
    mAddresses.remove(oldest->address);
    for (const QString &title : oldest->titles)
        mByTitle.remove(title, oldest);
}

std::optional<QUrl> ReleaseShelf::addressFor(const ReleaseWish &wish) const
{
    if (wish.title.isEmpty())
        return std::nullopt;
    const auto [from, to] = mByTitle.equal_range(wish.title);
    const auto found =
        std::find_if(from, to, [&wish](const auto &entry) { return fits(*entry, wish); });
    return found == to ? std::nullopt : std::optional((*found)->address);
}

/// A song that may stand anywhere is not taken from a collection only because that was looked up.
bool ReleaseShelf::fits(const Entry &entry, const ReleaseWish &wish)
{
    const bool isByArtist = matchesListedArtist(wish.artist, entry.artist, wish.substrings);
    if (wish.album.isEmpty())
        return isByArtist && entry.isPlainAlbum && !wish.isCompilation;
    return entry.name == simplifyString(wish.album) && (isByArtist || wish.isCompilation);
}
