#include "text/integervalue.h"

#include <algorithm>
#include <limits>

int integerValue(QStringView text)
{
    qsizetype at = 0;
    while (at < text.size() && text[at].isSpace())
        ++at;
    const bool negative = at < text.size() && text[at] == u'-';
    if (negative || (at < text.size() && text[at] == u'+'))
        ++at;
    using Limits = std::numeric_limits<int>;
    qint64 value = 0;
    for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9' && value <= Limits::max(); ++at)
        value = value * 10 + (text[at].unicode() - u'0');
    if (negative)
        value = -value;
    return static_cast<int>(std::clamp<qint64>(value, Limits::min(), Limits::max()));
}
