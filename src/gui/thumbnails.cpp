#include "gui/thumbnails.h"

#include "base/background.h"
#include "gathering/httpqueue.h"
#include "gathering/picturereader.h"

#include <utility>

namespace {

Thumbnails::Thumbnail thumbnailOf(const QByteArray &picture, int side)
{
    PictureReader reader(picture);
    const QSize size = reader.size();
    if (!size.isValid())
        return {};
    const QSize fitted = size.scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1});
    return {reader.image(fitted), size};
}

} // namespace

Thumbnails::Thumbnails(HVHTTPQueue &queue, int side, QObject *parent)
    : QObject(parent)
    , mQueue(queue)
    , mSide(side)
{
}

Thumbnails::~Thumbnails()
{
    clear();
}

Thumbnails::Thumbnail Thumbnails::of(const QByteArray &picture)
{
    const auto known = mOfPictures.constFind(picture);
    if (known != mOfPictures.constEnd())
        return *known;
    mOfPictures[picture] = {};
    make(picture, [this, picture](const Thumbnail &made) { mOfPictures[picture] = made; });
    return {};
}

Thumbnails::Thumbnail Thumbnails::at(const QUrl &address)
{
    const auto known = mOfAddresses.constFind(address);
    if (known != mOfAddresses.constEnd())
        return *known;
    mOfAddresses[address] = {};
    mAsked << address;
    mQueue.addURL(address, this, [this, address](const FetchResult &result) {
        if (!mAsked.removeOne(address) || result.data.isEmpty())
            return;
        make(result.data, [this, address](const Thumbnail &made) { mOfAddresses[address] = made; });
    });
    return {};
}

void Thumbnails::make(const QByteArray &picture, const std::function<void(const Thumbnail &)> &then)
{
    runInBackground([picture, side = mSide] { return thumbnailOf(picture, side); }, this,
                    [this, then, round = mRound](const Thumbnail &made) {
                        if (round != mRound)
                            return;
                        then(made);
                        Q_EMIT changed();
                    });
}

void Thumbnails::clear()
{
    ++mRound;
    mOfPictures.clear();
    mOfAddresses.clear();
    for (const QUrl &address : std::exchange(mAsked, {}))
        mQueue.cancelURL(address, this);
}
