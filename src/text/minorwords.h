#pragma once

#include <QStringList>

namespace HVUtility {

/// "a", "an", "and", "of", "the": the words that say nothing in a title, in the order in which
/// they are removed.
[[nodiscard]] const QStringList &minorWords();

} // namespace HVUtility
