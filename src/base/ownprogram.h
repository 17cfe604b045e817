#pragma once

#include <QString>

/// Where the program of that name stands which belongs to this one: beside it, or where an
/// installation keeps programs that users do not start themselves.
[[nodiscard]] QString pathOfOwnProgram(const QString &name);
