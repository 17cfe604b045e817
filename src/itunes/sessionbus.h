#pragma once

#include <chrono>

/// Whether there is a session bus and it speaks when spoken to. Connecting to one that does not
/// would wait for ever. The address is looked for where the bus library does, but no bus is
/// launched; only buses with a socket of this machine count.
[[nodiscard]] bool sessionBusAnswers(std::chrono::milliseconds limit);
