#pragma once

#include <QIcon>

/// The picture of resources/icons of that name, such as "begin" or "Menu-Library", drawn at any
/// size and in the text colour of the palette in force when it is painted. Empty for other names.
[[nodiscard]] QIcon icon(const QString &name);
