#pragma once

#include "base/clock.h"
#include "itunes/libraryfile.h"

#include <QString>

#include <optional>

/// Where the music library program keeps its library. Everything is looked for below the home
/// folder and in the folder that its preferences name.
class LibraryLocation {
public:
    /// `clock` outlives this.
    explicit LibraryLocation(const Clock &clock = systemClock());

    /// The folder of the library. Once found it is not looked for again.
    [[nodiscard]] std::optional<QString> musicLibraryPath();

    /// Whether there is a library file that was written within the last 30 days.
    [[nodiscard]] bool canGetMusicLibraryDictionary();
    /// The latest of them; of two as late as each other the first that is looked at.
    [[nodiscard]] std::optional<QString> libraryFilePath();
    /// What it holds, read anew at each call, so that every load reflects its current contents. A
    /// file that cannot be read is logged. Takes seconds for large libraries: libraryFilePath and
    /// readLibraryFile do the same in two steps, the second on any thread.
    [[nodiscard]] std::optional<LibraryFile> musicLibraryDictionary();

private:
    [[nodiscard]] QStringList candidates();

    const Clock &mClock;
    std::optional<QString> mMusicLibraryPath;
};
