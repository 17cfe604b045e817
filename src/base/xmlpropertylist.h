#pragma once

#include <QByteArray>
#include <QVariant>

/// Reads a property list in XML, no deeper than `maxDepth`; throws MalformedData with the line of
/// what is wrong. libplist is not asked here: it says neither what is wrong nor where, and takes
/// itself apart recursively. Entities of the document's own are refused; nothing outside it is
/// ever read.
QVariant readXmlPropertyList(const QByteArray &data, int maxDepth);
