#pragma once

#include <QByteArray>
#include <QVariant>

/// Property lists, XML and binary, as variants: dictionaries are QVariantMap, arrays
/// QVariantList, and the rest QString, bool, qint64, double, QByteArray and QDateTime.
namespace PropertyList {

struct Parsed {
    QVariant value; ///< invalid when the parsing failed
    QString error; ///< one line, empty when it went well
};

/// Nesting deeper than this is damage; so is anything after the list.
constexpr int maxDepth = 64;

[[nodiscard]] Parsed parse(const QByteArray &data);
[[nodiscard]] QByteArray toXml(const QVariant &value);
[[nodiscard]] QByteArray toBinary(const QVariant &value);

} // namespace PropertyList
