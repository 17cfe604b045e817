#include "itunes/libraryreader.h"

#include "base/bytes.h"
#include "base/fileattributes.h"
#include "base/plistelements.h"
#include "base/propertylist.h"
#include "text/integervalue.h"

#include <QBuffer>
#include <QFile>
#include <QSet>

#include <algorithm>
#include <numeric>

namespace {

/// Twice the largest library file heard of.
constexpr qint64 maxSize = qint64(1) << 30;
// More than these is made to fill the memory: an empty track takes ten times its bytes.
constexpr size_t maxTracks = 2'000'000;
constexpr size_t maxPlaylists = 200'000;

/// What marks folders and the lists that come with the program, and what their kind is called.
/// The first sign that a playlist has counts.
struct SpecialKind {
    QStringView key;
    QStringView name;
};
constexpr std::array specialKinds{
    SpecialKind{u"Party Shuffle", u"Party Shuffle"},
    SpecialKind{u"Folder", u"folder"},
    SpecialKind{u"Music", u"Music"},
    SpecialKind{u"Movies", u"Movies"},
    SpecialKind{u"TV Shows", u"TV Shows"},
    SpecialKind{u"Podcasts", u"Podcasts"},
    SpecialKind{u"Audiobooks", u"Audiobooks"},
    SpecialKind{u"Purchased Music", u"Purchased Music"},
    SpecialKind{u"iTunesU", u"iTunes U"},
    SpecialKind{u"Distinguished Kind", u"Genius"},
};
/// The one list that has no sign but its number. Other numbers mean different things in files of
/// different programs.
constexpr int geniusNumber = 26;

struct PlaylistSigns {
    size_t special = specialKinds.size(); ///< position in the table
    bool hasSmartInfo = false;
};

/// The tracks in the order of their keys as texts; of equal keys the last one counts.
std::vector<LibraryTrack> inOrderOfKeys(std::vector<LibraryTrack> tracks,
                                        const std::vector<QString> &keys)
{
    std::vector<quint32> order(tracks.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](quint32 a, quint32 b) { return keys[a] < keys[b]; });
    std::vector<LibraryTrack> ordered;
    ordered.reserve(tracks.size());
    for (size_t i = 0; i < order.size(); ++i)
        if (i + 1 == order.size() || keys[order[i]] != keys[order[i + 1]])
            ordered.push_back(std::move(tracks[order[i]]));
    return ordered;
}

class LibraryReader {
public:
    explicit LibraryReader(QIODevice *device)
        : mElements(device, PropertyList::maxDepth)
    {
    }

    LibraryReading read();

private:
    // Each reads the value whose start tag was just read and leaves its end tag behind; a value of
    // another type is skipped.
    void tracks();
    LibraryTrack track(const QString &key);
    bool readText(LibraryTrack &track);
    bool readNumber(LibraryTrack &track);
    void playlists();
    LibraryPlaylist playlist();
    void readPlaylistValue(LibraryPlaylist &playlist, PlaylistSigns &signs);
    bool readSign();
    std::vector<int> playlistItems();
    int trackIDOfItem();

    /// What a text or a number reads as, valid until the next value; nothing for another type.
    std::optional<QStringView> text();
    int number() { return integerValue(text().value_or(QStringView())); }
    bool isA(QStringView type);
    QString shared(QStringView text);

    PlistElements mElements;
    std::vector<QString> mKeys;
    std::vector<LibraryTrack> mTracks;
    std::vector<LibraryPlaylist> mPlaylists;
    QSet<QString> mShared;
    qint64 mOfOtherTypes = 0; ///< values that were passed over
};

bool LibraryReader::isA(QStringView type)
{
    if (mElements.name() == type)
        return true;
    ++mOfOtherTypes;
    mElements.skip();
    return false;
}

std::optional<QStringView> LibraryReader::text()
{
    for (const QStringView type : {u"string", u"integer", u"real", u"date"})
        if (mElements.name() == type)
            return mElements.text();
    ++mOfOtherTypes;
    mElements.skip();
    return {};
}

QString LibraryReader::shared(QStringView text)
{
    return *mShared.insert(text.toString());
}

bool LibraryReader::readText(LibraryTrack &track)
{
    for (const auto &[key, value] : libraryTexts) {
        if (mElements.key() != key)
            continue;
        if (const auto found = text())
            track.*value = shared(*found);
        return true;
    }
    return false;
}

bool LibraryReader::readNumber(LibraryTrack &track)
{
    for (const auto &[key, value] : libraryNumbers) {
        if (mElements.key() != key)
            continue;
        track.*value = number();
        return true;
    }
    return false;
}

LibraryTrack LibraryReader::track(const QString &key)
{
    LibraryTrack track;
    track.id = integerValue(key);
    while (mElements.nextKey())
        if (!readText(track) && !readNumber(track))
            mElements.skip();
    return track;
}

void LibraryReader::tracks()
{
    if (!isA(u"dict"))
        return;
    while (mElements.nextKey()) {
        if (!isA(u"dict"))
            continue;
        const QString key = mElements.key();
        mTracks.push_back(track(key));
        mKeys.push_back(key);
        if (mKeys.size() > maxTracks)
            mElements.fail(QStringLiteral("more than %1 tracks").arg(maxTracks));
    }
}

int LibraryReader::trackIDOfItem()
{
    int id = 0;
    while (mElements.nextKey()) {
        if (mElements.key() == u"Track ID")
            id = number();
        else
            mElements.skip();
    }
    return id;
}

std::vector<int> LibraryReader::playlistItems()
{
    std::vector<int> ids;
    if (!isA(u"array"))
        return ids;
    while (mElements.nextIsStart())
        if (isA(u"dict"))
            ids.push_back(trackIDOfItem());
    ids.shrink_to_fit();
    return ids;
}

/// Whether the value says that its key applies.
bool LibraryReader::readSign()
{
    if (mElements.key() == u"Distinguished Kind")
        return number() == geniusNumber;
    const bool isTrue = mElements.name() == u"true";
    mElements.skip();
    return isTrue;
}

void LibraryReader::readPlaylistValue(LibraryPlaylist &playlist, PlaylistSigns &signs)
{
    const QString key = mElements.key();
    if (key == u"Playlist Items") {
        playlist.trackIDs = playlistItems();
    } else if (key == u"Playlist ID") {
        playlist.id = number();
    } else if (key == u"Name") {
        playlist.name = text().value_or(QStringView()).toString();
    } else if (key == u"Smart Info") {
        signs.hasSmartInfo = true;
        mElements.skip();
    } else if (readSign()) {
        playlist.isMaster |= key == u"Master";
        for (size_t i = 0; i < signs.special; ++i)
            if (specialKinds[i].key == key)
                signs.special = i;
    }
}

LibraryPlaylist LibraryReader::playlist()
{
    LibraryPlaylist playlist;
    PlaylistSigns signs;
    while (mElements.nextKey())
        readPlaylistValue(playlist, signs);
    if (signs.special < specialKinds.size())
        playlist.specialKind = specialKinds[signs.special].name.toString();
    else
        playlist.isSmart = signs.hasSmartInfo;
    return playlist;
}

void LibraryReader::playlists()
{
    if (!isA(u"array"))
        return;
    while (mElements.nextIsStart()) {
        if (isA(u"dict"))
            mPlaylists.push_back(playlist());
        if (mPlaylists.size() > maxPlaylists)
            mElements.fail(QStringLiteral("more than %1 playlists").arg(maxPlaylists));
    }
}

LibraryReading LibraryReader::read()
{
    mElements.begin();
    if (mElements.name() != u"dict")
        mElements.fail(QStringLiteral("<%1> instead of a dictionary").arg(mElements.name()));
    while (mElements.nextKey()) {
        if (mElements.key() == u"Tracks")
            tracks();
        else if (mElements.key() == u"Playlists")
            playlists();
        else
            mElements.skip();
    }
    mElements.finish();
    const QString problem = mOfOtherTypes == 0
        ? QString()
        : QStringLiteral("%1 values of unexpected types").arg(mOfOtherTypes);
    return {LibraryFile(inOrderOfKeys(std::move(mTracks), mKeys), std::move(mPlaylists)), problem};
}

/// A binary list is turned into XML as a whole: no version is known to keep a large library in one.
LibraryReading readBinary(QIODevice *device)
{
    const PropertyList::Parsed parsed = PropertyList::parse(device->readAll());
    if (!parsed.value.isValid())
        throw MalformedData(parsed.error);
    QByteArray xml = PropertyList::toXml(parsed.value);
    QBuffer buffer(&xml);
    buffer.open(QIODevice::ReadOnly);
    return LibraryReader(&buffer).read();
}

LibraryReading read(QIODevice *device)
{
    if (device->size() > maxSize)
        throw MalformedData(QStringLiteral("larger than 1 GB"));
    return device->peek(6) == "bplist" ? readBinary(device) : LibraryReader(device).read();
}

} // namespace

LibraryReading readLibraryFile(QIODevice *device)
{
    try {
        return read(device);
    } catch (const MalformedData &damage) {
        return {{}, damage.reason()};
    }
}

LibraryReading readLibraryFile(const QString &path)
{
    const auto attributes = FileAttributes::at(path);
    if (attributes && !attributes->isRegular()) // opening a pipe would wait
        return {{}, QStringLiteral("not a file")};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, file.errorString()};
    return readLibraryFile(&file);
}
