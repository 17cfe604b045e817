#pragma once

#include "base/clock.h"

/// A clock that moves when told.
class FakeClock : public Clock {
public:
    [[nodiscard]] Time now() const override { return mNow; }
    void advance(std::chrono::milliseconds by) { mNow += by; }

private:
    Time mNow = std::chrono::system_clock::now();
};
