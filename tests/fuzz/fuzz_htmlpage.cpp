#include "reader.h"

#include "text/characterreferences.h"
#include "text/htmlpage.h"
#include "text/stringextensions.h"

/// The first five lines are the markers, the rest is the page.
void read(const QByteArray &bytes)
{
    const QString text = QString::fromUtf8(bytes);
    QVariantMap resources;
    for (int i = 0;
         const char *key : {"listBegin", "listEnd", "entryBegin", "textBegin", "textEnd"})
        resources[QLatin1String(key)] = text.section(u'\n', i, i), ++i;
    (void)HVUtility::parsedContentsOfHTML(text.section(u'\n', 5), resources);
    const QString visible = HVStringExtensions::stringWithoutHTMLTags(text);
    (void)HVStringExtensions::stringByReplacingAmpersandCodes(visible);
}
