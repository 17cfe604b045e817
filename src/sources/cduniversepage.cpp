#include "sources/cduniversepage.h"

#include "gathering/decodedpage.h"
#include "sources/recordshopinterface.h"
#include "text/htmlpage.h"
#include "text/stringextensions.h"

namespace {

constexpr QLatin1String headingBegin{R"(<font color="#006699" size="3"><b>)"};
constexpr QLatin1String headingEnd{"</b"};
constexpr QLatin1String artistLink{R"(<a href="/sresult.asp?)"};
constexpr QLatin1String importAtEnd{" - Import"};
constexpr QLatin1String noPicture{"default_coverart"};
constexpr QLatin1String pictureBegin{
    R"(<table cellPadding=0 cellSpacing=0><tr><td><table cellspacing="0" cellpadding="0" )"
    R"(align=left border=0><tr><td><img src=")"};

/// What stands between two markers, the begin looked for from `from` on.
struct Piece {
    QString text{};
    qsizetype end = -1; ///< where it ends on the page; -1: it is not there
};

Piece pieceBetween(const QString &page, QLatin1String begin, QLatin1String end, qsizetype from = 0)
{
    const qsizetype found = page.indexOf(begin, from);
    const qsizetype to = found < 0 ? -1 : page.indexOf(end, found + begin.size());
    return to < 0 ? Piece() : Piece{page.mid(found + begin.size(), to - found - begin.size()), to};
}

QString withoutImport(const QString &name)
{
    return name.endsWith(importAtEnd) ? name.chopped(importAtEnd.size()) : name;
}

/// The heading is the name, and the first link to an artist behind it is the artist.
void readNames(const QString &page, AlbumInfo &album)
{
    const Piece heading = pieceBetween(page, headingBegin, headingEnd);
    if (heading.end < 0)
        return;
    const QString name =
        HVStringExtensions::stringWithStrippedEnclosedByChar(heading.text, u'<', u'>').trimmed();
    album.setName(withoutImport(name));
    const qsizetype link = page.indexOf(artistLink, heading.end);
    if (link < 0)
        return;
    const Piece artist =
        pieceBetween(page, QLatin1String(">"), QLatin1String("<"), link + artistLink.size());
    if (artist.end >= 0)
        album.setArtist(artist.text.trimmed());
}

std::optional<QString> yearBehind(const QString &page, const QString &marker)
{
    return lastYearIn(HVUtility::visibleHTMLTextIn(page, 2, marker).value_or(QString()));
}

void readPicture(const QString &page, AlbumInfo &album)
{
    const Piece picture = pieceBetween(page, pictureBegin, QLatin1String("\""));
    if (!picture.text.isEmpty() && !page.contains(noPicture))
        album.setArtURLString(picture.text);
}

} // namespace

std::optional<AlbumInfo> albumWithCDUniverseHTMLData(QByteArrayView data, const QString &charset)
{
    if (data.isNull())
        return std::nullopt;
    const QString page = decodedPage(data, charset);
    AlbumInfo album;
    readNames(page, album);
    auto year = yearBehind(page, QStringLiteral("Orig Year"));
    album.setYear(year ? year : yearBehind(page, QStringLiteral("Street Date")));
    album.setGenres(HVUtility::visibleHTMLTextIn(page, 2, QStringLiteral("Category")));
    readPicture(page, album);
    album.cleanUpStrings();
    return album;
}
