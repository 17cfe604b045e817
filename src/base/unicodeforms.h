#pragma once

#include <QString>

/// The path as it stands in the file system: as given, or with its letters composed or decomposed,
/// since names that were made on a Mac come in the other form. Null when there is none.
[[nodiscard]] QString existingForm(const QString &path);
