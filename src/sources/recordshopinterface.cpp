#include "sources/recordshopinterface.h"

#include "sources/artistmatch.h"
#include "sources/siteaddress.h"
#include "text/characterreferences.h"
#include "text/integervalue.h"
#include "text/simplifier.h"
#include "text/stringextensions.h"

namespace {

constexpr qsizetype yearLength = 4;
constexpr int lastImplausibleYear = 1700;

/// What a site says ends up in the user's files: more of one text is no name of anything.
constexpr qsizetype longestText = 4096;

/// "First Light / Nila Oster" as "First Light" when the album is by Nila Oster.
QString withoutArtistAtEnd(const QString &title, const QString &artist, const QString &delimiter)
{
    const QStringList parts = title.split(delimiter);
    return parts.size() > 1 && HVUtility::isStringSimpleEqual(parts.last(), artist)
        ? title.chopped(delimiter.size() + parts.last().size())
        : title;
}

} // namespace

void RecordShopInterface::addAlbumOfArtist(std::optional<AlbumInfo> album)
{
    if (album
        && (isCompilation()
            || matchesAlbumArtist({artist(), alternateArtist()},
                                  HVUtility::simplifyString(album->artist().value_or(QString())),
                                  allowSubstrings())))
        addAlbum(*std::move(album));
}

bool RecordShopInterface::isListedArtist(const QString &shownName) const
{
    return matchesListedArtist({artist(), alternateArtist()}, HVUtility::simplifyString(shownName),
                               allowSubstrings());
}

QUrl RecordShopInterface::linkedURL(const QString &prefixKey, const QString &link) const
{
    return QUrl(addressOnSite(resources().textOrEmpty(prefixKey), link).value_or(QString()));
}

QString RecordShopInterface::unescaped(const QString &piece) const
{
    return resources().integer(QStringLiteral("characterReferences")) != 0
        ? HVStringExtensions::stringByReplacingAmpersandCodes(piece)
        : piece;
}

std::optional<QString> RecordShopInterface::shownTextOn(const QString &page, const QString &key,
                                                        int numStrings) const
{
    const QString text = visibleTextOn(page, key, numStrings).value_or(QString());
    const QString shown = unescaped(text.left(longestText)).trimmed();
    return shown.isEmpty() ? std::nullopt : std::optional(shown);
}

std::optional<QString> RecordShopInterface::nameOn(const QString &page, const QString &key) const
{
    const QString name = HVStringExtensions::stringWithStrippedParenthesizedText(
        HVStringExtensions::stringWithStrippedBracketedText(
            shownTextOn(page, key).value_or(QString())));
    return name.isEmpty() ? std::nullopt : std::optional(name);
}

std::optional<QString> RecordShopInterface::genreOn(const QString &page) const
{
    const auto genre = shownTextOn(page, QStringLiteral("parseAlbumGenre1"), 2);
    return genre ? genre : shownTextOn(page, QStringLiteral("parseAlbumGenre2"), 2);
}

std::optional<QString> RecordShopInterface::yearOn(const QString &page, const YearRuns &runs) const
{
    auto text = shownTextOn(page, QStringLiteral("parseAlbumYear1"), runs.afterYear1);
    if (!text)
        text = shownTextOn(page, QStringLiteral("parseAlbumYear2"), runs.afterYear2);
    return lastYearIn(text.value_or(QString()));
}

std::optional<QStringList> RecordShopInterface::tracksOn(const QString &page,
                                                         const QString &ofArtist,
                                                         const QStringList &delimiters) const
{
    QStringList titles;
    const QStringList texts = numberedTextsOn(page, QStringLiteral("parseAlbumTrack"));
    for (const QString &text : texts) {
        QString title = unescaped(text).trimmed();
        if (title.isEmpty())
            break; // as where nothing stands: no song gets an empty title
        for (const QString &delimiter : delimiters)
            title = withoutArtistAtEnd(title, ofArtist, delimiter);
        titles << title;
    }
    return titles.isEmpty() ? std::nullopt : std::optional(titles);
}

std::optional<QString> lastYearIn(const QString &text)
{
    for (qsizetype at = text.size() - yearLength; at >= 0; --at)
        if (integerValue(QStringView(text).sliced(at, yearLength)) > lastImplausibleYear)
            return text.sliced(at, yearLength);
    return std::nullopt;
}
