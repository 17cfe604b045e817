#pragma once

#include <QSettings>
#include <QVariant>

/// One value of the settings file: its key and what it reads as when it is unset or no such value
/// at all. Reading asks the settings each time, so that a change takes effect at once.
template<typename Value>
struct Setting {
    const char *key;
    Value whenUnset;

    [[nodiscard]] bool isSet(const QSettings &settings) const
    {
        return settings.contains(QLatin1String(key));
    }

    [[nodiscard]] Value value(const QSettings &settings) const
    {
        QVariant stored = settings.value(QLatin1String(key));
        const bool isOne = stored.convert(QMetaType::fromType<Value>());
        return isOne ? stored.value<Value>() : whenUnset;
    }

    void set(QSettings &settings, const Value &value) const
    {
        settings.setValue(QLatin1String(key), QVariant::fromValue(value));
    }

    void unset(QSettings &settings) const { settings.remove(QLatin1String(key)); }
};
