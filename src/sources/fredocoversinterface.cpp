#include "sources/fredocoversinterface.h"

QString FredoCoversInterface::pathEnd() const
{
    return resources().textOrEmpty(QStringLiteral("suffix"));
}
