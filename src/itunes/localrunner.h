#pragma once

#include "itunes/mprisplayer.h"
#include "itunes/scriptrunner.h"

#include <QList>

/// Runs the program's own scripts without an AppleScript: recognises each by the text that it was
/// made from, and answers by the music players of the session bus.
class LocalRunner : public ScriptRunner {
public:
    std::optional<QString> run(const QString &script) override;
    /// This runner is what plays the application's part.
    bool isApplicationRunning(const QString &) override { return true; }

private:
    using Arguments = QList<QString>;
    using Result = std::optional<QString>;
    struct Answer;

    [[nodiscard]] Result playingTrack(const Arguments &arguments);
    [[nodiscard]] Result pause(const Arguments &arguments);
    [[nodiscard]] Result resume(const Arguments &arguments);

    MprisPlayer mPlayer;
};
