#include "itunes/localrunner.h"

#include "base/log.h"
#include "itunes/scripttext.h"

using namespace Qt::StringLiterals;

/// A script by its text, or else by the key of its resource, and what answers it.
struct LocalRunner::Answer {
    QStringView text;
    const char16_t *key;
    Result (LocalRunner::*answer)(const Arguments &);
};

std::optional<QString> LocalRunner::run(const QString &script)
{
    static constexpr Answer answers[] = {
        {{}, u"iTunes_play_currently_playing", &LocalRunner::playingTrack},
        {ScriptText::pause, nullptr, &LocalRunner::pause},
        {ScriptText::resume, nullptr, &LocalRunner::resume},
    };
    for (const Answer &answer : answers) {
        const QString text = answer.key
            ? ScriptText::ofResource(QString::fromUtf16(answer.key)).value_or(QString())
            : answer.text.toString();
        if (const auto arguments = ScriptText::argumentsOf(script, text))
            return (this->*answer.answer)(*arguments);
    }
    qCWarning(logItunes, "a script is none of those known here");
    return std::nullopt;
}

LocalRunner::Result LocalRunner::playingTrack(const Arguments &)
{
    return mPlayer.pathOfPlayingTrack();
}

LocalRunner::Result LocalRunner::pause(const Arguments &)
{
    mPlayer.pause();
    return std::nullopt;
}

LocalRunner::Result LocalRunner::resume(const Arguments &)
{
    mPlayer.resume();
    return std::nullopt;
}
