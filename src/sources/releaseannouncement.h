#pragma once

#include "gathering/sitedefinition.h"

/// A newer release of the program, as the definitions tell of it.
struct ReleaseAnnouncement {
    QString message; ///< for the user, with the release notes
    QString downloadLocation; ///< an http or https address
};

/// Nothing when there is no newer release, or its version or address is not told.
[[nodiscard]] std::optional<ReleaseAnnouncement>
announcedRelease(const SiteDefinitions &definitions);
