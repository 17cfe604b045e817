#include "reader.h"

#include "tags/id3image.h"

void read(const QByteArray &body)
{
    for (const ID3Dialect dialect : {ID3Dialect::classic(), ID3Dialect::standard()}) {
        if (const auto image = ID3Image::imageWithID3v23Frame(body, dialect))
            static_cast<void>(image->dataForID3v23Frame(FrameSizes::Accurate, true, dialect));
        if (const auto image = ID3Image::imageWithID3v22Frame(body, dialect))
            static_cast<void>(image->dataForID3v22Frame(dialect));
    }
}
