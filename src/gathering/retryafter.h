#pragma once

#include "base/clock.h"

#include <QByteArray>

#include <optional>

/// How long an answer's Retry-After header asks to wait, as seconds or as an HTTP date; a date
/// that is past asks for nothing. Absent when the header is missing or unreadable.
std::optional<std::chrono::milliseconds> retryAfter(const QByteArray &header, Clock::Time now);
