#pragma once

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
    /// Numbers may stand as texts; 0 when the key is missing.
    [[nodiscard]] int integer(const QString &key) const;
    [[nodiscard]] double number(const QString &key) const;
    /// A parse specification, or any other dictionary below the key.
    [[nodiscard]] std::optional<QVariantMap> dictionary(const QString &key) const;
    [[nodiscard]] bool holds(const QStringList &keys) const;
    /// The format below `key` with `value` put in place of "%@"; nothing without the key.
    [[nodiscard]] std::optional<QString> formatted(const QString &key, const QString &value) const;
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

/// Why a set of definitions must not be used: one line that names the key. Nothing when it holds.
[[nodiscard]] std::optional<QString> problemOfDefinitions(const QVariantMap &values);
