#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The bytes of an application resource such as "defaultres.xml". A file of that name in the
/// user's data folder, of at most 32 MB, wins over the built-in one; nothing when there is neither.
std::optional<QByteArray> resourceData(const QString &name);
