#pragma once

#include "base/setting.h"
#include "gathering/sitedefinition.h"

#include <QSettings>
#include <QString>

/// Where the live definitions come from and where newer ones are kept: the definitions stored by
/// this version of the program, else the built-in "defaultres" (a file of that name in the
/// user's data folder wins over it).
class SiteDefinitionStore {
public:
    /// The release that these definitions were written for.
    static constexpr int thisReleaseNumber = 116;
    /// Larger sets are refused.
    static constexpr qsizetype maxSize = qsizetype(2) * 1024 * 1024; // bytes
    /// When newer definitions were last asked for, in seconds since 1970. Unset when the built-in
    /// ones come into use, so that newer ones are asked for at once.
    static constexpr Setting<qint64> lastCheck{"lastDefinitionsCheck", 0};

    explicit SiteDefinitionStore(QSettings &settings);

    /// The live definitions, loaded at the first call. Empty, with a log line, when there are
    /// none that hold; the next call tries again.
    const SiteDefinitions &liveResources();

    struct Loaded {
        SiteDefinitions definitions;
        QString error; ///< one line that names the key, if one is at fault; empty: it went well
    };
    /// The definitions in a property-list file, checked.
    [[nodiscard]] static Loaded loadFile(const QString &path);

    /// Uses these instead of the stored ones, for this process, also when they hold nothing.
    void useDefinitions(SiteDefinitions definitions);

    /// Puts every top-level value of a newer set in place of the live one's and stores the
    /// result. Empty when it did; else nothing changed, and it is one line that says why: the data
    /// is no set that holds, or is meant for an older release.
    [[nodiscard]] QString mergeAndStore(const QByteArray &propertyList);

private:
    [[nodiscard]] SiteDefinitions storedDefinitions() const;
    SiteDefinitions builtInDefinitions();

    QSettings &mSettings;
    SiteDefinitions mLive;
    bool mIsChosen = false; ///< by useDefinitions()
};
