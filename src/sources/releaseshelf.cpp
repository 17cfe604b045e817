#include "sources/releaseshelf.h"

#include "sources/releaserecord.h"
#include "text/simplifier.h"

#include <algorithm>
#include <tuple>

using HVUtility::simplifyString;

namespace {

/// More than a library's songs are gathered of at a time, and small in memory.
constexpr std::size_t mostEntries = 1000;

/// As far as both dates go, of which the shorter may be a year alone.
bool isBefore(const QString &one, const QString &other)
{
    const qsizetype length = std::min(one.size(), other.size());
    return QStringView(one).first(length) < QStringView(other).first(length);
}

} // namespace

ReleaseShelf::Entry ReleaseShelf::entryOf(const ReleaseRecord &record, const QUrl &address)
{
    Entry entry{address,
                simplifyString(record.artist),
                simplifyString(record.title),
                record.isPlainAlbum,
                record.firstDate,
                record.identifiers.releaseGroup,
                record.date,
                record.date,
                {}};
    for (const ReleaseRecord::Medium &medium : record.media)
        for (qsizetype i = 0; i < medium.titles.size(); ++i)
            entry.tracks.insert(simplifyString(medium.titles[i]),
                                {medium.lengths.value(i), simplifyString(medium.artists.value(i)),
                                 medium.firstDates.value(i)});
    return entry;
}

void ReleaseShelf::put(const ReleaseRecord &record, const QUrl &address, const QString &since)
{
    std::shared_ptr<Entry> &entry = mByAddress[address];
    if (!entry) {
        entry = std::make_shared<Entry>(entryOf(record, address));
        mEntries.push_back(entry);
        for (const QString &title : entry->tracks.uniqueKeys())
            mByTitle.insert(title, entry);
    }
    if (!since.isEmpty() && (entry->since.isEmpty() || since < entry->since))
        entry->since = since;
    if (mEntries.size() > mostEntries)
        dropOldest();
}

void ReleaseShelf::dropOldest()
{
    const auto oldest = mEntries.front();
    mEntries.pop_front();
    mByAddress.remove(oldest->address);
    for (const QString &title : oldest->tracks.uniqueKeys())
        mByTitle.remove(title, oldest);
}

std::optional<QUrl> ReleaseShelf::addressFor(const ReleaseWish &wish) const
{
    if (wish.title.isEmpty())
        return std::nullopt;
    const auto order = [](const Entry &each) {
        return std::tie(each.firstDate, each.group, each.date, each.address);
    };
    std::shared_ptr<const Entry> best;
    const auto [from, to] = mByTitle.equal_range(wish.title);
    for (auto each = from; each != to; ++each)
        if (fits(**each, wish) && (!best || order(**each) < order(*best)))
            best = *each;
    return best ? std::optional(best->address) : std::nullopt;
}

/// A song that may stand anywhere is not taken from a collection only because that was looked up.
bool ReleaseShelf::fits(const Entry &entry, const ReleaseWish &wish)
{
    const bool isOfName = wish.album.isEmpty()
        ? matchesListedArtist(wish.artist, entry.artist, wish.substrings) && entry.isPlainAlbum
            && !wish.isCompilation
        : entry.name == simplifyString(wish.album);
    const auto [from, to] = entry.tracks.equal_range(wish.title);
    return isOfName
        && std::any_of(from, to, [&](const Track &track) { return fits(track, entry, wish); });
}

bool ReleaseShelf::fits(const Track &track, const Entry &entry, const ReleaseWish &wish)
{
    if (isOtherVersion(wish.duration, track.length))
        return false;
    if (wish.album.isEmpty()) // it may have come out before, on another album
        return track.firstDate.isEmpty() || !isBefore(track.firstDate, entry.since);
    const QString &artist = track.artist.isEmpty() ? entry.artist : track.artist;
    return matchesListedArtist(wish.artist, artist, wish.substrings);
}
