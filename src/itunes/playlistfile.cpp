#include "itunes/playlistfile.h"

#include "base/bytes.h"
#include "base/fileattributes.h"
#include "base/unicodeforms.h"
#include "itunes/playlistentries.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

/// Some hundred thousand songs; larger files are no playlists.
constexpr qint64 maxSize = 32 << 20;
/// Files and folders that are looked at in search of playlists: more than any music folder holds,
/// but few enough for a home folder or a mount of a whole machine to come to an end.
constexpr int maxVisited = 2'000'000;

struct Ending {
    QStringView name;
    PlaylistFormat format;
};
constexpr std::array endings{
    Ending{u"m3u", PlaylistFormat::M3U},
    Ending{u"m3u8", PlaylistFormat::M3U},
    Ending{u"pls", PlaylistFormat::PLS},
    Ending{u"xspf", PlaylistFormat::XSPF},
};

std::optional<PlaylistFormat> formatOf(const QString &path)
{
    const QString name = path.mid(path.lastIndexOf(u'.') + 1);
    for (const Ending &ending : endings)
        if (name.compare(ending.name, Qt::CaseInsensitive) == 0)
            return ending.format;
    return {};
}

bool startsWithDrive(const QString &path)
{
    return path.size() > 2 && path[0].isLetter() && path[1] == u':'
        && (path[2] == u'/' || path[2] == u'\\');
}

/// Where an entry leads; nothing for streams.
std::optional<QString> pathOfEntry(QString entry, const QDir &folder, const MovedFolders &moved)
{
    if (entry.contains(u"://") || entry.startsWith(u"file:", Qt::CaseInsensitive))
        return pathOfLocation(entry, moved);
    const bool hasDrive = startsWithDrive(entry);
    if (hasDrive || !entry.contains(u'/')) // only Windows separates by backslashes
        entry.replace(u'\\', u'/');
    if (hasDrive || entry.startsWith(u'/'))
        return moved.pathHere(entry);
    return QDir::cleanPath(folder.filePath(entry));
}

/// Null when there is no such file.
QString existingFile(const QString &path)
{
    if (path.contains(QChar(u'\0'))) // the system would see what stands before it
        return {};
    const QString form = existingForm(path);
    return QFileInfo(form).isFile() ? form : QString();
}

void addEntry(PlaylistFile &playlist, const QString &entry, const QDir &folder,
              const MovedFolders &moved)
{
    const auto path = pathOfEntry(entry, folder, moved);
    if (!path)
        return;
    QString found = existingFile(*path);
    if (found.isNull())
        if (const auto plain = pathOfEntry(withoutPercentEscapes(entry), folder, moved))
            found = existingFile(*plain);
    if (found.isNull())
        playlist.missing << *path;
    else
        playlist.paths << found;
}

QByteArray contentsOf(const QString &path)
{
    const auto attributes = FileAttributes::at(path);
    if (attributes && !attributes->isRegular()) // opening a pipe would wait
        throw MalformedData(QStringLiteral("not a file"));
    if (attributes && attributes->size > maxSize)
        throw MalformedData(QStringLiteral("larger than 32 MB"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw MalformedData(file.errorString());
    return file.read(maxSize);
}

PlaylistFile playlistAt(const QString &path, const MovedFolders &moved)
{
    const auto format = formatOf(path);
    if (!format)
        throw MalformedData(QStringLiteral("no playlist by its name"));
    PlaylistFile playlist{nameOfPlaylistFile(path), {}, {}};
    const QDir folder = QFileInfo(path).absoluteDir();
    for (const QString &entry : playlistEntries(contentsOf(path), *format))
        addEntry(playlist, entry, folder, moved);
    return playlist;
}

/// The paths of playlists in one folder; the folders in it are added to `pending`.
QStringList playlistsIn(const fs::path &folder, std::vector<fs::path> &pending, int &visited)
{
    QStringList found;
    std::error_code error;
    for (fs::directory_iterator entries(folder, error), end;
         !error && entries != end && visited < maxVisited; entries.increment(error), ++visited) {
        std::error_code ignored;
        const QString path = QFile::decodeName(entries->path().c_str());
        const bool isHidden = entries->path().filename().native().starts_with('.');
        if (entries->is_directory(ignored)) {
            if (!isHidden && !entries->is_symlink(ignored))
                pending.push_back(entries->path());
        } else if (formatOf(path)) {
            found << path;
        }
    }
    return found;
}

} // namespace

QString nameOfPlaylistFile(const QString &path)
{
    return QFileInfo(path).completeBaseName();
}

PlaylistReading readPlaylistFile(const QString &path, const MovedFolders &moved)
{
    try {
        return {playlistAt(path, moved), {}};
    } catch (const MalformedData &damage) {
        return {{}, damage.reason()};
    }
}

QStringList playlistFilesBelow(const QString &folder)
{
    QStringList found;
    std::vector<fs::path> pending{QFile::encodeName(folder).constData()};
    for (int visited = 0; !pending.empty() && visited < maxVisited;) {
        const fs::path next = std::move(pending.back());
        pending.pop_back();
        found << playlistsIn(next, pending, visited);
    }
    found.sort();
    return found;
}
