#include "demo/coverkingdompages.h"

#include "demo/coverpictures.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureWidth = 800;

QString picturePath(const SampleAlbum &album)
{
    return u"scans/%1/%2_front.jpg"_s.arg(album.artist.front().toUpper()).arg(fileNameOf(album));
}

QString indexPage(const QString &letter)
{
    QString albums;
    QString scans;
    int count = 0;
    for (const SampleAlbum &album : sampleAlbumsAt(u"CoverKingdomInterface"_s)) {
        if (!album.artist.startsWith(letter, Qt::CaseInsensitive))
            continue;
        albums += u"<li><a href=\"%1\">%2 - %3</a></li>\n"_s.arg(fileNameOf(album), album.artist,
                                                                 album.name);
        scans += u"scan([%1],\"back.jpg\",\"Back\");\nscan([%1],\"front.jpg\",\"Front\");\n"_s.arg(
            count++);
    }
    return u"<html><body><h1>Audio covers: %1</h1>\n<ul id=\"albums\">\n%2</ul>\n"
           "<script id=\"scans\">\n%3</script></body></html>\n"_s.arg(letter, albums, scans);
}

} // namespace

SampleSite coverKingdomPages()
{
    return {.className = u"CoverKingdomInterface"_s,
            .addresses = {{u"baseURL"_s, QString()}, {u"coverAudioPrefix"_s, u"scans/"_s}},
            .answer = [](const SampleRequest &request) -> std::optional<SamplePage> {
                if (request.path.startsWith(u"index/"))
                    return htmlPage(indexPage(request.path.section(u'/', 1).section(u'.', 0, 0)));
                return pictureAt(u"CoverKingdomInterface"_s, request.path, picturePath,
                                 pictureWidth);
            }};
}
