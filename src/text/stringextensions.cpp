#include "text/stringextensions.h"

#include "text/minorwords.h"

#include <QtEndian>

namespace {

/// What a unit that ends an escape stands for, -1 when it is no hexadecimal digit.
int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// Undoes one escape at the end of `bytes`, if there is one.
bool unescapeEnd(QByteArray &bytes)
{
    const qsizetype start = bytes.size() - 3;
    if (start < 0 || bytes[start] != '%')
        return false;
    const int high = hexDigit(bytes[start + 1]);
    const int low = hexDigit(bytes[start + 2]);
    if (high < 0 || low < 0)
        return false;
    bytes.truncate(start);
    bytes.append(static_cast<char>(high * 16 + low));
    return true;
}

/// Undoes escapes until none is left. Escapes cannot overlap, so undoing each as soon as it is
/// complete gives the same as doing it in rounds, without a round for each level of escaping.
QByteArray fullyUnescaped(const QByteArray &escaped)
{
    QByteArray bytes;
    bytes.reserve(escaped.size());
    for (const char c : escaped) {
        bytes.append(c);
        while (unescapeEnd(bytes)) { }
    }
    return bytes;
}

bool isOneCase(const QString &text)
{
    return text == text.toLower() || text == text.toUpper();
}

qsizetype skipSpaces(QStringView text, qsizetype position)
{
    while (position < text.size() && text[position].isSpace())
        ++position;
    return position;
}

/// A text being stripped: what is kept so far, in front of what has not been looked at. Both ends
/// of the two together are trimmed after each removal, as if the text were made anew each time.
class StrippedText {
public:
    explicit StrippedText(const QString &text)
        : mRest(text)
    {
        mKept.reserve(text.size());
    }

    [[nodiscard]] qsizetype size() const { return mKept.size() + mRest.size(); }
    [[nodiscard]] QStringView rest() const { return mRest; }
    [[nodiscard]] QString text() const { return mKept + mRest.toString(); }

    void remove(qsizetype start, qsizetype end)
    {
        keep(mRest.first(start));
        mRest = mRest.sliced(end);
        trim();
    }

private:
    void keep(QStringView piece)
    {
        mKept += mKept.isEmpty() ? piece.sliced(skipSpaces(piece, 0)) : piece;
    }

    void trim()
    {
        if (mKept.isEmpty())
            mRest = mRest.sliced(skipSpaces(mRest, 0));
        while (!mRest.isEmpty() && mRest.last().isSpace())
            mRest.chop(1);
        if (mRest.isEmpty())
            mKept.truncate(QStringView(mKept).trimmed().size());
    }

    QString mKept; // never begins with white space, so only its end is ever trimmed
    QStringView mRest;
};

bool isPaddingOfNames(QChar c)
{
    return QStringView(u"\r\n\t ,").contains(c);
}

QString trimmedName(QStringView name)
{
    while (!name.isEmpty() && isPaddingOfNames(name.first()))
        name = name.sliced(1);
    while (!name.isEmpty() && isPaddingOfNames(name.last()))
        name.chop(1);
    return name.toString();
}

} // namespace

QString HVStringExtensions::safelyEscapedString(const QString &text)
{
    const QByteArray bytes = fullyUnescaped(text.toUtf8());
    return QString::fromLatin1(bytes.toPercentEncoding("!$&'()*+,/:;=?@"));
}

QString HVStringExtensions::correctedCaseString(const QString &text)
{
    if (!isOneCase(text))
        return text;
    QString corrected = text.toLower();
    bool inWord = false;
    for (QChar &c : corrected) {
        if (!inWord)
            c = c.toTitleCase();
        inWord = c.isLetterOrNumber() || (inWord && !c.isSpace());
    }
    return corrected;
}

QString HVStringExtensions::stringWithoutWords(const QString &text, const QStringList &words)
{
    const QString space(u' ');
    QString remaining = space + text + space;
    for (const QString &word : words)
        remaining.replace(space + word + space, space, Qt::CaseInsensitive);
    return remaining.trimmed();
}

QString HVStringExtensions::stringWithStrippedEnclosedByChar(const QString &text, QChar open,
                                                             QChar toChar)
{
    if (!text.contains(open))
        return text;
    constexpr qsizetype shortestWithSpan = 3;
    StrippedText stripped(text);
    while (stripped.size() >= shortestWithSpan) {
        const qsizetype start = stripped.rest().indexOf(open);
        const qsizetype end = start < 0 ? -1 : stripped.rest().indexOf(toChar, start);
        if (end < 0)
            break;
        stripped.remove(start, end + 1);
    }
    return stripped.text();
}

QString HVStringExtensions::stringWithStrippedBracketedText(const QString &text)
{
    return stringWithStrippedEnclosedByChar(text, u'[', u']');
}

QString HVStringExtensions::stringWithStrippedParenthesizedText(const QString &text)
{
    return stringWithStrippedEnclosedByChar(text, u'(', u')');
}

QString HVStringExtensions::stringWithoutHTMLTags(const QString &text)
{
    QString visible = stringWithStrippedEnclosedByChar(text, u'<', u'>');
    QChar *end = visible.begin();
    for (QChar c : std::as_const(visible)) {
        if (c == u'\n' || c == u'\t' || c == u'\r')
            c = u' ';
        if (c != u' ' || end == visible.begin() || end[-1] != u' ')
            *end++ = c;
    }
    visible.truncate(end - visible.begin());
    return visible.trimmed();
}

QString HVStringExtensions::normalizedString(const QString &text)
{
    const QStringList parts = text.split(QStringLiteral(", "));
    if (parts.size() != 2 || parts[0].isEmpty()
        || !HVUtility::minorWords().contains(parts[1].toLower()))
        return text;
    return trimmedName(parts[1]) + u' ' + trimmedName(parts[0]);
}

QByteArray HVStringExtensions::bigEndianUnicodeData(const QString &text)
{
    QByteArray data(2 * (text.size() + 1), Qt::Uninitialized);
    qToBigEndian<quint16>(0xFEFF, data.data());
    qToBigEndian<quint16>(text.utf16(), text.size(), data.data() + 2);
    return data;
}
