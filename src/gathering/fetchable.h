#pragma once

#include <QUrl>

/// Whether an address may be fetched at all: http or https, with a host.
[[nodiscard]] bool isFetchable(const QUrl &url);
