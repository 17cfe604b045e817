#include "text/simplifier.h"
#include "text/stringextensions.h"

/// The first two lines are a simplifier, the rest is what is simplified and escaped.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    HVUtility::setSimplifiersDictionary({{text.section(u'\n', 0, 0), text.section(u'\n', 1, 1)}});
    (void)HVUtility::simplifyString(text.section(u'\n', 2));
    (void)HVStringExtensions::safelyEscapedString(text);
    return 0;
}
