#pragma once

#include "tags/id3contents.h"
#include "tags/id3dialect.h"

#include <QByteArrayView>

namespace ID3v1Reader {

/// `tag`: 128 bytes that begin with "TAG". No value replaces a frame that is already present.
/// Throws MalformedData for fewer bytes.
void getAttributesFromID3v1(QByteArrayView tag, const ID3Dialect &dialect, ID3Contents &into);

} // namespace ID3v1Reader
