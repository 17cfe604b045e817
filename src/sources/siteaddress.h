#pragma once

#include <QString>

#include <optional>

/// The address of a path that was found for a site, put behind the definition's prefix as it
/// stands. Nothing when that is no http or https address, or when the path would lead to another
/// host or port than the prefix names ("@elsewhere.example/" behind "http://site.example").
[[nodiscard]] std::optional<QString> addressOnSite(const QString &prefix, const QString &path);
