#pragma once

#include <chrono>

/// What time it is, as an object, so that whoever waits for minutes or days can be shown to.
class Clock {
public:
    using Time = std::chrono::system_clock::time_point;

    Clock() = default;
    Clock(const Clock &) = delete;
    Clock &operator=(const Clock &) = delete;
    virtual ~Clock() = default;

    [[nodiscard]] virtual Time now() const = 0;
};

/// The clock of this machine.
const Clock &systemClock();
