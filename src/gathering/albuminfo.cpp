#include "gathering/albuminfo.h"

#include "text/simplifier.h"
#include "text/stringextensions.h"

#include <algorithm>
#include <bit>
#include <vector>

using HVUtility::simplifyString;

namespace {

QString cleaned(const QString &text)
{
    return HVStringExtensions::correctedCaseString(
        HVStringExtensions::normalizedString(text).trimmed());
}

QString withoutStarsAtEnd(QString text)
{
    while (text.endsWith(u'*'))
        text.chop(1);
    return text;
}

QString shown(const std::optional<QString> &text)
{
    return text.value_or(QStringLiteral("(null)"));
}

/// 1-based from the end, so that of equal titles the later track wins; 0 when none fits.
template<typename Fits>
int numberOfLastTrack(const std::vector<QString> &simplifiedTracks, Fits fits)
{
    const auto found = std::find_if(simplifiedTracks.rbegin(), simplifiedTracks.rend(), fits);
    return static_cast<int>(simplifiedTracks.rend() - found);
}

} // namespace

bool simplifiedNamesOverlap(const QString &one, const QString &other)
{
    return !one.isEmpty() && !other.isEmpty() && (one.contains(other) || other.contains(one));
}

AlbumInfo::AlbumInfo(const std::optional<QString> &artist, const std::optional<QString> &name)
    : mName(name)
    , mArtist(artist)
{
    cleanUpStrings();
}

std::optional<QUrl> AlbumInfo::artURL() const
{
    const QUrl url(mArtURLString.value_or(QString()));
    return url.isValid() && !url.scheme().isEmpty() ? std::optional(url) : std::nullopt;
}

int AlbumInfo::numberOfTracks() const
{
    return mTracks ? static_cast<int>(mTracks->size()) : 0;
}

void AlbumInfo::cleanUpStrings()
{
    if (mName)
        mName = cleaned(withoutStarsAtEnd(*mName));
    if (mArtist)
        mArtist = cleaned(*mArtist);
    if (mGenre)
        mGenre = cleaned(mGenre->replace(QLatin1String(" / "), QLatin1String("/")));
    if (mTracks)
        std::transform(mTracks->cbegin(), mTracks->cend(), mTracks->begin(), cleaned);
}

AlbumInfo AlbumInfo::copy() const
{
    AlbumInfo copied = *this;
    copied.mDuplicates = 0;
    return copied;
}

QString AlbumInfo::simplifiedName() const
{
    return mName ? simplifyString(*mName) : QString();
}

int AlbumInfo::numberOfTrackNamed(const QString &title, Substrings allowSubstrings) const
{
    return numberOfTrackSimplified(simplifyString(title), allowSubstrings);
}

int AlbumInfo::numberOfTrackSimplified(const QString &simplifiedTitle,
                                       Substrings allowSubstrings) const
{
    if (!mTracks)
        return 0;
    std::vector<QString> tracks(static_cast<std::size_t>(mTracks->size()));
    std::transform(mTracks->cbegin(), mTracks->cend(), tracks.begin(), simplifyString);
    const int exact =
        numberOfLastTrack(tracks, [&](const QString &track) { return track == simplifiedTitle; });
    if (exact > 0 || allowSubstrings == Substrings::Refuse)
        return exact;
    return numberOfLastTrack(tracks, [&](const QString &track) {
        return simplifiedNamesOverlap(track, simplifiedTitle);
    });
}

Assets AlbumInfo::assets() const
{
    Assets held = AssetTrack; // always: an album without tracks counts as having them
    held.setFlag(AssetArtwork, mArtURLString.has_value());
    held.setFlag(AssetAlbumName, mName.has_value());
    held.setFlag(AssetArtist, mArtist.has_value());
    held.setFlag(AssetYear, mYear.has_value());
    held.setFlag(AssetGenre, mGenre.has_value());
    held.setFlag(AssetLyrics, !mLyrics.isEmpty());
    return held;
}

float AlbumInfo::matchToDesiredAssets(Assets wanted) const
{
    if (!wanted)
        return -1.0F;
    const auto count = [](Assets flags) {
        return static_cast<float>(std::popcount(static_cast<unsigned>(flags.toInt())));
    };
    return count(wanted & assets()) / count(wanted);
}

QString AlbumInfo::trackSummary() const
{
    QStringList numbered;
    for (const QString &track : mTracks.value_or(QStringList()))
        numbered << QStringLiteral("%1:%2").arg(QString::number(numbered.size() + 1), track);
    return numbered.join(QStringLiteral(", "));
}

QString AlbumInfo::description() const
{
    const auto address = reinterpret_cast<quintptr>(this);
    QString text = QStringLiteral("<0x%1 AlbumInfo '%2' by %3")
                       .arg(QString::number(address, 16), shown(mName), shown(mArtist));
    if (!mLyrics.isEmpty())
        text += QStringLiteral(" lyrics (%1 songs)").arg(mLyrics.size());
    if (mIsInstrumental)
        text += QStringLiteral(" instrumental");
    if (mYear)
        text += QStringLiteral(" year=") + *mYear;
    if (mGenre)
        text += QStringLiteral(" genre=") + *mGenre;
    if (mDuplicates > 0)
        text += QStringLiteral(" dupes=%1").arg(mDuplicates);
    if (mArtURLString)
        text += QStringLiteral(" cover=") + *mArtURLString;
    return text + QStringLiteral(" (") + trackSummary() + QStringLiteral(")>");
}
