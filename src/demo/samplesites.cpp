#include "demo/samplesites.h"

#include "demo/freedbpages.h"

#include <QHttpServerResponse>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

const std::vector<SampleSite> &sampleSites()
{
    static const std::vector<SampleSite> sites{freeDBPages()};
    return sites;
}

/// Each site stands below the name of its source.
QString pathOf(const SampleSite &site)
{
    return u'/' + site.className + u'/';
}

SampleRequest sampleRequest(const QUrl &path, const QHttpServerRequest &request)
{
    return {.path = path.path(QUrl::FullyDecoded),
            .query = request.query(),
            .form = QUrlQuery(QString::fromLatin1(request.body()).replace(u'+', u' '))};
}

} // namespace

bool SampleSites::listen()
{
    for (const SampleSite &site : sampleSites())
        mServer.route(pathOf(site),
                      [answer = site.answer](const QUrl &path, const QHttpServerRequest &request) {
                          const auto page = answer(sampleRequest(path, request));
                          return page
                              ? QHttpServerResponse(page->mimeType, page->body)
                              : QHttpServerResponse(QHttpServerResponse::StatusCode::NotFound);
                      });
    mPort = mServer.listen(QHostAddress::LocalHost);
    return mPort != 0;
}

SiteDefinitions SampleSites::definitions(const SiteDefinitions &defaults) const
{
    QVariantMap values = defaults.values();
    for (const SampleSite &site : sampleSites()) {
        const QString root = u"http://127.0.0.1:%1%2"_s.arg(mPort).arg(pathOf(site));
        const QString key = u"res_"_s + site.className;
        QVariantMap definition = values.value(key).toMap();
        for (const auto &[name, below] : site.addresses.asKeyValueRange())
            definition[name] = QString(root + below);
        values[key] = definition;
    }
    return SiteDefinitions(values);
}
