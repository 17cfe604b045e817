#include "sources/coverdigest.h"

#include "base/log.h"
#include "base/propertylist.h"
#include "base/resources.h"

namespace {

QVariantMap readDigest(const QString &resource)
{
    const auto data = resourceData(resource);
    const PropertyList::Parsed parsed = PropertyList::parse(data.value_or(QByteArray()));
    if (parsed.value.typeId() != QMetaType::QVariantMap)
        qCWarning(logSources, "%s: %s", qUtf8Printable(resource),
                  parsed.error.isEmpty() ? "no dictionary" : qUtf8Printable(parsed.error));
    return parsed.value.toMap();
}

} // namespace

std::optional<QString> CoverDigest::pathOf(const QString &key)
{
    if (!mPaths)
        mPaths = readDigest(mResource);
    const QVariant path = mPaths->value(key);
    return path.typeId() == QMetaType::QString ? std::optional(path.toString()) : std::nullopt;
}
