#include "sources/freedbrecord.h"

#include "gathering/decodedpage.h"

#include <QHash>

#include <algorithm>

namespace {

/// A disc of 99 tracks with every line in use is far smaller; the rest of a longer answer is no
/// part of a record.
constexpr qsizetype longestRecord = 1 << 20; // bytes

/// What a site says ends up in the user's files: more of one line is no title of anything.
constexpr qsizetype longestLine = 4096;

/// The rest of the line from `at` on, without the line end.
QString restOfLine(const QString &text, qsizetype at)
{
    const auto isLineEnd = [](QChar c) { return c == u'\r' || c == u'\n'; };
    const auto end = std::find_if(text.begin() + at, text.end(), isLineEnd);
    return text.mid(at, std::min(end - text.begin() - at, longestLine));
}

/// The value behind the first `key`; nothing when it does not begin with a character of
/// `lowestFirst` or above. Further lines of the same key are not joined.
std::optional<QString> valueOf(const QString &text, const QString &key, QChar lowestFirst)
{
    const qsizetype found = text.indexOf(key);
    const qsizetype at = found + key.size();
    if (found < 0 || at >= text.size() || text[at] < lowestFirst)
        return std::nullopt;
    return restOfLine(text, at);
}

/// Where the value of each track's first "TTITLEn=" begins, by n as it is written, in one walk.
QHash<QStringView, qsizetype> startsOfTitles(const QString &text)
{
    const QString key = QStringLiteral("TTITLE");
    QHash<QStringView, qsizetype> starts;
    for (qsizetype at = text.indexOf(key); at >= 0; at = text.indexOf(key, at)) {
        at += key.size();
        const qsizetype numberBegins = at;
        while (at < text.size() && text[at] >= u'0' && text[at] <= u'9')
            ++at;
        const QStringView number = QStringView(text).sliced(numberBegins, at - numberBegins);
        if (at < text.size() && text[at] == u'=' && !starts.contains(number))
            starts.insert(number, at + 1);
    }
    return starts;
}

QStringList titlesOf(const QString &text)
{
    const QHash<QStringView, qsizetype> starts = startsOfTitles(text);
    QStringList titles;
    while (true) {
        const qsizetype at = starts.value(QString::number(titles.size()), text.size());
        if (at >= text.size() || text[at] < u' ')
            return titles;
        titles << restOfLine(text, at);
    }
}

void setArtistAndName(AlbumInfo &album, const QString &title)
{
    const QString delimiter = QStringLiteral(" / ");
    const qsizetype slash = title.indexOf(delimiter);
    album.setArtist(slash < 0 ? title : title.left(slash));
    album.setName(slash < 0 ? title : title.mid(slash + delimiter.size()));
}

} // namespace

std::optional<AlbumInfo> albumWithFreeDBData(QByteArrayView record, const QString &charset)
{
    if (record.isNull())
        return std::nullopt;
    const QString text = decodedPage(record.first(std::min(record.size(), longestRecord)), charset);
    AlbumInfo album;
    // A disc title that begins with a space is ignored; a year, genre or track title is not.
    // Records in use rely on both.
    if (const auto title = valueOf(text, QStringLiteral("DTITLE="), u'!'))
        setArtistAndName(album, *title);
    album.setYear(valueOf(text, QStringLiteral("DYEAR="), u' '));
    album.setGenres(valueOf(text, QStringLiteral("DGENRE="), u' '));
    const QStringList titles = titlesOf(text);
    if (!titles.isEmpty())
        album.setTrackNames(titles);
    album.cleanUpStrings();
    return album;
}
