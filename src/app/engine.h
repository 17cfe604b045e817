#pragma once

#include "app/prefscontroller.h"
#include "app/userlog.h"
#include "gathering/httpqueue.h"
#include "gathering/sourcecatalog.h"
#include "itunes/itunesinterface.h"
#include "sources/definitionsupdate.h"
#include "sources/sitedefinitionstore.h"

/// What lives as long as the process, built once and handed down.
class Engine {
public:
    enum class Definitions { Live, Fixed };

    /// Where fetched pages are kept: on disk for the next run, or as long as the process only.
    enum class Pages { OnDisk, InMemory };

    explicit Engine(Pages pages = Pages::OnDisk);
    Engine(const Engine &) = delete;
    Engine &operator=(const Engine &) = delete;

    /// Installs the tables, sets the fetch queue up and, with live definitions, asks for newer
    /// ones when a day has gone by.
    void start(Definitions definitions);

    PrefsController prefs;
    SiteDefinitionStore definitions;
    HVHTTPQueue queue;
    SourceCatalog catalog;
    iTunesInterface itunes;
    UserLog log;
    DefinitionsUpdate update;
};
