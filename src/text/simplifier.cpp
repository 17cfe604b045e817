#include "text/simplifier.h"

#include "base/installedtable.h"
#include "text/simplifiertable.h"
#include "text/stringextensions.h"

#include <QVarLengthArray>

#include <array>

namespace {

using Units = QVarLengthArray<char16_t, 256>;

/// For each ASCII character what stands for it in a key: a lower-case letter, a digit, or 0 for
/// what is dropped.
constexpr auto keyUnits = [] {
    std::array<char16_t, 128> units{};
    for (char16_t c = u'0'; c <= u'9'; ++c)
        units[c] = c;
    for (char16_t c = u'a'; c <= u'z'; ++c)
        units[c] = units[c - 32] = c;
    return units;
}();

bool isWord(const char16_t *token, qsizetype length, QStringView word)
{
    if (length != word.size())
        return false;
    for (qsizetype i = 0; i < length; ++i) {
        if ((token[i] | 0x20) != word[i].unicode())
            return false;
    }
    return true;
}

/// The place of a token in minorWords(), -1 for any other.
int minorWord(const char16_t *token, qsizetype length)
{
    switch (length) {
    case 1:
        return isWord(token, length, u"a") ? 0 : -1;
    case 2:
        return isWord(token, length, u"an") ? 1 : isWord(token, length, u"of") ? 3 : -1;
    case 3:
        return isWord(token, length, u"and") ? 2 : isWord(token, length, u"the") ? 4 : -1;
    default:
        return -1;
    }
}

/// Removes minor words in one pass with the result of removing them one after another: a word
/// stays when the word before it, in the text as its turn finds it, has been removed in the same
/// turn (they share one space).
class MinorWordFilter {
public:
    bool removes(const char16_t *token, qsizetype length)
    {
        const int word = minorWord(token, length);
        if (word < 0 || (mJustRemoved >> word & 1U) != 0) {
            mJustRemoved = 0;
            return false;
        }
        // Later turns no longer see this word; in earlier ones it parts what is around it.
        mJustRemoved = (mJustRemoved >> word | 1U) << word;
        return true;
    }

private:
    unsigned mJustRemoved = 0; ///< bit n: the n-th word's turn has just removed its neighbour
};

struct Words {
    Units units; ///< with a space at each end
    bool isASCII = true;
};

Words withoutMinorWords(QStringView text)
{
    Words words;
    words.units.resize(text.size() + 2);
    char16_t *const start = words.units.data();
    char16_t *end = start;
    *end++ = u' ';
    char16_t *token = end;
    char16_t seen = 0;
    MinorWordFilter filter;
    const auto endToken = [&] {
        if (filter.removes(token, end - token))
            end = token;
        else
            *end++ = u' ';
        token = end;
    };
    for (const QChar c : text) {
        if (c == u' ') {
            endToken();
            continue;
        }
        *end++ = c.unicode();
        seen |= c.unicode();
    }
    endToken();
    words.units.resize(end - start);
    words.isASCII = seen < 0x80;
    return words;
}

QString keyOf(QStringView plain)
{
    QVarLengthArray<QChar, 256> key(plain.size());
    QChar *end = key.data();
    for (const QChar c : plain) {
        const char16_t unit = c.unicode() < 0x80 ? keyUnits[c.unicode()] : u'\0';
        *end = unit;
        end += unit != 0;
    }
    return QString(key.constData(), end - key.constData());
}

QString padded(QStringView text)
{
    return u' ' + text.toString() + u' ';
}

QString simplifiedKey(QStringView paddedPlain)
{
    SimplifierTable::Text buffer;
    SimplifierTable::Text other;
    return keyOf(InstalledTable<SimplifierTable>::current().apply(paddedPlain, buffer, other));
}

/// The trimmed text with the one space at each end that simplifiers match whole words by.
QStringView trimmedWithPadding(Units &units)
{
    const QStringView trimmed = QStringView(units).trimmed();
    const qsizetype start = trimmed.isEmpty() ? 1 : trimmed.utf16() - units.constData();
    const qsizetype length = trimmed.size();
    if (units.size() < start + length + 1)
        units.resize(start + length + 1);
    units[start - 1] = u' ';
    units[start + length] = u' ';
    return QStringView(units).sliced(start - 1, length + 2);
}

} // namespace

void HVUtility::setSimplifiersDictionary(const QMap<QString, QString> &simplifiers)
{
    InstalledTable<SimplifierTable>::install(SimplifierTable(simplifiers));
}

QString HVUtility::simplifyString(const QString &string)
{
    if (string.isEmpty())
        return string;
    Words words = withoutMinorWords(string);
    QStringView plain = trimmedWithPadding(words.units);
    QString converted;
    if (!words.isASCII) {
        const QString text = plain.sliced(1, plain.size() - 2).toString();
        converted = padded(HVStringExtensions::plainASCIIString(text));
        plain = converted;
    }
    QString key = simplifiedKey(plain);
    return key.isEmpty() ? plain.sliced(1, plain.size() - 2).toString() : key;
}

bool HVUtility::isStringSimpleEqual(const std::optional<QString> &string,
                                    const std::optional<QString> &simpleEqual)
{
    return string && simpleEqual && simplifyString(*string) == simplifyString(*simpleEqual);
}

bool HVUtility::doesStringHaveString(const std::optional<QString> &string,
                                     const std::optional<QString> &haveString)
{
    return string && haveString && !haveString->isEmpty()
        && string->contains(*haveString, Qt::CaseInsensitive);
}
