#include "base/clock.h"

namespace {
class SystemClock : public Clock {
public:
    [[nodiscard]] Time now() const override { return std::chrono::system_clock::now(); }
};
} // namespace

const Clock &systemClock()
{
    static const SystemClock clock;
    return clock;
}
