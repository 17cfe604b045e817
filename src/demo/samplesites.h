#pragma once

#include "demo/samplesite.h"
#include "gathering/sitedefinition.h"

#include <QHttpServer>

#include <vector>

[[nodiscard]] const std::vector<SampleSite> &sampleSites();

/// What the site at that address answers, the fields of a posted form given; nothing: there is no
/// such page.
[[nodiscard]] std::optional<SamplePage> samplePageAt(const QUrl &address, const QByteArray &form);

/// The definitions with the sites' addresses put in, and with no other sources, all on one server
/// ("http://host:port").
[[nodiscard]] SiteDefinitions sampleDefinitions(const SiteDefinitions &defaults,
                                                const QString &server);

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
