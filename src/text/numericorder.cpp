#include "text/numericorder.h"

#include <QChar>

namespace {
bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/// One case-folded character off the front of the text.
char32_t takeFolded(QStringView &text)
{
    const bool isPair = text.size() > 1 && text[0].isHighSurrogate() && text[1].isLowSurrogate();
    const char32_t character =
        isPair ? QChar::surrogateToUcs4(text[0], text[1]) : char32_t{text[0].unicode()};
    text = text.sliced(isPair ? 2 : 1);
    return QChar::toCaseFolded(character);
}

/// The run of digits at the front of the text, without leading zeros.
QStringView takeNumber(QStringView &text)
{
    qsizetype end = 0;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    qsizetype begin = 0;
    while (begin < end && text[begin] == u'0')
        ++begin;
    const QStringView number = text.sliced(begin, end - begin);
    text = text.sliced(end);
    return number;
}

template<typename Value>
int order(Value left, Value right)
{
    return left < right ? -1 : left > right ? 1 : 0;
}

int compareNumbers(QStringView left, QStringView right)
{
    return left.size() != right.size() ? order(left.size(), right.size()) : left.compare(right);
}
} // namespace

int compareCaseInsensitiveNumeric(QStringView left, QStringView right)
{
    while (!left.isEmpty() && !right.isEmpty()) {
        const bool areNumbers = isDigit(left.front()) && isDigit(right.front());
        const int result = areNumbers ? compareNumbers(takeNumber(left), takeNumber(right))
                                      : order(takeFolded(left), takeFolded(right));
        if (result != 0)
            return result;
    }
    return order(left.size(), right.size());
}
