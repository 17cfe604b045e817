#include "itunes/librarylocation.h"

#include "base/fileattributes.h"
#include "base/log.h"
#include "base/propertylist.h"
#include "itunes/libraryreader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr std::chrono::seconds longestUseOfLibrary{2'592'000}; // 30 days
constexpr qint64 maxPreferencesSize = qint64(64) << 20;

QString inHome(const QString &path)
{
    return QDir::homePath() + u'/' + path;
}

QVariantMap preferences()
{
    const QString path = inHome(QStringLiteral("Library/Preferences/com.apple.iTunes.plist"));
    const auto attributes = FileAttributes::at(path);
    QFile file(path);
    if (!attributes || !attributes->isRegular() || attributes->size > maxPreferencesSize
        || !file.open(QIODevice::ReadOnly)) {
        qCWarning(logItunes).noquote() << "Could not find iTunes preferences file";
        return {};
    }
    const PropertyList::Parsed parsed = PropertyList::parse(file.readAll());
    if (!parsed.value.isValid())
        qCWarning(logItunes, "Could not decode iTunes preferences (%s)",
                  qUtf8Printable(parsed.error));
    return parsed.value.toMap();
}

/// The preferences name the folder by an alias record, which only a Mac can resolve.
void warnOfAlias(const QVariantMap &preferences)
{
    for (const char *key : {"alis:1:iTunes Library Location", "alis:11345:Music Folder Location"})
        if (preferences.value(QLatin1String(key)).typeId() == QMetaType::QByteArray) {
            qCWarning(logItunes).noquote()
                << "Could not get path from music folder alias in iTunes preferences";
            return;
        }
}

std::optional<QString> usualFolder()
{
    for (const char *const path : {"Music/iTunes/", "Documents/iTunes/"})
        if (QString folder = inHome(QLatin1String(path)); QFileInfo(folder).isDir())
            return folder;
    qCWarning(logItunes).noquote() << "Could not find iTunes folder in Music or Documents.";
    return {};
}

using Modified = std::pair<time_t, long>; // seconds and nanoseconds

/// When a library file was written; nothing when there is none or it is too old to be used.
std::optional<Modified> timeOfUsable(const QString &path, const Clock &clock)
{
    const auto attributes = FileAttributes::at(path);
    if (!attributes || !attributes->isRegular())
        return {};
    const auto oldest = (clock.now() - longestUseOfLibrary).time_since_epoch();
    const auto seconds = std::chrono::floor<std::chrono::seconds>(oldest);
    const Modified modified{attributes->modified.tv_sec, attributes->modified.tv_nsec};
    if (modified <= Modified{seconds.count(), std::chrono::nanoseconds(oldest - seconds).count()})
        return {};
    return modified;
}

} // namespace

LibraryLocation::LibraryLocation(const Clock &clock)
    : mClock(clock)
{
}

std::optional<QString> LibraryLocation::musicLibraryPath()
{
    if (!mMusicLibraryPath) {
        warnOfAlias(preferences());
        if (const auto folder = usualFolder())
            mMusicLibraryPath = QFileInfo(*folder).canonicalFilePath();
    }
    return mMusicLibraryPath;
}

QStringList LibraryLocation::candidates()
{
    const QString name = QStringLiteral("/iTunes Music Library.xml");
    QStringList paths;
    if (const auto folder = musicLibraryPath())
        paths << *folder + name;
    return paths << inHome(QStringLiteral("Music/iTunes") + name)
                 << inHome(QStringLiteral("Documents/iTunes") + name);
}

bool LibraryLocation::canGetMusicLibraryDictionary()
{
    const QStringList paths = candidates();
    return std::any_of(paths.begin(), paths.end(),
                       [&](const QString &path) { return timeOfUsable(path, mClock).has_value(); });
}

std::optional<QString> LibraryLocation::libraryFilePath()
{
    std::optional<QString> latest;
    std::optional<Modified> latestTime;
    for (const QString &path : candidates()) {
        const auto time = timeOfUsable(path, mClock);
        if (time > latestTime) { // nothing is less than any time
            latest = path;
            latestTime = time;
        }
    }
    return latest;
}

std::optional<LibraryFile> LibraryLocation::musicLibraryDictionary()
{
    const auto path = libraryFilePath();
    if (!path)
        return {};
    LibraryReading reading = readLibraryFile(*path);
    if (!reading.problem.isEmpty())
        qCWarning(logItunes, "Could not read %smusic library %s (%s)",
                  reading.library ? "all of " : "", qUtf8Printable(*path),
                  qUtf8Printable(reading.problem));
    return std::move(reading.library);
}
