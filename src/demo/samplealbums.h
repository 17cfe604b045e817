#pragma once

#include <QString>
#include <QStringList>

#include <vector>

/// An album of the sample sites. Artists and titles are made up.
struct SampleAlbum {
    QString discID; ///< "genre/number", as the track database names discs; empty if not there
    QString artist;
    QString name;
    QString year;
    QString genre;
    QStringList tracks;
    QStringList sources; ///< class names of the sources whose sample sites know it
};

[[nodiscard]] const std::vector<SampleAlbum> &sampleAlbums();
/// Those that the sample site of one source knows.
[[nodiscard]] std::vector<SampleAlbum> sampleAlbumsAt(const QString &className);
