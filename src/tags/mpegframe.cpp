#include "tags/mpegframe.h"

#include <array>

namespace {

// Thousands of bits a second by the index in the header, the first being "free".
using Bitrates = std::array<int, 15>;
constexpr std::array<Bitrates, 3> bitratesOfMPEG1{{
    {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},
    {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},
    {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320},
}};
constexpr Bitrates bitratesOfMPEG2Layer1{0,   32,  48,  56,  64,  80,  96, 112,
                                         128, 144, 160, 176, 192, 224, 256};
constexpr Bitrates bitratesOfMPEG2{0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};
constexpr std::array sampleRatesOfMPEG1{44'100, 48'000, 32'000};

const Bitrates &bitratesOf(int version, int layer)
{
    if (version == 1)
        return bitratesOfMPEG1.at(static_cast<size_t>(layer - 1));
    return layer == 1 ? bitratesOfMPEG2Layer1 : bitratesOfMPEG2;
}

int samplesOf(int version, int layer)
{
    if (layer == 1)
        return 384;
    return layer == 3 && version == 2 ? 576 : 1152;
}

} // namespace

std::optional<MPEGFrame> MPEGFrame::headerIn(QByteArrayView bytes)
{
    if (bytes.size() < headerLength)
        return {};
    const auto byte = [bytes](qsizetype at) { return static_cast<unsigned char>(bytes[at]); };
    const int versionBits = byte(1) >> 3 & 3; // 0: 2.5, 2: 2, 3: 1
    const int layerBits = byte(1) >> 1 & 3; // 1: III, 2: II, 3: I
    const auto bitrateIndex = static_cast<size_t>(byte(2) >> 4);
    const auto rateIndex = static_cast<size_t>(byte(2) >> 2 & 3);
    if (byte(0) != 0xFF || (byte(1) & 0xE0) != 0xE0 || versionBits == 1 || layerBits == 0
        || bitrateIndex == 0
        || bitrateIndex >= std::tuple_size_v<Bitrates> || rateIndex >= sampleRatesOfMPEG1.size())
        return {};
    MPEGFrame frame;
    frame.version = versionBits == 3 ? 1 : 2;
    frame.layer = 4 - layerBits;
    frame.bitrate = 1000 * bitratesOf(frame.version, frame.layer).at(bitrateIndex);
    frame.sampleRate = sampleRatesOfMPEG1.at(rateIndex) >> (3 - qMax(versionBits, 1));
    frame.samples = samplesOf(frame.version, frame.layer);
    frame.isMono = byte(3) >> 6 == 3;
    frame.isPadded = (byte(2) & 2) != 0;
    return frame;
}

int MPEGFrame::leastLength() const
{
    constexpr size_t leastIndex = 1;
    return lengthAt(1000 * bitratesOf(version, layer).at(leastIndex));
}

qsizetype MPEGFrame::offsetOfCounts() const
{
    if (version == 1)
        return headerLength + (isMono ? 17 : 32);
    return headerLength + (isMono ? 9 : 17);
}
