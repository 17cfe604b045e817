#pragma once

#include <QJsonValue>
#include <QString>

#include <optional>

/// What a service knows of the words of one recording.
struct LyricsRecord {
    QString title{};
    QString artist{};
    QString album{};
    std::optional<double> seconds{};
    QString plain{};
    QString synced{}; ///< in the LRC form
    bool isInstrumental = false;

    /// Absent and null keys read as empty, whatever else they hold as absent.
    [[nodiscard]] static LyricsRecord fromJson(const QJsonValue &record);

    [[nodiscard]] bool hasWords() const { return !plain.isEmpty() || !synced.isEmpty(); }
};
