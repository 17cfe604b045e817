#pragma once

#include "app/retrylist.h"
#include "app/worklist.h"

class Report;

/// The list of songs to retry, as a run of the command line uses it. A run that writes no songs
/// leaves the list as it is.
class RetrySongs {
public:
    /// `wanted`: what the run gathers. The report must outlive this.
    RetrySongs(Assets wanted, WriteSongs write, Report &report);

    /// The songs of the list that are there. What is wrong with the list and which songs are gone
    /// is told; those are forgotten, unless their whole folder is away, which may come back.
    [[nodiscard]] QStringList paths();

    void note(const SongOutcome &outcome);
    void save();

private:
    Assets mWanted;
    WriteSongs mWrite;
    Report &mReport;
    RetryList mList;
};
