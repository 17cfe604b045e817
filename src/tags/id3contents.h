#pragma once

#include "tags/framestore.h"
#include "tags/id3ranges.h"

#include <QString>

#include <optional>

/// What reading the ID3 tags of a file gave.
struct ID3Contents {
    FrameStore frames;
    std::optional<QString> readVersion; ///< such as "2.3.0"; "1.1" or "1.0" for ID3v1
    ByteRange id3v1Range;
    ByteRange id3v2Range; ///< header included
    bool encounteredProblem = false;
    QString problem; ///< the first one where it is known, one line for the user

    void noteProblem(const QString &line)
    {
        encounteredProblem = true;
        if (problem.isEmpty())
            problem = line;
    }
};
