#pragma once

#include "base/clock.h"
#include "gathering/httpqueue.h"
#include "sources/releaseannouncement.h"
#include "sources/sitedefinitionstore.h"

#include <QObject>

/// Fetches newer site definitions at most once a day. The addresses are build options; without
/// one nothing is ever fetched.
class DefinitionsUpdate : public QObject {
    Q_OBJECT

public:
    DefinitionsUpdate(SiteDefinitionStore &store, QSettings &settings, HVHTTPQueue &queue,
                      const Clock &clock = systemClock());

    /// Other addresses than those of the build; "%@" stands for the version. Only https is used,
    /// or http to this machine.
    void setAddresses(const QString &address, const QString &fallbackAddress);
    /// Asks when there is an address and the last check is not of the last 24 hours.
    void checkDaily();
    /// Asks whenever the last check was; false when there is no address.
    bool checkNow();

Q_SIGNALS:
    /// A check is over, once for each: `problem` is why there are no newer definitions, one line.
    void finished(const QString &problem);
    /// Newer definitions are in use from now on.
    void merged();
    /// They tell of a newer release.
    void releaseAnnounced(const ReleaseAnnouncement &release);

private:
    [[nodiscard]] bool wasCheckedWithinADay() const;
    void fetch(const QString &address);
    void gotNewResources(const FetchResult &result, const QString &address);
    void tellOfMerged();
    void fetchFailed(const QString &address, const QString &reason);

    SiteDefinitionStore &mStore;
    QSettings &mSettings;
    HVHTTPQueue &mQueue;
    const Clock &mClock;
    QString mAddress;
    QString mFallbackAddress;
};
