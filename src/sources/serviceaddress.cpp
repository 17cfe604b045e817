#include "sources/serviceaddress.h"

#include <QStringList>

QUrl serviceAddress(const QString &address, const QueryParameters &query)
{
    if (address.isEmpty())
        return {};
    QStringList pairs;
    // Not by QUrlQuery, which leaves a plus as it is: servers would read a blank.
    for (const auto &[name, value] : query)
        pairs << name + u'=' + QString::fromLatin1(QUrl::toPercentEncoding(value));
    return QUrl(address + u'?' + pairs.join(u'&'));
}
