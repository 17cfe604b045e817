#pragma once

#include "base/bytes.h"
#include "tags/id3dialect.h"

#include <cstdlib>

/// What a fuzz target does with its input.
void read(const QByteArray &bytes);

inline void verify(bool holds)
{
    if (!holds)
        std::abort();
}

/// Runs what may refuse its input with MalformedData, and with nothing else.
template<typename Read>
void refusing(Read read)
{
    try {
        read();
    } catch (const MalformedData &) {
    }
}

template<typename Read>
void refusingInEachDialect(Read read)
{
    for (const ID3Dialect &dialect : {ID3Dialect::classic(), ID3Dialect::standard()})
        refusing([&] { read(dialect); });
}
