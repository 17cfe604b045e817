#pragma once

#include <QElapsedTimer>
#include <QString>

/// A line on the terminal that follows a run: song, count, rate and time left. Where standard
/// error is no terminal, nothing is printed.
class ProgressLine {
public:
    ProgressLine();
    ~ProgressLine();
    ProgressLine(const ProgressLine &) = delete;
    ProgressLine &operator=(const ProgressLine &) = delete;

    void show(const QString &song, int done, int total);
    /// Takes the line away, so that other lines can be printed.
    void clear();

private:
    bool mIsTerminal;
    bool mIsShown = false;
    QElapsedTimer mElapsed;
};

/// "12/2000  34 songs/min  58 min left  Artist - Title", cut to `columns` characters.
[[nodiscard]] QString progressText(const QString &song, int done, int total, qint64 milliseconds,
                                   int columns);
