#include "demo/samplesites.h"

#include "demo/asklyricspages.h"
#include "demo/bestcoverspages.h"
#include "demo/cduniversepages.h"
#include "demo/coverkingdompages.h"
#include "demo/digestpages.h"
#include "demo/freedbpages.h"
#include "demo/googleimagepages.h"
#include "demo/leoslyricspages.h"
#include "demo/lyricsandsongspages.h"
#include "demo/towerpages.h"

#include <QHttpServerResponse>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Each site stands below the name of its source.
QString pathOf(const SampleSite &site)
{
    return u'/' + site.className + u'/';
}

/// A plus stands for a blank.
QUrlQuery fieldsOf(QString encoded)
{
    return QUrlQuery(encoded.replace(u'+', u' '));
}

} // namespace

const std::vector<SampleSite> &sampleSites()
{
    static const std::vector<SampleSite> sites{
        freeDBPages(),         cdUniversePages(), towerPages(),        ckDigestPages(),
        fredoCoversPages(),    bestCoversPages(), coverKingdomPages(), googleImagePages(),
        lyricsAndSongsPages(), leosLyricsPages(), askLyricsPages(),
    };
    return sites;
}

std::optional<SamplePage> samplePageAt(const QUrl &address, const QByteArray &form)
{
    const QString path = address.path(QUrl::FullyDecoded);
    const auto &sites = sampleSites();
    const auto site = std::find_if(sites.begin(), sites.end(), [&](const SampleSite &each) {
        return path.startsWith(pathOf(each));
    });
    if (site == sites.end())
        return std::nullopt;
    return site->answer({.host = address.authority(QUrl::FullyEncoded),
                         .path = path.sliced(pathOf(*site).size()),
                         .query = fieldsOf(address.query(QUrl::FullyEncoded)),
                         .form = fieldsOf(QString::fromLatin1(form))});
}

SiteDefinitions sampleDefinitions(const SiteDefinitions &defaults, const QString &server)
{
    QVariantMap values = defaults.values();
    const QStringList sources = defaults.sourcelist();
    QStringList withSite;
    for (const SampleSite &site : sampleSites()) {
        const QString key = u"res_"_s + site.className;
        QVariantMap definition = values.value(key).toMap();
        for (const auto &[name, below] : site.addresses.asKeyValueRange())
            definition[name] = QString(server + pathOf(site) + below);
        values[key] = definition;
        withSite << site.className;
    }
    // The others are in the world outside.
    QStringList used;
    std::copy_if(sources.begin(), sources.end(), std::back_inserter(used),
                 [&](const QString &source) { return withSite.contains(source); });
    values[u"sourcelist"_s] = used;
    return SiteDefinitions(values);
}

bool SampleSites::listen()
{
    for (const SampleSite &site : sampleSites())
        mServer.route(pathOf(site), [](const QUrl &, const QHttpServerRequest &request) {
            const auto page = samplePageAt(request.url(), request.body());
            return page ? QHttpServerResponse(page->mimeType, page->body)
                        : QHttpServerResponse(QHttpServerResponse::StatusCode::NotFound);
        });
    mPort = mServer.listen(QHostAddress::LocalHost);
    return mPort != 0;
}

SiteDefinitions SampleSites::definitions(const SiteDefinitions &defaults) const
{
    return sampleDefinitions(defaults, u"http://127.0.0.1:%1"_s.arg(mPort));
}
