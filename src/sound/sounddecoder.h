#pragma once

#include <QByteArray>

#include <memory>
#include <vector>

struct AVCodecContext;
struct AVFormatContext;
struct AVFrame;
struct AVPacket;
struct SwrContext;

/// The sound of a song of MPEG audio or MP4, decoded piece by piece, as the file holds it. No other
/// kind of file is opened, and no other file or address that one may name.
class SoundDecoder {
public:
    /// Samples come out in one channel at that rate. Throws MalformedData when there is no sound
    /// that can be decoded.
    SoundDecoder(const QByteArray &path, int sampleRate);
    SoundDecoder(const SoundDecoder &) = delete;
    SoundDecoder &operator=(const SoundDecoder &) = delete;
    ~SoundDecoder();

    /// The next samples; empty at the end. Damaged pieces are passed over.
    [[nodiscard]] std::vector<qint16> next();

private:
    struct Closing {
        void operator()(AVFormatContext *file) const;
        void operator()(AVCodecContext *codec) const;
        void operator()(AVFrame *frame) const;
        void operator()(AVPacket *packet) const;
        void operator()(SwrContext *resampler) const;
    };

    void openFile(const QByteArray &path);
    void openCodec();
    [[nodiscard]] bool readFrame();
    void sendPacket();
    [[nodiscard]] bool matchesResampler() const;
    void makeResampler();

    int mSampleRate;
    int mStream = -1;
    int mRateOfFrames = 0; ///< what the resampler was made for, like the next two
    int mChannelsOfFrames = 0;
    int mFormatOfFrames = -1;
    std::unique_ptr<AVFormatContext, Closing> mFile;
    std::unique_ptr<AVCodecContext, Closing> mCodec;
    std::unique_ptr<AVPacket, Closing> mPacket;
    std::unique_ptr<AVFrame, Closing> mFrame;
    std::unique_ptr<SwrContext, Closing> mResampler;
};
