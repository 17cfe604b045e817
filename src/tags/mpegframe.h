#pragma once

#include <QByteArrayView>

#include <optional>

/// What the header of a frame of MPEG audio (MPEG-1, 2 and 2.5, layers I to III) says.
struct MPEGFrame {
    static constexpr qsizetype headerLength = 4;

    int version = 0; ///< 1; 2, which 2.5 counts as, too
    int layer = 0;
    int bitrate = 0; ///< bits a second; never 0
    int sampleRate = 0; ///< a second; never 0
    int samples = 0; ///< in each channel
    bool isMono = false;
    bool isPadded = false;

    /// Nothing when `bytes` do not begin with a header, and for frames of "free" bitrate, whose
    /// length no header tells.
    static std::optional<MPEGFrame> headerIn(QByteArrayView bytes);

    /// Bytes of the whole frame; never less than its header.
    [[nodiscard]] int length() const { return lengthAt(bitrate) + (isPadded ? slotLength() : 0); }
    /// Of the shortest frame that a song with such frames can hold.
    [[nodiscard]] int leastLength() const;
    /// Whether the two may follow each other in one song.
    [[nodiscard]] bool isLike(const MPEGFrame &other) const
    {
        return version == other.version && layer == other.layer && sampleRate == other.sampleRate;
    }
    /// Bytes from the frame's begin to where encoders put their own count of frames.
    [[nodiscard]] qsizetype offsetOfCounts() const;

private:
    [[nodiscard]] int slotLength() const { return layer == 1 ? 4 : 1; }
    [[nodiscard]] int lengthAt(int bitsASecond) const
    {
        return samples / 8 / slotLength() * bitsASecond / sampleRate * slotLength();
    }
};
