#pragma once

#include "app/engine.h"
#include "demo/samplesites.h"

#include <QTemporaryDir>

#include <optional>

/// Sample songs in a temporary folder, the sites that know them, and an engine that knows nothing
/// else: its settings are those of a new user and stand in the folder too, which goes with this.
class SampleGround {
public:
    SampleGround();

    /// Why there are no songs or sites, one line for the user; empty when all went well. Otherwise
    /// there is no engine.
    [[nodiscard]] const QString &error() const { return mError; }

    /// The folder that holds those of the songs.
    [[nodiscard]] QString songs() const { return mFolder.filePath(QStringLiteral("Demo")); }
    /// It is started.
    [[nodiscard]] Engine &engine() { return *mEngine; }

private:
    [[nodiscard]] QString setUp();

    QTemporaryDir mFolder;
    SampleSites mSites;
    std::optional<Engine> mEngine;
    QString mError;
};
