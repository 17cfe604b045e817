#include "itunes/playeraddress.h"

#include <QFile>

#include <climits>

namespace {
/// Each byte of a path is three characters at most.
constexpr qsizetype maxLength = qsizetype(3) * PATH_MAX;
} // namespace

std::optional<QString> pathOfPlayerAddress(const QString &address)
{
    const QLatin1String scheme("file://");
    if (address.size() > maxLength || !address.startsWith(scheme, Qt::CaseInsensitive))
        return std::nullopt;
    QString raw = address.sliced(scheme.size());
    if (raw.startsWith(QLatin1String("localhost/"), Qt::CaseInsensitive))
        raw.remove(0, 9);
    const QString decoded = QString::fromUtf8(QByteArray::fromPercentEncoding(raw.toUtf8()));
    if (!decoded.startsWith(u'/') || decoded.contains(QChar::Null))
        return std::nullopt;
    return !QFile::exists(decoded) && QFile::exists(raw) ? raw : decoded;
}
