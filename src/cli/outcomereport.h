#pragma once

#include "app/worklist.h"

#include <QJsonObject>
#include <QString>

// What is said of a song that was gathered.

[[nodiscard]] QJsonObject outcomeAsJson(const SongOutcome &outcome);
[[nodiscard]] QString outcomeAsText(const SongOutcome &outcome);
