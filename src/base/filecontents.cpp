#include "base/filecontents.h"

#include <utility>

void FileContents::append(QByteArray bytes)
{
    if (bytes.isEmpty())
        return;
    mLength += bytes.size();
    mPieces.push_back({.bytes = std::move(bytes)});
}

void FileContents::keep(qint64 offset, qint64 length)
{
    if (length == 0)
        return;
    mLength += length;
    mPieces.push_back({.bytes = {}, .keptOffset = offset, .keptLength = length});
}
