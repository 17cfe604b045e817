#pragma once

#include <QString>
#include <QStringView>

/// What the reader knows about the IDs of frames.
namespace ID3FrameIDs {

enum class Kind {
    Unrecognized,
    Text, ///< begins with "T"
    Lyrics, ///< "USLT" or "ULT"
    Picture, ///< "APIC" or "PIC"
};

/// The kind of a frame among those that the tag's fields are made of.
Kind internalRecognizedKind(QStringView id);

/// Whether the library program shows the frame, so that it is worth keeping when unrecognised
/// frames are discarded.
bool isITunesRecognized(QStringView id);

/// Whether a frame of this ID must be reported: none is at present.
bool isDangerous(QStringView id);

/// The v2.3 ID for a v2.2 ID with a blank or a zero byte at its end, as some programs wrote them
/// into v2.3 tags; any other ID as it is.
QString currentID(const QString &paddedID);

} // namespace ID3FrameIDs
