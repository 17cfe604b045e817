#pragma once

#include <QString>

namespace HVStringExtensions {

/// `text` in ASCII: letters lose their accents, and what cannot be written in ASCII is dropped.
[[nodiscard]] QString plainASCIIString(const QString &text);

} // namespace HVStringExtensions
