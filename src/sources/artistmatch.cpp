#include "sources/artistmatch.h"

#include "text/simplifier.h"

namespace {

bool contains(const QString &whole, const QString &part)
{
    return !part.isEmpty() && whole.contains(part);
}

bool begins(const QString &whole, const QString &part)
{
    return !part.isEmpty() && whole.startsWith(part);
}

bool equal(const QString &one, const QString &other)
{
    return !one.isEmpty() && one == other;
}

} // namespace

SearchedArtist::SearchedArtist(const std::optional<QString> &artist,
                               const std::optional<QString> &alternate)
    : name(HVUtility::simplifyString(artist.value_or(QString())))
    , alternateName(HVUtility::simplifyString(alternate.value_or(QString())))
{
}

bool matchesListedName(const QString &searched, const QString &listed, Substrings substrings)
{
    const auto isIn = substrings == Substrings::Allow ? contains : begins;
    return isIn(listed, searched) || isIn(searched, listed);
}

bool matchesListedArtist(const SearchedArtist &searched, const QString &listed,
                         Substrings substrings)
{
    return matchesListedName(searched.name, listed, substrings)
        || matchesListedName(searched.alternateName, listed, substrings);
}

bool matchesAlbumArtist(const SearchedArtist &searched, const QString &ofAlbum,
                        Substrings substrings)
{
    const QString &alternate =
        searched.alternateName.isEmpty() ? searched.name : searched.alternateName;
    if (substrings == Substrings::Refuse)
        return equal(ofAlbum, searched.name) || equal(ofAlbum, alternate);
    // Whether the album's artist contains the alternate artist is not asked, on purpose: that
    // keeps an album of "Oster Nila Trio" from a search for "Nila Oster", as it always was.
    return contains(ofAlbum, searched.name) || contains(searched.name, ofAlbum)
        || contains(alternate, ofAlbum);
}

bool matchesListedTitle(const QString &searched, const QString &listed, Substrings substrings)
{
    return substrings == Substrings::Allow
        ? contains(searched, listed) || contains(listed, searched)
        : equal(searched, listed);
}
