#include "base/checksum.h"

// Compiled in: loading a library for it would take longer than starting allows.
#define XXH_INLINE_ALL
#include <xxhash.h>

struct Checksum::State {
    XXH3_state_t xxh3;
};

Checksum::Checksum()
    : mState(std::make_unique<State>())
{
    XXH3_64bits_reset(&mState->xxh3);
}

Checksum::~Checksum() = default;

void Checksum::add(QByteArrayView bytes)
{
    XXH3_64bits_update(&mState->xxh3, bytes.data(), static_cast<size_t>(bytes.size()));
}

quint64 Checksum::value() const
{
    return XXH3_64bits_digest(&mState->xxh3);
}

quint64 Checksum::of(QByteArrayView bytes)
{
    return XXH3_64bits(bytes.data(), static_cast<size_t>(bytes.size()));
}
