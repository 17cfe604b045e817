#include "app/runcontext.h"

#include "app/sourcechoices.h"
#include "base/ownprogram.h"

namespace {

std::optional<IdentifyingMeans> identifyingMeansOf(const PrefsController &prefs)
{
    const QString key = prefs.acoustIDKey();
    if (key.isEmpty())
        return {};
    return IdentifyingMeans{key, pathOfOwnProgram(QStringLiteral("tagwright-fingerprint"))};
}

} // namespace

GatherContext runContext(Engine &engine, LibraryLending &library)
{
    return {engine.queue, engine.catalog,
            definitionsAsChosen(engine.definitions.liveResources(), engine.prefs.settings()),
            library, identifyingMeansOf(engine.prefs)};
}
