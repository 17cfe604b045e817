#pragma once

#include "demo/samplesite.h"
#include "gathering/sitedefinition.h"

#include <QHttpServer>

/// The sample sites of the demo, one for each source, served on a loopback port from inside the
/// process.
class SampleSites {
public:
    /// False when no port could be had.
    [[nodiscard]] bool listen();

    /// The definitions with the sample sites' addresses put in.
    [[nodiscard]] SiteDefinitions definitions(const SiteDefinitions &defaults) const;

private:
    QHttpServer mServer;
    quint16 mPort = 0;
};
