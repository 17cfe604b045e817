#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <optional>

/// One source's definition ("res_%@"): an open map of markers, formats and thresholds behind a
/// few questions. A missing key is a feature that is not available.
class SiteDefinition {
public:
    SiteDefinition() = default;
    explicit SiteDefinition(QVariantMap values)
        : mValues(std::move(values))
    {
    }

    /// Nothing when the key is missing.
    [[nodiscard]] std::optional<QString> text(const QString &key) const;
    /// Empty when the key is missing.
    [[nodiscard]] QString textOrEmpty(const QString &key) const;
    /// Numbers may stand as texts; 0 when the key is missing. A fraction is cut off.
    [[nodiscard]] int integer(const QString &key) const;
    [[nodiscard]] double number(const QString &key) const;
    /// A parse recipe, or any other dictionary below the key.
    [[nodiscard]] std::optional<QVariantMap> dictionary(const QString &key) const;
    [[nodiscard]] bool holds(const QStringList &keys) const;
    /// The format below `key` with the values put in place of "%@" or "%d", in order; nothing
    /// when the key is missing or its format empty.
    [[nodiscard]] std::optional<QString> formatted(const QString &key,
                                                   const QStringList &values) const;
    /// The hosts of the addresses in it, each once.
    [[nodiscard]] QStringList hosts() const;
    [[nodiscard]] const QVariantMap &values() const { return mValues; }

private:
    QVariantMap mValues;
};

/// All definitions in use: the source list, each source's definition, and the shared tables.
class SiteDefinitions {
public:
    SiteDefinitions() = default;
    explicit SiteDefinitions(QVariantMap values)
        : mValues(std::move(values))
    {
    }

    [[nodiscard]] QStringList sourcelist() const;
    [[nodiscard]] std::optional<SiteDefinition> definitionOf(const QString &className) const;
    [[nodiscard]] QMap<QString, QString> simplifiers() const;
    [[nodiscard]] QStringList genres() const;
    [[nodiscard]] QMap<QString, QString> lyricsSubstitutions() const;
    [[nodiscard]] const QVariantMap &values() const { return mValues; }
    [[nodiscard]] bool isEmpty() const { return mValues.isEmpty(); }

private:
    QVariantMap mValues;
};
