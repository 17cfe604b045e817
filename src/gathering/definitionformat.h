#pragma once

#include <QString>
#include <QStringList>

// The formats of site definitions: "%@" stands for a text, "%d" for a number, and "%%" for a
// percent sign.

/// The placeholders in order, each with its character: {"%@", "%d"}. A lone "%" at the end is one.
[[nodiscard]] QStringList placeholdersOf(const QString &format);

/// The format with one value after another in place of its placeholders, whatever their kind.
[[nodiscard]] QString filledFormat(const QString &format, const QStringList &values);
