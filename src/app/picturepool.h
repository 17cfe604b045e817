#pragma once

#include "tags/id3image.h"

#include <QHash>
#include <QList>

/// Pictures that are kept for many songs: those of one album mostly have the same, whose bytes are
/// held once.
class PicturePool {
public:
    /// Has equal pictures share their bytes. Each call is to be paid back by a drop().
    void share(QList<ID3Image> &pictures);
    void drop(const QList<ID3Image> &pictures);

    [[nodiscard]] qint64 bytes() const { return mBytes; }

private:
    struct Shared {
        QByteArray data;
        int uses = 0;
    };
    QHash<QByteArray, Shared> mPictures; ///< by digest
    qint64 mBytes = 0;
};
