#include "reader.h"

#include "text/simplifier.h"
#include "text/stringextensions.h"

/// The first two lines are a simplifier, the rest is what is simplified and escaped.
void read(const QByteArray &bytes)
{
    const QString text = QString::fromUtf8(bytes);
    HVUtility::setSimplifiersDictionary({{text.section(u'\n', 0, 0), text.section(u'\n', 1, 1)}});
    (void)HVUtility::simplifyString(text.section(u'\n', 2));
    (void)HVStringExtensions::safelyEscapedString(text);
}
