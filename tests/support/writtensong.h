#pragma once

#include "songs/songfile.h"

#include <QByteArray>
#include <QString>

/// The tag of a song to be written; empty fields are left out.
struct SongFields {
    QString title{};
    QString artist{};
    QString album{};
    QString year{};
    QString track{};
    QString genres{};
    bool isCompilation = false;
    QByteArray picture{};
};

/// A small MP3 file with that tag at `path`, as a song whose tag is not read yet. A failure ends
/// the test.
std::shared_ptr<SongFile> writtenSong(const QString &path, const SongFields &fields);

/// An encoded picture of one colour.
QByteArray plainPicture(int width, int height, const char *format = "PNG");
