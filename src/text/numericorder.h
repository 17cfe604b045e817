#pragma once

#include <QStringView>

/// The order of texts in lists: whatever their case, with runs of digits (0 to 9) compared by
/// the number they stand for, so that "Take 9" comes before "take 10". It depends on no locale:
/// other characters compare by their case-folded code point. Leading zeros make no difference.
/// Less than, equal to or greater than 0.
int compareCaseInsensitiveNumeric(QStringView left, QStringView right);
