#include "tags/atompath.h"

#include "text/integervalue.h"

#include <QStringTokenizer>

std::vector<AtomStep> atomStepsOf(QStringView path, QStringView indexed)
{
    std::vector<AtomStep> steps;
    for (const QStringView name : qTokenize(path, u':'))
        steps.push_back({atomNameOfText(name), 1});
    size_t level = 0;
    for (const QStringView index : qTokenize(indexed, u':', Qt::SkipEmptyParts))
        if (level < steps.size())
            steps[level++].index = integerValue(index);
    return steps;
}
