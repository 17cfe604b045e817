#include "demo/samplesite.h"

SamplePage htmlPage(const QString &html)
{
    return {"text/html; charset=ISO-8859-1", html.toLatin1()};
}

QString fieldOf(const QUrlQuery &fields, const QString &name)
{
    return fields.queryItemValue(name, QUrl::FullyDecoded);
}
