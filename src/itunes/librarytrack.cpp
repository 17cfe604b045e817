#include "itunes/librarytrack.h"

QVariantMap LibraryTrack::trackInfo() const
{
    QVariantMap info;
    for (const auto &[key, value] : libraryTexts)
        if (!(this->*value).isNull())
            info.insert(key.toString(), this->*value);
    for (const auto &[key, value] : libraryNumbers)
        if (this->*value != 0)
            info.insert(key.toString(), this->*value);
    return info;
}
