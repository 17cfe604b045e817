#include "app/retrylist.h"

#include "app/worklist.h"
#include "base/descriptor.h"
#include "base/folders.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int formatVersion = 1;

/// No list of ours is longer, even of songs deep in folders.
constexpr qint64 mostBytes = qint64(64) * 1024 * 1024;

constexpr std::chrono::seconds betweenSaves{60};

/// Another program of ours holds the lock for moments only.
constexpr std::chrono::seconds patienceWithLock{5};

Assets assetsOf(const QJsonArray &keys)
{
    Assets assets;
    for (const AssetName &name : assetNames)
        assets.setFlag(name.asset, keys.contains(QLatin1String(name.key)));
    return assets;
}

QMap<QString, Assets> unaskedOf(const QJsonObject &sources)
{
    QMap<QString, Assets> unasked;
    for (auto source = sources.begin(); source != sources.end(); ++source)
        if (const Assets missing = assetsOf(source.value().toArray()))
            unasked.insert(source.key(), missing);
    return unasked;
}

QJsonObject asJson(const QMap<QString, Assets> &unasked)
{
    QJsonObject sources;
    for (auto source = unasked.begin(); source != unasked.end(); ++source)
        sources.insert(source.key(), QJsonArray::fromStringList(keysOfAssets(source.value())));
    return sources;
}

} // namespace

QString RetryList::usualFile()
{
    return stateFolder() + u"/retry.json"_s;
}

RetryList::RetryList(QString file, const Clock &clock)
    : mFile(std::move(file))
    , mClock(clock)
    , mLastSave(clock.now())
{
}

RetryList::Songs RetryList::takeUp()
{
    const Contents contents = read();
    Songs songs;
    songs.problem = contents.problem;
    for (const Entry &entry : contents.entries) {
        const QFileInfo song(entry.path);
        if (song.exists())
            songs.there << entry.path;
        else if (song.dir().exists())
            songs.gone << entry.path;
        else
            ++songs.away;
    }
    for (const QString &path : std::as_const(songs.gone))
        mChanges[path].isGone = true;
    return songs;
}

void RetryList::note(const SongOutcome &outcome, Assets wanted)
{
    Change change{outcome.failed ? Assets() : wanted};
    for (const UnaskedSource &source : outcome.unasked)
        change.unasked.insert(source.className, source.missing);
    const QFileInfo song(outcome.song->path());
    mChanges.insert(QDir::cleanPath(song.absoluteFilePath()), change);
}

void RetryList::Change::applyTo(Unasked &former) const
{
    if (isGone)
        return former.clear();
    for (Assets &missing : former)
        missing &= ~settled;
    for (auto source = unasked.begin(); source != unasked.end(); ++source)
        former[source.key()] |= source.value();
    former.removeIf([](const auto &source) { return !source.value(); });
}

bool RetryList::isSaveDue() const
{
    return !mChanges.isEmpty() && mClock.now() - mLastSave >= betweenSaves;
}

RetryList::Saved RetryList::save()
{
    if (mChanges.isEmpty())
        return {};
    mLastSave = mClock.now();
    const QString folder = QFileInfo(mFile).path();
    QDir().mkpath(folder);
    const Descriptor lock = openFolder(folder);
    if (!lock)
        return {reasonOf(lastError()), {}};
    if (!lockFile(lock.get(), patienceWithLock))
        return {u"is in use by another program"_s, {}};
    const Contents before = read();
    const Entries after = changed(before.entries, mChanges);
    const Saved saved{after == before.entries ? QString() : write(after), before.problem};
    if (saved.failure.isEmpty())
        mChanges.clear();
    return saved;
}

RetryList::Contents RetryList::read() const
{
    QFile file(mFile);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        return {{}, file.errorString()};
    return parsed(file.read(mostBytes + 1));
}

RetryList::Contents RetryList::parsed(const QByteArray &data)
{
    const Contents damaged{{}, u"is damaged and counts as empty"_s};
    const QJsonObject list =
        data.size() > mostBytes ? QJsonObject() : QJsonDocument::fromJson(data).object();
    if (list.value("version"_L1).toInt() != formatVersion)
        return damaged;
    Contents contents;
    for (const QJsonValue &song : list.value("songs"_L1).toArray()) {
        const Entry entry{song["path"_L1].toString(), unaskedOf(song["unasked"_L1].toObject())};
        if (!QDir::isAbsolutePath(entry.path) || entry.unasked.isEmpty())
            return damaged;
        contents.entries << entry;
    }
    return contents;
}

/// Songs that are on the list keep their places, new ones come behind them.
RetryList::Entries RetryList::changed(Entries entries, const QHash<QString, Change> &changes)
{
    QHash<QString, Change> left = changes;
    for (Entry &entry : entries)
        left.take(entry.path).applyTo(entry.unasked);
    QStringList paths = left.keys();
    std::sort(paths.begin(), paths.end());
    for (const QString &path : paths) {
        entries << Entry{path, {}};
        left.value(path).applyTo(entries.last().unasked);
    }
    entries.removeIf([](const Entry &entry) { return entry.unasked.isEmpty(); });
    return entries.mid(std::max<qsizetype>(0, entries.size() - mostSongs));
}

QString RetryList::write(const Entries &entries) const
{
    if (entries.isEmpty())
        return QFile::remove(mFile) ? QString() : u"cannot be removed"_s;
    QJsonArray songs;
    for (const Entry &entry : entries)
        songs.append(QJsonObject{{u"path"_s, entry.path}, {u"unasked"_s, asJson(entry.unasked)}});
    const QJsonObject list{{u"version"_s, formatVersion}, {u"songs"_s, songs}};
    QSaveFile file(mFile);
    const bool isWritten = file.open(QIODevice::WriteOnly)
        && file.write(QJsonDocument(list).toJson(QJsonDocument::Compact)) >= 0 && file.commit();
    return isWritten ? QString() : file.errorString();
}
