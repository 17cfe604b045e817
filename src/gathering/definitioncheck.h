#pragma once

#include <QString>
#include <QVariantMap>

#include <optional>

/// Why a set of definitions must not be used: one line that begins with the key, such as
/// "res_FreeDBInterface/discInfoURL is no http or https address: ftp://discs.example/". Nothing
/// when the set holds. A missing key is no fault, nor is a key that no schema knows.
[[nodiscard]] std::optional<QString> problemOfDefinitions(const QVariantMap &values);
