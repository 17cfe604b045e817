#pragma once

#include "app/worklist.h"

#include <QJsonObject>
#include <QString>

// What is said of a song that was gathered.

[[nodiscard]] QJsonObject outcomeAsJson(const SongOutcome &outcome);
enum class Detail { Calm, Verbose };

/// Verbose: with the reason of the choice and the albums that there were to choose from.
[[nodiscard]] QString outcomeAsText(const SongOutcome &outcome, Detail detail = Detail::Calm);
