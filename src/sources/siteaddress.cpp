#include "sources/siteaddress.h"

#include "gathering/fetchable.h"

std::optional<QString> addressOnSite(const QString &prefix, const QString &path)
{
    const QString address = prefix + path;
    const QUrl url(address);
    const QString site = QUrl(prefix).authority();
    if (!isFetchable(url) || (!site.isEmpty() && url.authority() != site))
        return std::nullopt;
    return address;
}
