#pragma once

#include <QString>

#include <optional>

/// The file that a player means by the address of its track; nothing when it is no file of this
/// machine. Players differ in what they encode: where the decoded path does not exist, what
/// stands after "file://" is tried as it is.
[[nodiscard]] std::optional<QString> pathOfPlayerAddress(const QString &address);
