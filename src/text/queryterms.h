#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

namespace HVUtility {

enum class AlphaNumericOnly { No, Yes };

/// A search term as it goes into a query string: ASCII, spaces as `spaceString`, escaped. A "+"
/// of the term counts as a space.
[[nodiscard]] QString stringForPost(const QString &string, AlphaNumericOnly alphaNumericOnly,
                                    const QString &spaceString);

/// The body of a form, "k=v&k=v", with the keys in the given order, or else sorted. Keys without
/// a value are left out; "&" and "=" inside values stay as they are.
[[nodiscard]] QByteArray HTTPFromDictionary(const QMap<QString, QString> &dictionary,
                                            const std::optional<QStringList> &order = {});

} // namespace HVUtility
