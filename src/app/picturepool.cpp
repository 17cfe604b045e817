#include "app/picturepool.h"

#include <QCryptographicHash>

namespace {

QByteArray digestOf(const QByteArray &data)
{
    return QCryptographicHash::hash(data, QCryptographicHash::Sha256);
}

} // namespace

void PicturePool::share(QList<ID3Image> &pictures)
{
    for (ID3Image &picture : pictures) {
        Shared &shared = mPictures[digestOf(picture.data)];
        if (shared.uses++ == 0) {
            shared.data = picture.data;
            mBytes += picture.data.size();
        }
        picture.data = shared.data;
    }
}

void PicturePool::drop(const QList<ID3Image> &pictures)
{
    for (const ID3Image &picture : pictures) {
        const auto shared = mPictures.find(digestOf(picture.data));
        if (shared == mPictures.end() || --shared->uses > 0)
            continue;
        mBytes -= picture.data.size();
        mPictures.erase(shared);
    }
}
