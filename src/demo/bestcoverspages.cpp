#include "demo/bestcoverspages.h"

#include "demo/coverpictures.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureWidth = 500;

QString picturePath(const SampleAlbum &album)
{
    return u"covers/%1.jpg"_s.arg(fileNameOf(album));
}

QString indexPage(const QString &letter)
{
    QString page = u"<html><head><title>Covers: %1</title></head><body>\n"
                   "<h1>Covers by artist</h1>\n<table class=\"covers\">\n"_s.arg(letter);
    for (const SampleAlbum &album : sampleAlbumsAt(u"BestCoversInterface"_s))
        if (album.artist.startsWith(letter, Qt::CaseInsensitive))
            page +=
                u"<tr><td><b>%1</b></td><td>%2</td><td><a href=\"%3\">Front</a></td></tr>\n"_s.arg(
                    album.artist, album.name, picturePath(album));
    return page + u"</table></body></html>\n"_s;
}

} // namespace

SampleSite bestCoversPages()
{
    return {.className = u"BestCoversInterface"_s,
            .addresses = {{u"baseURL"_s, QString()}},
            .answer = [](const SampleRequest &request) -> std::optional<SamplePage> {
                if (request.path.startsWith(u"index/"))
                    return htmlPage(indexPage(request.path.section(u'/', 1).section(u'.', 0, 0)));
                return pictureAt(u"BestCoversInterface"_s, request.path, picturePath, pictureWidth);
            }};
}
