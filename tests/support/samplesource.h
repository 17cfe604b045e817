#pragma once

#include "gathering/sourcecatalog.h"
#include "gathering/webdbinterface.h"

/// A source that searches as it is told to.
class SampleSource : public WebDBInterface {
public:
    using Step = std::function<void(SampleSource &)>;

    SampleSource(SiteDefinition definition, HVHTTPQueue &queue, Step start,
                 QString name = QStringLiteral("SampleSource"))
        : WebDBInterface(std::move(definition), queue)
        , mStart(std::move(start))
        , mName(std::move(name))
    {
    }

    static SourceCatalog::Entry entry(const QString &name, Assets supplies, const Step &start)
    {
        return {name, supplies, [=](SiteDefinition definition, HVHTTPQueue &queue) {
                    return std::make_unique<SampleSource>(std::move(definition), queue, start,
                                                          name);
                }};
    }

    using WebDBInterface::addAlbum;
    using WebDBInterface::addPlaceholderSearch;
    using WebDBInterface::addSearchURL;
    using WebDBInterface::albumTitle;
    using WebDBInterface::artist;
    using WebDBInterface::finishedSearch;
    using WebDBInterface::Handler;
    using WebDBInterface::jsonPage;
    using WebDBInterface::passOver;
    using WebDBInterface::postSearch;
    using WebDBInterface::resources;
    using WebDBInterface::songDuration;
    using WebDBInterface::songTitle;
    using WebDBInterface::textBetweenOn;
    using WebDBInterface::usablePage;
    using WebDBInterface::visibleTextOn;

    [[nodiscard]] QString className() const override { return mName; }

protected:
    void startSearch() override { mStart(*this); }

private:
    Step mStart;
    QString mName;
};
