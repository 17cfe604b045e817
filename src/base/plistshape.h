#pragma once

#include <QByteArrayView>

/// Throws MalformedData if a binary property list is nested deeper than `maxDepth`, refers to
/// itself, points outside its bytes, or is so full of shared parts that it would grow beyond
/// measure when they are copied. To be asked before libplist, which recurses and copies.
void checkBinaryPlistShape(QByteArrayView data, int maxDepth);
