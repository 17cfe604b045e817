#pragma once

#include "cli/gatherrun.h"
#include "cli/outcomereport.h"

#include <QJsonObject>

// What is said at the end of a run.

[[nodiscard]] QJsonObject summaryAsJson(const GatherRun::Summary &summary);

struct SummaryManner {
    WriteSongs write = WriteSongs::Yes;
    Detail detail = Detail::Calm; ///< Verbose: every song that could not be asked about is named
};

[[nodiscard]] QString summaryAsText(const GatherRun::Summary &summary, const SummaryManner &manner);
