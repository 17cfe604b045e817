#include "text/htmlpage.h"

#include <QStringMatcher>

#include <array>

namespace {

/// One of the strings that a site's pages are cut at.
class Marker {
public:
    explicit Marker(const QString &text)
        : mMatcher(text, Qt::CaseInsensitive)
        , mLength(text.size())
    {
    }

    [[nodiscard]] qsizetype length() const { return mLength; }

    /// Where the marker begins at or after `from`, -1 if it does not. An empty one stands nowhere.
    [[nodiscard]] qsizetype in(QStringView text, qsizetype from = 0) const
    {
        return mLength == 0 || from > text.size() ? -1 : mMatcher.indexIn(text, from);
    }

private:
    QStringMatcher mMatcher;
    qsizetype mLength;
};

struct Markers {
    Marker listBegin, listEnd, entryBegin, textBegin, textEnd;
};

std::optional<Markers> markersOf(const QVariantMap &resources)
{
    QStringList texts;
    for (const char *key : {"listBegin", "listEnd", "entryBegin", "textBegin", "textEnd"}) {
        const QVariant text = resources.value(QLatin1String(key));
        if (text.typeId() != QMetaType::QString)
            return std::nullopt;
        texts << text.toString();
    }
    return Markers{Marker(texts[0]), Marker(texts[1]), Marker(texts[2]), Marker(texts[3]),
                   Marker(texts[4])};
}

QStringView listIn(QStringView page, const Markers &markers)
{
    const qsizetype begin = markers.listBegin.in(page);
    if (begin < 0)
        return {};
    const QStringView list = page.sliced(begin + markers.listBegin.length());
    const qsizetype end = markers.listEnd.in(list);
    return end < 0 ? QStringView() : list.first(end);
}

/// The pieces of one entry. An end marker is looked for from where the last piece ended, not from
/// after the begin marker: one that stands in front of the next begin marker ends the entry, and
/// one that is part of the begin marker makes a piece that is just the marker. Site definitions
/// count on the positions that come of it.
QStringList piecesOf(QStringView entry, const Markers &markers)
{
    QStringList pieces;
    for (qsizetype position = 0;;) {
        const qsizetype begin = markers.textBegin.in(entry, position);
        const qsizetype end = begin < 0 ? -1 : markers.textEnd.in(entry, position);
        if (end <= begin)
            return pieces;
        position = end + markers.textEnd.length();
        pieces << entry.sliced(begin, position - begin).toString();
    }
}

qsizetype indexOrEnd(QStringView text, QChar c, qsizetype from)
{
    const qsizetype index = text.indexOf(c, from);
    return index < 0 ? text.size() : index;
}

qsizetype afterTags(QStringView page, qsizetype position)
{
    while (position < page.size() && page[position] == u'<')
        position = std::min(indexOrEnd(page, u'>', position) + 1, page.size());
    return position;
}

/// The numStrings-th run of visible text from `position` on.
std::optional<QString> visibleRunFrom(QStringView page, qsizetype position, int numStrings)
{
    for (int run = 1; run <= numStrings; ++run) {
        position = afterTags(page, position);
        if (position >= page.size())
            return std::nullopt;
        const qsizetype end = indexOrEnd(page, u'<', position);
        if (run == numStrings)
            return page.sliced(position, end - position).trimmed().toString();
        position = end;
    }
    return std::nullopt;
}

/// Larger numbers are left alone; nothing that is numbered on a page comes near.
constexpr int mostNumbers = 999;

/// What stands behind a numbered marker ends up in the user's files: more is no title of anything.
constexpr qsizetype longestNumberedText = 4096;

/// Where the first marker of each number ends; -1 for a number that has none.
class NumberedMarkers {
public:
    /// One walk over the page: looking for each number from the front again would take minutes
    /// on a page that is made for it.
    NumberedMarkers(QStringView page, const QString &before, QStringView after)
    {
        mEnds.fill(-1);
        const QStringMatcher matcher(before);
        for (qsizetype at = matcher.indexIn(page); at >= 0; at = matcher.indexIn(page, at + 1))
            note(page, at + before.size(), after);
    }

    [[nodiscard]] qsizetype endOf(std::size_t number) const
    {
        return number < mEnds.size() ? mEnds[number] : -1;
    }

private:
    /// Each number that the digits from `at` on begin with, if `after` follows it.
    void note(QStringView page, qsizetype at, QStringView after)
    {
        std::size_t number = 0;
        for (; at < page.size() && page[at] >= u'0' && page[at] <= u'9'; ++at) {
            number = number * 10 + (page[at].unicode() - u'0');
            if (number == 0 || number >= mEnds.size())
                return;
            if (mEnds[number] < 0 && page.sliced(at + 1).startsWith(after))
                mEnds[number] = at + 1 + after.size();
        }
    }

    std::array<qsizetype, mostNumbers + 1> mEnds;
};

} // namespace

std::optional<QList<QStringList>> HVUtility::parsedContentsOfHTML(const QString &page,
                                                                  const QVariantMap &resources)
{
    const auto markers = markersOf(resources);
    if (page.isEmpty() || !markers)
        return std::nullopt;
    const QStringView list = listIn(page, *markers);
    QList<QStringList> entries;
    qsizetype start = markers->entryBegin.in(list);
    while (start >= 0) {
        const qsizetype next = markers->entryBegin.in(list, start + 1);
        const qsizetype end = next < 0 ? list.size() : next;
        const QStringList pieces = piecesOf(list.sliced(start, end - start), *markers);
        if (!pieces.isEmpty())
            entries << pieces;
        start = next;
    }
    return entries;
}

std::optional<QString> HVUtility::visibleHTMLTextIn(const QString &page, int numStrings,
                                                    const QString &afterHTML)
{
    const qsizetype marker = afterHTML.isEmpty() ? -1 : page.indexOf(afterHTML);
    if (marker < 0)
        return std::nullopt;
    return visibleRunFrom(page, marker + afterHTML.size(), numStrings);
}

QStringList HVUtility::numberedHTMLTextsIn(const QString &page, const QString &before,
                                           const QString &after)
{
    const NumberedMarkers markers(page, before, after);
    QStringList texts;
    for (std::size_t number = 1; markers.endOf(number) >= 0; ++number) {
        const qsizetype from = markers.endOf(number);
        const QStringView rest = QStringView(page).sliced(from).left(longestNumberedText);
        const QString text = visibleRunFrom(rest, 0, 1).value_or(QString());
        if (text.isEmpty())
            break;
        texts << text;
    }
    return texts;
}
