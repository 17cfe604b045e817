#pragma once

#include <QString>

/// The text without control characters, line ends and tabs apart: titles and names come from files
/// and sites, and must not steer the user's terminal.
[[nodiscard]] QString terminalText(QString text);

/// The same on one line.
[[nodiscard]] QString terminalLine(QString text);
