#include "app/sharedtables.h"

#include "tags/genretable.h"
#include "text/lyricscleanup.h"
#include "text/simplifier.h"

void installTables(const SiteDefinitions &definitions)
{
    HVUtility::setSimplifiersDictionary(definitions.simplifiers());
    GenreTable::install(definitions.genres());
    LyricsCleanup::setSubstitutions(definitions.lyricsSubstitutions());
}
