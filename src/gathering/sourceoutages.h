#pragma once

#include "base/clock.h"
#include "gathering/asset.h"

#include <QHash>
#include <QSet>
#include <QString>

/// A source that could not be asked about a song.
struct UnaskedSource {
    QString className;
    Assets missing; ///< what the song lacks that it may supply

    bool operator==(const UnaskedSource &) const = default;
};

/// What the sources that were to be asked about a song may supply, by what came of it.
struct AskedAssets {
    Assets answered; ///< whether or not something was found
    Assets unanswered;
    Assets tooLittleKnown; ///< there was nothing to ask by
};

/// The sources of a run that give no answer. One that gave none several times in a row is marked
/// for the run and left alone, so that the others get on. The mark is checked now and then: one
/// song asks the source again, and an answer puts it back into use.
class SourceOutages {
public:
    /// Searches without an answer in a row after which a source is left alone.
    static constexpr int mostUnanswered = 3;
    /// For how long at first; each time that it still gives no answer twice as long.
    static constexpr std::chrono::minutes firstPause{5};

    explicit SourceOutages(const Clock &clock = systemClock())
        : mClock(clock)
    {
    }

    void answered(const QString &className) { mOutages.remove(className); }
    void unanswered(const QString &className);
    [[nodiscard]] bool isLeftAlone(const QString &className) const;
    /// Those that were marked in this run, whether or not they came back.
    [[nodiscard]] const QSet<QString> &marked() const { return mMarked; }
    /// A new run asks all of them.
    void clear();

private:
    struct Outage {
        int inRow = 0;
        std::chrono::minutes pause = firstPause;
        Clock::Time since{}; ///< of the last one
    };

    const Clock &mClock;
    QHash<QString, Outage> mOutages;
    QSet<QString> mMarked;
};
