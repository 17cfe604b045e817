#pragma once

#include "gathering/sitedefinition.h"

#include <QSettings>

/// The definitions with what the user chose about sources put into them.
[[nodiscard]] SiteDefinitions definitionsAsChosen(const SiteDefinitions &definitions,
                                                  const QSettings &settings);
