#include "demo/shopshelf.h"

#include "demo/samplepictures.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

ShopShelf::ShopShelf(const QString &className, int coverWidth)
    : mAlbums(sampleAlbumsAt(className))
    , mCoverWidth(coverWidth)
{
}

std::optional<SamplePage> ShopShelf::answer(const QString &path, const AlbumPage &albumPage) const
{
    static const QRegularExpression pattern(u"^(album|covers)/(\\d{1,4})(\\.jpg)?$"_s);
    const QRegularExpressionMatch match = pattern.match(path);
    const std::size_t place = match.captured(2).toUInt();
    if (!match.hasMatch() || place >= mAlbums.size())
        return std::nullopt;
    const SampleAlbum &album = mAlbums[place];
    return match.captured(1) == u"covers"
        ? SamplePage{"image/jpeg", samplePicture(album, mCoverWidth, PictureFormat::JPEG)}
        : htmlPage(albumPage(album, static_cast<int>(place)));
}
