#include "gathering/cachefolder.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QTemporaryFile>

#include <cstdio>

namespace {
constexpr auto hashMethod = QCryptographicHash::Sha1;
/// Names this file format; other contents are no entry.
const QByteArray signature = QByteArrayLiteral("twcache1");
/// Files that this room made, finished and not; others in the folder are left alone.
const QString entrySuffix = QStringLiteral(".entry");
const QString unfinishedSuffix = QStringLiteral(".new");

/// What file systems give out; small files would fill a disk beyond the capacity otherwise.
constexpr qint64 blockSize = 4096;

qint64 bytesOnDisk(qint64 size)
{
    return (size + blockSize - 1) / blockSize * blockSize;
}

QString fileNameFor(const QByteArray &key)
{
    const QByteArray name = QCryptographicHash::hash(key, hashMethod).toHex();
    return QString::fromLatin1(name) + entrySuffix;
}

/// The hash stands in front and covers all that follows.
QByteArray sealed(const QByteArray &data)
{
    return signature + QCryptographicHash::hash(data, hashMethod) + data;
}

std::optional<QByteArray> unsealed(const QByteArray &file)
{
    const qsizetype hashBytes = QCryptographicHash::hashLength(hashMethod);
    const qsizetype headBytes = signature.size() + hashBytes;
    if (file.size() < headBytes || !file.startsWith(signature))
        return std::nullopt;
    QByteArray data = file.mid(headBytes);
    if (QCryptographicHash::hash(data, hashMethod) != file.mid(signature.size(), hashBytes))
        return std::nullopt;
    return data;
}
} // namespace

CacheFolder::CacheFolder(QString path)
    : mPath(std::move(path))
{
}

QString CacheFolder::pathOf(const QString &fileName) const
{
    return mPath + QLatin1Char('/') + fileName;
}

/// Asks the disk, not the inventory: another process may have stored it.
std::optional<QByteArray> CacheFolder::read(const QByteArray &key)
{
    QFile file(pathOf(fileNameFor(key)));
    if (!file.open(QIODevice::ReadOnly) || file.size() > mCapacity)
        return std::nullopt;
    std::optional<QByteArray> data = unsealed(file.read(mCapacity));
    if (!data)
        remove(key);
    return data;
}

void CacheFolder::store(const QByteArray &key, const QByteArray &data)
{
    takeInventory();
    const QByteArray contents = sealed(data);
    const QString name = fileNameFor(key);
    QTemporaryFile file(pathOf(QStringLiteral("XXXXXX") + unfinishedSuffix));
    if (!file.open() || file.write(contents) != contents.size() || !file.flush())
        return;
    const QByteArray target = QFile::encodeName(pathOf(name));
    if (std::rename(QFile::encodeName(file.fileName()).constData(), target.constData()) != 0)
        return;
    file.setAutoRemove(false);
    enter(name, bytesOnDisk(contents.size()));
    dropOldest();
}

void CacheFolder::remove(const QByteArray &key)
{
    const QString name = fileNameFor(key);
    QFile::remove(pathOf(name));
    forget(name);
}

/// What earlier runs left. Files of two processes at once are counted by each from its start on.
void CacheFolder::takeInventory()
{
    if (std::exchange(mKnowsFiles, true))
        return;
    QDir folder(mPath);
    folder.mkpath(QStringLiteral("."));
    const QStringList ours{QLatin1Char('*') + entrySuffix, QLatin1Char('*') + unfinishedSuffix};
    const auto files = folder.entryInfoList(ours, QDir::Files, QDir::Time | QDir::Reversed);
    for (const QFileInfo &file : files)
        enter(file.fileName(), bytesOnDisk(file.size()));
}

void CacheFolder::enter(const QString &fileName, qint64 bytes)
{
    forget(fileName);
    mAges.insert(fileName, mNextAge);
    mByAge.emplace(mNextAge++, Entry{fileName, bytes});
    mBytes += bytes;
}

void CacheFolder::forget(const QString &fileName)
{
    const auto age = mAges.constFind(fileName);
    if (age == mAges.constEnd())
        return;
    const auto entry = mByAge.find(*age);
    mBytes -= entry->second.bytes;
    mByAge.erase(entry);
    mAges.erase(age);
}

void CacheFolder::dropOldest()
{
    while (mBytes > mCapacity && !mByAge.empty()) {
        const QString oldest = mByAge.begin()->second.fileName;
        QFile::remove(pathOf(oldest));
        forget(oldest);
    }
}
