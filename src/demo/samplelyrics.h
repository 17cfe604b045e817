#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// A song whose lyrics the sample sites know. Everything is made up.
struct SampleLyrics {
    QString artist;
    QString title;
    QStringList lines; ///< an empty one stands between two verses
    QStringList sources; ///< class names of the lyrics sources whose sample sites know it
};

[[nodiscard]] const std::vector<SampleLyrics> &sampleLyrics();
/// Those that the sample site of one source knows.
[[nodiscard]] std::vector<SampleLyrics> sampleLyricsAt(const QString &className);
