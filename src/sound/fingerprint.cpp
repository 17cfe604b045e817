#include "sound/fingerprint.h"

#include "base/bytes.h"
#include "sound/sounddecoder.h"

#include <chromaprint.h>

#include <memory>
#include <new>

namespace {

/// What everybody sends; the services compare no more.
constexpr int secondsUsed = 120;

struct Freeing {
    void operator()(ChromaprintContext *context) const { chromaprint_free(context); }
    void operator()(char *text) const { chromaprint_dealloc(text); }
};
using Context = std::unique_ptr<ChromaprintContext, Freeing>;

void require(int succeeded)
{
    if (succeeded != 1)
        throw std::bad_alloc(); // the only way in which its calls fail
}

/// Empty where there was too little sound for an item.
QByteArray fingerprintIn(const Context &context)
{
    int size = 0;
    require(chromaprint_get_raw_fingerprint_size(context.get(), &size));
    if (size == 0)
        return {};
    char *text = nullptr;
    require(chromaprint_get_fingerprint(context.get(), &text));
    const std::unique_ptr<char, Freeing> owned(text);
    return QByteArray(text);
}

} // namespace

QByteArray fingerprintOfSong(const QByteArray &path)
{
    const Context context(chromaprint_new(CHROMAPRINT_ALGORITHM_DEFAULT));
    if (!context)
        throw std::bad_alloc();
    const int sampleRate = chromaprint_get_sample_rate(context.get());
    SoundDecoder decoder(path, sampleRate);
    require(chromaprint_start(context.get(), sampleRate, 1));
    qint64 left = qint64(secondsUsed) * sampleRate;
    for (auto samples = decoder.next(); left > 0 && !samples.empty(); samples = decoder.next()) {
        const auto used = static_cast<int>(qMin(left, static_cast<qint64>(samples.size())));
        require(chromaprint_feed(context.get(), samples.data(), used));
        left -= used;
    }
    require(chromaprint_finish(context.get()));
    const QByteArray fingerprint = fingerprintIn(context);
    if (fingerprint.isEmpty())
        throw MalformedData(QStringLiteral("too little sound"));
    return fingerprint;
}
