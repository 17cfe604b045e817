#pragma once

#include "songs/songfile.h"
#include "support/tempfiles.h"

#include <QImage>

#include <unistd.h>

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

QByteArray encoded(const QImage &image, const char *format, int quality = -1);
/// An encoded picture of one colour.
QByteArray plainPicture(int width, int height, const char *format = "PNG",
                        Qt::GlobalColor color = Qt::blue);

/// Runs `call` as a user that file permissions hold for, also in tests that root starts.
template<typename Call>
auto withoutRights(Call call)
{
    constexpr uid_t nobody = 65534;
    const bool isRoot = ::geteuid() == 0;
    if (isRoot && ::seteuid(nobody) != 0)
        qFatal("cannot give up the rights of root");
    const auto result = call();
    if (isRoot && ::seteuid(0) != 0)
        qFatal("cannot be root again");
    return result;
}
