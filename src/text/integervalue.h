#pragma once

#include <QStringView>

/// The integer at the start of a text: leading white space skipped, an optional sign, digits up
/// to the first character that is none. No digits give 0; what does not fit gives the nearest
/// int.
[[nodiscard]] int integerValue(QStringView text);
