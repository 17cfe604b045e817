#include "songs/cachebucket.h"

#include "base/bytes.h"

#include <QCborStreamReader>
#include <QCborStreamWriter>
#include <QCryptographicHash>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView signature = "twsongs1";
constexpr auto hashMethod = QCryptographicHash::Sha1;
/// Summaries of other versions of the program are made anew: they may have read tags otherwise. The
/// second number counts what summaries hold.
constexpr QLatin1String version(TAGWRIGHT_VERSION "/2");

/// The texts of a summary by their keys in the file.
constexpr std::array<std::pair<QLatin1String, QString CachedInfo::*>, 8> textKeys{{
    {"tit"_L1, &CachedInfo::title},
    {"perf"_L1, &CachedInfo::artist},
    {"alb"_L1, &CachedInfo::album},
    {"trk"_L1, &CachedInfo::track},
    {"yr"_L1, &CachedInfo::year},
    {"gnr"_L1, &CachedInfo::genre},
    {"bpm"_L1, &CachedInfo::bpm},
    {"ver"_L1, &CachedInfo::readVersion},
}};
constexpr auto modDateKey = "mod"_L1;
constexpr auto changeDateKey = "chg"_L1;
constexpr auto madeAtKey = "made"_L1;
constexpr auto dialectKey = "std"_L1;
constexpr auto lyricsKey = "lyr"_L1;
constexpr auto artworksKey = "nart"_L1;
constexpr auto compilationKey = "comp"_L1;
constexpr auto iconKey = "icon"_L1; ///< the number of one of the file's icons

class Archiver {
public:
    QByteArray archive(const CacheBucket &bucket)
    {
        const auto songs = inOrder(bucket);
        for (const auto &[path, info] : songs)
            if (!info->icon.isNull() && !mIconNumbers.contains(info->icon))
                mIconNumbers.insert(info->icon, mIconNumbers.size());
        mWriter.startArray(3);
        mWriter.append(version);
        appendIcons();
        mWriter.startMap(songs.size());
        for (const auto &[path, info] : songs) {
            mWriter.append(path);
            append(*info);
        }
        mWriter.endMap();
        mWriter.endArray();
        return std::move(mBytes);
    }

private:
    using Song = std::pair<QString, CachedInfoPointer>;

    /// By path, so that those who have texts in common are neighbours when they are read again.
    static std::vector<Song> inOrder(const CacheBucket &bucket)
    {
        std::vector<Song> songs;
        songs.reserve(static_cast<size_t>(bucket.size()));
        for (auto song = bucket.cbegin(); song != bucket.cend(); ++song)
            songs.emplace_back(song.key(), song.value());
        std::sort(songs.begin(), songs.end(),
                  [](const Song &a, const Song &b) { return a.first < b.first; });
        return songs;
    }

    void appendIcons()
    {
        QList<QByteArray> icons(mIconNumbers.size());
        for (auto icon = mIconNumbers.cbegin(); icon != mIconNumbers.cend(); ++icon)
            icons[icon.value()] = icon.key();
        mWriter.startArray(static_cast<quint64>(icons.size()));
        for (const QByteArray &icon : std::as_const(icons))
            mWriter.append(icon);
        mWriter.endArray();
    }

    void append(const CachedInfo &info)
    {
        mWriter.startMap();
        append(modDateKey, info.modDate.modified);
        append(changeDateKey, info.modDate.changed);
        append(madeAtKey, info.madeAt);
        for (const auto &[key, text] : textKeys)
            if (!(info.*text).isNull())
                append(key, info.*text);
        if (!info.packedLyrics.isNull())
            append(lyricsKey, info.packedLyrics);
        if (info.numberOfArtworks != 0)
            append(artworksKey, qint64(info.numberOfArtworks));
        if (info.isCompilation)
            append(compilationKey, u"y"_s);
        if (info.isStandardDialect)
            append(dialectKey, u"y"_s);
        if (!info.icon.isNull())
            append(iconKey, qint64(mIconNumbers.value(info.icon)));
        mWriter.endMap();
    }

    template<typename Value>
    void append(QLatin1String key, const Value &value)
    {
        mWriter.append(key);
        mWriter.append(value);
    }

    QByteArray mBytes;
    QCborStreamWriter mWriter{&mBytes};
    QHash<QByteArray, qsizetype> mIconNumbers;
};

class Unarchiver {
public:
    explicit Unarchiver(const QByteArray &bytes)
        : mReader(bytes)
    {
    }

    CacheBucket unarchive()
    {
        enter(mReader.isArray());
        if (text() != version)
            return {};
        readIcons();
        readSongs();
        return std::move(mBucket);
    }

private:
    static void demand(bool holds)
    {
        if (!holds)
            throw MalformedData(QStringLiteral("it is not what a cache file holds"));
    }

    void enter(bool isContainer) { demand(isContainer && mReader.enterContainer()); }
    void leave() { demand(mReader.leaveContainer()); }

    bool atEndOfContainer()
    {
        demand(mReader.lastError() == QCborError::NoError);
        return !mReader.hasNext();
    }

    qint64 integer()
    {
        demand(mReader.isInteger());
        const qint64 value = mReader.toInteger();
        mReader.next();
        return value;
    }

    /// All the chunks of a text or of bytes.
    template<typename Text, typename Read>
    Text whole(Read read)
    {
        Text text(0, Qt::Uninitialized); // empty, not null
        auto chunk = read();
        for (; chunk.status == QCborStreamReader::Ok; chunk = read())
            text = text.isEmpty() ? chunk.data : Text(text + chunk.data);
        demand(chunk.status == QCborStreamReader::EndOfString);
        return text;
    }

    QString text()
    {
        demand(mReader.isString());
        return whole<QString>([this] { return mReader.readString(); });
    }

    /// Valid until the next one is read.
    QLatin1String key()
    {
        demand(mReader.isString());
        const auto chunk = mReader.readStringChunk(mKey.data(), std::ssize(mKey));
        demand(chunk.status == QCborStreamReader::Ok);
        std::array<char, 1> rest;
        demand(mReader.readStringChunk(rest.data(), std::ssize(rest)).status
               == QCborStreamReader::EndOfString);
        return QLatin1String(mKey.data(), chunk.data);
    }

    QByteArray bytes()
    {
        demand(mReader.isByteArray());
        return whole<QByteArray>([this] { return mReader.readByteArray(); });
    }

    void readIcons()
    {
        for (enter(mReader.isArray()); !atEndOfContainer();) {
            demand(mIcons.size() < maxSongsOfBucket);
            mIcons.append(bytes());
        }
        leave();
    }

    void readSongs()
    {
        CachedInfo neighbour;
        for (enter(mReader.isMap()); !atEndOfContainer();) {
            demand(mBucket.size() < maxSongsOfBucket);
            const QString path = text();
            CachedInfo info = readInfo();
            info.shareWith(neighbour);
            neighbour = info;
            mBucket.insert(path, std::make_shared<const CachedInfo>(std::move(info)));
        }
        leave();
    }

    CachedInfo readInfo()
    {
        CachedInfo info;
        for (enter(mReader.isMap()); !atEndOfContainer();)
            readEntry(info, key());
        leave();
        return info;
    }

    void readEntry(CachedInfo &info, QLatin1String key)
    {
        for (const auto &[name, field] : textKeys) {
            if (key == name) {
                info.*field = text();
                return;
            }
        }
        if (key == modDateKey)
            info.modDate.modified = integer();
        else if (key == changeDateKey)
            info.modDate.changed = integer();
        else if (key == madeAtKey)
            info.madeAt = integer();
        else if (key == lyricsKey)
            info.packedLyrics = bytes();
        else
            readRest(info, key);
    }

    void readRest(CachedInfo &info, QLatin1String key)
    {
        if (key == artworksKey) {
            const qint64 count = integer();
            demand(count > 0 && count <= std::numeric_limits<int>::max());
            info.numberOfArtworks = static_cast<int>(count);
        } else if (key == iconKey) {
            const qint64 number = integer();
            demand(number >= 0 && number < mIcons.size());
            info.icon = mIcons.at(number);
        } else {
            demand(key == compilationKey || key == dialectKey);
            (key == compilationKey ? info.isCompilation : info.isStandardDialect) = true;
            demand(mReader.next());
        }
    }

    QCborStreamReader mReader;
    std::array<char, 8> mKey; ///< as long as the longest one, and longer
    QList<QByteArray> mIcons;
    CacheBucket mBucket;
};

} // namespace

QString bucketKeyForSongPath(QStringView path)
{
    const QStringView folder = path.first(std::max<qsizetype>(path.lastIndexOf(u'/'), 0));
    constexpr qsizetype leastLength = 4;
    if (folder.size() < leastLength || !folder.startsWith(u'/'))
        return {};
    const uint first = folder.at(folder.size() - 3).unicode();
    const uint second = folder.at(folder.size() - 1).unicode();
    return QString::number(first * 16 + second, 16);
}

QByteArray archivedBucket(const CacheBucket &bucket)
{
    const QByteArray content = Archiver().archive(bucket);
    return signature.toByteArray() + QCryptographicHash::hash(content, hashMethod) + content;
}

CacheBucket unarchivedBucket(const QByteArray &file)
{
    if (file.size() > maxCacheFileSize)
        throw MalformedData(QStringLiteral("it is too large for a cache file"));
    ByteReader reader(file);
    if (reader.bytes(signature.size()) != signature)
        throw MalformedData(QStringLiteral("it does not begin like a cache file"));
    const QByteArrayView hash = reader.bytes(QCryptographicHash::hashLength(hashMethod));
    const QByteArrayView rest = reader.rest();
    const auto content = QByteArray::fromRawData(rest.data(), rest.size());
    if (QCryptographicHash::hash(content, hashMethod) != hash)
        throw MalformedData(QStringLiteral("its checksum is wrong"));
    return Unarchiver(content).unarchive();
}

void mergeInto(CacheBucket &bucket, const CacheBucket &other)
{
    for (auto song = other.cbegin(); song != other.cend(); ++song) {
        CachedInfoPointer &ours = bucket[song.key()];
        if (!ours || ours->madeAt < song.value()->madeAt)
            ours = song.value();
    }
}
