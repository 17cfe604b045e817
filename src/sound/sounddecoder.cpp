#include "sound/sounddecoder.h"

#include "base/bytes.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/channel_layout.h>
#include <libavutil/dict.h>
#include <libswresample/swresample.h>
}

#include <new>

namespace {

/// What a file may be; pictures in it are not decoded.
constexpr auto formats = "mp3,mov";
constexpr auto codecs = "mp3float,mp3,mp2float,mp2,mp1float,mp1,aac,alac";

[[noreturn]] void refuse()
{
    throw MalformedData(QStringLiteral("no sound that can be decoded"));
}

template<typename Made>
Made *orNoMemory(Made *made)
{
    return made ? made : throw std::bad_alloc();
}

} // namespace

void SoundDecoder::Closing::operator()(AVFormatContext *file) const
{
    avformat_close_input(&file);
}

void SoundDecoder::Closing::operator()(AVCodecContext *codec) const
{
    avcodec_free_context(&codec);
}

void SoundDecoder::Closing::operator()(AVFrame *frame) const
{
    av_frame_free(&frame);
}

void SoundDecoder::Closing::operator()(AVPacket *packet) const
{
    av_packet_free(&packet);
}

void SoundDecoder::Closing::operator()(SwrContext *resampler) const
{
    swr_free(&resampler);
}

SoundDecoder::SoundDecoder(const QByteArray &path, int sampleRate)
    : mSampleRate(sampleRate)
    , mPacket(orNoMemory(av_packet_alloc()))
    , mFrame(orNoMemory(av_frame_alloc()))
{
    av_log_set_level(AV_LOG_QUIET);
    openFile(path);
    openCodec();
}

SoundDecoder::~SoundDecoder() = default;

void SoundDecoder::openFile(const QByteArray &path)
{
    AVDictionary *options = nullptr;
    av_dict_set(&options, "format_whitelist", formats, 0);
    av_dict_set(&options, "codec_whitelist", codecs, 0);
    av_dict_set(&options, "protocol_whitelist", "file", 0);
    AVFormatContext *file = nullptr;
    // Without its prefix a path with a colon in it would be taken for an address.
    const int failure = avformat_open_input(&file, ("file:" + path).constData(), nullptr, &options);
    av_dict_free(&options);
    if (failure < 0)
        refuse();
    mFile.reset(file);
    if (avformat_find_stream_info(file, nullptr) < 0)
        refuse();
}

void SoundDecoder::openCodec()
{
    const AVCodec *codec = nullptr;
    mStream = av_find_best_stream(mFile.get(), AVMEDIA_TYPE_AUDIO, -1, -1, &codec, 0);
    if (mStream < 0)
        refuse();
    for (unsigned i = 0; i < mFile->nb_streams; ++i)
        mFile->streams[i]->discard =
            static_cast<int>(i) == mStream ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    mCodec.reset(orNoMemory(avcodec_alloc_context3(codec)));
    const AVCodecParameters *parameters = mFile->streams[mStream]->codecpar;
    if (avcodec_parameters_to_context(mCodec.get(), parameters) < 0)
        refuse();
    AVDictionary *options = nullptr;
    av_dict_set(&options, "codec_whitelist", codecs, 0);
    const int failure = avcodec_open2(mCodec.get(), codec, &options);
    av_dict_free(&options);
    if (failure < 0)
        refuse();
}

std::vector<qint16> SoundDecoder::next()
{
    std::vector<qint16> samples;
    while (samples.empty() && readFrame()) {
        if (!matchesResampler())
            makeResampler();
        const int room = swr_get_out_samples(mResampler.get(), mFrame->nb_samples);
        if (room <= 0)
            continue;
        samples.resize(static_cast<size_t>(room));
        auto *into = reinterpret_cast<uint8_t *>(samples.data());
        const auto **from = const_cast<const uint8_t **>(mFrame->extended_data);
        const int made = swr_convert(mResampler.get(), &into, room, from, mFrame->nb_samples);
        samples.resize(static_cast<size_t>(qMax(made, 0)));
    }
    return samples;
}

/// False at the end.
bool SoundDecoder::readFrame()
{
    for (;;) {
        const int result = avcodec_receive_frame(mCodec.get(), mFrame.get());
        if (result == AVERROR_EOF)
            return false;
        if (result >= 0 && mFrame->nb_samples > 0 && mFrame->sample_rate > 0)
            return true;
        if (result < 0) // it wants more, or what it had was damaged
            sendPacket();
    }
}

/// The next packet of the sound; at the end what asks for the last frames.
void SoundDecoder::sendPacket()
{
    bool isSent = false;
    while (!isSent && av_read_frame(mFile.get(), mPacket.get()) >= 0) {
        isSent = mPacket->stream_index == mStream;
        if (isSent)
            avcodec_send_packet(mCodec.get(), mPacket.get());
        av_packet_unref(mPacket.get());
    }
    if (!isSent)
        avcodec_send_packet(mCodec.get(), nullptr);
}

/// A damaged or joined file may change its rate or channels on the way.
bool SoundDecoder::matchesResampler() const
{
    return mResampler && mFrame->sample_rate == mRateOfFrames
        && mFrame->ch_layout.nb_channels == mChannelsOfFrames && mFrame->format == mFormatOfFrames;
}

void SoundDecoder::makeResampler()
{
    AVChannelLayout mono;
    av_channel_layout_default(&mono, 1);
    SwrContext *made = nullptr;
    const int failure = swr_alloc_set_opts2(
        &made, &mono, AV_SAMPLE_FMT_S16, mSampleRate, &mFrame->ch_layout,
        static_cast<AVSampleFormat>(mFrame->format), mFrame->sample_rate, 0, nullptr);
    mResampler.reset(made);
    if (failure < 0 || swr_init(made) < 0)
        refuse();
    mRateOfFrames = mFrame->sample_rate;
    mChannelsOfFrames = mFrame->ch_layout.nb_channels;
    mFormatOfFrames = mFrame->format;
}
