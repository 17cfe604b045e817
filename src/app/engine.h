#pragma once

#include "app/prefscontroller.h"
#include "app/userlog.h"
#include "base/folders.h"
#include "gathering/httpqueue.h"
#include "gathering/sourcecatalog.h"
#include "itunes/itunesinterface.h"
#include "itunes/scriptrunner.h"
#include "songs/songfileinfocache.h"
#include "sources/definitionsupdate.h"
#include "sources/sitedefinitionstore.h"

#include <memory>

/// What lives as long as the process, built once and handed down.
class Engine {
public:
    enum class Definitions {
        Live, ///< newer ones are asked for once a day
        Fixed, ///< those that are in use stay in use
    };

    /// Where fetched pages are kept: on disk for the next run, or as long as the process only. The
    /// summaries of songs are kept with the pages on disk alone.
    enum class Pages { OnDisk, InMemory };

    explicit Engine(Pages pages = Pages::OnDisk, const QString &settings = settingsFile());
    Engine(const Engine &) = delete;
    Engine &operator=(const Engine &) = delete;

    /// Sets the fetch queue up and installs the tables. Called once, when it is settled which
    /// definitions are in use.
    void start(Definitions which);
    /// As large as the settings say, from now on.
    void adoptCacheSize();

    PrefsController prefs;
    SiteDefinitionStore definitions;
    HVHTTPQueue queue;
    SourceCatalog catalog;
    std::unique_ptr<ScriptRunner> scriptRunner;
    iTunesInterface itunes;
    UserLog log;
    SongFileInfoCache infoCache;
    DefinitionsUpdate update;

private:
    void setUpQueue();
};
