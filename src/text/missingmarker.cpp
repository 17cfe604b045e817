#include "text/missingmarker.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

/// Of a piece, in characters: so much in front of the place, and so much in all.
constexpr qsizetype shownBefore = 60;
constexpr qsizetype shownInAll = 200;

/// A beginning of less than this part of the marker stands anywhere on a page.
constexpr qsizetype telling = 3;

/// Where the longest beginning of a marker stands; all of it when the length is the marker's own.
struct Beginning {
    qsizetype at = 0;
    qsizetype length = 0;
};

/// For each beginning of the text, how long its own longest beginning is that ends it, too.
std::vector<qsizetype> bordersOf(QStringView text)
{
    std::vector<qsizetype> borders(static_cast<size_t>(text.size()), 0);
    qsizetype border = 0;
    for (qsizetype i = 1; i < text.size(); ++i) {
        while (border > 0 && text[border] != text[i])
            border = borders[static_cast<size_t>(border - 1)];
        border += text[border] == text[i] ? 1 : 0;
        borders[static_cast<size_t>(i)] = border;
    }
    return borders;
}

QChar compared(QChar c, Qt::CaseSensitivity sensitivity)
{
    return sensitivity == Qt::CaseSensitive ? c : c.toCaseFolded();
}

/// One walk over the text, which never goes back (the search of Knuth, Morris and Pratt).
Beginning longestBeginning(QStringView text, QString marker, Qt::CaseSensitivity sensitivity)
{
    for (QChar &c : marker)
        c = compared(c, sensitivity);
    const std::vector<qsizetype> borders = bordersOf(marker);
    Beginning longest;
    qsizetype matched = 0;
    for (qsizetype i = 0; i < text.size() && longest.length < marker.size(); ++i) {
        const QChar c = compared(text[i], sensitivity);
        while (matched > 0 && marker[matched] != c)
            matched = borders[static_cast<size_t>(matched - 1)];
        matched += marker[matched] == c ? 1 : 0;
        if (matched > longest.length)
            longest = {i + 1 - matched, matched};
    }
    return longest;
}

bool isShownAsCode(QChar c)
{
    return c.category() == QChar::Other_Control || c.category() == QChar::Other_Format
        || c.category() == QChar::Other_Surrogate;
}

QString codeOf(QChar c)
{
    switch (c.unicode()) {
    case u'\n':
        return QStringLiteral("\\n");
    case u'\r':
        return QStringLiteral("\\r");
    case u'\t':
        return QStringLiteral("\\t");
    default:
        return QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    }
}

/// What stands at the place of a beginning, or at `otherwise` when it is too short to tell.
QString pieceAt(QStringView page, const Beginning &found, qsizetype markerLength,
                qsizetype otherwise)
{
    return pieceOfPage(page, found.length * telling > markerLength ? found.at : otherwise);
}

} // namespace

QString pieceOfPage(QStringView page, qsizetype around)
{
    const qsizetype from = std::clamp(around - shownBefore, qsizetype(0), page.size());
    const QStringView cut = page.sliced(from).first(std::min(shownInAll, page.size() - from));
    QString shown;
    for (const QChar c : cut)
        shown += isShownAsCode(c) ? codeOf(c) : QString(c);
    const QString gap = QStringLiteral("…");
    return (from > 0 ? gap : QString()) + shown
        + (from + cut.size() < page.size() ? gap : QString());
}

std::optional<MissingMarker> missingMarker(QStringView page, const QString &key,
                                           const QString &marker, Qt::CaseSensitivity sensitivity,
                                           qsizetype from)
{
    const QStringView rest = page.sliced(from);
    Beginning found = longestBeginning(rest, marker, sensitivity);
    if (!marker.isEmpty() && found.length == marker.size())
        return std::nullopt;
    found.at += from;
    return MissingMarker{key, marker, pieceAt(page, found, marker.size(), from)};
}

MissingMarker missingMarkerOfRecipe(QStringView page, const QVariantMap &recipe)
{
    qsizetype from = 0;
    qsizetype end = page.size();
    for (const char *name : {"listBegin", "listEnd", "entryBegin", "textBegin", "textEnd"}) {
        const QString key = QLatin1String(name);
        const QString marker = recipe.value(key).toString();
        Beginning found =
            longestBeginning(page.sliced(from, end - from), marker, Qt::CaseInsensitive);
        found.at += from;
        if (marker.isEmpty() || found.length < marker.size())
            return {key, marker, pieceAt(page, found, marker.size(), from)};
        if (key == QLatin1String("listEnd"))
            end = found.at;
        else
            from = found.at + (key == QLatin1String("listBegin") ? marker.size() : 0);
    }
    // All five are there: in no entry does the end of a cell follow its beginning.
    const QString last = QStringLiteral("textEnd");
    return {last, recipe.value(last).toString(), pieceOfPage(page, from)};
}
