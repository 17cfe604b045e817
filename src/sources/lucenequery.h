#pragma once

#include <QString>
#include <QStringList>

// Queries for services that search by fields, in the syntax of Lucene.

/// What is looked for in a field: "recording:(first light)". Any of the words counts, those with
/// all of them first. What has a meaning in the syntax is taken literally, AND, OR and NOT too.
/// Empty when there is no word.
[[nodiscard]] QString luceneTerm(const QString &field, const QString &words);

/// The terms, all of which must hold, encoded for an address; empty ones are left out.
[[nodiscard]] QString luceneQuery(QStringList terms);
