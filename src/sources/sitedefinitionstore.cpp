#include "sources/sitedefinitionstore.h"

#include "base/log.h"
#include "base/propertylist.h"
#include "base/resources.h"
#include "gathering/definitioncheck.h"

#include <QFile>

namespace {

/// Definitions that one version of the program stored are never used by another.
QString storedKey()
{
    return QStringLiteral("siteDefinitions_" TAGWRIGHT_VERSION);
}

bool isForThisRelease(const SiteDefinitions &definitions)
{
    const QString key = QStringLiteral("latestReleaseNumber");
    return definitions.values().contains(key)
        && SiteDefinition(definitions.values()).integer(key)
        >= SiteDefinitionStore::thisReleaseNumber;
}

constexpr QLatin1String tooLarge{"is larger than 2 MB"};

using Loaded = SiteDefinitionStore::Loaded;

/// A set as it was written; not checked yet.
Loaded parsedSet(const QByteArray &data)
{
    if (data.size() > SiteDefinitionStore::maxSize)
        return {{}, tooLarge};
    const PropertyList::Parsed parsed = PropertyList::parse(data);
    if (!parsed.error.isEmpty())
        return {{}, parsed.error};
    if (parsed.value.typeId() != QMetaType::QVariantMap)
        return {{}, QStringLiteral("is no dictionary")};
    return {SiteDefinitions(parsed.value.toMap()), {}};
}

void logRefusal(const char *which, const QString &problem)
{
    qCWarning(logSources).noquote() << which << "definitions refused:" << problem;
}

/// The set, or nothing and a log line that names the key at fault.
SiteDefinitions setThatHolds(const SiteDefinitions &definitions, const char *which)
{
    const std::optional<QString> problem = problemOfDefinitions(definitions.values());
    if (!problem)
        return definitions;
    logRefusal(which, *problem);
    return {};
}

} // namespace

SiteDefinitionStore::SiteDefinitionStore(QSettings &settings)
    : mSettings(settings)
{
}

const SiteDefinitions &SiteDefinitionStore::liveResources()
{
    if (mIsChosen)
        return mLive;
    if (mLive.isEmpty())
        mLive = storedDefinitions();
    if (mLive.isEmpty())
        mLive = builtInDefinitions();
    return mLive;
}

SiteDefinitions SiteDefinitionStore::storedDefinitions() const
{
    const QByteArray stored = mSettings.value(storedKey()).toByteArray();
    if (stored.isEmpty())
        return {};
    const SiteDefinitions definitions = parsedSet(stored).definitions;
    return isForThisRelease(definitions) ? setThatHolds(definitions, "stored") : SiteDefinitions();
}

SiteDefinitions SiteDefinitionStore::builtInDefinitions()
{
    if (lastCheck.isSet(mSettings))
        lastCheck.unset(mSettings);
    const std::optional<QByteArray> data = resourceData(QStringLiteral("defaultres.xml"));
    if (!data)
        return {};
    const Loaded loaded = parsedSet(*data);
    if (loaded.error.isEmpty())
        return setThatHolds(loaded.definitions, "built-in");
    qCWarning(logSources, "decode defres: %s", qUtf8Printable(loaded.error));
    return {};
}

SiteDefinitionStore::Loaded SiteDefinitionStore::loadFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, file.errorString()};
    Loaded loaded = parsedSet(file.read(maxSize + 1));
    if (!loaded.error.isEmpty())
        return loaded;
    const auto problem = problemOfDefinitions(loaded.definitions.values());
    return problem ? Loaded{{}, *problem} : loaded;
}

void SiteDefinitionStore::useDefinitions(SiteDefinitions definitions)
{
    mLive = std::move(definitions);
    mIsChosen = true;
}

QString SiteDefinitionStore::mergeAndStore(const QByteArray &propertyList)
{
    const Loaded parsed = parsedSet(propertyList);
    if (parsed.error == tooLarge)
        logRefusal("newer", parsed.error);
    if (!parsed.error.isEmpty())
        return parsed.error;
    if (!isForThisRelease(parsed.definitions))
        return QStringLiteral("is meant for a release before %1").arg(thisReleaseNumber);
    if (const auto problem = problemOfDefinitions(parsed.definitions.values())) {
        logRefusal("newer", *problem);
        return *problem;
    }
    QVariantMap merged = liveResources().values();
    merged.insert(parsed.definitions.values());
    const QByteArray stored = PropertyList::toXml(merged);
    if (stored.size() > maxSize) { // it could not be read again
        logRefusal("newer", tooLarge);
        return tooLarge;
    }
    mLive = SiteDefinitions(merged);
    mSettings.setValue(storedKey(), stored);
    mSettings.sync();
    return {};
}
