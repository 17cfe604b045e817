#include "gathering/pathnames.h"

#include "text/simplifier.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <utility>

using HVUtility::isStringSimpleEqual;

namespace {

/// No name of a song or an artist is told by its first letters; longer texts are looked at no
/// further.
constexpr qsizetype longestPlaceholder = 40;
/// Nor is a longer one any use to search with.
constexpr qsizetype longestName = 200;

const QString betweenNames = QStringLiteral(" - ");

QRegularExpression pattern(const char *text)
{
    return QRegularExpression(QLatin1String(text), QRegularExpression::CaseInsensitiveOption);
}

/// The songs in such a folder have nothing in common.
bool saysNothing(const QString &folder)
{
    static const QSet<QString> names{
        QStringLiteral("music"),        QStringLiteral("my music"),  QStringLiteral("musik"),
        QStringLiteral("musique"),      QStringLiteral("mp3"),       QStringLiteral("mp3s"),
        QStringLiteral("songs"),        QStringLiteral("audio"),     QStringLiteral("media"),
        QStringLiteral("itunes"),       QStringLiteral("downloads"), QStringLiteral("download"),
        QStringLiteral("new folder"),   QStringLiteral("desktop"),   QStringLiteral("documents"),
        QStringLiteral("home"),         QStringLiteral("mnt"),       QStringLiteral("tmp"),
        QStringLiteral("itunes media"),
    };
    return names.contains(folder.toLower()) || isPlaceholder(folder);
}

bool isVarious(const QString &artist)
{
    static const QRegularExpression various =
        pattern("\\A(various( artists)?|va|v\\.a\\.|compilations)\\z");
    return various.match(artist).hasMatch();
}

/// "_" stands for a blank, or for a sign that file systems do not take.
QString cleaned(QString name)
{
    name.replace(u'_', u' ').replace(QStringLiteral(" – "), betweenNames);
    return name.left(longestName).simplified();
}

std::optional<QString> named(const QString &name)
{
    return name.isEmpty() || isPlaceholder(name) ? std::nullopt : std::optional(name);
}

struct FileNames {
    QStringList names; ///< what stands between dashes, without the track's number
    bool isNumbered = false;
};

/// "03", "03.", "1-03"
bool isTrackNumber(const QString &part)
{
    static const QRegularExpression number = pattern("\\A(\\d{1,2}-)?\\d{1,3}\\.?\\z");
    return number.match(part).hasMatch();
}

/// "7 Seconds" and "99 Luftballons" begin with no number of a track.
qsizetype lengthOfTrackNumber(const QString &name)
{
    static const QRegularExpression number =
        pattern("\\A(\\d{1,2}-\\d{2}[ .]|\\d{1,3}[.)-]|[(\\[]\\d{1,3}[)\\]]|0\\d{1,2} |[12]\\d ) *"
                "(?=\\S)");
    return number.match(name).capturedLength();
}

FileNames namesOfFile(const QString &stem)
{
    FileNames file{stem.split(betweenNames, Qt::SkipEmptyParts)};
    const qsizetype before = file.names.size();
    for (qsizetype i = before - 2; i >= 0; --i)
        if (isTrackNumber(file.names[i]))
            file.names.removeAt(i);
    file.isNumbered = file.names.size() < before;
    if (!file.isNumbered && !file.names.isEmpty()) {
        const qsizetype length = lengthOfTrackNumber(file.names.first());
        file.names.first().remove(0, length);
        file.isNumbered = length > 0;
    }
    return file;
}

/// "Album" of "1999 - Album (1999) [FLAC]".
QString withoutYearAndFormat(QString folder)
{
    static const QRegularExpression bracketed =
        pattern("[(\\[{]((19|20)\\d\\d|flac|mp3|aac|m4a|v0|v2|\\d+ ?k|web|vinyl)[^)\\]}]*[)\\]}]");
    static const QRegularExpression year =
        pattern("(\\A(19|20)\\d\\d - )|( - (19|20)\\d\\d(?= - ))");
    return folder.remove(bracketed).simplified().remove(year).trimmed();
}

/// From the inmost one; those of the discs of an album are left out.
QStringList foldersAbove(const QString &path, const QString &home)
{
    static const QRegularExpression disc = pattern("\\A(cd|disc|disk) ?\\d{1,2}\\z");
    QString folder = QFileInfo(path).path();
    if (!home.isEmpty() && (folder + u'/').startsWith(home + u'/'))
        folder.remove(0, home.size());
    QStringList folders;
    QStringList inside = folder.split(u'/', Qt::SkipEmptyParts);
    inside.removeAll(QStringLiteral("."));
    for (const QString &name : std::as_const(inside))
        folders.prepend(withoutYearAndFormat(cleaned(name)));
    while (!folders.isEmpty() && disc.match(folders.first()).hasMatch())
        folders.removeFirst();
    return folders;
}

/// What the folders say, whatever the file says.
PathNames namesOfFolders(const QStringList &folders, bool isNumbered)
{
    PathNames names;
    const QString folder = folders.value(0);
    if (folder.isEmpty() || saysNothing(folder))
        return names;
    const qsizetype dash = folder.indexOf(betweenNames);
    const QString above = folders.value(1);
    if (dash > 0) {
        names.artist = named(folder.left(dash));
        names.album = named(folder.mid(dash + betweenNames.size()));
    } else if (!above.isEmpty() && !saysNothing(above)) {
        names.artist = above;
        names.album = folder;
    } else if (isNumbered) {
        names.album = folder;
    } else {
        names.artist = folder;
    }
    names.isOfVarious = names.artist && isVarious(*names.artist);
    if (names.isOfVarious)
        names.artist.reset();
    return names;
}

/// Of a file that names an artist: its folder may be any, unless it is that of an album.
bool isInItsAlbum(const QString &artist, bool isNumbered, const PathNames &folders)
{
    return isNumbered || folders.isOfVarious || isStringSimpleEqual(artist, folders.artist);
}

PathNames joined(const FileNames &file, const PathNames &folders)
{
    QStringList parts = file.names;
    PathNames names = folders;
    const bool beginsWithAlbum =
        parts.size() > 1 && folders.artist && isStringSimpleEqual(parts.first(), folders.album);
    if (beginsWithAlbum) {
        parts.removeFirst();
    } else if (parts.size() > 1) {
        names.artist = named(parts.takeFirst());
        if (!isInItsAlbum(names.artist.value_or(QString()), file.isNumbered, folders))
            names.album.reset();
        const bool namesAlbum = parts.size() > 1
            && (file.isNumbered || isStringSimpleEqual(parts.first(), folders.album));
        if (namesAlbum)
            names.album = named(parts.takeFirst());
    }
    const QString title = parts.join(betweenNames);
    const bool isNumberAlone = file.names.size() == 1 && isTrackNumber(title);
    names.title = isNumberAlone ? std::nullopt : named(title);
    return names;
}

} // namespace

PathNames namesOfPath(const QString &path, const QString &home)
{
    const FileNames file = namesOfFile(cleaned(QFileInfo(path).completeBaseName()));
    return joined(file, namesOfFolders(foldersAbove(path, home), file.isNumbered));
}

bool isPlaceholder(const QString &text)
{
    static const QRegularExpression placeholder =
        pattern("\\A(unknown( artist| album| title)?|untitled|(audio ?)?track[ _-]*\\d*)\\z");
    return text.size() <= longestPlaceholder && placeholder.match(text.simplified()).hasMatch();
}
