#pragma once

#include <QList>
#include <QString>
#include <QUrl>

#include <utility>

/// Names and values of a query, in order; a value may hold anything.
using QueryParameters = QList<std::pair<QLatin1String, QString>>;

/// The address with the query behind it; none where the address is empty.
[[nodiscard]] QUrl serviceAddress(const QString &address, const QueryParameters &query);
