#pragma once

#include <QString>

#include <optional>

/// What a song is called by whoever knows it by its sound.
struct SongIdentity {
    QString artist;
    QString title;
    std::optional<QString> album;
};

/// What a song's tag says, which its identity must not contradict, and how long it plays.
struct KnownOfSong {
    std::optional<QString> artist{};
    std::optional<QString> title{};
    std::optional<QString> album{};
    int seconds = 0;
};
