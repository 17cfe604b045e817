#include "cli/chosendefinitions.h"

bool useChosenDefinitions(const Arguments &arguments, Engine &engine, Report &report)
{
    if (!arguments.definitions)
        return true;
    auto loaded = SiteDefinitionStore::loadFile(*arguments.definitions);
    if (!loaded.error.isEmpty()) {
        report.error(*arguments.definitions, loaded.error);
        return false;
    }
    engine.definitions.useDefinitions(std::move(loaded.definitions));
    return true;
}
