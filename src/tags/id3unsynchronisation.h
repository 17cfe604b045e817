#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// Unsynchronisation: a zero byte put after each 0xFF that could pass for the start of an MPEG
/// audio frame.
namespace ID3Unsynchronisation {

/// Whether the bytes may have been unsynchronised: none of them passes for such a start. Some
/// writers claim it of bytes that they left alone.
bool isPossible(QByteArrayView bytes);

/// The bytes as they were before, those in front of `from` left alone.
QByteArray undone(QByteArrayView bytes, qsizetype from = 0);

} // namespace ID3Unsynchronisation
