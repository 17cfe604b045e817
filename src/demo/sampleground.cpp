#include "demo/sampleground.h"

#include "demo/samplesongs.h"

#include <QDir>

SampleGround::SampleGround()
    : mError(setUp())
{
}

QString SampleGround::setUp()
{
    if (!mFolder.isValid() || !QDir().mkpath(songs()))
        return mFolder.errorString();
    if (QString error = makeSampleSongs(songs()); !error.isEmpty())
        return error;
    if (!mSites.listen())
        return QStringLiteral("no port of this machine can be listened on");
    // Pages of sites that live as long as this process are of no use to the next one.
    mEngine.emplace(Engine::Pages::InMemory, mFolder.filePath(QStringLiteral("settings")));
    mEngine->definitions.useDefinitions(mSites.definitions(mEngine->definitions.liveResources()));
    mEngine->start(Engine::Definitions::Fixed);
    return {};
}
