#pragma once

#include "tags/atomname.h"

#include <QStringView>

#include <vector>

/// One step of a path through atoms: a name, and which one of those of that name, from 1.
struct AtomStep {
    AtomName name = 0;
    int index = 1;
};

/// The steps of "moov:trak" and "1:2"; where there is no index, the first.
[[nodiscard]] std::vector<AtomStep> atomStepsOf(QStringView path, QStringView indexed);
