#include "base/progress.h"

#include <utility>

void Progress::setIndeterminate(bool isIndeterminate)
{
    if (std::exchange(mIsIndeterminate, isIndeterminate) != isIndeterminate)
        Q_EMIT changed();
}

void Progress::setValue(double value)
{
    mValue = value;
    Q_EMIT changed();
}

void Progress::setMaximum(double maximum)
{
    mMaximum = maximum;
    Q_EMIT changed();
}
