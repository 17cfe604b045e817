#include "text/minorwords.h"

const QStringList &HVUtility::minorWords()
{
    static const QStringList words{QStringLiteral("a"), QStringLiteral("an"), QStringLiteral("and"),
                                   QStringLiteral("of"), QStringLiteral("the")};
    return words;
}
