#pragma once

#include "text/minorwords.h"

#include <QMap>
#include <QString>

#include <optional>

namespace HVUtility {

/// Installs the replacements that simplifyString() makes, for all threads.
void setSimplifiersDictionary(const QMap<QString, QString> &simplifiers);

/// A key for comparing names loosely: minor words removed, ASCII, simplifiers applied, and of
/// that the letters and digits alone, in lower case. Where none of those is left, the text in
/// ASCII without minor words.
[[nodiscard]] QString simplifyString(const QString &string);

/// Whether both are given and their simplified forms are equal.
[[nodiscard]] bool isStringSimpleEqual(const std::optional<QString> &string,
                                       const std::optional<QString> &simpleEqual);

/// Whether both are given and the first contains the second, in any case. Nothing contains an
/// empty string.
[[nodiscard]] bool doesStringHaveString(const std::optional<QString> &string,
                                        const std::optional<QString> &haveString);

} // namespace HVUtility
