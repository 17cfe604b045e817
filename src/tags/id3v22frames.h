#pragma once

#include "tags/id3contents.h"
#include "tags/tagoptions.h"

#include <QByteArrayView>

/// The frames of ID3v2.2 tags.
namespace ID3v22Frames {

/// `tag` is a whole tag, header included. Throws MalformedData where the read as a whole fails.
void getAttributesFromID3v22(QByteArrayView tag, const ReadOptions &options, ID3Contents &into);

} // namespace ID3v22Frames
