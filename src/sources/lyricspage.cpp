#include "sources/lyricspage.h"

#include "gathering/decodedpage.h"
#include "text/characterreferences.h"
#include "text/lyricscleanup.h"
#include "text/simplifier.h"
#include "text/stringextensions.h"

#include <QStringDecoder>

#include <algorithm>

namespace {

constexpr QStringView newline = u"\n";

/// Replaces by something no longer until none is left. Looking again after each replacement at what
/// then stands at the end gives the same as going through the text in rounds, without a round for
/// each level.
QString replacedUntilNoneIsLeft(QString text, QStringView what, QStringView by)
{
    if (by.size() > what.size() || by == what)
        return text;
    QChar *const begin = text.data();
    QChar *end = begin;
    for (const QChar c : std::as_const(text)) {
        *end++ = c;
        while (end != begin && end[-1] == what.back() && QStringView(begin, end).endsWith(what))
            end = std::copy(by.begin(), by.end(), end - what.size());
    }
    text.truncate(end - begin);
    return text;
}

/// Deletes blocks one after the other, the first beginning and the first end behind it each time,
/// so that of nested blocks the outer ends stay. What a deletion joins to a new beginning counts.
QString withoutBlocks(const QString &text, QStringView begin, QStringView end)
{
    if (begin.isEmpty() || end.isEmpty())
        return text;
    QString result;
    result.reserve(text.size());
    for (qsizetype at = 0; at < text.size();) {
        result += text[at++];
        if (result.back() != begin.back() || !result.endsWith(begin))
            continue;
        const qsizetype foundEnd = QStringView(text).indexOf(end, at);
        if (foundEnd < 0)
            return result += QStringView(text).sliced(at);
        result.chop(begin.size());
        at = foundEnd + end.size();
    }
    return result;
}

/// The lines as they are shown, with character references as they stand.
QString visibleLines(const QString &markup)
{
    const QString text =
        replacedUntilNoneIsLeft(replacedUntilNoneIsLeft(markup, u"\r\n", newline), u"\n ", newline);
    const QString visible = HVStringExtensions::stringWithStrippedEnclosedByChar(text, u'<', u'>');
    return replacedUntilNoneIsLeft(visible, u"\n\n\n", u"\n\n").trimmed();
}

QString finished(const QString &lines)
{
    return LyricsCleanup::cleanUpLyrics(HVStringExtensions::stringByReplacingAmpersandCodes(lines));
}

/// The page with one newline where its marker ends a line. Where there are markers the line ends
/// of the page's source only make it readable: those beside a marker go, and of several one stays.
QString withMarkedLines(const QString &text, const QString &marker)
{
    if (marker.isEmpty() || !text.contains(marker))
        return text;
    const QString lines = replacedUntilNoneIsLeft(text, u"\n\n", newline);
    const QString ended = replacedUntilNoneIsLeft(lines, marker + u'\n', marker);
    return replacedUntilNoneIsLeft(replacedUntilNoneIsLeft(ended, u'\n' + marker, marker), marker,
                                   newline);
}

} // namespace

QString LyricsPage::decoded(QByteArrayView bytes, const QString &charset)
{
    if (!charset.isEmpty())
        return decodedPage(bytes, charset);
    QStringDecoder decoder(QStringConverter::Utf8);
    QString text = decoder(bytes);
    if (!decoder.hasError())
        return text;
    text = QString::fromLatin1(bytes);
    for (QChar &c : text)
        c = ASCIIHighBitToUnicode(c.unicode());
    return text;
}

std::optional<QString> LyricsPage::linkBehind(const QString &text, const QString &marker)
{
    const qsizetype found = text.indexOf(marker);
    const qsizetype from = found + marker.size();
    const qsizetype end = found < 0 ? -1 : text.indexOf(u'"', from);
    return end < 0 ? std::nullopt : std::optional(text.sliced(from, end - from));
}

QString LyricsPage::simplifiedCell(const QString &cell)
{
    return HVUtility::simplifyString(HVStringExtensions::stringByReplacingAmpersandCodes(
        HVStringExtensions::stringWithoutHTMLTags(cell)));
}

QString LyricsPage::withPlainNewlines(const QString &text)
{
    return replacedUntilNoneIsLeft(text, u"\r\n", newline).replace(u'\r', u'\n');
}

QString LyricsPage::lyricsAndSongsLyrics(const QString &markup, const QString &adBegin,
                                         const QString &adEnd)
{
    return finished(visibleLines(withoutBlocks(markup, adBegin, adEnd)));
}

/// References are replaced before the newlines are counted, since on this site they stand for
/// line ends too ("&#13;&#10;"); and behind the tags, of which "&#60;" begins none.
QString LyricsPage::leosLyrics(const QString &markup, const QString &lineBreak)
{
    const QString lines = replacedUntilNoneIsLeft(withPlainNewlines(markup), u" \n", newline);
    const QString visible = visibleLines(withMarkedLines(lines, lineBreak));
    const QString words = withPlainNewlines(finished(visible));
    return replacedUntilNoneIsLeft(replacedUntilNoneIsLeft(words, u" \n", newline), u"\n\n\n",
                                   u"\n\n")
        .trimmed();
}

QString LyricsPage::askLyrics(const QString &markup)
{
    const QString lines = replacedUntilNoneIsLeft(markup, u"<br>", newline);
    return finished(visibleLines(replacedUntilNoneIsLeft(lines, u"<BR>", newline)));
}
