#include "reader.h"

#include "sources/freedbrecord.h"

void read(const QByteArray &bytes)
{
    static_cast<void>(albumWithFreeDBData(bytes));
}
