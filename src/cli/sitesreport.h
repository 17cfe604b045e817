#pragma once

#include "sources/listedsource.h"
#include "sources/sitecheck.h"

#include <QJsonObject>

// What `sites` tells of a source, as JSON and for reading.

[[nodiscard]] QJsonObject listedAsJson(const ListedSource &source);
[[nodiscard]] QString listedAsText(const ListedSource &source);
[[nodiscard]] QJsonObject findingAsJson(const SiteFinding &finding);
[[nodiscard]] QString findingAsText(const SiteFinding &finding);
